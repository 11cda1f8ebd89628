#include "material_tree_page.h"

#include "resource.h"

IMPLEMENT_DYNAMIC(MaterialTreePage, CVekDlg)

BEGIN_MESSAGE_MAP(MaterialTreePage, CVekDlg)
ON_CONTROL_RANGE(BN_CLICKED, IDC_MATERIAL_FLAG, IDC_MATERIAL_FLAG_LAST, &MaterialTreePage::OnFlag)
ON_NOTIFY(TVN_SELCHANGEDW, IDC_MATERIAL_TREE, &MaterialTreePage::OnSelect)
END_MESSAGE_MAP()

MaterialTreePage::MaterialTreePage(CWnd* parent) : CVekDlg(IDD_MATERIAL_TREE, parent), m_before(vekAppSet(&m_host))
{
    VEK::CAdsName name;
    if (!m_host.namedDataObject(name, L"MAT", true))
        return;
    const auto drawing = m_host.dataObject(name);
    VEK::dataSet(drawing, L"BRONZE\\LABEL", L"Baubronze");
    VEK::dataSet(drawing, L"BRONZE\\PHYS\\RHO", 8400.0);
    VEK::dataSet(drawing, L"BRONZE\\SUBS", CVekArrayTempl<CVekString>{L"BRONZE-SHEET"});
    VEK::dataSet(drawing, L"BRONZE-SHEET\\SUB", true);
    VEK::dataSet(drawing, L"BRONZE-SHEET\\EDGE", CVekArrayTempl<CVekString>{L"R2"});
}

MaterialTreePage::~MaterialTreePage()
{
    vekAppSet(m_before);
}

BOOL MaterialTreePage::OnInitDialog()
{
    CVekDlg::OnInitDialog();
    CheckDlgButton(IDC_MATERIAL_FLAG, BST_CHECKED);
    OnFlag(IDC_MATERIAL_FLAG);
    return TRUE;
}

void MaterialTreePage::DoDataExchange(CDataExchange* exchange)
{
    CVekDlg::DoDataExchange(exchange);
    DDX_Control(exchange, IDC_MATERIAL_TREE, m_tree);
}

/// The check boxes stand in the order of the bits.
void MaterialTreePage::OnFlag(UINT)
{
    unsigned flags = 0;
    for (int id = IDC_MATERIAL_FLAG; id <= IDC_MATERIAL_FLAG_LAST; ++id)
        flags |= IsDlgButtonChecked(id) == BST_CHECKED ? 1u << (id - IDC_MATERIAL_FLAG) : 0;
    CVekString selected;
    m_tree.getSelMat(selected);
    m_tree.init(flags, selected, {L"RE", L"RM"});
}

void MaterialTreePage::OnSelect(NMHDR*, LRESULT* result)
{
    *result = 0;
    CVekString key;
    m_tree.getSelMat(key);
    SetDlgItemText(IDC_MATERIAL_KEY, key);
}
