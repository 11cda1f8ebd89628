/// @file
/// Slide files and slide libraries.
///
/// A library is a header of 32 bytes, which is ignored, and a directory of entries of 36 bytes: 32 bytes of name,
/// zero-terminated in an 8-bit code page, and the offset of the slide in the file, low byte first. An empty name ends
/// the directory. A slide extends to the offset of the next entry, the last one to the end of the file.
///
/// Names are compared ignoring case. Only the first 32 bytes of a longer search name count.
#pragma once

#include <vek/pictures/slide.h>
#include <vek/values/string.h>

#include <cstdint>
#include <vector>

namespace VEK
{

/// The largest slide file or library that is read, in bytes: 256 MB.
inline constexpr std::uintmax_t kSlideFileLimit = std::uintmax_t{256} << 20;

/// An entry of a library's directory.
struct SlideEntry {
    char name[33] = "";       ///< in the library's code page, zero-terminated
    std::uintmax_t begin = 0; ///< first byte of the slide in the file
    std::uintmax_t end = 0;   ///< one past its last byte

    /// Whether the slide lies in the file: one whose end is before its beginning or outside the file cannot be read.
    bool readable = false;
};

/// The 8-bit code page of a library's names.
enum class SlideCodePage {
    windows1252, ///< the suite's own libraries
    system       ///< the system's code page; 1252 where the system has none
};

/// Reads an entry of a library's directory.
/// @param head the file from its beginning, as far as it is known
/// @param fileSize size of the whole file
/// @param index number of the entry, from 0
/// @return false at the end of the directory and if `head` ends before the entry
VEK_API bool slideEntry(SlideEntry& entry, SlideBytes head, std::uintmax_t fileSize, std::size_t index);

/// Looks a slide up by its name.
/// @return false, with the entry unspecified, if no entry has that name, the first one that has it is not readable, or
///     memory runs out
VEK_API bool slideFind(SlideEntry& entry, SlideBytes head, std::uintmax_t fileSize, const wchar_t* name,
                       SlideCodePage codePage = SlideCodePage::windows1252);

/// The text of a name in a code page; empty for null and when memory runs out.
VEK_API CVekString slideName(const char* name, SlideCodePage codePage = SlideCodePage::windows1252);

/// The names of the slides of a library file, in the order of its directory, slides that cannot be read included.
/// @param names is emptied first
/// @return false if the file cannot be read or is larger than `kSlideFileLimit`; a file without a directory, such as
///     one of another kind, has no names
VEK_API bool slideNames(CVekArrayTempl<CVekString>& names, const wchar_t* library,
                        SlideCodePage codePage = SlideCodePage::windows1252);

/// Reads a slide from a file: from a library only its directory and that slide, or a whole file.
/// @param bytes receives the slide; empty on failure
/// @param name name of the slide in the library, or the path of the file when `library` is null
/// @param library path of the library, or null
/// @return false if a file cannot be read or is larger than `kSlideFileLimit`, the name is not found, or memory runs
///     out
VEK_API bool slideLoad(std::vector<unsigned char>& bytes, const wchar_t* name, const wchar_t* library,
                       SlideCodePage codePage = SlideCodePage::windows1252);

} // namespace VEK
