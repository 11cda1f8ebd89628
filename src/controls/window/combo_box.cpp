#include <vek/controls/window/combo_box.h>
#include <vek/values/country.h>

#include "controls/window/window_text.h"

#include <tuple>

IMPLEMENT_DYNAMIC(CVekComboBox, CComboBox)

BEGIN_MESSAGE_MAP(CVekComboBox, CComboBox)
ON_CONTROL_REFLECT_EX(CBN_KILLFOCUS, &CVekComboBox::OnLeave)
END_MESSAGE_MAP()

void CVekComboBox::PreSubclassWindow()
{
    CComboBox::PreSubclassWindow();
}

int CVekComboBox::AddVal(double value)
{
    return VEK::isJudged(m_type) ? AddString(VEK::valueText(value, rules())) : CB_ERR;
}

int CVekComboBox::InsertVal(int index, double value)
{
    return VEK::isJudged(m_type) ? InsertString(index, VEK::valueText(value, rules())) : CB_ERR;
}

bool CVekComboBox::setEditFlags(type kind, unsigned short flags, short precision, double a, double b)
{
    m_type = kind;
    m_flags = flags;
    if (!VEK::isJudged(kind))
        return true;
    if (kind != typeInt && precision != -1)
        m_prec = precision;
    std::tie(m_min, m_max) = VEK::valueBounds(a, b);
    return true;
}

bool CVekComboBox::getEditFlags(type& kind, unsigned short& flags, short& precision, double& min, double& max) const
{
    kind = m_type;
    flags = m_flags;
    precision = m_prec;
    min = m_min;
    max = m_max;
    return true;
}

bool CVekComboBox::setFormat(Vek::lFormat format)
{
    m_format = format;
    return true;
}

bool CVekComboBox::setLUnits(int from, int to)
{
    m_factor = VEK::acadUnitCv(1.0, from, to);
    return true;
}

bool CVekComboBox::setVal(int value)
{
    if (m_type != typeInt)
        return false;
    SetWindowText(VEK::valueText(value, rules()));
    return true;
}

bool CVekComboBox::setVal(double value)
{
    if (m_type != typeLength && m_type != typeAngle)
        return false;
    SetWindowText(VEK::valueText(value, rules()));
    return true;
}

bool CVekComboBox::getVal(int& value) const
{
    if (m_type != typeInt)
        return false;
    value = VEK::atoi(VEK::windowText(*this));
    return true;
}

bool CVekComboBox::getVal(double& value) const
{
    return VEK::comboValue(rules(), VEK::windowText(*this), value);
}

VEK::ValueRules CVekComboBox::rules() const
{
    return {VEK::comboStyle, m_type, m_flags, m_prec, m_format, m_factor, m_min, m_max};
}

/// The dialog is told afterwards.
BOOL CVekComboBox::OnLeave()
{
    const VEK::ComboCheck check = VEK::comboCheck(rules(), VEK::windowText(*this));
    if (check.beeps)
        ::MessageBeep(MB_ICONASTERISK);
    if (check.isSet && m_type == typeInt)
        setVal(VEK::valueInt(check.value));
    else if (check.isSet)
        setVal(check.value);
    return FALSE;
}

void CVekComboBox::setAltBackgr(const CVekArrayTempl<int>& rows)
{
    m_altBackgr.removeAll();
    for (const int row : rows)
        m_altBackgr[row] = true;
}

void CVekComboBox::getAltBackgr(CVekArrayTempl<int>& rows) const
{
    rows.setLogicalLength(0);
    for (const auto& [row, flag] : m_altBackgr)
        rows.append(row);
}

void CVekComboBox::DrawItem(LPDRAWITEMSTRUCT request)
{
    if (!m_hWnd)
        return;
    const int index = static_cast<int>(request->itemID); // -1 for the edit field of a box without a selection
    CString text;
    if (index >= 0)
        GetLBText(index, text);
    const HDC dc = request->hDC;
    const COLORREF textBefore = ::GetTextColor(dc), backBefore = ::GetBkColor(dc);
    COLORREF back = backBefore;
    switch (VEK::comboRow(request->itemAction, request->itemState, m_altBackgr.get(index) != nullptr)) {
    case VEK::ComboRow::selected:
        ::SetTextColor(dc, ::GetSysColor(COLOR_HIGHLIGHTTEXT));
        back = ::GetSysColor(COLOR_HIGHLIGHT);
        break;
    case VEK::ComboRow::tinted: back = VEK::comboTint(backBefore); break;
    case VEK::ComboRow::disabled: ::SetTextColor(dc, ::GetSysColor(COLOR_GRAYTEXT)); break;
    case VEK::ComboRow::plain: break;
    }
    CRect rect = request->rcItem;
    CDC::FromHandle(dc)->FillSolidRect(rect, back);
    rect.DeflateRect(1, 1);
    ::DrawTextW(dc, text, -1, rect, DT_SINGLELINE | DT_VCENTER);
    ::SetTextColor(dc, textBefore);
    ::SetBkColor(dc, backBefore);
}

IMPLEMENT_DYNAMIC(CVekComboCountryBox, CVekComboBox)

BEGIN_MESSAGE_MAP(CVekComboCountryBox, CVekComboBox)
ON_WM_CREATE()
END_MESSAGE_MAP()

namespace
{

constexpr DWORD kCountryStyle = CBS_DROPDOWNLIST | CBS_AUTOHSCROLL;

} // namespace

/// The system takes the style from here.
BOOL CVekComboCountryBox::PreCreateWindow(CREATESTRUCT& create)
{
    create.style |= kCountryStyle;
    return CVekComboBox::PreCreateWindow(create);
}

/// A box that is being created takes no items yet.
int CVekComboCountryBox::OnCreate(LPCREATESTRUCT create)
{
    const int result = CVekComboBox::OnCreate(create);
    if (result == 0 && GetCount() == 0)
        fill();
    return result;
}

void CVekComboCountryBox::PreSubclassWindow()
{
    CVekComboBox::PreSubclassWindow();
    ModifyStyle(0, kCountryStyle);
    fill();
}

void CVekComboCountryBox::fill()
{
    for (const vek_country_st* each = VEK::dlCountries(); each->id; ++each)
        SetItemDataPtr(AddString(each->name), const_cast<wchar_t*>(each->id));
    SetCurSel(0);
}

const wchar_t* CVekComboCountryBox::GetCountry() const
{
    const int row = GetCurSel();
    return row < 0 ? nullptr : static_cast<const wchar_t*>(GetItemDataPtr(row));
}

int CVekComboCountryBox::SelectCountry(const wchar_t* id)
{
    const CVekString wanted(id);
    const int count = id ? GetCount() : 0;
    for (int row = 0; row < count; ++row) {
        const auto* own = static_cast<const wchar_t*>(GetItemDataPtr(row));
        if (own && wanted.compareNoCase(own) == 0) {
            SetCurSel(row);
            return TRUE;
        }
    }
    return FALSE;
}
