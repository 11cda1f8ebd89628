#include "hole_dialog.h"

#include "hole_ids.h"

#include <vek/data.h>
#include <vek/dialogs.h>
#include <vek/images/object.h>
#include <vek/objects/outline.h>

#include <algorithm>
#include <cfloat>

IMPLEMENT_DYNAMIC(HoleDialog, CVekDlg)

BEGIN_MESSAGE_MAP(HoleDialog, CVekDlg)
ON_NOTIFY(LVN_ITEMCHANGED, IDC_HOLES_LIST, &HoleDialog::OnSelect)
ON_BN_CLICKED(IDC_HOLES_ADD, &HoleDialog::OnAdd)
ON_BN_CLICKED(IDC_HOLES_REMOVE, &HoleDialog::OnRemove)
ON_EN_KILLFOCUS(IDC_HOLES_NAME, &HoleDialog::OnName)
ON_CBN_SELCHANGE(IDC_HOLES_KIND, &HoleDialog::OnKind)
ON_BN_CLICKED(IDC_HOLES_OUTLINE, &HoleDialog::OnOutline)
ON_CONTROL_RANGE(EN_KILLFOCUS, IDC_HOLES_DIAMETER, IDC_HOLES_Y, &HoleDialog::OnValue)
END_MESSAGE_MAP()

namespace
{

constexpr const wchar_t* kRoot = nullptr;
constexpr int kPrecision = 3;
constexpr int kHighlightIndex = 1, kMarkIndex = 3; // where the configuration has no colours
constexpr unsigned long kMarkStyle = 2;            // a cross
constexpr double kMarkSize = 10.0;

CVekDataKey activeKey()
{
    return CVekDataKey(5005, L"*HOLE*", 5005, L"BT", 0);
}

CVekString textOf(const CWnd& field)
{
    CString text;
    field.GetWindowText(text);
    return CVekString(text);
}

int editPattern(CVekApp& host, VEK::CUniqResbuf& answer)
{
    VEK::CAdsName name;
    if (!host.namedDataObject(name, L"HOLE", true))
        return VEK::kHostError;
    const VEK::CUniqPointer<VEK::CDtaFilePointer> drawing(VEK::dtaOpen(vekDtaDrawing, 3, name, nullptr, nullptr));
    CVekDataItem* const root = VEK::fileItem(drawing, kRoot);
    if (!root)
        return VEK::kHostError;
    const CVekDataKey key = activeKey();
    CVekString active;
    VEK::dataItemGet(VEK::cfg_get(&key), nullptr, active);
    const VEK::DlgEnv_st environment;
    HoleDialog dialog(root, active, environment.parentWnd());
    dialog.SetCountry(environment.country);
    const bool isConfirmed = dialog.DoModal() == IDOK;
    if (isConfirmed) {
        *root = *dialog.pattern();
        VEK::cfgSet(&key, dialog.active());
    }
    answer = VEK::CUniqResbuf(VEK::mkResbuf(isConfirmed ? 1 : 0, VEK::rbShort));
    return VEK::kHostNormal;
}

} // namespace

void holeDialogEnter(CVekLocalApp& host)
{
    // The library calls under the state of its own module, which has not the resources of a host that is a DLL itself.
    AFX_MODULE_STATE* const module = AfxGetModuleState();
    host.functionSet(L"mra_hole_dial", [&host, module](resbuf*, VEK::CUniqResbuf& answer) {
        AFX_MANAGE_STATE(module);
        return editPattern(host, answer);
    });
}

HoleDialog::HoleDialog(const CVekDataItem* pattern, const CVekString& active, CWnd* parent)
    : CVekDlg(IDD_HOLES, parent), m_file(VEK::dtaOpen(vekDtaMemory, 3, nullptr, pattern)), m_active(active)
{
    if (CVekDataItem* root = VEK::fileItem(m_file, kRoot)) {
        m_header = root->makeDir(L"");
        m_elements = root->makeDir(L"BT");
    }
    if (!VEK::cfg_get(L"MRA_MENU\\COLOR")) {
        CVekColor color;
        color.setColorIndex(kHighlightIndex);
        m_gdx.ColorTabSet(VEK::colorHighlight, color);
        color.setColorIndex(kMarkIndex);
        m_gdx.ColorTabSet(VEK::colorBase, color);
        m_gdx.pdModeSet(kMarkStyle);
        m_gdx.pdSizeSet(kMarkSize);
    }
}

INT_PTR HoleDialog::DoModal()
{
    return m_header && m_elements ? CVekDlg::DoModal() : IDCANCEL;
}

