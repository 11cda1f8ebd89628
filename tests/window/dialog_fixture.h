// Dialogs from templates in memory.
#pragma once

#include <afxcmn.h>
#include <afxwin.h>

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
