#include "value_page.h"

#include "resource.h"

#include <vek/data/text.h>

#include <cmath>

namespace
{

constexpr double kDegree = 3.141592653589793 / 180.0;
constexpr int kUnits[] = {Vek::unitMillimetre, Vek::unitInch, Vek::unitMetre};

} // namespace

IMPLEMENT_DYNAMIC(ValuePage, CVekDlg)

BEGIN_MESSAGE_MAP(ValuePage, CVekDlg)
ON_CONTROL_RANGE(CBN_SELCHANGE, IDC_VALUE_KIND, IDC_VALUE_UNIT, &ValuePage::OnRule)
ON_CONTROL_RANGE(BN_CLICKED, IDC_VALUE_REQUIRED, IDC_VALUE_DRAWING, &ValuePage::OnRule)
ON_CONTROL_RANGE(EN_KILLFOCUS, IDC_VALUE_PRECISION, IDC_VALUE_WORD, &ValuePage::OnRuleLeft)
ON_CBN_SELCHANGE(IDC_VALUE_LANGUAGE, &ValuePage::OnLanguage)
ON_CONTROL_RANGE(EN_KILLFOCUS, IDC_VALUE_EDIT, IDC_VALUE_OTHER, &ValuePage::OnLeave)
ON_CBN_KILLFOCUS(IDC_VALUE_BOX, &ValuePage::tell)
ON_CBN_SELENDOK(IDC_VALUE_BOX, &ValuePage::tell)
ON_BN_CLICKED(IDC_VALUE_SET, &ValuePage::OnSet)
END_MESSAGE_MAP()

ValuePage::ValuePage(CWnd* parent) : CVekDlg(IDD_VALUES, parent) {}

void ValuePage::DoDataExchange(CDataExchange* exchange)
{
    CVekDlg::DoDataExchange(exchange);
    DDX_Control(exchange, IDC_VALUE_EDIT, m_edit);
    DDX_Control(exchange, IDC_VALUE_OTHER, m_other);
    DDX_Control(exchange, IDC_VALUE_BOX, m_box);
    DDX_Control(exchange, IDC_VALUE_LANGUAGE, m_languages);
    DDX_Control(exchange, IDC_VALUE_PRECISION, m_precision);
    DDX_Control(exchange, IDC_VALUE_MIN, m_min);
    DDX_Control(exchange, IDC_VALUE_MAX, m_max);
}

BOOL ValuePage::OnInitDialog()
{
    CVekDlg::OnInitDialog();
    const auto fill = [this](int id, std::initializer_list<const wchar_t*> rows, int selected) {
        auto& list = *static_cast<CComboBox*>(GetDlgItem(id));
        for (const wchar_t* row : rows)
            list.AddString(row);
        list.SetCurSel(selected);
    };
    fill(IDC_VALUE_KIND, {L"Text", L"Integer", L"Length", L"Angle"}, CVekEdit::typeLength);
    fill(IDC_VALUE_FORMAT, {L"Scientific", L"Decimal", L"Engineering", L"Architectural", L"Fractional"}, 1);
    fill(IDC_VALUE_UNIT, {L"Millimetres", L"Inches", L"Metres"}, 0);
    m_languages.SelectCountry(VEK::msgLangSet(nullptr));
    CheckDlgButton(IDC_VALUE_REQUIRED, BST_CHECKED);
    CheckDlgButton(IDC_VALUE_BOUNDED, BST_CHECKED);
    CheckDlgButton(IDC_VALUE_ZEROS, BST_CHECKED);
    m_precision.setEditFlags(CVekEdit::typeInt, VEK::valueRequired | VEK::valueBounded, 0, 0.0, 8.0);
    m_precision.setVal(2);
    for (CVekEdit* bound : {&m_min, &m_max}) {
        bound->setFormat(Vek::formatDecimal);
        bound->setEditFlags(CVekEdit::typeLength, VEK::valueRequired | VEK::valueSuppressZeros, 8, -1e6, 1e6);
    }
    m_min.setVal(-100.0);
    m_max.setVal(1000.0);
    SetDlgItemText(IDC_VALUE_WORD, L"Auto");
    apply();
    OnSet();
    return TRUE;
}