void HoleDialog::DoDataExchange(CDataExchange* exchange)
{
    CVekDlg::DoDataExchange(exchange);
    DDX_Control(exchange, IDC_HOLES_LABEL, m_labelEdit);
    DDX_Control(exchange, IDC_HOLES_ORDER, m_orderEdit);
    DDX_Control(exchange, IDC_HOLES_LIST, m_list);
    DDX_Control(exchange, IDC_HOLES_NAME, m_name);
    DDX_Control(exchange, IDC_HOLES_KIND, m_kind);
    DDX_Control(exchange, IDC_HOLES_DIAMETER, m_diameter);
    DDX_Control(exchange, IDC_HOLES_X, m_x);
    DDX_Control(exchange, IDC_HOLES_Y, m_y);
    DDX_Control(exchange, IDC_HOLES_PICTURE, m_picture);
}

void HoleDialog::addLangRsc()
{
    addText(IDOK, L"DLG_001", L"OK");
    addText(IDCANCEL, L"DLG_002", L"Abbrechen");
    addText(IDC_HOLES_LABEL_TEXT, L"VEK_MFC_0009", L"Bezeichnung");
    addText(IDC_HOLES_ORDER_TEXT, L"VEK_HOLE_0001", L"Bestellnummer");
    addText(IDC_HOLES_LIST_TEXT, L"VEK_HOLE_0002", L"Löcher");
    addText(IDC_HOLES_GROUP, L"VEK_HOLE_0003", L"Loch");
    addText(IDC_HOLES_NAME_TEXT, L"VEK_HOLE_0004", L"Name");
    addText(IDC_HOLES_KIND_TEXT, L"VEK_HOLE_0005", L"Art");
    addText(IDC_HOLES_DIAMETER_TEXT, L"VEK_OUTL_2004", L"Durchmesser");
    addText(IDC_HOLES_ADD, L"VEK_HOLE_0008", L"Hinzufügen");
    addText(IDC_HOLES_REMOVE, L"VEK_HOLE_0009", L"Entfernen");
}

bool HoleDialog::updLang()
{
    const bool good = CVekDlg::updLang();
    SetWindowText(GetMsg(L"VEK_HOLE_0000", L"Lochbild", nullptr));
    return good;
}

BOOL HoleDialog::OnInitDialog()
{
    CVekDlg::OnInitDialog();
    VEK::dataGet(m_header, L"LABEL", m_label);
    CVekString text;
    VEK::label_get(text, m_label, country(), true);
    m_labelEdit.SetWindowText(text);
    text = CVekString();
    VEK::dataGet(m_header, L"ORDER", text);
    m_orderEdit.SetWindowText(text);

    const unsigned short length = VEK::valueRequired | VEK::valueSuppressZeros | VEK::valueDrawingUnit;
    for (CVekEdit* field : {&m_x, &m_y, &m_diameter}) {
        const unsigned extra = field == &m_diameter ? VEK::valueNotZero | VEK::valueNotNegative : 0;
        field->setEditFlags(CVekEdit::typeLength, static_cast<unsigned short>(length | extra), kPrecision, -DBL_MAX,
                            DBL_MAX);
        field->setLUnits(Vek::unitCurrent, Vek::unitCurrent);
        field->setFormat(static_cast<Vek::lFormat>(vekAppPtr()->defaultUnit()));
    }

    CRect area;
    m_list.GetClientRect(&area);
    m_list.SetExtendedStyle(LVS_EX_FULLROWSELECT);
    m_list.InsertColumn(0, GetMsg(L"VEK_HOLE_0004", L"Name", nullptr), LVCFMT_LEFT, area.Width() / 2);
    m_list.InsertColumn(1, GetMsg(L"VEK_HOLE_0005", L"Art", nullptr));
    m_picture.set_dpList(&m_gdx);
    const CVekDataKey active(m_active);
    const std::vector<CVekDataItem*> holes = holesOf(m_elements);
    const auto found = std::find(holes.begin(), holes.end(), m_elements->getItem(&active));
    fillList(found == holes.end() ? 0 : static_cast<int>(found - holes.begin()));
    m_list.SetFocus();
    return FALSE;
}

/// Of an outline its shape.
CVekString HoleDialog::kindText(const CVekDataItem& hole)
{
    if (kindOf(hole) == HoleKind::drill)
        return GetMsg(L"VEK_HOLE_0006", L"Bohrung", nullptr);
    if (kindOf(hole) == HoleKind::lines)
        return GetMsg(L"VEK_HOLE_0007", L"Linien", nullptr);
    CVekString key;
    key.format(L"VEK_OUTL_1%03d", outlineOf(hole).code);
    return GetMsg(key, VEK::outlineText(key), nullptr);
}

/// Fills the list anew and selects a row, or the last one.
void HoleDialog::fillList(int selected)
{
    m_holes = holesOf(m_elements);
    m_list.DeleteAllItems();
    const int rows = static_cast<int>(m_holes.size());
    for (int row = 0; row < rows; ++row) {
        m_list.InsertItem(row, *m_holes[row]->getKey());
        m_list.SetItemText(row, 1, kindText(*m_holes[row]));
    }
    CRect area;
    m_list.GetClientRect(&area); // which a scroll bar makes narrower
    m_list.SetColumnWidth(1, area.Width() - m_list.GetColumnWidth(0));
    m_list.SetCurSel(std::min(selected, rows - 1));
    showHole();
    showPicture(true);
}

