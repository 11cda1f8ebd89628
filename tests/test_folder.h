#pragma once

#include "core/platform/platform.h"

#include <filesystem>
#include <random>
#include <string>

/// A folder of a test's own, also when the test runs twice at a time, with a name that is no plain ASCII; gone
/// afterwards.
class TestFolder
{
public:
    explicit TestFolder(const std::wstring& name)
        : m_path(std::filesystem::temp_directory_path() /
                 VEK::platform::pathOf(L"vek Maß € " + name + std::to_wstring(std::random_device()())))
    {
        std::filesystem::create_directories(m_path);
    }
    TestFolder(const TestFolder&) = delete;
    TestFolder& operator=(const TestFolder&) = delete;
    ~TestFolder()
    {
        std::error_code ignored;
        std::filesystem::remove_all(m_path, ignored);
    }

    std::filesystem::path operator/(const std::wstring& name) const { return m_path / VEK::platform::pathOf(name); }
    std::wstring name(const std::wstring& file) const { return VEK::platform::textOf(*this / file); }
    std::ptrdiff_t files() const { return std::distance(std::filesystem::directory_iterator(m_path), {}); }

    /// @return the name of the file
    std::wstring save(const std::wstring& file, const std::string& bytes) const
    {
        return VEK::platform::writeFile(*this / file, bytes) ? name(file) : std::wstring();
    }
    std::string read(const std::wstring& file) const
    {
        std::string bytes;
        VEK::platform::readFile(*this / file, bytes);
        return bytes;
    }

private:
    std::filesystem::path m_path;
};
