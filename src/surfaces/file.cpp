#include <vek/surfaces/file.h>

#include "core/platform/platform.h"
#include "core/values/whole.h"

namespace VEK
{

namespace
{

/// Up to here a block of bytes grows fourfold: what is reserved and never written costs nothing, while each copy into a
/// larger block touches fresh memory.
constexpr std::size_t kQuickGrowth = std::size_t{1} << 24;

} // namespace

bool CMemorySink::write(std::string_view bytes)
{
    const std::size_t needed = m_bytes.size() + bytes.size();
    m_good = m_good && whole(false, [&] {
                 if (needed > m_bytes.capacity() && needed < kQuickGrowth)
                     m_bytes.reserve(4 * needed);
                 return (m_bytes.append(bytes), true);
             });
    return m_good;
}

bool CMemorySink::rewrite(std::uint64_t offset, std::string_view bytes)
{
    m_good = m_good && offset <= m_bytes.size() && bytes.size() <= m_bytes.size() - offset;
    if (m_good)
        m_bytes.replace(static_cast<std::size_t>(offset), bytes.size(), bytes);
    return m_good;
}

CFileSink::CFileSink(const wchar_t* path)
{
    if (path != nullptr && *path != 0) {
        m_file = whole(std::unique_ptr<platform::FileWriter>(),
                       [&] { return std::make_unique<platform::FileWriter>(platform::pathOf(path)); });
    }
}

CFileSink::~CFileSink() = default;

bool CFileSink::write(std::string_view bytes)
{
    return m_file && m_file->write(bytes);
}

bool CFileSink::rewrite(std::uint64_t offset, std::string_view bytes)
{
    return m_file && m_file->rewrite(offset, bytes);
}

bool CFileSink::commit()
{
    return m_file && m_file->commit();
}

} // namespace VEK
