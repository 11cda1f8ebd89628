// What tests of the library's dialogs have in common.
#pragma once

#include "window/dialog_fixture.h"
#include "window/modal_queue.h"

#include <vek/data.h>
#include <vek/dialogframe.h>
#include <vek/host.h>
#include <vek/json.h>

/// Where a window is: on the screen, or within another one.
inline CRect placeOf(HWND window, HWND within = nullptr)
{
    CRect place;
    ::GetWindowRect(window, &place);
    ::MapWindowPoints(nullptr, within, reinterpret_cast<POINT*>(&place), 2);
    return place;
}

inline int fontHeightOf(HWND control)
{
    LOGFONTW font = {};
    ::GetObjectW(reinterpret_cast<HFONT>(::SendMessageW(control, WM_GETFONT, 0, 0)), sizeof font, &font);
    return std::abs(font.lfHeight);
}

/// Whether a control is seen when its dialog is.
inline bool isShown(HWND control)
{
    return (::GetWindowLongW(control, GWL_STYLE) & WS_VISIBLE) != 0;
}

/// How wide a text is in the dialog's font.
inline int widthOf(CWnd& dialog, const std::wstring& text)
{
    CClientDC dc(&dialog);
    dc.SelectObject(dialog.GetFont());
    return dc.GetTextExtent(text.c_str(), static_cast<int>(text.size())).cx;
}

/// Tells a dialog of another resolution, with the place that it then has.
inline void changeResolution(CWnd& dialog, int dpi, CRect place)
{
    dialog.SendMessage(WM_DPICHANGED, MAKEWPARAM(dpi, dpi), reinterpret_cast<LPARAM>(static_cast<RECT*>(&place)));
    EXPECT_EQ(placeOf(dialog), place);
}

/// The library's texts, and a user who knows what comes. Afterwards everything is as before, and no dialog on the
/// stack.
class DialogTest : public testing::Test
{
protected:
    DialogTest() { m_backup.attach(nullptr); }
    ~DialogTest() override
    {
        CVekDlg::SetMsgCallBack(m_before);
        VEK::msgLangSet(L"de");
        vekAppSet(nullptr);
        EXPECT_EQ(VEK::dlgStackPop(), nullptr) << "a dialog is still on the stack";
    }
    /// Materials, and texts in all languages.
    static void loadExamples(const CVekString& folder)
    {
        CVekString error;
        EXPECT_TRUE(VEK::jsonLoad(*VEK::cfgMgrPtr()->tree(), folder + L"/materials.json", error));
        EXPECT_TRUE(VEK::textsLoad(folder + L"/texts.json", error));
    }

    ModalQueue user;

private:
    VEK::CCfgBackup m_backup{true};
    CVekDlg::MsgFcn m_before = CVekDlg::SetMsgCallBack(&VEK::msgCallBack);
};

inline constexpr const wchar_t* kLanguages[] = {L"de", L"en", L"fr", L"pl", L"cs"};

/// A dialog of the frame that does what the test says.
class Form : public CVekDlg
{
public:
    explicit Form(const Template& source, CWnd* parent = nullptr) : CVekDlg(0, parent), m_source(source)
    {
        InitModalIndirect(m_source.get(), parent);
    }

    std::function<void(Form&)> fill, onStart;
    std::function<void(UINT)> onMessage; ///< before the dialog has it
    int updates = 0;

    bool open(CWnd* parent = nullptr) { return CreateIndirect(m_source.get(), parent); }
    void addLangRsc() override
    {
        if (fill)
            fill(*this);
    }
    BOOL OnInitDialog() override
    {
        const HWND window = m_hWnd;
        const BOOL result = CVekDlg::OnInitDialog();
        if (FromHandlePermanent(window) == this && onStart) // else it has ended, and may be gone
            onStart(*this);
        return result;
    }
    bool updLang() override
    {
        ++updates;
        return CVekDlg::updLang();
    }
    CString textOf(int id)
    {
        CString text;
        GetDlgItemText(id, text);
        return text;
    }
    using CVekDlg::m_mapHlpKey, CVekDlg::m_mapLangDef, CVekDlg::m_mapLangKey, CVekDlg::m_mapToolTipKey;

protected:
    LRESULT WindowProc(UINT message, WPARAM wParam, LPARAM lParam) override
    {
        if (onMessage)
            onMessage(message);
        return CVekDlg::WindowProc(message, wParam, lParam);
    }

private:
    Template m_source;
};
