#include <vek/data/app.h>
#include <vek/data/dir.h>
#include <vek/data/material.h>
#include <vek/dialogs/window/filter_outline.h>
#include <vek/dialogs/window/material_dialog.h>
#include <vek/dialogs/window/outline_dlg.h>
#include <vek/objects/outline.h>

#include <cfloat>
#include <uxtheme.h>

IMPLEMENT_DYNAMIC(CVekOutlDlg, CVekDlg)

namespace
{

constexpr int kTemplate = 201, kIcon = 2000;

constexpr int kFirstRange = 1059, kLastRange = 1062;
constexpr int kFirstField = 1070, kLastField = 1075;
constexpr int kFirstButton = 1080, kLastButton = 1085;
constexpr int kMaterialButton = 4004, kMaterialText = 4005;
constexpr int kPreview = 5009, kFilter = 5012, kX = 5015, kY = 5017, kKinds = 5034;

constexpr int kPrecision = 3;

} // namespace

BEGIN_MESSAGE_MAP(CVekOutlDlg, CVekDlg)
ON_CBN_SELCHANGE(kKinds, &CVekOutlDlg::OnKind)
ON_CONTROL_RANGE(EN_KILLFOCUS, kX, kY, &CVekOutlDlg::OnBasePoint)
ON_CONTROL_RANGE(EN_KILLFOCUS, kFirstField, kLastField, &CVekOutlDlg::OnParameter)
ON_CONTROL_RANGE(BN_CLICKED, kFirstButton, kLastButton, &CVekOutlDlg::OnSign)
ON_CONTROL_RANGE(BN_CLICKED, kFirstRange, kLastRange, &CVekOutlDlg::OnRange)
ON_BN_CLICKED(kFilter, &CVekOutlDlg::OnFilter)
ON_BN_CLICKED(kMaterialButton, &CVekOutlDlg::OnMaterial)
ON_BN_CLICKED(IDHELP, &CVekOutlDlg::OnHelpButton)
END_MESSAGE_MAP()

CVekOutlDlg::CVekOutlDlg(CWnd* parent)
    : CVekDlg(kTemplate, parent),
      m_icon(::LoadIconW(AfxGetStaticModuleState()->m_hCurrentResourceHandle, MAKEINTRESOURCEW(kIcon)))
{
}

INT_PTR CVekOutlDlg::DoModal()
{
    CVekDataItem* library = m_choice.library;
    if (!library || !library->isDir())
        return IDCANCEL;
    if (library->getDir()->isEmpty())
        VEK::outlineInit(library);
    return CVekDlg::DoModal();
}

void CVekOutlDlg::DoDataExchange(CDataExchange* exchange)
{
    CVekDlg::DoDataExchange(exchange);
    DDX_Control(exchange, kKinds, m_kinds);
    DDX_Control(exchange, kX, m_x);
    DDX_Control(exchange, kY, m_y);
    for (int i = 0; i < VEK::OutlineChoice::maxRows; ++i)
        DDX_Control(exchange, kFirstField + i, m_parms[i]);
    DDX_Control(exchange, kPreview, m_preview);
}

void CVekOutlDlg::addLangRsc()
{
    addText(IDCANCEL, L"VEK_OUTL_0001", L"Abbrechen");
    addText(IDOK, L"VEK_OUTL_0002", L"OK");
    addText(5010, L"VEK_OUTL_0003", L"Auswahl");
    addText(kFilter, L"\\VEK_OUTL_0004\\...", L"Filter");
    addText(5008, L"VEK_OUTL_0005", L"Basispunkt");
    addText(5013, L"VEK_OUTL_0006", L"Parameter");
    addText(5011, L"VEK_OUTL_0066", L"Bereich");
}

