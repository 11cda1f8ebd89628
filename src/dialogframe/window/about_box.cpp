#include <vek/dialogframe/window/about_box.h>

IMPLEMENT_DYNAMIC(CAboutboxDlg, CVekDlg)

namespace
{

constexpr int kTemplate = 100;

} // namespace

CAboutboxDlg::CAboutboxDlg(CWnd* parent) : CVekDlg(kTemplate, parent) {}

void CAboutboxDlg::addLangRsc()
{
    addText(IDOK, L"DLG_001", L"OK");
}
