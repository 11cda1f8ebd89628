/// @file
/// The picture that is on show.
#pragma once

#include "catalogue.h"

#include <memory>

/// A display object with one group of its items highlighted. The window's control draws `shown()` and keeps its view
/// in it.
class Scene
{
public:
    Scene();

    CVekGDX& shown() { return m_shown; }

    /// The picture without highlight, for paper.
    const CVekGDX& picture() const { return m_picture; }

    /// Makes another picture. Throws a failure when it cannot; what could be added is shown then.
    void show(const CataloguePicture& picture);

    /// Highlights the items whose path begins with a number, and takes the highlight from those before; -1 from all.
    void highlight(int number);

    /// In words, what the group of a number is.
    CVekString describe(int number) const;

    /// A colour behind everything, whatever the picture's own; null for that.
    void setBackground(const CVekColor* color);

private:
    /// A display object whose items all have a path.
    class Object : public CVekGDX
    {
    public:
        Object();
        void number();
    };

    std::unique_ptr<Patterns> m_patterns; ///< those of the picture, which the host has meanwhile
    Object m_picture;
    Object m_shown;
    CVekColor m_ownBack;
    CVekColor m_chosenBack;
    bool m_isChosen = false;
};
