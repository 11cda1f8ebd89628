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

/// A slide file or a slide library, read completely. Names and paths are UTF-8.
class Input
{
public:
    /// Throws a failure if the file cannot be read or is neither.
    explicit Input(const std::string& path);

    const std::string& path() const { return m_path; }
    bool isLibrary() const { return m_isLibrary; }

    /// All slides. The bytes are empty for one that is not a slide.
    const std::vector<InputSlide>& slides() const { return m_slides; }

    /// The slide of a name, or the only one of a slide file, which has no name. Throws a failure if there is none.
    const InputSlide& slide(const std::string& name) const;

private:
    void readLibrary();

    std::string m_path;
    bool m_isLibrary = false;
    std::vector<unsigned char> m_bytes;
    std::vector<InputSlide> m_slides;
};

/// Conversion between UTF-8 and wide text.
CVekString wide(const std::string& text);
std::string utf8(const CVekString& text);

/// The bytes of a file of at most 256 MB. Throws a failure if it cannot be read.
std::string readWhole(const std::string& path);

/// The extension of a path in lower case, with its dot.
std::string ending(const std::string& path);
