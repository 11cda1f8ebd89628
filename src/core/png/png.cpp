#include "core/png/png.h"

#include "core/values/whole.h"

#include <climits>
#include <cstdlib>
#include <cstring>
#include <memory>
#include <new>

namespace
{

/// The largest block that the reader may allocate. A few bytes of a file can unpack to gigabytes, whatever size the
/// file states.
thread_local std::size_t readLimit = 0;

void* resizedReadBlock(void* block, std::size_t size)
{
    if (size > readLimit)
        return nullptr;
    void* const resized = std::realloc(block, size);
    if (!resized)
        VEK::memoryShort();
    return resized;
}

void* readBlock(std::size_t size)
{
    return resizedReadBlock(nullptr, size);
}

struct ReadBlockFree {
    void operator()(void* block) const { std::free(block); }
};

/// The header of a block of the writer.
struct WriteBlock {
    WriteBlock* before;
    WriteBlock* behind;
};

thread_local WriteBlock* lastBlock = nullptr;

/// The writer does not check its allocations, so when memory runs out an exception leaves it.
void* resizedWriteBlock(void* bytes, std::size_t size)
{
    WriteBlock* const old = bytes ? static_cast<WriteBlock*>(bytes) - 1 : nullptr;
    auto* const block = static_cast<WriteBlock*>(std::realloc(old, sizeof(WriteBlock) + size));
    if (!block)
        throw std::bad_alloc();
    if (!old)
        *block = {lastBlock, nullptr};
    if (block->before)
        block->before->behind = block;
    (block->behind ? block->behind->before : lastBlock) = block;
    return block + 1;
}

void freeWriteBlock(void* bytes)
{
    if (!bytes)
        return;
    WriteBlock* const block = static_cast<WriteBlock*>(bytes) - 1;
    if (block->before)
        block->before->behind = block->behind;
    (block->behind ? block->behind->before : lastBlock) = block->before;
    std::free(block);
}

/// Frees what the writer holds when an exception leaves it.
struct WriteScope {
    ~WriteScope()
    {
        while (lastBlock)
            freeWriteBlock(lastBlock + 1);
    }
};

} // namespace

#define STB_IMAGE_IMPLEMENTATION
#define STB_IMAGE_STATIC
#define STBI_ONLY_PNG
#define STBI_NO_STDIO
#define STBI_NO_FAILURE_STRINGS
#define STBI_MAX_DIMENSIONS (1 << 26) // kPictureLimit, as a single row
#define STBI_MALLOC readBlock
#define STBI_REALLOC resizedReadBlock
#define STBI_FREE std::free
#include <stb/stb_image.h>

#define STB_IMAGE_WRITE_IMPLEMENTATION
#define STB_IMAGE_WRITE_STATIC
#define STBI_WRITE_NO_STDIO
#define STBIW_MALLOC(size) resizedWriteBlock(nullptr, size)
#define STBIW_REALLOC resizedWriteBlock
#define STBIW_FREE freeWriteBlock
#include <stb/stb_image_write.h>

namespace VEK::png
{
namespace
{

static_assert(STBI_MAX_DIMENSIONS == kPictureLimit);

constexpr std::string_view kSignature = "\x89PNG\r\n\x1a\n";
constexpr std::size_t kFrame = 8; ///< length and name before the bytes of a chunk

std::int64_t number(std::string_view bytes, std::size_t at)
{
    std::uint32_t value = 0;
    for (std::size_t i = 0; i < 4; ++i)
        value = value << 8 | static_cast<unsigned char>(bytes[at + i]);
    return value;
}

} // namespace

bool readHeader(std::string_view bytes, Header& header)
{
    constexpr std::size_t kHeaderEnd = 33;
    readLimit = 0;
    if (bytes.size() < kHeaderEnd || bytes.size() > INT_MAX || !bytes.starts_with(kSignature) ||
        bytes.substr(12, 4) != "IHDR" ||
        !stbi_info_from_memory(reinterpret_cast<const stbi_uc*>(bytes.data()), static_cast<int>(bytes.size()),
                               &header.width, &header.height, nullptr) ||
        !isPictureSize(header.width, header.height))
        return false;
    static constexpr int kChannels[] = {1, 0, 3, 1, 2, 0, 4}; // by colour type
    header.bits = bytes[24] * kChannels[static_cast<std::size_t>(bytes[25])];
    header.packedBytes = 0;
    for (std::size_t at = kSignature.size(); bytes.size() - at >= kFrame;) {
        const auto size = static_cast<std::size_t>(number(bytes, at));
        const std::string_view name = bytes.substr(at + 4, 4);
        if (name == "IEND")
            return true;
        if (bytes.size() - at - kFrame < size + 4) // followed by a checksum
            return false;
        if (name == "IDAT")
            header.packedBytes += size;
        at += kFrame + size + 4;
    }
    return false;
}

bool readPixels(std::string_view bytes, const Header& header, CPixels& pixels)
{
    const std::size_t area = static_cast<std::size_t>(header.width) * static_cast<std::size_t>(header.height);
    const std::size_t unpacked = area * static_cast<std::size_t>(header.bits) / 8;
    if (unpacked / 1032 > header.packedBytes) // the greatest ratio of deflate
        return false;
    // 16 bits per channel and one byte per row, twice that when the block grows.
    readLimit = area * 18 + bytes.size() * 2 + (1 << 16);
    int width = 0, height = 0;
    const std::unique_ptr<stbi_uc, ReadBlockFree> data(
        stbi_load_from_memory(reinterpret_cast<const stbi_uc*>(bytes.data()), static_cast<int>(bytes.size()), &width,
                              &height, nullptr, STBI_rgb_alpha));
    if (!data || width != header.width || height != header.height)
        return false;
    pixels.data.resize(area);
    pixels.width = width;
    pixels.height = height;
    std::memcpy(pixels.data.data(), data.get(), area * 4);
    return true;
}

std::string encode(const CPixels& pixels, Channels channels)
{
    static const bool isSet = [] {
        stbi_write_force_png_filter = 0;
        return true;
    }();
    const int count = static_cast<int>(channels);
    constexpr std::int64_t kLimit = INT_MAX / 2; // the writer uses int sizes and doubles its blocks
    const std::int64_t size = (std::int64_t{pixels.width} * count + 1) * pixels.height;
    if (!isSet || pixels.width <= 0 || pixels.height <= 0 || size + size / 8 >= kLimit ||
        pixels.data.size() != static_cast<std::size_t>(pixels.width) * static_cast<std::size_t>(pixels.height))
        return {};
    return whole(std::string(), [&] {
        const WriteScope scope;
        const auto* bytes = reinterpret_cast<const unsigned char*>(pixels.data.data());
        std::vector<unsigned char> colors;
        if (channels == Channels::color) {
            colors.resize(pixels.data.size() * 3);
            unsigned char* to = colors.data();
            for (const std::uint32_t pixel : pixels.data) {
                for (int shift = 0; shift < 24; shift += 8)
                    *to++ = static_cast<unsigned char>(pixel >> shift);
            }
            bytes = colors.data();
        }
        std::string file;
        stbi_write_png_to_func(
            [](void* to, void* data, int length) {
                static_cast<std::string*>(to)->assign(static_cast<const char*>(data), static_cast<std::size_t>(length));
            },
            &file, pixels.width, pixels.height, count, bytes, 0);
        return file;
    });
}

} // namespace VEK::png