int ValuePage::chosen(int id) const
{
    return static_cast<CComboBox*>(GetDlgItem(id))->GetCurSel();
}

unsigned short ValuePage::flags() const
{
    constexpr unsigned short kFlags[] = {VEK::valueRequired, VEK::valueNotZero,       VEK::valueNotNegative,
                                         VEK::valueBounded,  VEK::valueSuppressZeros, VEK::valueDrawingUnit};
    unsigned all = 0;
    for (int i = 0; i <= IDC_VALUE_DRAWING - IDC_VALUE_REQUIRED; ++i)
        all |= IsDlgButtonChecked(IDC_VALUE_REQUIRED + i) ? kFlags[i] : 0u;
    return static_cast<unsigned short>(all);
}

/// Gives all fields the rules; what they show stays until a value is set.
void ValuePage::apply()
{
    const auto kind = static_cast<CVekEdit::type>(chosen(IDC_VALUE_KIND));
    const auto format = static_cast<Vek::lFormat>(chosen(IDC_VALUE_FORMAT) + 1);
    const int unit = kUnits[chosen(IDC_VALUE_UNIT)];
    int precision = 0;
    double min = 0.0, max = 0.0;
    m_precision.getVal(precision);
    m_min.getVal(min);
    m_max.getVal(max);
    CString word;
    GetDlgItemText(IDC_VALUE_WORD, word);
    for (CVekEdit* edit : {&m_edit, &m_other}) {
        edit->setEditFlags(kind, flags(), precision, min, max);
        edit->setFormat(format);
        edit->setLUnits(Vek::unitMillimetre, unit);
        edit->removeKeys();
        if (!word.IsEmpty())
            edit->setKey(word, 0.0);
    }
    m_box.setEditFlags(kind, flags(), static_cast<short>(precision), min, max);
    m_box.setFormat(format);
    m_box.setLUnits(Vek::unitMillimetre, unit);
    fillBox();
}

/// Every second row has the tinted background.
void ValuePage::fillBox()
{
    const double step = chosen(IDC_VALUE_KIND) == CVekEdit::typeAngle ? 15.0 * kDegree : 12.7;
    m_box.ResetContent();
    CVekArrayTempl<int> tinted;
    for (int i = 0; i < 8; ++i) {
        m_box.AddVal(i * step);
        if (i % 2 == 1)
            tinted.append(i);
    }
    m_box.setAltBackgr(tinted);
}

/// Shows what the dialog gets from each field.
void ValuePage::tell()
{
    double value = 0.0;
    const auto show = [&](int id, bool isThere, bool isModified) {
        CString text(L"none");
        if (isThere)
            text.Format(L"%.10g%s", value, isModified ? L", changed by the user" : L"");
        SetDlgItemText(id, text);
    };
    show(IDC_VALUE_EDIT_GIVES, m_edit.getVal(value), m_edit.GetModify());
    show(IDC_VALUE_OTHER_GIVES, m_other.getVal(value), m_other.GetModify());
    show(IDC_VALUE_BOX_GIVES, m_box.getVal(value), false);
}

void ValuePage::OnRule(UINT)
{
    apply();
    OnSet();
}

void ValuePage::OnRuleLeft(UINT id)
{
    if (SendDlgItemMessage(static_cast<int>(id), EM_GETMODIFY))
        OnRule(id);
}

void ValuePage::OnLeave(UINT)
{
    tell();
}

void ValuePage::OnSet()
{
    const auto kind = chosen(IDC_VALUE_KIND);
    if (kind == CVekEdit::typeInt) {
        m_edit.setVal(7);
        m_other.setVal(12);
        m_box.setVal(25);
    } else {
        const double unit = kind == CVekEdit::typeAngle ? kDegree : 1.0;
        m_edit.setVal(31.75 * unit);
        m_other.setVal(60.325 * unit);
        m_box.setVal(25.4 * unit);
    }
    tell();
}

/// The controls' messages are in the language of the process.
void ValuePage::OnLanguage()
{
    VEK::msgLangSet(m_languages.GetCountry());
}
