#include <vek/controls/window/edit.h>
#include <vek/data/app.h>
#include <vek/dialogframe/message.h>

#include "controls/window/window_text.h"
#include "core/values/whole.h"

#include <algorithm>
#include <cmath>
#include <limits>
#include <tuple>

IMPLEMENT_DYNAMIC(CVekEdit, CEdit)

BEGIN_MESSAGE_MAP(CVekEdit, CEdit)
ON_WM_SETFOCUS()
ON_WM_KILLFOCUS()
END_MESSAGE_MAP()

/// The words of a control, together with its rules and value.
class CVekEdit::Words : public VEK::ValueWords
{
public:
    explicit Words(const CVekEdit& edit) : field{edit.rules(), edit.m_val, *this}, m_edit(edit) {}

    VEK::EditField field;

private:
    const wchar_t* wordOf(double value) const override
    {
        const auto* pair = m_edit.m_keys.PLookup(value);
        return pair ? static_cast<const wchar_t*>(pair->value) : nullptr;
    }
    bool valueOf(const wchar_t* word, double& value) const override
    {
        const auto* pair = m_edit.m_keys.PGetFirstAssoc();
        while (pair && pair->value.compareNoCase(word) != 0)
            pair = m_edit.m_keys.PGetNextAssoc(pair);
        if (pair)
            value = pair->key;
        return pair != nullptr;
    }

    const CVekEdit& m_edit;
};

CVekEdit::CVekEdit()
    : m_min(-std::numeric_limits<double>::max()), m_max(std::numeric_limits<double>::max()), m_val(VEK::nan()),
      m_factor(1.0), m_prec(8), m_flags(VEK::valueRequired | VEK::valueSuppressZeros),
      m_format(static_cast<Vek::lFormat>(vekAppPtr()->defaultUnit())), m_type(typeNone)
{
}

bool CVekEdit::setEditFlags(type kind, unsigned short flags, int precision, double a, double b)
{
    m_type = kind;
    m_flags = flags;
    if (!VEK::isJudged(kind))
        return true;
    if (kind != typeInt && precision > 0)
        m_prec = static_cast<unsigned short>(std::min(precision, 0xFFFF));
    std::tie(m_min, m_max) = VEK::valueBounds(a, b);
    return true;
}

bool CVekEdit::getEditFlags(type& kind, unsigned short& flags, int& precision, double& min, double& max) const
{
    kind = m_type;
    flags = m_flags;
    precision = m_prec;
    min = m_min;
    max = m_max;
    return true;
}

bool CVekEdit::setFormat(Vek::lFormat format)
{
    if (format == 0)
        return false;
    m_format = format == Vek::formatCurrent ? static_cast<Vek::lFormat>(vekAppPtr()->defaultUnit()) : format;
    return true;
}

bool CVekEdit::setLUnits(int from, int to)
{
    m_factor = VEK::acadUnitCv(1.0, from, to);
    return true;
}

bool CVekEdit::setKey(const wchar_t* word, double value)
{
    return VEK::whole(true, [&] {
        m_keys.SetAt(value, word);
        return true;
    });
}

bool CVekEdit::removeKeys()
{
    m_keys.RemoveAll();
    return true;
}

bool CVekEdit::setVal(double value)
{
    m_val = value;
    show(VEK::editText(Words(*this).field, value));
    return true;
}

bool CVekEdit::setVal(int value)
{
    if (!m_keys.PLookup(value))
        m_val = value;
    show(VEK::editText(Words(*this).field, value));
    return true;
}

bool CVekEdit::getVal(double& value) const
{
    return VEK::editValue(Words(*this).field, text(), value);
}

bool CVekEdit::getVal(int& value) const
{
    return VEK::editValue(Words(*this).field, text(), value);
}

bool CVekEdit::isEmpty() const
{
    return VEK::valueTrimmed(text()).isNull();
}

VEK::ValueRules CVekEdit::rules() const
{
    return {VEK::editStyle, m_type, m_flags, m_prec, m_format, m_factor, m_min, m_max};
}

CVekString CVekEdit::text() const
{
    return VEK::windowText(*this);
}

/// What the program shows is no change by the user.
void CVekEdit::show(const CVekString& text)
{
    if (!m_hWnd)
        return;
    const HWND window = m_hWnd; // its dialog may end the control now
    const BOOL isModified = GetModify();
    SetWindowText(text);
    ::SendMessageW(window, EM_SETMODIFY, isModified, 0);
}

/// A field has changed when something is typed from now on.
void CVekEdit::OnSetFocus(CWnd* before)
{
    m_hasBeenEntered = true;
    const HWND window = m_hWnd;
    CEdit::OnSetFocus(before);
    ::SendMessageW(window, EM_SETSEL, 0, -1);
    ::SendMessageW(window, EM_SETMODIFY, FALSE, 0);
}

/// A field that takes the focus back from another one makes that one lose it a second time, without a word typed.
VEK::EditCheck CVekEdit::check() const
{
    Words own(*this);
    const CVekString entry = text();
    own.field.isAsShown = !m_hasBeenEntered && std::isfinite(m_val) && VEK::editText(own.field, m_val) == entry;
    return VEK::editCheck(own.field, entry);
}

/// The message box and the dialog may end the control, so that afterwards only its window is asked.
void CVekEdit::OnKillFocus(CWnd* next)
{
    if (m_type == typeNone || !GetModify())
        return CEdit::OnKillFocus(next);

    const HWND window = m_hWnd;
    const auto isGone = [window, this] { return CWnd::FromHandlePermanent(window) != this; };
    m_flags |= VEK::valueTextCounts;
    const VEK::EditCheck result = check();
    m_hasBeenEntered = false;
    if (result.isRefused) {
        const CVekString message = result.message();
        MessageBox(message, VEK::msgCallBack(L"VEK001", L"Fehler", nullptr), MB_TASKMODAL | MB_ICONHAND);
        if (isGone())
            return;
    }
    if (result.action != VEK::EditCheck::keep) {
        if (result.action == VEK::EditCheck::set)
            m_flags &= static_cast<unsigned short>(~VEK::valueTextCounts);
        if (result.storesValue)
            m_val = result.value;
        SetModify(result.isModified);
        show(result.text);
        if (isGone())
            return;
    }
    CEdit::OnKillFocus(next);
    if (result.isRefused)
        ::SetFocus(window);
}