/// The selected hole, null for none.
CVekDataItem* HoleDialog::hole() const
{
    return m_shown >= 0 ? m_holes[m_shown] : nullptr;
}

void HoleDialog::showHole()
{
    m_shown = m_list.GetCurSel();
    CVekDataItem* const shown = hole();
    const HoleKind kind = shown ? kindOf(*shown) : HoleKind::lines;
    m_active = shown ? CVekString(*shown->getKey()) : CVekString();
    m_name.SetWindowText(m_active);
    m_kind.ResetContent();
    if (shown) {
        m_kind.AddString(GetMsg(L"VEK_HOLE_0006", L"Bohrung", nullptr));
        m_kind.AddString(GetMsg(L"VEK_OUTL_0000", L"Kontur", nullptr));
        if (kind == HoleKind::lines) // which nobody can choose
            m_kind.AddString(kindText(*shown));
        m_kind.SetCurSel(static_cast<int>(kind));
    }
    const CVekPoint3d position = shown ? positionOf(*shown) : CVekPoint3d();
    m_x.setVal(position.x);
    m_y.setVal(position.y);
    if (kind == HoleKind::drill)
        m_diameter.setVal(diameterOf(*shown));
    else
        m_diameter.SetWindowText(L"");
    for (CWnd* field : std::initializer_list<CWnd*>{&m_name, &m_kind, &m_x, &m_y, GetDlgItem(IDC_HOLES_REMOVE)})
        field->EnableWindow(shown != nullptr);
    m_diameter.EnableWindow(kind == HoleKind::drill);
    GetDlgItem(IDC_HOLES_OUTLINE)->EnableWindow(kind == HoleKind::outline);
}

void HoleDialog::showPicture(bool fits)
{
    CVekDataItem wish;
    VEK::dataSet(&wish, L"ACT", m_active);
    VEK::dataSet(&wish, L"COORD", true);
    const VEK::CUniqPointer<VEK::CDtaFilePointer> parameters(VEK::dtaOpen(vekDtaMemory, 3, nullptr, &wish));
    m_gdx.clear();
    vek_gdx_image_hole(&m_gdx, m_file, parameters);
    m_gdx.displListSort();
    if (fits)
        m_picture.zoomExtents();
    m_picture.Invalidate();
}

void HoleDialog::OnSelect(NMHDR*, LRESULT* result)
{
    *result = 0;
    if (m_list.GetCurSel() == m_shown)
        return;
    showHole();
    showPicture(false);
}

void HoleDialog::OnAdd()
{
    addHole(*m_elements);
    fillList(static_cast<int>(m_holes.size()));
    m_name.SetFocus();
    m_name.SetSel(0, -1);
}

void HoleDialog::OnRemove()
{
    const CVekDataKey key(m_active);
    m_elements->getDir()->remove(&key);
    fillList(m_shown);
    m_list.SetFocus();
}

/// A name that cannot be given is replaced by the old one.
void HoleDialog::OnName()
{
    const CVekString name = textOf(m_name);
    if (!hole() || name == m_active)
        return;
    if (renameHole(*m_elements, *hole(), name)) {
        fillList(m_shown);
    } else {
        ::MessageBeep(MB_ICONASTERISK);
        m_name.SetWindowText(m_active);
    }
}

void HoleDialog::OnKind()
{
    setKind(*hole(), static_cast<HoleKind>(m_kind.GetCurSel()));
    fillList(m_shown);
}

void HoleDialog::OnOutline()
{
    VEK::DlgEnv_st environment;
    environment.country = country();
    VEK::outlineData outline = outlineOf(*hole());
    if (VEK::dlgOutline(environment, outline, VEK::cfg_dir_make(L"*VEK_OUTLINE*")) != IDOK)
        return;
    setOutline(*hole(), outline);
    fillList(m_shown);
}

void HoleDialog::OnValue(UINT id)
{
    CVekEdit& field = id == IDC_HOLES_X ? m_x : id == IDC_HOLES_Y ? m_y : m_diameter;
    double value = 0.0;
    if (!hole() || !field.GetModify() || !field.getVal(value))
        return;
    if (id == IDC_HOLES_DIAMETER) {
        setDiameter(*hole(), value);
    } else {
        CVekPoint3d position = positionOf(*hole());
        position[id == IDC_HOLES_X ? 0 : 1] = value;
        setPosition(*hole(), position);
    }
    field.SetModify(FALSE);
    showPicture(true);
}

void HoleDialog::OnOK()
{
    if (m_labelEdit.GetModify())
        VEK::label_set(m_label, textOf(m_labelEdit), country());
    VEK::dataSet(m_header, L"LABEL", m_label);
    VEK::dataSet(m_header, L"ORDER", textOf(m_orderEdit));
    CVekDlg::OnOK();
}
