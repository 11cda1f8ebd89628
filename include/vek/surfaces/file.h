/// @file
/// Surfaces that write a file, and where they put its bytes.
#pragma once

#include <vek/surfaces/surface.h>

#include <cstdint>
#include <memory>
#include <string>
#include <string_view>

namespace VEK
{

namespace platform
{
class FileWriter;
}

/// A receiver of bytes. After a failure every further call gives false.
class VEK_API CByteSink
{
public:
    virtual ~CByteSink() = default;

    /// Adds bytes at the end.
    virtual bool write(std::string_view bytes) = 0;

    /// Writes over bytes that were written before.
    virtual bool rewrite(std::uint64_t offset, std::string_view bytes) = 0;

    /// Declares the content complete.
    virtual bool commit() = 0;
};

/// Keeps the bytes in memory.
class VEK_API CMemorySink : public CByteSink
{
public:
    bool write(std::string_view bytes) override;
    bool rewrite(std::uint64_t offset, std::string_view bytes) override;
    bool commit() override { return m_good; }

    const std::string& bytes() const { return m_bytes; }

private:
    bool m_good = true;
    std::string m_bytes;
};

/// Writes a file. The bytes go to a file of another name beside it, which takes the place of the old content when it
/// is complete; on any failure, and without `commit`, an old file stays as it was and no new one is left behind.
class VEK_API CFileSink : public CByteSink
{
public:
    /// @param path a null or empty path makes every call fail
    explicit CFileSink(const wchar_t* path);
    ~CFileSink() override;

    bool write(std::string_view bytes) override;
    bool rewrite(std::uint64_t offset, std::string_view bytes) override;
    bool commit() override;

private:
    std::unique_ptr<platform::FileWriter> m_file;
};

/// A surface that writes a file. Its sink must outlive it and holds no valid file before `finish`.
class VEK_API CFileSurface : public CSurface
{
public:
    /// Completes the file and commits the sink; calls after it draw nothing.
    /// @return false when anything could not be written, at a second call, and where memory was short since the
    ///     surface was made: nothing tells that what came to it meanwhile was whole
    virtual bool finish() = 0;
};

} // namespace VEK
