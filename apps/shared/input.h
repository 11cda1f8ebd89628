/// @file
/// The slides of a file.
#pragma once

#include <vek/pictures.h>

#include <string>
#include <vector>

struct InputSlide {
    CVekString name; ///< empty for a slide file
    VEK::SlideBytes bytes;
};

/// A slide file or a slide library, read as a whole. Names and paths are UTF-8.
class Input
{
public:
    /// Throws a failure when the file cannot be read or is neither.
    explicit Input(const std::string& path);

    const std::string& path() const { return m_path; }
    bool isLibrary() const { return m_isLibrary; }

    /// All slides. One whose bytes are no slide has none.
    const std::vector<InputSlide>& slides() const { return m_slides; }

    /// The slide of a name, or of a slide file the only one, which has none. Throws a failure when it is not there.
    const InputSlide& slide(const std::string& name) const;

private:
    void readLibrary();

    std::string m_path;
    bool m_isLibrary = false;
    std::vector<unsigned char> m_bytes;
    std::vector<InputSlide> m_slides;
};

/// The wide text of UTF-8, and back.
CVekString wide(const std::string& text);
std::string utf8(const CVekString& text);

/// The bytes of a file of at most 256 MB. Throws a failure when it cannot be read.
std::string readWhole(const std::string& path);

/// The ending of a path in small letters, with its dot.
std::string ending(const std::string& path);
