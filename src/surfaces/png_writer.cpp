#include "surfaces/png.h"

#include <algorithm>
#include <array>

namespace VEK::png
{
namespace
{

constexpr std::array<std::uint32_t, 256> kCrcTable = [] {
    std::array<std::uint32_t, 256> table{};
    for (std::uint32_t i = 0; i < 256; ++i) {
        table[i] = i;
        for (int bit = 0; bit < 8; ++bit)
            table[i] = table[i] % 2 == 1 ? 0xEDB88320 ^ table[i] >> 1 : table[i] >> 1;
    }
    return table;
}();

std::uint32_t crc32(std::string_view bytes)
{
    std::uint32_t crc = 0xFFFFFFFF;
    for (const char byte : bytes)
        crc = kCrcTable[(crc ^ static_cast<unsigned char>(byte)) & 0xFF] ^ crc >> 8;
    return ~crc;
}

std::uint32_t adler32(std::string_view bytes)
{
    std::uint32_t a = 1, b = 0;
    while (!bytes.empty()) {
        constexpr std::size_t kNoOverflow = 5552; // so many bytes fit in 32 bits before the remainder is taken
        for (const char byte : bytes.substr(0, kNoOverflow)) {
            a += static_cast<unsigned char>(byte);
            b += a;
        }
        a %= 65521;
        b %= 65521;
        bytes.remove_prefix(std::min(kNoOverflow, bytes.size()));
    }
    return b << 16 | a;
}

std::string big(std::uint32_t value)
{
    return {static_cast<char>(value >> 24), static_cast<char>(value >> 16), static_cast<char>(value >> 8),
            static_cast<char>(value)};
}

void addChunk(std::string& file, std::string_view nameAndData)
{
    file += big(static_cast<std::uint32_t>(nameAndData.size() - 4));
    file += nameAndData;
    file += big(crc32(nameAndData));
}

/// Each row behind the number of its filter, none.
std::string rowsOf(const CPixels& pixels)
{
    const std::size_t width = static_cast<std::size_t>(pixels.width);
    std::string rows((width * 4 + 1) * static_cast<std::size_t>(pixels.height), '\0');
    char* to = rows.data();
    for (std::size_t i = 0; i < pixels.data.size(); ++i) {
        if (i % width == 0)
            ++to;
        for (int shift = 0; shift < 32; shift += 8)
            *to++ = static_cast<char>(pixels.data[i] >> shift);
    }
    return rows;
}

/// The zlib format without packing: blocks of bytes as they are.
void addStored(std::string& to, std::string_view bytes)
{
    const std::uint32_t check = adler32(bytes);
    to += "\x78\x01";
    do {
        const std::size_t size = std::min<std::size_t>(bytes.size(), 0xFFFF);
        const std::size_t inverse = ~size;
        to += static_cast<char>(size == bytes.size() ? 1 : 0); // the last
        for (const std::size_t half : {size, inverse}) {
            to += static_cast<char>(half);
            to += static_cast<char>(half >> 8);
        }
        to += bytes.substr(0, size);
        bytes.remove_prefix(size);
    } while (!bytes.empty());
    to += big(check);
}

} // namespace

std::string encode(const CPixels& pixels)
{
    std::string packed = "IDAT";
    {
        const std::string rows = rowsOf(pixels);
        packed.reserve(rows.size() + rows.size() / 0xFFFF * 5 + 32);
        addStored(packed, rows);
    }
    std::string file = "\x89PNG\r\n\x1a\n";
    file.reserve(packed.size() + 64);
    addChunk(file, "IHDR" + big(static_cast<std::uint32_t>(pixels.width)) +
                       big(static_cast<std::uint32_t>(pixels.height)) + std::string("\x08\x06\0\0\0", 5));
    addChunk(file, packed);
    addChunk(file, "IEND");
    return file;
}

} // namespace VEK::png
