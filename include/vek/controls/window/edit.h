/// @file
/// The edit control for values. Windows only.
#pragma once

#ifdef _WIN32

#include <vek/controls/value_edit.h>

#include <afxtempl.h>
#include <afxwin.h>

/// An edit control that holds an integer, a length or an angle. The user may type whatever he likes. The text is judged
/// when the focus leaves: a refused one causes a message, the previous value or the nearest bound comes back, and so
/// does the focus. Some values may have words, which are shown and taken in place of numbers.
///
/// The control tells its dialog nothing. In `EN_KILLFOCUS` the dialog finds the corrected value in `getVal`, and in the
/// modify flag whether the user has changed it. Setting a value is no change by the user.
class VEK_API CVekEdit : public CEdit
{
    DECLARE_DYNAMIC(CVekEdit)

public:
    using type = VEK::ValueType;
    using enum VEK::ValueType;

    /// A field for free text, in the host's format.
    CVekEdit();

    /// Sets what the field holds and how it judges that. Free text leaves precision and bounds as they are.
    /// @param flags of `VEK::ValueFlag`
    /// @param precision of a length, for `VEK::autoPrec`, or an angle, in decimals; 0 and less keep the present one
    /// @param a, b bounds in the internal unit, in any order
    /// @return true
    bool setEditFlags(type kind, unsigned short flags, int precision, double a, double b);
    bool getEditFlags(type& kind, unsigned short& flags, int& precision, double& min, double& max) const;

    /// Sets the format of lengths, -1 for the host's.
    /// @return false, with nothing changed, for 0
    bool setFormat(Vek::lFormat format);

    /// Sets in which unit lengths are stored, and in which they are shown; -1 is the drawing's.
    /// @return true
    bool setLUnits(int from, int to);

    /// Sets the word of a value, in place of one that it has.
    /// @return true
    bool setKey(const wchar_t* word, double value);
    bool removeKeys();

    /// Sets and shows a value in the internal unit: a length, an angle in radians. As an integer it is shown without
    /// the factor, and one that has a word is shown but not stored. Free text becomes empty.
    /// @return true
    bool setVal(double value);
    bool setVal(int value);

    /// Gets the value in the internal unit. What is being typed is no value yet; but without a value, and after an
    /// entry that was left empty or is a word, the text is read. As an integer it is read without a look at the words.
    /// @return false, with `value` unchanged, if nothing is entered and something is required, and when memory runs out
    bool getVal(double& value) const;
    bool getVal(int& value) const;

    /// Whether the text is empty but for blanks.
    bool isEmpty() const;

protected:
    afx_msg void OnSetFocus(CWnd* before);
    afx_msg void OnKillFocus(CWnd* next);
    DECLARE_MESSAGE_MAP()

    double m_min, m_max;                                        ///< bounds, internal unit
    double m_val;                                               ///< internal unit; NaN for none yet
    double m_factor;                                            ///< of lengths: value on the screen by internal value
    unsigned short m_prec;                                      ///< for `VEK::autoPrec`
    unsigned short m_flags;                                     ///< of `VEK::ValueFlag`
    Vek::lFormat m_format;                                      ///< of lengths
    type m_type;                                                ///< what the field holds
    CMap<double, double, CVekString, const CVekString&> m_keys; ///< words

private:
    class Words;

    VEK::ValueRules rules() const;
    CVekString text() const;
    void show(const CVekString& text);
    VEK::EditCheck check() const;

    bool m_hasBeenEntered = false; ///< had the focus since its text was last judged
};

#endif
