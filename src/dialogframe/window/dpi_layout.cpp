#include "dpi_layout.h"

#include <algorithm>

namespace
{

CRect placeOf(HWND control)
{
    CRect place;
    ::GetWindowRect(control, &place);
    ::MapWindowPoints(nullptr, ::GetParent(control), reinterpret_cast<POINT*>(&place), 2);
    return place;
}

int droppedHeight(HWND control)
{
    CRect dropped;
    return ::SendMessageW(control, CB_GETDROPPEDCONTROLRECT, 0, reinterpret_cast<LPARAM>(&dropped)) ? dropped.Height()
                                                                                                    : 0;
}

template <class Action>
void forControls(HWND dialog, Action action)
{
    for (HWND child = ::GetWindow(dialog, GW_CHILD); child; child = ::GetWindow(child, GW_HWNDNEXT))
        action(child); // nothing comes after a window that ends meanwhile
}

} // namespace

VekDpiLayout::VekDpiLayout(HWND dialog) : m_dpi(static_cast<int>(::GetDpiForWindow(dialog))), m_firstDpi(m_dpi) {}

void VekDpiLayout::note(HWND dialog)
{
    std::vector<Control> present;
    forControls(dialog, [&](HWND child) {
        const CRect place = placeOf(child);
        const auto known = std::find_if(m_controls.begin(), m_controls.end(),
                                        [child](const Control& each) { return each.window == child; });
        if (known != m_controls.end() && known->last == place)
            present.push_back(*known);
        else
            present.push_back({child, place, droppedHeight(child), m_dpi, place});
    });
    m_controls = std::move(present);
}

void VekDpiLayout::scale(HWND dialog, HFONT font, int dpi)
{
    // Before the font, with which a combo box changes its height.
    std::erase_if(m_controls,
                  [](const Control& each) { return !::IsWindow(each.window) || placeOf(each.window) != each.last; });
    setFont(dialog, font, dpi);
    for (Control& each : m_controls) {
        const auto scaled = [&](LONG value) { return ::MulDiv(value, dpi, each.dpi); };
        const CRect place(scaled(each.own.left), scaled(each.own.top), scaled(each.own.right), scaled(each.own.bottom));
        ::SetWindowPos(each.window, nullptr, place.left, place.top, place.Width(),
                       each.dropped > 0 ? scaled(each.dropped) : place.Height(), SWP_NOZORDER | SWP_NOACTIVATE);
        each.last = placeOf(each.window);
    }
    m_dpi = dpi;
}

void VekDpiLayout::setFont(HWND dialog, HFONT font, int dpi)
{
    LOGFONTW form = {};
    CFont scaled;
    if (!::GetObjectW(font, sizeof form, &form))
        return;
    form.lfHeight = ::MulDiv(form.lfHeight, dpi, m_firstDpi);
    if (!scaled.CreateFontIndirect(&form))
        return;
    const WPARAM next = reinterpret_cast<WPARAM>(HFONT(scaled));
    const HFONT before = m_font.m_hObject ? HFONT(m_font) : font;
    forControls(dialog, [&](HWND child) {
        if (::SendMessageW(child, WM_GETFONT, 0, 0) == reinterpret_cast<LRESULT>(before))
            ::SendMessageW(child, WM_SETFONT, next, TRUE);
    });
    m_font.DeleteObject();
    m_font.Attach(scaled.Detach());
}
