#include <vek/dialogframe/window/about_box.h>

IMPLEMENT_DYNAMIC(CAboutboxDlg, CVekDlg)

namespace
{

constexpr int kTemplate = 100;

} // namespace

CAboutboxDlg::CAboutboxDlg(CWnd* parent) : CVekDlg(kTemplate, parent) {}

void CAboutboxDlg::addLangRsc()
{
    m_mapLangKey[IDOK] = L"DLG_001";
    m_mapLangDef[IDOK] = L"OK";
}
