/// @file
/// Surfaces that write a file, and the sinks for its bytes.
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

/// A receiver of bytes. After a failure every further call returns false.
class VEK_API CByteSink
{
public:
    virtual ~CByteSink() = default;

    /// Adds bytes at the end.
    virtual bool write(std::string_view bytes) = 0;

    /// Overwrites bytes that were written before.
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

/// Writes a file. The bytes go to a temporary file beside it, which replaces the old content when complete; on any
/// failure, and without `commit`, an existing file is unchanged and no new one is left behind.
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
    /// @return false if anything could not be written, on a second call, and if memory ran out since the surface was
    ///     made: its input may then have been incomplete
    virtual bool finish() = 0;
};

} // namespace VEK