bool CVekOutlDlg::updLang()
{
    const bool good = CVekDlg::updLang();
    SetWindowText(GetMsg(L"VEK_OUTL_0000", L"Kontur", nullptr));
    nameControl(kKinds, GetMsg(L"VEK_OUTL_0003", L"Auswahl", nullptr));
    if (!m_kinds.m_hWnd)
        return good;
    fillKinds();
    showMaterial();
    for (int i = 0; i < VEK::OutlineChoice::maxRows; ++i) {
        if (!m_labels[i].isNull())
            showLabel(i, m_labels[i]);
    }
    return good;
}

BOOL CVekOutlDlg::OnInitDialog()
{
    CVekDlg::OnInitDialog();
    SetIcon(m_icon, TRUE);
    SetIcon(m_icon, FALSE);
    const int material = m_material.isNull() ? SW_HIDE : SW_SHOW;
    GetDlgItem(kMaterialButton)->ShowWindow(material);
    GetDlgItem(kMaterialText)->ShowWindow(material);
    m_preview.SetBkColor(vekAppPtr()->backgroundColor());
    m_preview.ModifyStyle(0, SS_NOTIFY);
    CheckRadioButton(kFirstRange, kLastRange, kFirstRange + m_choice.rangeIndex);
    for (CVekEdit* field : {&m_x, &m_y}) {
        field->setEditFlags(CVekEdit::typeLength, VEK::valueRequired | VEK::valueSuppressZeros | VEK::valueDrawingUnit,
                            kPrecision, -DBL_MAX, DBL_MAX);
        setLengths(*field);
    }
    showBasePoint();
    loadKind();
    m_kinds.SetFocus();
    return FALSE;
}

void CVekOutlDlg::setLengths(CVekEdit& field)
{
    field.setLUnits(m_choice.unit, Vek::unitCurrent);
    field.setFormat(static_cast<Vek::lFormat>(vekAppPtr()->defaultUnit()));
}

/// The text of a key of the library. A library of other kinds may have texts in place of keys.
const wchar_t* CVekOutlDlg::textOf(const CVekString& key)
{
    const CVekString builtIn = VEK::outlineText(key);
    return GetMsg(key, builtIn.isNull() ? key : builtIn, nullptr);
}

void CVekOutlDlg::fillKinds()
{
    m_kinds.ResetContent();
    const auto kinds = m_choice.kinds();
    for (const VEK::OutlineChoice::Kind& kind : kinds)
        m_kinds.SetItemData(m_kinds.AddString(textOf(kind.label)), static_cast<DWORD_PTR>(kind.code));
    m_kinds.SetCurSel(m_choice.placeIn(kinds));
}

void CVekOutlDlg::loadKind()
{
    const int place = m_kinds.GetCurSel();
    VEK::OutlineChoice::Rows rows;
    if (place < 0 || !m_choice.load(static_cast<int>(m_kinds.GetItemData(place)), rows))
        return;
    for (int i = 0; i < VEK::OutlineChoice::maxRows; ++i) {
        if (i < rows.len())
            showRow(i, rows[i]);
        const int show = i < rows.len() ? SW_SHOW : SW_HIDE;
        GetDlgItem(kFirstButton + i)->ShowWindow(show);
        m_parms[i].ShowWindow(show);
    }
    showBasePoint();
    updatePreview();
}

void CVekOutlDlg::showRow(int index, const VEK::OutlineChoice::Row& row)
{
    showLabel(index, row.label);
    CWnd& button = *GetDlgItem(kFirstButton + index);
    button.ModifyStyle(row.plain ? WS_TABSTOP : BS_FLAT, row.plain ? BS_FLAT : WS_TABSTOP);
    const wchar_t* const theme = row.plain ? L" " : nullptr; // with a theme no button is flat
    ::SetWindowTheme(button, theme, theme);
    button.Invalidate();

    CVekEdit& field = m_parms[index];
    CVekEdit::type type;
    unsigned short flags;
    int precision;
    double low, high;
    field.getEditFlags(type, flags, precision, low, high);
    const unsigned valid = static_cast<unsigned>(row.valid) | VEK::valueSuppressZeros;
    field.setEditFlags(row.angle ? CVekEdit::typeAngle : CVekEdit::typeLength,
                       static_cast<unsigned short>(row.angle ? valid : valid | VEK::valueDrawingUnit), kPrecision, low,
                       high);
    setLengths(field);
    field.removeKeys();
    for (const VEK::OutlineChoice::Word& word : row.words)
        field.setKey(word.word, word.value);
    field.setVal(row.value);
}

