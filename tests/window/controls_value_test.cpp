// Value controls in real windows.
#include "window/dialog_fixture.h"
#include "window/modal_queue.h"

#include <vek/controls.h>
#include <vek/values/country.h>

#include <algorithm>
#include <cmath>

namespace
{

constexpr auto kLength = CVekEdit::typeLength;

std::wstring textOf(const CWnd& field)
{
    CString text;
    field.GetWindowText(text);
    return static_cast<const wchar_t*>(text);
}

void type(const wchar_t* text)
{
    for (; *text; ++text)
        ::SendMessageW(::GetFocus(), WM_CHAR, *text, 0);
}

struct Bury { // so that nobody takes a dead control for a living one
    void operator()(CVekEdit* edit) const
    {
        std::destroy_at(edit);
        std::memset(static_cast<void*>(edit), 0xDD, sizeof *edit);
    }
};

/// Two edit controls and a combo box, which tell when they are left.
class Form : public Dialog
{
public:
    Form() : Dialog(Template())
    {
        onStart = [this](Dialog&) {
            EXPECT_TRUE(a.SubclassDlgItem(0, this) && b.SubclassDlgItem(1, this) && box.SubclassDlgItem(2, this));
        };
        EXPECT_TRUE(CreateIndirect(m_source.item(0, L"EDIT").item(1, L"EDIT").item(2, L"COMBOBOX", kBox).get()));
        ShowWindow(SW_SHOW);
        b.SetFocus();
        left = 0;
    }
    ~Form() override { DestroyWindow(); }

