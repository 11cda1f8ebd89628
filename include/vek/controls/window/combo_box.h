/// @file
/// Combo boxes for values and languages. Windows only.
#pragma once

#ifdef _WIN32

#include <vek/controls/combo.h>
#include <vek/values/array.h>
#include <vek/values/map.h>

#include <afxwin.h>

/// A combo box that holds integers, lengths or angles, and whose items are such values. It has no value of its own: it
/// reads its text. When the focus leaves, a bad entry is corrected without a word; the dialog gets `CBN_KILLFOCUS`
/// afterwards. Rows of a box that is drawn by its owner can have a tinted background.
class VEK_API CVekComboBox : public CComboBox
{
    DECLARE_DYNAMIC(CVekComboBox)

public:
    using type = VEK::ValueType;
    using enum VEK::ValueType;

    CVekComboBox() = default;

    /// Adds an item for a value in the internal unit, at the end or at an index.
    /// @return its index; -1, with nothing added, for free text
    int AddVal(double value);
    int InsertVal(int index, double value);

    /// Sets what the box holds and how it judges that. Free text leaves precision and bounds as they are.
    /// @param flags of `VEK::ValueFlag`
    /// @param precision of a length, for `VEK::autoPrec`, or an angle, in decimals; -1 keeps the present one
    /// @param a, b bounds in the internal unit, in any order
    /// @return true
    bool setEditFlags(type kind, unsigned short flags, short precision, double a, double b);
    bool getEditFlags(type& kind, unsigned short& flags, short& precision, double& min, double& max) const;

    /// Sets the format of lengths.
    /// @return true
    bool setFormat(Vek::lFormat format);

    /// Sets the unit of lengths in the program and on the screen; -1 is the drawing's.
    /// @return true
    bool setLUnits(int from, int to);

    /// Shows a value in the internal unit: an integer in a box for integers, a real number in one for lengths or
    /// angles.
    /// @return false, with nothing changed, in other boxes
    bool setVal(int value);
    bool setVal(double value);

    /// Reads the text: as an integer in a box for integers, as a real number in every box but one for free text. An
    /// angle is given as it is shown, in degrees, although it is set in radians.
    /// @return false, with `value` unchanged, in other boxes, and when memory runs out
    bool getVal(int& value) const;
    bool getVal(double& value) const;

    /// The rows with the alternate background, in ascending order.
    void setAltBackgr(const CVekArrayTempl<int>& rows);
    void getAltBackgr(CVekArrayTempl<int>& rows) const;

    void DrawItem(LPDRAWITEMSTRUCT request) override;

protected:
    void PreSubclassWindow() override;
    afx_msg BOOL OnLeave();
    DECLARE_MESSAGE_MAP()

    double m_min = -std::numeric_limits<double>::max(); ///< bounds, internal unit
    double m_max = std::numeric_limits<double>::max();
    double m_factor = 1.0;                       ///< of lengths: value on the screen by internal value
    short m_prec = 1;                            ///< for `VEK::autoPrec`
    unsigned short m_flags = VEK::valueRequired; ///< of `VEK::ValueFlag`
    Vek::lFormat m_format = Vek::formatDecimal;  ///< of lengths
    type m_type = typeNone;                      ///< what the box holds
    CVekMapTempl<int, bool> m_altBackgr;         ///< rows with the alternate background

private:
    VEK::ValueRules rules() const;
};

/// A list of the languages of `VEK::dlCountries`, each by its own name.
class VEK_API CVekComboCountryBox : public CVekComboBox
{
    DECLARE_DYNAMIC(CVekComboCountryBox)

public:
    CVekComboCountryBox() = default;

    /// The id of the selected language, null if none is selected.
    const wchar_t* GetCountry() const;

    /// Selects a language by its id, ignoring case.
    /// @return 0, with the selection unchanged, if it is not in the list
    int SelectCountry(const wchar_t* id);

    BOOL PreCreateWindow(CREATESTRUCT& create) override;

protected:
    void PreSubclassWindow() override;
    afx_msg int OnCreate(LPCREATESTRUCT create);
    DECLARE_MESSAGE_MAP()

private:
    void fill();
};

#endif