/// On the parameter's button, which screen readers do not take for the label of the field.
void CVekOutlDlg::showLabel(int index, const CVekString& key)
{
    m_labels[index] = key;
    const wchar_t* label = textOf(key);
    SetDlgItemText(kFirstButton + index, label);
    nameControl(kFirstField + index, label);
}

void CVekOutlDlg::showBasePoint()
{
    const CVekPoint3d point = m_choice.basePosition();
    m_x.setVal(point.x);
    m_y.setVal(point.y);
}

void CVekOutlDlg::showMaterial()
{
    const CVekString label = VEK::CMatMgr().matLabel(m_material, country());
    SetDlgItemText(kMaterialText, label.isNull() ? m_material : label);
}

void CVekOutlDlg::updatePreview()
{
    CVekArrayTempl<CVekVertexArray> list;
    list.append(m_choice.outline());
    m_preview.setVll(list);
}

void CVekOutlDlg::OnKind()
{
    loadKind();
}

void CVekOutlDlg::OnBasePoint(UINT id)
{
    CVekEdit& field = id == kX ? m_x : m_y;
    double value = 0.0;
    if (!field.GetModify() || !field.getVal(value))
        return;
    m_choice.basePositionSet(id == kX ? 0 : 1, value);
    updatePreview();
}

void CVekOutlDlg::OnParameter(UINT id)
{
    const int index = static_cast<int>(id) - kFirstField;
    double value = 0.0;
    if (!m_parms[index].GetModify() || !m_parms[index].getVal(value))
        return;
    m_choice.parmSet(index, value);
    updatePreview();
}

void CVekOutlDlg::OnSign(UINT id)
{
    CVekString label;
    const int index = static_cast<int>(id) - kFirstButton;
    if (!m_choice.toggle(index, label))
        return;
    showLabel(index, label);
    updatePreview();
}

void CVekOutlDlg::OnRange(UINT id)
{
    m_choice.rangeSet(static_cast<int>(id) - kFirstRange);
    loadKind();
}

void CVekOutlDlg::OnFilter()
{
    CDlgFilterOutline dialog(this);
    dialog.SetCountry(country());
    dialog.m_mask = m_choice.filter;
    if (dialog.DoModal() != IDOK)
        return;
    m_choice.filter = dialog.m_mask;
    fillKinds();
    loadKind();
}

void CVekOutlDlg::OnMaterial()
{
    CString helpFile, helpTopic;
    GetHelpFile(helpFile);
    GetHelpTopic(helpTopic);
    VEK::DlgEnvMatTree_st env;
    env.country = country();
    env.helpFile = helpFile;
    env.helpTopic = helpTopic;
    env.options.append(L"SYSTEM");
    if (VEK::dlgMatTree(env, m_material) == 1)
        showMaterial();
}

void CVekOutlDlg::OnHelpButton()
{
    Help(nullptr);
}

int VEK::dlgOutline(const DlgEnv_st& env, outlineData& data, CVekDataItem* library)
{
    if (!library)
        return 0;
    AFX_MANAGE_STATE(AfxGetStaticModuleState());
    CVekOutlDlg dialog(env.parentWnd());
    dialog.SetCountry(env.country);
    dialog.SetHelpFile(env.helpFile);
    dialog.SetHelpTopic(env.helpTopic);
    if (!dialog.choice().take(data))
        return -1;
    dialog.material() = data.material;
    dialog.choice().library = library;
    const int result = static_cast<int>(dialog.DoModal());
    if (result != IDOK)
        return result;
    if (!dialog.choice().give(data))
        return -1;
    if (!dialog.material().isNull())
        data.material = dialog.material();
    return IDOK;
}