    CVekEdit a, b;
    CVekComboBox box;
    int left = 0, changed = 0;
    std::wstring seen; ///< the text of the field that was left last
    alignas(CVekEdit) unsigned char grave[sizeof(CVekEdit)];
    std::unique_ptr<CVekEdit, Bury> mortal;

protected:
    BOOL OnCommand(WPARAM wParam, LPARAM lParam) override
    {
        if (Dialog::OnCommand(wParam, lParam)) // by the control itself
            return TRUE;
        const HWND field = reinterpret_cast<HWND>(lParam);
        if (HIWORD(wParam) == (field == box.m_hWnd ? +CBN_KILLFOCUS : +EN_KILLFOCUS)) {
            ++left;
            changed += field != box.m_hWnd && ::SendMessageW(field, EM_GETMODIFY, 0, 0);
            seen = textOf(*FromHandle(field));
            if (mortal && *mortal == field)
                mortal.reset();
        }
        return FALSE;
    }

private:
    static constexpr DWORD kBox = CBS_DROPDOWN | CBS_HASSTRINGS | CBS_OWNERDRAWFIXED;
    Template m_source;
};

TEST(ValueControls, TellOfEditsByTheUserOnly)
{
    ModalQueue user;
    Form form;
    CVekEdit &a = form.a, &b = form.b;
    CVekEdit::type kind;
    unsigned short flags;
    int precision, whole = -1;
    double min, max, value = -1.0;
    b.setEditFlags(CVekEdit::typeInt, 8, 2, 10.0, 99.0), b.setVal(50);
    EXPECT_TRUE(a.setVal(5.0) && a.isEmpty()) << "free text";
    EXPECT_TRUE(a.setEditFlags(kLength, 40, 2, 20.0, 0.0) && a.setEditFlags(kLength, 41, 0, 20.0, -0.5));
    EXPECT_TRUE(a.getEditFlags(kind, flags, precision, min, max) && kind == 2 && flags == 41 && precision == 2);
    EXPECT_TRUE(min == -0.5 && max == 20.0 && a.setLUnits(1, 4) && a.setVal(1.0) && textOf(a) == L"25.4");
    a.SetFocus(), b.SetFocus();
    EXPECT_TRUE(form.left == 2 && form.changed == 0) << "neither creating nor setting is an edit";
    a.SetFocus(), type(L"30.123456"), b.SetFocus();
    EXPECT_TRUE(form.left == 4 && form.changed == 1 && form.seen == L"30.12" && textOf(a) == L"30.12");
    a.SetFocus(), type(L"30.123456"), b.SetFocus();
    EXPECT_TRUE(form.left == 6 && form.changed == 1) << "the same value again";
    user.box(L"Wert darf nicht kleiner sein als 10");
    type(L"5"), a.SetFocus();
    EXPECT_EQ(user.lastCaption, L"Fehler");
    EXPECT_TRUE(CWnd::GetFocus() == &b && textOf(b) == L"10" && b.GetSel() == MAKELONG(0, 2) && !b.GetModify());
    EXPECT_TRUE(a.getVal(value) && value == 30.123456 / 25.4) << "who asked for the focus keeps all decimals";
    a.SetFocus(), type(L"-40 m");
    EXPECT_TRUE(textOf(a) == L"-40 m" && a.getVal(value) && value == 30.123456 / 25.4) << "still being typed";
    user.box(L"Wert darf nicht kleiner sein als -0.5");
    b.SetFocus();
    EXPECT_TRUE(a.getVal(value) && value == -0.5 && textOf(a) == L"-12.7" && CWnd::GetFocus() == &a);

    EXPECT_TRUE(a.setKey(L"None", 0.0) && a.setKey(L"Auto", 0.0) && a.setKey(L"Half", 3.5) && a.setVal(3.5));
    EXPECT_TRUE(a.setVal(0) && textOf(a) == L"Auto" && a.getVal(value) && value == 3.5) << "its word is not stored";
    b.SetFocus(), a.SetFocus(), type(L" hALF "), b.SetFocus();
    EXPECT_TRUE(textOf(a) == L"Half" && a.GetModify() && a.getVal(value) && value == 3.5);
    EXPECT_TRUE(a.getVal(whole) && whole == 0) << "the text counts, and no words for integers";
    EXPECT_TRUE(a.removeKeys() && !a.setFormat(Vek::lFormat{}) && a.setFormat(Vek::formatFractional));
    EXPECT_TRUE(a.setLUnits(4, 4) && a.setVal(0.1) && textOf(a) == L"0.1" && a.setVal(0.5) && textOf(a) == L"1/2");
    EXPECT_TRUE(a.setFormat(Vek::formatCurrent) && a.setVal(1.0 / 3.0) && textOf(a) == L"0.33");
    a.SetWindowText(std::wstring(100000, L' ').c_str());
    EXPECT_TRUE(a.isEmpty() && a.setVal(VEK::nan()) && !a.getVal(value) && !a.getVal(whole)) << "required";
}

TEST(ValueControls, MayDieWhenTheFocusLeaves)
{
    for (const unsigned short flags : {4, 0}) { // in the message box, in the dialog's handler
        Form form;
        struct Ending : ModalQueue {
            Form* form = nullptr;
            int messageBox(HWND, LPCWSTR, LPCWSTR, UINT style) override
            {
                EXPECT_EQ(style, 0x2010u);
                return form->mortal.reset(), IDOK;
            }
        } user;
        user.form = &form;
        form.mortal.reset(new (form.grave) CVekEdit);
        ASSERT_TRUE(form.mortal->Create(WS_CHILD | WS_VISIBLE, CRect(0, 0, 50, 20), &form, 3));
        form.mortal->setEditFlags(kLength, flags, 3, 0.0, 0.0);
        form.mortal->SetFocus(), type(L"-1"), form.a.SetFocus();
        EXPECT_TRUE(!form.mortal && CWnd::GetFocus() == &form.a);
        EXPECT_EQ(std::ranges::count(form.grave, 0xDD), std::ssize(form.grave)) << "nothing is written to it";
    }
}

TEST(ValueControls, CorrectInAComboBoxInSilence)
{
    ModalQueue user;
    Form form;
    CVekComboBox& box = form.box;
    double value = -1.0;
    int whole = -1;
    EXPECT_TRUE(box.AddVal(1.0) == -1 && !box.setVal(1.0) && !box.setVal(1) && !box.getVal(value));
    EXPECT_TRUE(box.setEditFlags(kLength, 40, 2, 8.0, 1.0) && box.setLUnits(1, 4) && box.setFormat(Vek::formatDecimal));
    EXPECT_TRUE(box.AddVal(2.0) == 0 && box.AddVal(3.0) == 1 && box.InsertVal(0, 1.0) == 0 && box.GetCount() == 3);
    EXPECT_TRUE(!box.setVal(4) && box.setVal(4.0) && textOf(box) == L"101.6" && box.getVal(value) && value == 4.0);
    for (const std::wstring entry : {L"0,1=25.4", L"9999=203.2", L"50,8=50.8", L"="}) {
        const std::wstring shown = entry.substr(entry.find(L'=') + 1);
        box.SetFocus(), box.SetEditSel(0, -1);
        type((L"\b" + entry.substr(0, entry.find(L'='))).c_str()), form.a.SetFocus();
        EXPECT_TRUE(textOf(box) == shown && form.seen == shown) << "the dialog comes behind";
    }
    box.setEditFlags(CVekComboBox::typeAngle, 0, -1, 0.0, 0.0);
    EXPECT_TRUE(box.setVal(std::acos(-1.0) / 2.0) && textOf(box) == L"90.00" && box.getVal(value) && value == 90.0);
    box.setEditFlags(CVekComboBox::typeInt, 0, 5, 0.0, 0.0);
    EXPECT_TRUE(!box.setVal(1.0) && box.setVal(7) && textOf(box) == L"7" && box.getVal(whole) && whole == 7);

    CVekArrayTempl<int> rows;
    rows.append(1), box.setAltBackgr(rows);
    rows[0] = 2, rows.append(0), box.setAltBackgr(rows), box.getAltBackgr(rows);
    EXPECT_TRUE(rows.len() == 2 && rows[0] == 0 && rows[1] == 2);
    CClientDC dc(&form);
    const COLORREF back = RGB(200, 100, 50), tint = RGB(190, 95, 47), marked = ::GetSysColor(COLOR_HIGHLIGHT);
    ::SetBkColor(dc.m_hDC, back);
    const UINT draws[][4] = {
        {2, 1, 0, tint}, {1, 1, ODS_DISABLED, back}, {0, ODA_SELECT, ODS_SELECTED, marked}, {~0u, 1, 0, back}};
    for (const auto& [item, action, state, color] : draws) {
        DRAWITEMSTRUCT request = {ODT_COMBOBOX, 2, item, action, state, box.m_hWnd, dc.m_hDC, {0, 0, 60, 20}, 0};
        box.DrawItem(&request);
        int inked = 0;
        for (int i = 0; i < 60 * 20; ++i)
            inked += ::GetPixel(dc.m_hDC, i % 60, i / 60) != color;
        EXPECT_TRUE(inked < 300 && (inked > 10) == (item < 3)) << item << ' ' << inked;
        EXPECT_EQ(::GetBkColor(dc.m_hDC), back);
    }
}

TEST(ValueControls, ListTheLanguages)
{
    Form form;
    Template page = Template(WS_CHILD).item(7, L"COMBOBOX", CBS_DROPDOWNLIST);
    Dialog dialog(page);
    CVekComboCountryBox boxes[2];
    ASSERT_TRUE(dialog.CreateIndirect(page.get(), &form) && boxes[0].SubclassDlgItem(7, &dialog));
    ASSERT_TRUE(boxes[1].Create(WS_CHILD, CRect(0, 0, 90, 90), &form, 8));
    for (CVekComboCountryBox& box : boxes) {
        EXPECT_TRUE((box.GetStyle() & 0x143) == 0x43 && box.GetCurSel() == 0) << "a list, not sorted";
        int rows = 0;
        for (const vek_country_st* each = VEK::dlCountries(); each->id; ++each, ++rows) {
            EXPECT_TRUE(box.SelectCountry(each->id) && box.GetCurSel() == rows && textOf(box) == each->name);
            EXPECT_EQ(box.GetCountry(), each->id);
        }
        EXPECT_TRUE(box.GetCount() == rows && box.SelectCountry(L"DE"));
        EXPECT_TRUE(!box.SelectCountry(nullptr) && !box.SelectCountry(L"xx") && box.GetCountry()[0] == L'd');
        EXPECT_TRUE(box.SetCurSel(-1) < 0 && !box.GetCountry());
    }
}

} // namespace
