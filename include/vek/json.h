/// @file
/// Data trees as JSON text. The form of every value stands in docs/data-file.md.
///
/// It belongs to the target `vek::json`; the library itself needs no JSON.
#pragma once

#include <vek/data/item.h>

#include <cstddef>
#include <string>

namespace VEK
{

/// Directories may lie this deep in each other in a JSON text, the outermost one counted.
inline constexpr int kJsonDepth = 512;

/// Reads a tree from a file or from bytes in UTF-8. Every value comes back as it was saved, reals to their last bit.
/// @param tree receives the contents in place of its own; on failure it stays as it was
/// @param error receives "NAME:LINE: cause" on failure, without the line where a file cannot be read at all or the
/// memory is not to be had, and stays untouched otherwise; NAME is the path or `name`
bool jsonLoad(CVekDataItem& tree, const wchar_t* path, CVekString& error);
bool jsonRead(CVekDataItem& tree, const char* bytes, std::size_t size, const wchar_t* name, CVekString& error);

/// Writes a tree to a file or into a text in UTF-8, which it replaces. A file is written beside its place and then
/// renamed, so that what stood there stays whole until the new one is.
/// @param error receives "NAME: cause" on failure, and stays untouched otherwise
/// @return false when directories lie deeper than `kJsonDepth` or the text cannot be written
bool jsonSave(const CVekDataItem& tree, const wchar_t* path, CVekString& error);
bool jsonWrite(const CVekDataItem& tree, std::string& text, const wchar_t* name, CVekString& error);

} // namespace VEK
