// Dialogs from templates in memory.
#pragma once

#include <afxcmn.h>
#include <afxwin.h>

#include <oleacc.h>

#include <cstring>
#include <functional>
#include <string>
#include <vector>

/// Handles the messages that wait, keys by way of PreTranslateMessage. They may not end: a window that paints nothing
/// stays invalid.
inline void pumpWaiting()
{
    MSG message;
    for (int i = 0; i < 200 && ::PeekMessageW(&message, nullptr, 0, 0, PM_NOREMOVE); ++i)
        AfxPumpMessage();
}

/// Presses a key, of which the objects of the windows around the focus hear first.
inline void press(WPARAM key)
{
    ::PostMessageW(::GetFocus(), WM_KEYDOWN, key, 0);
    pumpWaiting();
}

/// Clicks on a place in a window.
inline void clickAt(HWND window, CPoint place)
{
    const LPARAM at = MAKELPARAM(place.x, place.y);
    ::SendMessageW(window, WM_LBUTTONDOWN, MK_LBUTTON, at);
    ::SendMessageW(window, WM_LBUTTONUP, 0, at);
}

inline void clickButton(HWND dialog, int id)
{
    ::SendDlgItemMessageW(dialog, id, BM_CLICK, 0, 0);
}

/// Selects a row of a combo box and tells the dialog.
inline void chooseRow(HWND dialog, int id, int row)
{
    const HWND box = ::GetDlgItem(dialog, id);
    ::SendMessageW(box, CB_SETCURSEL, static_cast<WPARAM>(row), 0);
    ::SendMessageW(dialog, WM_COMMAND, MAKEWPARAM(id, CBN_SELCHANGE), reinterpret_cast<LPARAM>(box));
}

/// Replaces what is in a field, and goes to another control.
inline void typeInto(HWND dialog, int id, const wchar_t* typed, int next)
{
    const HWND field = ::GetDlgItem(dialog, id);
    ::SetFocus(field);
    ::SendMessageW(field, EM_SETSEL, 0, -1);
    ::SendMessageW(field, EM_REPLACESEL, TRUE, reinterpret_cast<LPARAM>(typed));
    ::SetFocus(::GetDlgItem(dialog, next));
}

inline CString textOf(HWND dialog, int id)
{
    wchar_t text[200] = L"";
    ::GetDlgItemTextW(dialog, id, text, 200);
    return text;
}

/// The name of a window for screen readers.
inline std::wstring nameOf(HWND window)
{
    // Spelled out: the constant of MinGW's library is not that of the interface.
    const IID kind = {0x618736E0, 0x3C3D, 0x11CF, {0x81, 0x0C, 0x00, 0xAA, 0x00, 0x38, 0x9B, 0x71}};
    ::CoInitialize(nullptr);
    IAccessible* it = nullptr;
    std::wstring name;
    BSTR text = nullptr;
    VARIANT self = {};
    self.vt = VT_I4;
    if (SUCCEEDED(::AccessibleObjectFromWindow(window, static_cast<DWORD>(OBJID_CLIENT), kind,
                                               reinterpret_cast<void**>(&it)))) {
        if (it->get_accName(self, &text) == S_OK)
            name = text;
        ::SysFreeString(text);
        it->Release();
    }
    ::CoUninitialize();
    return name;
}

/// The label of a control whose name Wine does not take from it.
inline std::wstring labelOf(HWND control)
{
    wchar_t text[80] = L"";
    ::GetWindowTextW(::GetWindow(control, GW_HWNDPREV), text, 80);
    return text;
}

/// A dialog template in memory. With DS_SETFONT it has the font of dialogs, otherwise that of the system.
class Template
{
public:
    explicit Template(DWORD style = WS_POPUP | WS_CAPTION | WS_SYSMENU, short x = 10, short y = 10,
                      const wchar_t* title = L"test")
    {
        const DLGTEMPLATE head = {style, 0, 0, x, y, 120, 80};
        put(&head, sizeof head);
        text(L""), text(L""), text(title);
        const WORD points = 8;
        if (style & DS_SETFONT)
            put(&points, sizeof points), text(L"MS Shell Dlg");
    }
    Template& item(WORD id, const wchar_t* cls, DWORD style = 0, const wchar_t* caption = L"")
    {
        m_bytes.resize((m_bytes.size() + 3) / 4 * 4);
        const DLGITEMTEMPLATE item = {style | WS_CHILD | WS_VISIBLE, 0, 5, short(20 * get()->cdit), 50, 14, id};
        put(&item, sizeof item);
        text(cls), text(caption);
        const WORD none = 0;
        put(&none, sizeof none);
        ++reinterpret_cast<DLGTEMPLATE*>(m_bytes.data())->cdit;
        return *this;
    }
    LPCDLGTEMPLATE get() const { return reinterpret_cast<LPCDLGTEMPLATE>(m_bytes.data()); }

private:
    void put(const void* data, size_t size)
    {
        m_bytes.resize(m_bytes.size() + size);
        std::memcpy(m_bytes.data() + m_bytes.size() - size, data, size);
    }
    void text(const wchar_t* it) { put(it, (std::wcslen(it) + 1) * sizeof *it); }

    std::vector<unsigned char> m_bytes;
};

/// A dialog that does what the test says.
class Dialog : public CDialog
{
public:
    explicit Dialog(const Template& source, CWnd* parent = nullptr) { InitModalIndirect(source.get(), parent); }

    std::function<void(Dialog&)> onCreate, onStart;
    std::function<void(CDataExchange*)> exchange;
    int notices = 0; ///< what the controls told, as far as handlers would get it
    std::vector<std::string> log;

    BOOL OnInitDialog() override
    {
        CDialog::OnInitDialog();
        if (onStart)
            onStart(*this);
        return TRUE;
    }
    BOOL PreTranslateMessage(MSG* message) override
    {
        if (message->message == WM_KEYDOWN)
            log.push_back("dialog");
        return CDialog::PreTranslateMessage(message);
    }
    BOOL OnCmdMsg(UINT id, int code, void* extra, AFX_CMDHANDLERINFO* info) override
    {
        notices += code != CN_COMMAND;
        return CDialog::OnCmdMsg(id, code, extra, info);
    }
    using CDialog::OnOK;

protected:
    LRESULT WindowProc(UINT message, WPARAM wParam, LPARAM lParam) override
    {
        const LRESULT result = CDialog::WindowProc(message, wParam, lParam);
        if (message == WM_CREATE && onCreate)
            onCreate(*this);
        return result;
    }
    void DoDataExchange(CDataExchange* pDX) override
    {
        CDialog::DoDataExchange(pDX);
        if (exchange)
            exchange(pDX);
    }
};
