#include "sample_dialog.h"

#include "core/platform/platform.h"
#include "resource.h"

#include <vek/values/country.h>

IMPLEMENT_DYNAMIC(SampleDialog, CVekDlg)

BEGIN_MESSAGE_MAP(SampleDialog, CVekDlg)
ON_CBN_SELCHANGE(IDC_LANGUAGE, &SampleDialog::OnLanguage)
ON_BN_CLICKED(IDHELP, &SampleDialog::OnHelpButton)
ON_BN_CLICKED(IDC_ABOUT, &SampleDialog::OnAbout)
ON_BN_CLICKED(IDC_ANOTHER, &SampleDialog::OnAnother)
ON_STN_CLICKED(IDC_DRAG, &SampleDialog::OnDrag)
END_MESSAGE_MAP()

SampleDialog::SampleDialog(CWnd* parent)
    : CVekDlg(IDD_SAMPLE, parent), m_file(VEK::platform::textOf(VEK::platform::programPath()).c_str())
{
    SetHelpFile(L"https://example.org/<topic>.html");
    SetHelpTopic(L"index");
}

void SampleDialog::addLangRsc()
{
    addText(IDOK, L"DLG_001", L"OK");
    addText(IDCANCEL, L"DLG_002", L"Abbrechen");
    addText(IDC_GROUP, L"VEK_OUTL_0003", L"Auswahl");
    addText(IDC_RANGE_LABEL, L"VEK_OUTL_0066", L"Bereich");
    addText(IDC_POINT_LABEL, L"VEK_OUTL_0005", L"Basispunkt");
    addText(IDC_PARAMETER_LABEL, L"VEK_OUTL_0006", L"Parameter");
    addText(IDC_ANOTHER, L"\\VEK_OUTL_0004\\...", L"Filter");
}

void SampleDialog::addHlpRsc()
{
    m_mapHlpKey[IDC_RANGE] = L"VEK022";
    m_mapHlpKey[IDC_POINT] = L"VEK023";
}

void SampleDialog::addToolTipRsc()
{
    m_mapToolTipKey[IDC_RANGE] = L"VEK022";
    m_mapToolTipKey[IDC_POINT] = L"VEK023";
    m_mapToolTipKey[IDC_PARAMETER] = L"VEK024";
}

bool SampleDialog::updLang()
{
    const bool good = CVekDlg::updLang();
    SetWindowText(GetMsg(L"VEK_OUTL_0000", L"Kontur", nullptr));
    return good;
}

BOOL SampleDialog::OnInitDialog()
{
    CVekDlg::OnInitDialog();
    SetDlgItemText(IDC_DRAG, m_file);
    auto& list = *static_cast<CComboBox*>(GetDlgItem(IDC_LANGUAGE));
    for (const vek_country_st* each = VEK::dlCountries(); each->id; ++each) {
        const int row = list.AddString(each->name);
        if (CVekString(each->id) == country())
            list.SetCurSel(row);
    }
    return TRUE;
}

void SampleDialog::DoDataExchange(CDataExchange* exchange)
{
    CVekDlg::DoDataExchange(exchange);
    DDX_Control(exchange, IDC_RANGE, m_range);
    DDX_Control(exchange, IDC_POINT, m_point);
    DDX_Control(exchange, IDC_PARAMETER, m_parameter);
}

void SampleDialog::OnLanguage()
{
    const int row = static_cast<CComboBox*>(GetDlgItem(IDC_LANGUAGE))->GetCurSel();
    if (row >= 0)
        SetCountry(VEK::dlCountries()[row].id);
}

void SampleDialog::OnHelpButton()
{
    Help(nullptr);
}

void SampleDialog::OnAbout()
{
    CAboutboxDlg(this).DoModal();
}

/// Opens a second one, which has this one as its parent and inherits its language.
void SampleDialog::OnAnother()
{
    SampleDialog(VEK::DlgEnv_st().parentWnd()).DoModal();
}

void SampleDialog::OnDrag()
{
    const bool hasOle = SUCCEEDED(::OleInitialize(nullptr));
    VEK::DoDragDrop(m_file, DROPEFFECT_COPY, nullptr, nullptr);
    if (hasOle)
        ::OleUninitialize();
}
