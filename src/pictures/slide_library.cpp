#include <vek/pictures/slide_library.h>

#include "core/platform/platform.h"
#include "core/values/whole.h"

#include <algorithm>
#include <cstring>
#include <filesystem>
#include <fstream>

namespace VEK
{
namespace
{

constexpr std::size_t kHeaderSize = 32;
constexpr std::size_t kNameSize = 32;
constexpr std::size_t kEntrySize = kNameSize + 4;

/// The entry of that number, null if there is none.
const unsigned char* entryAt(SlideBytes head, std::size_t index)
{
    if (head.size() < kHeaderSize || index >= (head.size() - kHeaderSize) / kEntrySize)
        return nullptr;
    const unsigned char* entry = head.data() + kHeaderSize + index * kEntrySize;
    return *entry ? entry : nullptr;
}

std::uintmax_t offsetOf(const unsigned char* entry)
{
    const unsigned char* at = entry + kNameSize;
    return std::uintmax_t{at[0]} | std::uintmax_t{at[1]} << 8 | std::uintmax_t{at[2]} << 16 |
           std::uintmax_t{at[3]} << 24;
}

std::wstring wideOf(std::string_view name, SlideCodePage codePage)
{
    return codePage == SlideCodePage::system ? platform::wideOfSystemCodePage(name)
                                             : platform::wideOfCodePage1252(name);
}

std::string bytesOf(std::wstring_view name, SlideCodePage codePage)
{
    return codePage == SlideCodePage::system ? platform::systemCodePageOf(name) : platform::codePage1252Of(name);
}

/// Opens a regular file that is not larger than the limit.
bool openFile(std::ifstream& in, std::uintmax_t& size, const wchar_t* path)
{
    const std::filesystem::path file = platform::pathOf(path);
    std::error_code error;
    if (!std::filesystem::is_regular_file(file, error))
        return false;
    size = std::filesystem::file_size(file, error);
    if (error || size > kSlideFileLimit)
        return false;
    in.open(file, std::ios::binary);
    return in.is_open();
}

/// Reads until there are `size` bytes.
bool readUpTo(std::vector<unsigned char>& bytes, std::ifstream& in, std::uintmax_t size)
{
    const std::size_t known = bytes.size();
    bytes.resize(static_cast<std::size_t>(size));
    const auto count = static_cast<std::streamsize>(bytes.size() - known);
    return in.read(reinterpret_cast<char*>(bytes.data() + known), count).gcount() == count;
}

/// Whether the end of the directory is within the part of the file read so far.
bool hasDirectoryEnd(SlideBytes head)
{
    std::size_t index = 0;
    while (entryAt(head, index))
        ++index;
    return kHeaderSize + index * kEntrySize + kEntrySize <= head.size();
}

/// Reads a library up to the end of its directory, piece by piece: large ones contain thousands of slides.
bool readDirectory(std::vector<unsigned char>& head, std::ifstream& in, std::uintmax_t size)
{
    for (std::uintmax_t piece = 0x4000; head.size() < size && !hasDirectoryEnd(head); piece *= 4) {
        if (!readUpTo(head, in, std::min(size, piece)))
            return false;
    }
    return true;
}

bool load(std::vector<unsigned char>& bytes, const wchar_t* name, const wchar_t* library, SlideCodePage codePage)
{
    std::ifstream in;
    std::uintmax_t size = 0;
    if (!openFile(in, size, library ? library : name))
        return false;
    if (!library)
        return readUpTo(bytes, in, size);

    std::vector<unsigned char> head;
    SlideEntry entry;
    if (!readDirectory(head, in, size) || !slideFind(entry, head, size, name, codePage))
        return false;
    in.seekg(static_cast<std::streamoff>(entry.begin));
    return readUpTo(bytes, in, entry.end - entry.begin);
}

} // namespace

CVekString slideName(const char* name, SlideCodePage codePage)
{
    return whole(CVekString(), [&] { return name ? CVekString(wideOf(name, codePage).c_str()) : CVekString(); });
}

bool slideEntry(SlideEntry& entry, SlideBytes head, std::uintmax_t fileSize, std::size_t index)
{
    const unsigned char* at = entryAt(head, index);
    if (!at)
        return false;
    std::memcpy(entry.name, at, kNameSize);
    entry.name[kNameSize] = '\0';
    const unsigned char* next = entryAt(head, index + 1);
    entry.begin = offsetOf(at);
    entry.end = next ? offsetOf(next) : fileSize;
    entry.readable = entry.begin <= entry.end && entry.end <= fileSize;
    return true;
}

bool slideFind(SlideEntry& entry, SlideBytes head, std::uintmax_t fileSize, const wchar_t* name, SlideCodePage codePage)
{
    return name && whole(false, [&] {
               const std::wstring_view counted = std::wstring_view(name).substr(0, kNameSize);
               const std::string bytes = bytesOf(counted, codePage);
               if (wideOf(bytes, codePage) != counted) // no entry can have a name that the code page lacks
                   return false;
               const std::string wanted = bytes.substr(0, kNameSize);
               const std::wstring text = wideOf(wanted, codePage);
               for (std::size_t index = 0; slideEntry(entry, head, fileSize, index); ++index) {
                   if (std::strlen(entry.name) == wanted.size() &&
                       platform::equalNoCase(wideOf(entry.name, codePage), text))
                       return entry.readable;
               }
               return false;
           });
}

bool slideNames(CVekArrayTempl<CVekString>& names, const wchar_t* library, SlideCodePage codePage)
{
    names.setLogicalLength(0);
    try {
        std::ifstream in;
        std::uintmax_t size = 0;
        std::vector<unsigned char> head;
        if (!library || !openFile(in, size, library) || !readDirectory(head, in, size))
            return false;
        SlideEntry entry;
        int count = 0;
        for (; slideEntry(entry, head, size, static_cast<std::size_t>(count)); ++count)
            names.append(slideName(entry.name, codePage));
        if (names.len() == count)
            return true;
    } catch (const std::exception&) { // a path that is invalid on this system, or out of memory
    }
    names.setLogicalLength(0);
    return false;
}

bool slideLoad(std::vector<unsigned char>& bytes, const wchar_t* name, const wchar_t* library, SlideCodePage codePage)
{
    bytes.clear();
    const bool loaded = name && whole(false, [&] { return load(bytes, name, library, codePage); });
    if (!loaded)
        bytes.clear();
    return loaded;
}

} // namespace VEK
