#include <vek/dialogs/material.h>
#include <vek/dialogs/window/material_dialog.h>

#include "resizing.h"

IMPLEMENT_DYNAMIC(CVekMatTreeDlg, CVekDlg)

namespace
{

constexpr int kTemplate = 203;
constexpr int kTree = 1090;
constexpr POINT kSmallest = {300, 150}, kLargest = {700, 900};

} // namespace

BEGIN_MESSAGE_MAP(CVekMatTreeDlg, CVekDlg)
ON_BN_CLICKED(IDHELP, &CVekMatTreeDlg::OnHelpButton)
ON_NOTIFY(TVN_SELCHANGEDW, kTree, &CVekMatTreeDlg::OnSelect)
ON_NOTIFY(NM_DBLCLK, kTree, &CVekMatTreeDlg::OnDoubleClick)
ON_WM_SIZE()
ON_WM_GETMINMAXINFO()
ON_WM_SYSCOMMAND()
END_MESSAGE_MAP()

CVekMatTreeDlg::CVekMatTreeDlg(CWnd* parent) : CVekDlg(kTemplate, parent) {}

void CVekMatTreeDlg::setUp(const VEK::DlgEnvMatTree_st& env, const wchar_t* key)
{
    if (key)
        m_selMat = key;
    SetCountry(env.country);
    m_helpTopicName = env.helpTopic;
    m_helpFile = env.helpFile;
    SetHelpTopic(m_helpTopicName);
    SetHelpFile(m_helpFile);
    m_flags = VEK::matDialogFlags(env.options, env.drawingMats, env.showKeys);
    if ((m_flags & VEK::matTreePhys) != 0) {
        m_physKeys = env.physKeys;
        for (CVekString& physKey : m_physKeys)
            physKey.makeUpper();
    }
}

void CVekMatTreeDlg::DoDataExchange(CDataExchange* exchange)
{
    CVekDlg::DoDataExchange(exchange);
    DDX_Control(exchange, kTree, m_tree);
}

void CVekMatTreeDlg::addLangRsc()
{
    addText(IDOK, L"DLG_001", L"OK");
    addText(IDCANCEL, L"DLG_002", L"Abbrechen");
}

/// No control has a help text of its own; the entry is for none of them.
void CVekMatTreeDlg::addHlpRsc()
{
    m_mapHlpKey[0] = L"";
}

bool CVekMatTreeDlg::updLang()
{
    const wchar_t* title = GetMsg(L"VEK_MFC_0012", L"Materialauswahl", nullptr);
    SetWindowText(title);
    nameControl(kTree, title);
    m_tree.updLang();
    return CVekDlg::updLang();
}

BOOL CVekMatTreeDlg::OnInitDialog()
{
    CVekDlg::OnInitDialog();
    VEK::addInfoCommand(*this);
    ::EnableWindow(::GetDlgItem(m_hWnd, IDHELP), !m_helpFile.isNull());
    layOut();
    ::EnableWindow(::GetDlgItem(m_hWnd, IDOK), FALSE);
    m_tree.init(m_flags, m_selMat, m_physKeys);
    return TRUE;
}

void CVekMatTreeDlg::layOut()
{
    VEK::layOutRow(*this, {IDHELP, IDCANCEL, IDOK}, kTree);
}

void CVekMatTreeDlg::OnSize(UINT type, int width, int height)
{
    CVekDlg::OnSize(type, width, height);
    layOut();
}

void CVekMatTreeDlg::OnGetMinMaxInfo(MINMAXINFO* info)
{
    info->ptMinTrackSize = kSmallest;
    info->ptMaxTrackSize = kLargest;
    CVekDlg::OnGetMinMaxInfo(info);
}

void CVekMatTreeDlg::OnSysCommand(UINT id, LPARAM place)
{
    if (!VEK::infoCommand(*this, id))
        CVekDlg::OnSysCommand(id, place);
}

void CVekMatTreeDlg::OnHelpButton()
{
    Help(nullptr);
}

/// Enables OK if the selected material can be chosen, which then is the result.
bool CVekMatTreeDlg::check()
{
    CVekString key;
    const bool isGood = m_tree.getSelMat(key) && VEK::matCanBeChosen(m_matMgr, key, m_flags, m_physKeys);
    if (isGood)
        m_result = key;
    ::EnableWindow(::GetDlgItem(m_hWnd, IDOK), isGood);
    return isGood;
}

void CVekMatTreeDlg::OnSelect(NMHDR*, LRESULT* result)
{
    *result = 0;
    check();
}

void CVekMatTreeDlg::OnDoubleClick(NMHDR*, LRESULT* result)
{
    *result = 0;
    if (check())
        OnOK();
}

/// Neither a key nor another program confirms what cannot be chosen.
void CVekMatTreeDlg::OnOK()
{
    if (check())
        CVekDlg::OnOK();
}

namespace VEK
{

int dlgMatTree(const DlgEnvMatTree_st& env, CVekString& key)
{
    AFX_MANAGE_STATE(AfxGetStaticModuleState());
    CVekMatTreeDlg dialog(env.parentWnd());
    dialog.setUp(env, key);
    const INT_PTR answer = dialog.DoModal();
    if (answer == IDOK)
        key = dialog.m_result;
    return answer == IDCANCEL ? 0 : static_cast<int>(answer);
}

} // namespace VEK
