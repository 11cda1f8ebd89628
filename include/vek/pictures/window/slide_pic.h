/// @file
/// The picture control for slides. Windows only.
#pragma once

#ifdef _WIN32

#include <vek/pictures/slide.h>

#include <afxwin.h>

#include <memory>
#include <vector>

namespace VEK
{

/// A child window that shows a slide, fitted into its client area without distortion. The slide is interpreted at each
/// repaint. Without one the window has the colour of a dialog. It is laid out left to right, even if its parent is not.
class VEK_API CSlidePic : public CWnd
{
    DECLARE_DYNAMIC(CSlidePic)

public:
    CSlidePic();
    ~CSlidePic() override;

    /// Shows a slide of a library, found by its name ignoring case, or without a library the slide file `name`.
    /// @return false, with nothing shown, if a file cannot be read or the library lacks the name
    bool show(const wchar_t* name, const wchar_t* library);

    /// Shows a slide from memory.
    /// @param data is copied; null shows nothing
    void show(void* data, int size);

    /// Shows a slide that is a resource of the module.
    /// @return false if it is not found or cannot be loaded
    bool LoadSlide(unsigned long id, const wchar_t* type);

    /// The slide's highest coordinates, as last drawn: 0 before the first drawing.
    /// @return false if no slide is loaded
    bool getSize(long& x, long& y) const;

    /// Sets the background by its AutoCAD Color Index. Does not repaint.
    /// @return 1
    int SetBkColor(int index);
    int BackColor() const { return m_backIndex; }

    /// Puts the slide on the clipboard as an enhanced metafile of one unit per pixel.
    /// @return false only when the clipboard cannot be opened
    bool Copy();

    /// The slide as an enhanced metafile for white paper, on which colour 7 is black.
    /// @return owned by the caller; null if it cannot be created
    virtual HENHMETAFILE CreateEnhMetaFileW(CRect rect);

protected:
    /// Turns off mirroring of the window.
    void PreSubclassWindow() override;

    /// Draws the slide on the current device context, fitted into a rectangle.
    /// @return false without a slide or a context, and for a slide of an unsupported level
    bool draw(CRect rect);

    afx_msg BOOL OnNcCreate(LPCREATESTRUCT create);
    afx_msg void OnPaint();
    afx_msg BOOL OnEraseBkgnd(CDC* dc);
    DECLARE_MESSAGE_MAP()

private:
    class Painter;
    class Context;

    void discard();
    void newColor(int index);

    CDC* m_dc = nullptr; ///< only while painting or building a metafile
    CPen m_pen;          ///< keeps the colour of the last drawing
    CBrush m_fill;
    CBrush m_background;
    CBrush m_system; ///< of an empty control
    SlideReader m_reader;
    std::vector<unsigned char> m_data;
    bool m_loaded = false;
    int m_hiX = 0;
    int m_hiY = 0;
    int m_backIndex = 0;
};

} // namespace VEK

#endif
