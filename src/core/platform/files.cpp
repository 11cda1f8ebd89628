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

/// An unused file name in the folder of `path`.
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
    // The size is a hint only: special files tell none, and a file may grow while it is read.
    const std::uintmax_t size = fs::file_size(path, error);
    if (!error)
        bytes.reserve(static_cast<std::size_t>(size));
    char block[1 << 16];
    while (in.read(block, sizeof block), in.gcount() > 0)
        bytes.append(block, static_cast<std::size_t>(in.gcount()));
    if (in.bad())
        bytes.clear();
    return !in.bad();
}

bool writeFile(const fs::path& path, std::string_view bytes)
{
    FileWriter file(path);
    return file.write(bytes) && file.commit();
}

FileWriter::FileWriter(const fs::path& path)
{
    try {
        std::error_code error;
        const fs::file_status status = fs::status(path, error);
        // A link stays a link: the file it points to is replaced.
        m_target = fs::is_symlink(fs::symlink_status(path, error)) ? fs::weakly_canonical(path) : path;
        if (fs::is_directory(status))
            return;
        if (fs::exists(status) && !fs::is_regular_file(status)) {
            m_out.open(m_target, std::ios::binary);
            m_good = m_out.is_open();
            return;
        }
        m_scratch = scratchPath(m_target); // known before it is opened, which may make it and then find no memory
        m_out.open(m_scratch, std::ios::binary | std::ios::trunc);
        m_good = m_out.is_open();
        if (!m_good)
            m_scratch.clear();
    } catch (const std::exception&) {
        m_good = false;
    }
}

FileWriter::~FileWriter()
{
    m_out.close();
    std::error_code error;
    if (!m_scratch.empty())
        fs::remove(m_scratch, error);
}

bool FileWriter::write(std::string_view bytes)
{
    m_good = m_good && m_out.write(bytes.data(), static_cast<std::streamsize>(bytes.size()));
    return m_good;
}

bool FileWriter::rewrite(std::uint64_t offset, std::string_view bytes)
{
    m_good =
        m_good && m_out.seekp(static_cast<std::streamoff>(offset)) && write(bytes) && m_out.seekp(0, std::ios::end);
    return m_good;
}

bool FileWriter::commit()
{
    if (!m_good)
        return false;
    m_out.close();
    m_good = false;
    if (m_out.fail())
        return false;
    if (m_scratch.empty())
        return true;
    std::error_code error;
    const fs::file_status old = fs::status(m_target, error);
    if (fs::exists(old))
        fs::permissions(m_scratch, old.permissions(), error);
    fs::rename(m_scratch, m_target, error);
    if (error)
        return false;
    m_scratch.clear();
    return true;
}

} // namespace VEK::platform
