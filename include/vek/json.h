/// @file
/// Data trees as JSON text. The form of every value is described in docs/data-file.md.
///
/// Part of the target `vek::json`; the library itself does not use JSON.
#pragma once

#include <vek/data/item.h>

#include <cstddef>
#include <string>

namespace VEK
{

/// The greatest nesting depth of directories in a JSON text, including the outermost one.
inline constexpr int kJsonDepth = 512;

/// Reads a tree from a file or from bytes in UTF-8. Every value is restored exactly, reals to their last bit.
/// @param tree its contents are replaced; on failure it stays as it was
/// @param error receives "NAME:LINE: cause" on failure, without the line if a file cannot be read at all or memory runs
/// out, and is unchanged otherwise; NAME is the path or `name`
bool jsonLoad(CVekDataItem& tree, const wchar_t* path, CVekString& error);
bool jsonRead(CVekDataItem& tree, const char* bytes, std::size_t size, const wchar_t* name, CVekString& error);

/// Writes a tree to a file or into a UTF-8 text, which it replaces. A file is written under another name in the same
/// folder and then renamed, so that the old file stays intact until the new one is complete.
/// @param error receives "NAME: cause" on failure, and is unchanged otherwise
/// @return false if directories nest deeper than `kJsonDepth` or the text cannot be written
bool jsonSave(const CVekDataItem& tree, const wchar_t* path, CVekString& error);
bool jsonWrite(const CVekDataItem& tree, std::string& text, const wchar_t* name, CVekString& error);

/// Adds the texts of a catalogue file to the configuration, whose "*MSG*" directory it has: "*MSG*" \ prefix \ language
/// \ key, see `vek_msg_get`. A text that is there already is replaced; everything else in the file is ignored.
/// @param error receives "NAME:LINE: cause" or "NAME: cause" on failure, and is unchanged otherwise
/// @return false if the file cannot be read or has no texts; the configuration then is as it was
bool textsLoad(const wchar_t* path, CVekString& error);

} // namespace VEK
