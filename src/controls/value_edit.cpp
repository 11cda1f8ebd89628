#include <vek/controls/value_edit.h>
#include <vek/dialogframe/message.h>

#include "core/values/whole.h"

#include <cmath>
#include <optional>

namespace VEK
{

namespace
{

/// Reads a trimmed text. Nothing for an empty one if one is required.
std::optional<double> readText(const EditField& field, const CVekString& text)
{
    if (text.isNull() && field.rules.has(valueRequired))
        return {};
    double value = 0.0;
    return field.words.valueOf(text, value) ? value : valueParse(text, field.rules);
}

bool storedCounts(const EditField& field)
{
    return !field.rules.has(valueTextCounts) && std::isfinite(field.stored);
}

/// No value differs from any, but not from no value.
bool differ(double a, double b)
{
    return a != b && !(std::isnan(a) && std::isnan(b));
}

/// The test of a value under way.
class Judge
{
public:
    Judge(const EditField& field, const CVekString& text) : m_field(field), m_text(text), m_value(field.stored) {}

    EditCheck judged()
    {
        if (m_text.isNull()) {
            if (!m_field.rules.has(valueRequired))
                return m_check;
            refuse(L"VEK022", L"Eintragung notwendig");
        } else {
            if (!m_field.isAsShown)
                m_value = *readText(m_field, m_text);
            if (takeWord())
                return m_check;
        }
        test();
        set();
        return m_check;
    }

private:
    void refuse(const wchar_t* key, const wchar_t* builtIn)
    {
        m_value = m_field.stored;
        m_check.isRefused = true;
        m_check.key = key;
        m_check.builtIn = builtIn;
    }

    /// The bound is shown in the internal unit: it is the number that stands in the data.
    void refuseBeyond(double bound, const wchar_t* key, const wchar_t* builtIn)
    {
        refuse(key, builtIn);
        m_value = bound;
        m_check.namesBound = true;
        valueFormat(m_check.bound, bound, m_field.rules);
    }

    bool takeWord()
    {
        const wchar_t* word = m_field.words.wordOf(m_value);
        if (!word)
            return false;
        m_check.action = EditCheck::word;
        m_check.value = m_value;
        m_check.storesValue = true;
        m_check.text = word;
        return true;
    }

    /// The stored value of an empty field is tested like an entry.
    void test()
    {
        const ValueRules& rules = m_field.rules;
        if (rules.has(valueNotNegative) && 0.0 > m_value)
            refuse(L"VEK024", L"Wert darf nicht negativ sein");
        else if (rules.has(valueNotZero) && m_value == 0.0)
            refuse(L"VEK023", L"Wert darf nicht Null sein");
        else if (rules.has(valueBounded) && rules.min > m_value)
            refuseBeyond(rules.min, L"VEK_MFC_0001", L"Wert darf nicht kleiner sein als");
        else if (rules.has(valueBounded) && m_value > rules.max)
            refuseBeyond(rules.max, L"VEK_MFC_0002", L"Wert darf nicht größer sein als");
    }

    void set()
    {
        const bool isInt = m_field.rules.type == typeInt && !std::isnan(m_value);
        m_check.action = EditCheck::set;
        m_check.value = isInt ? valueInt(m_value) : m_value;
        m_check.isModified = differ(isInt ? std::trunc(m_field.stored) : m_field.stored, m_check.value);
        m_check.storesValue = !isInt || !m_field.words.wordOf(m_check.value);
        m_check.text = isInt ? editText(m_field, valueInt(m_value)) : editText(m_field, m_value);
    }

    const EditField& m_field;
    const CVekString& m_text;
    double m_value;
    EditCheck m_check;
};

} // namespace

const wchar_t* ValueWords::wordOf(double) const
{
    return nullptr;
}

bool ValueWords::valueOf(const wchar_t*, double&) const
{
    return false;
}

CVekString editText(const EditField& field, double value)
{
    const wchar_t* word = field.words.wordOf(value);
    return word ? CVekString(word) : valueText(value, field.rules);
}

CVekString editText(const EditField& field, int value)
{
    CVekString text;
    if (const wchar_t* word = field.words.wordOf(value))
        text = word;
    else
        valueFormat(text, value, field.rules);
    return text;
}

bool editValue(const EditField& field, const wchar_t* text, double& value)
{
    const std::optional<double> found =
        storedCounts(field) ? field.stored
                            : whole(std::optional<double>(), [&] { return readText(field, valueTrimmed(text)); });
    value = found.value_or(value);
    return found.has_value();
}

bool editValue(const EditField& field, const wchar_t* text, int& value)
{
    const std::optional<int> found =
        storedCounts(field) ? valueInt(field.stored) : whole(std::optional<int>(), [&]() -> std::optional<int> {
            const CVekString entry = valueTrimmed(text);
            if (entry.isNull() && field.rules.has(valueRequired))
                return {};
            return VEK::atoi(entry);
        });
    value = found.value_or(value);
    return found.has_value();
}

CVekString EditCheck::message() const
{
    CVekString shown = msgCallBack(key, builtIn, nullptr);
    if (namesBound)
        shown += L" " + bound;
    return shown;
}

EditCheck editCheck(const EditField& field, const wchar_t* text)
{
    return whole(EditCheck(), [&] {
        const CVekString entry = valueTrimmed(text);
        return Judge(field, entry).judged();
    });
}

} // namespace VEK
