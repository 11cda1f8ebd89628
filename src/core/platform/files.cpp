#include "core/platform/platform.h"

#include <fstream>
#include <random>

namespace fs = std::filesystem;

namespace
{

[[maybe_unused]] std::wstring wideNative(const std::wstring& text)
{
    return text;
}

[[maybe_unused]] std::wstring wideNative(const std::string& text)
{
    return VEK::platform::wideOf(text);
}

bool writeStream(const fs::path& path, std::string_view bytes)
{
    std::ofstream out(path, std::ios::binary | std::ios::trunc);
    out.write(bytes.data(), static_cast<std::streamsize>(bytes.size()));
    out.close();
    return !out.fail();
}

/// A name beside `path` that nobody else uses.
fs::path scratchPath(const fs::path& path)
{
    fs::path scratch = path;
    std::random_device random;
    scratch += '.';
    scratch += std::to_string(random());
    scratch += ".tmp";
    return scratch;
}

} // namespace

namespace VEK::platform
{

fs::path pathOf(std::wstring_view text)
{
    const std::string utf8 = utf8Of(text);
    return fs::path(std::u8string(utf8.begin(), utf8.end()));
}

std::wstring textOf(const fs::path& path)
{
    return wideNative(path.native());
}

bool readFile(const fs::path& path, std::string& bytes)
{
    bytes.clear();
    std::error_code error;
    if (fs::is_directory(path, error))
        return false;
    std::ifstream in(path, std::ios::binary);
    if (!in)
        return false;
    try {
        // The size is a hint only: special files tell none, and a file may grow while it is read.
        const std::uintmax_t size = fs::file_size(path, error);
        if (!error)
            bytes.reserve(static_cast<std::size_t>(size));
        char block[1 << 16];
        while (in.read(block, sizeof block), in.gcount() > 0)
            bytes.append(block, static_cast<std::size_t>(in.gcount()));
    } catch (const std::exception&) { // more than fits into memory
        bytes = std::string();
        return false;
    }
    if (in.bad())
        bytes.clear();
    return !in.bad();
}

bool writeFile(const fs::path& path, std::string_view bytes)
{
    try {
        std::error_code error;
        const fs::file_status status = fs::status(path, error);
        if (fs::exists(status) && !fs::is_regular_file(status))
            return !fs::is_directory(status) && writeStream(path, bytes); // a device or pipe has no old content
        // A link stays a link: the file that it names is replaced.
        const fs::path target = fs::is_symlink(fs::symlink_status(path, error)) ? fs::weakly_canonical(path) : path;
        const fs::path scratch = scratchPath(target);
        bool done = writeStream(scratch, bytes);
        if (done) {
            if (fs::exists(status))
                fs::permissions(scratch, status.permissions(), error);
            fs::rename(scratch, target, error);
            done = !error;
        }
        if (!done)
            fs::remove(scratch, error);
        return done;
    } catch (const std::exception&) {
        return false;
    }
}

} // namespace VEK::platform
