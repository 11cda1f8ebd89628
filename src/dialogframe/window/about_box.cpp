#include <vek/dialogframe/window/about_box.h>

IMPLEMENT_DYNAMIC(CAboutboxDlg, CVekDlg)

namespace
{

constexpr int kTemplate = 100;
constexpr int kPurpose = 5020;

} // namespace

CAboutboxDlg::CAboutboxDlg(CWnd* parent) : CVekDlg(kTemplate, parent) {}

void CAboutboxDlg::addLangRsc()
{
    addText(IDOK, L"DLG_001", L"OK");
    addText(kPurpose, L"VEK_MFC_0020", L"Anzeige- und Dialogbibliothek für den Fassaden- und Metallbau");
}

bool CAboutboxDlg::updLang()
{
    const bool isReplaced = CVekDlg::updLang();
    if (m_hWnd)
        SetWindowText(GetMsg(L"VEK_MFC_0018", L"Info über VEK", nullptr));
    return isReplaced;
}
