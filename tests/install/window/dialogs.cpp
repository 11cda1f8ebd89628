// Opens each of the ready-made dialogs, with nobody in front of the screen: a timer closes them.
#include <vek/vek.h>

#include <afxwin.h>

#include <cwchar>

namespace
{

WPARAM answer; ///< the button that the timer presses
int dialogs;   ///< that it has closed
HWND closed;   ///< the last of them

BOOL CALLBACK close(HWND window, LPARAM)
{
    wchar_t name[16] = {};
    ::GetClassNameW(window, name, 15);
    if (window == closed || !::IsWindowVisible(window) || std::wcscmp(name, L"#32770") != 0)
        return TRUE;
    closed = window;
    ++dialogs;
    ::SendMessageW(window, WM_COMMAND, answer, 0);
    return FALSE;
}

void CALLBACK tick(HWND, UINT, UINT_PTR, DWORD)
{
    ::EnumThreadWindows(::GetCurrentThreadId(), &close, 0);
}

} // namespace

class App : public CWinApp
{
public:
    BOOL InitInstance() override
    {
        ::SetTimer(nullptr, 0, 50, &tick);
        answer = IDOK;
        VEK::outlineData outline;
        CVekDataItem library(CVekDataItem::directory);
        check(VEK::dlgOutline(environment, outline, &library) == IDOK && outline.parms.len() > 0);
        CVekString label, text;
        check(VEK::dlgLabelEdit(environment, label, 0, L"Glass", L"en", nullptr) == IDOK &&
              VEK::label_get(text, label, L"en", false) && text == L"Glass");
        check(VEK::dlgUnits(environment, Vek::unitMillimetre) == Vek::unitMillimetre);
        CDlgFilterOutline filter;
        filter.m_mask = 5;
        check(filter.DoModal() == IDOK && filter.m_mask == 5);
        answer = IDCANCEL;
        CVekString material(L"GLASS");
        check(VEK::dlgMatTree(VEK::DlgEnvMatTree_st(), material) == 0 && material == L"GLASS");
        check(CAboutboxDlg().DoModal() == IDCANCEL);
        --m_expected; // what the host shows is its own matter
        CVekLocalApp host;
        host.functionSet(L"mra_hole_dial", [](resbuf*, VEK::CUniqResbuf& result) {
            result = VEK::CUniqResbuf(VEK::mkResbuf(1, VEK::rbShort));
            return VEK::kHostNormal;
        });
        vekAppSet(&host);
        CVekDataItem holes(CVekDataItem::directory);
        check(VEK::dlgBgr(environment, label, &holes, nullptr) == 1 && holes.getItem(L"LABEL"));
        vekAppSet(nullptr);
        return FALSE;
    }
    int ExitInstance() override { return m_failed; }

private:
    /// Whether a dialog came and gave what it should; if not, its number is the exit status.
    void check(bool isGood)
    {
        ++m_number;
        ++m_expected;
        if ((!isGood || dialogs != m_expected) && m_failed == 0)
            m_failed = m_number;
    }

    const VEK::DlgEnv_st environment;
    int m_number = 0, m_expected = 0, m_failed = 0;
} theApp;
