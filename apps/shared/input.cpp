#include "input.h"

#include "failure.h"

#include "core/platform/platform.h"

#include <algorithm>

namespace
{

/// Whether the bytes contain the whole header of a slide.
bool isSlide(VEK::SlideBytes bytes)
{
    return bytes.size() >= 34 ? bytes[18] == 1 || bytes[18] == 2 : bytes.size() >= 31 && bytes[18] == 2;
}

std::string whyUnreadable(const std::string& path)
{
    std::error_code error;
    const std::filesystem::path file = VEK::platform::pathOf(VEK::platform::wideOf(path));
    if (!std::filesystem::exists(file, error))
        return "is not there";
    if (!std::filesystem::is_regular_file(file, error))
        return "is no file";
    return std::filesystem::file_size(file, error) > VEK::kSlideFileLimit ? "is larger than 256 MB" : "cannot be read";
}

bool isName(const char* name)
{
    const std::string text(name);
    return std::none_of(text.begin(), text.end(), [](unsigned char byte) { return byte < ' ' || byte == 0x7F; });
}

} // namespace

CVekString wide(const std::string& text)
{
    return VEK::fromUtf8(text.data(), static_cast<unsigned>(text.size()));
}

std::string utf8(const CVekString& text)
{
    const CVekArrayTempl<char> bytes = VEK::toUtf8(text);
    return std::string(bytes.begin(), bytes.end());
}

std::string readWhole(const std::string& path)
{
    const std::filesystem::path file = VEK::platform::pathOf(VEK::platform::wideOf(path));
    std::error_code error;
    std::string bytes;
    if (std::filesystem::file_size(file, error) > VEK::kSlideFileLimit || !VEK::platform::readFile(file, bytes))
        throw Failure(path + ": " + whyUnreadable(path));
    return bytes;
}

std::string ending(const std::string& path)
{
    const std::size_t name = path.find_last_of("/\\") + 1;
    const std::size_t dot = path.rfind('.');
    std::string text = dot != path.npos && dot >= name ? path.substr(dot) : "";
    for (char& letter : text)
        letter = letter >= 'A' && letter <= 'Z' ? static_cast<char>(letter + ('a' - 'A')) : letter;
    return text;
}

Input::Input(const std::string& path) : m_path(path)
{
    const std::string kind = ending(path);
    m_isLibrary = kind == ".slb";
    if (!m_isLibrary && kind != ".sld")
        throw Failure(path + ": neither a slide (.sld) nor a slide library (.slb)");
    if (!VEK::slideLoad(m_bytes, wide(path), nullptr))
        throw Failure(path + ": " + whyUnreadable(path));
    if (m_isLibrary)
        readLibrary();
    else if (isSlide(m_bytes))
        m_slides.push_back({CVekString(), m_bytes});
    else
        throw Failure(path + ": is no slide of level 1 or 2");
}

void Input::readLibrary()
{
    VEK::SlideEntry entry;
    bool isSound = m_bytes.size() >= 32;
    for (std::size_t i = 0; isSound && VEK::slideEntry(entry, m_bytes, m_bytes.size(), i); ++i) {
        InputSlide slide{VEK::slideName(entry.name), {}};
        if (entry.readable)
            slide.bytes = VEK::SlideBytes(m_bytes).subspan(entry.begin, entry.end - entry.begin);
        if (!isSlide(slide.bytes))
            slide.bytes = {};
        isSound = isName(entry.name);
        m_slides.push_back(slide);
    }
    if (!isSound)
        throw Failure(m_path + ": is no slide library");
    if (m_slides.empty())
        throw Failure(m_path + ": holds no slides");
}

const InputSlide& Input::slide(const std::string& name) const
{
    if (!m_isLibrary) {
        if (!name.empty())
            throw Failure(m_path + ": is a single slide, so that --slide has no place");
        return m_slides.front();
    }
    const CVekString wanted = wide(name);
    for (const InputSlide& slide : m_slides) {
        if (slide.name.compareNoCase(wanted) != 0)
            continue;
        if (slide.bytes.empty())
            throw Failure(m_path + ": its slide " + name + " is damaged");
        return slide;
    }
    throw Failure(m_path + ": has no slide " + name);
}
