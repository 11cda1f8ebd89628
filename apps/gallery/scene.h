/// @file
/// The displayed picture.
#pragma once

#include "catalogue.h"

#include <memory>

/// A display object with one group of its items highlighted. The window's control draws `shown()` and stores its view
/// in it.
class Scene
{
public:
    Scene();

    CVekGDX& shown() { return m_shown; }

    /// The picture without highlight, for export.
    const CVekGDX& picture() const { return m_picture; }

    /// Shows another picture. Throws a failure if it cannot; the items added so far are shown then.
    void show(const CataloguePicture& picture);

    /// Highlights the items whose path begins with a number, and removes the previous highlight; -1 removes only.
    void highlight(int number);

    /// Describes the group of a number in words.
    CVekString describe(int number) const;

    /// A background colour that replaces the picture's own; null restores that.
    void setBackground(const CVekColor* color);

private:
    /// A display object whose items all have a path.
    class Object : public CVekGDX
    {
    public:
        Object();
        void number(const std::vector<ProjectElement>* elements);
    };

    std::shared_ptr<std::vector<ProjectElement>> m_elements; ///< of the picture, or null
    std::unique_ptr<Patterns> m_patterns; ///< those of the picture, installed in the host while it is shown
    Object m_picture;
    Object m_shown;
    CVekColor m_ownBack;
    CVekColor m_chosenBack;
    bool m_isChosen = false;
};
