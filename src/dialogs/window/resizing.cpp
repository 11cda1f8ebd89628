#include "resizing.h"

#include "../button_row.h"

#include <vek/dialogframe/window/about_box.h>

namespace VEK
{

namespace
{

constexpr UINT kInfo = 0x10;

void place(HWND control, const DlgRect& rect)
{
    ::MoveWindow(control, rect.left, rect.top, rect.right - rect.left, rect.bottom - rect.top, TRUE);
}

} // namespace

void layOutRow(CWnd& dialog, const std::vector<int>& buttons, int rest)
{
    const HWND window = dialog.m_hWnd;
    CRect area;
    ::GetClientRect(window, &area);
    const ButtonRow row = buttonRow(buttons, area.Width(), area.Height(), [&](int id, int& width, int& height) {
        CRect button;
        if (!::GetWindowRect(::GetDlgItem(window, id), &button))
            return false;
        width = button.Width();
        height = button.Height();
        return true;
    });
    for (const PlacedButton& button : row.buttons) {
        const HWND control = ::GetDlgItem(window, button.id);
        place(control, button.rect);
        ::InvalidateRect(control, nullptr, TRUE);
    }
    place(::GetDlgItem(window, rest), row.rest);
}

void addInfoCommand(CVekDlg& dialog)
{
    const HMENU menu = ::GetSystemMenu(dialog.m_hWnd, FALSE);
    ::AppendMenuW(menu, MF_SEPARATOR, 0, nullptr);
    ::AppendMenuW(menu, MF_STRING, kInfo, dialog.GetMsg(L"\\VEK_MFC_0018\\...", L"Info über VEK", nullptr));
}

bool infoCommand(CVekDlg& dialog, UINT id)
{
    const bool isInfo = (id & 0xFFF0) == kInfo;
    if (isInfo) {
        CAboutboxDlg box(&dialog);
        box.SetCountry(dialog.country());
        box.DoModal();
    }
    return isInfo;
}

} // namespace VEK
