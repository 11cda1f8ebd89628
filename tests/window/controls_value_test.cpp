// Value controls in real windows.
#include "window/control_fixture.h"
#include "window/dialog_fixture.h"
#include "window/modal_queue.h"

#include <vek/controls.h>
#include <vek/values/country.h>

#include <cmath>

namespace
{

constexpr double kMax = std::numeric_limits<double>::max();
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

/// Three edit controls and a combo box, which tell when they are left.
class Form : public Dialog
{
public:
    Form()
        : Dialog(m_source), m_source(Template()
                                         .item(0, L"EDIT")
                                         .item(1, L"EDIT")
                                         .item(2, L"EDIT")
                                         .item(3, L"COMBOBOX", CBS_DROPDOWN | CBS_HASSTRINGS | CBS_OWNERDRAWFIXED))
    {
        onStart = [this](Dialog&) {
            for (UINT i = 0; i < 3; ++i)
                EXPECT_TRUE(edits[i].SubclassDlgItem(i, this));
            EXPECT_TRUE(combo.SubclassDlgItem(3, this));
        };
        EXPECT_TRUE(CreateIndirect(m_source.get()));
        ShowWindow(SW_SHOW);
        edits[1].SetFocus();
    }
    ~Form() override { DestroyWindow(); }

    CVekEdit edits[3];
    CVekComboBox combo;
    int left[4] = {}, changed = 0;
    std::wstring seen; ///< the text of the field that was left last
    std::function<void(int)> onLeave;

protected:
    BOOL OnCommand(WPARAM wParam, LPARAM lParam) override
    {
        const BOOL handled = Dialog::OnCommand(wParam, lParam); // first by the control itself
        const int id = LOWORD(wParam);
        if (HIWORD(wParam) == (id == 3 ? +CBN_KILLFOCUS : +EN_KILLFOCUS)) {
            ++left[id];
            changed += id < 3 && edits[id].GetModify();
            seen = textOf(*GetDlgItem(id));
            if (onLeave)
                onLeave(id);
        }
        return handled;
    }

private:
    Template m_source;
};

TEST(ValueControls, TellOfEditsByTheUserOnly)
{
    ModalQueue user;
    Form form;
    CVekEdit &a = form.edits[0], &b = form.edits[1];
    b.setEditFlags(CVekEdit::typeInt, 8, 2, 10.0, 99.0);
    b.setVal(50);
    EXPECT_TRUE(a.setEditFlags(kLength, 0x8028, 2, 20.0, 0.0) && a.setLUnits(1, 4) && a.setVal(1.0));
    CVekEdit::type kind;
    unsigned short flags;
    int precision;
    double min, max, value = 0.0;
    EXPECT_TRUE(a.getEditFlags(kind, flags, precision, min, max));
    EXPECT_TRUE(kind == 2 && flags == 0x8028 && precision == 2 && min == 0.0 && max == 20.0);
    EXPECT_TRUE(a.setEditFlags(kLength, 40, 0, 20.0, 0.0) && a.getEditFlags(kind, flags, precision, min, max));
    EXPECT_EQ(precision, 2);
    EXPECT_EQ(textOf(a), L"25.4");
    a.SetFocus(), b.SetFocus();
    EXPECT_TRUE(form.left[0] == 2 && form.changed == 0) << "neither creating nor setting is an edit";
    a.SetFocus(), type(L"30.123456"), b.SetFocus();
    EXPECT_TRUE(form.left[0] == 3 && form.changed == 1 && form.seen == L"30.12" && textOf(a) == L"30.12");
    EXPECT_TRUE(a.getVal(value) && value == 30.123456 / 25.4);

    type(L"5");
    user.box(L"Wert darf nicht kleiner sein als 10");
    a.SetFocus();
    EXPECT_EQ(user.lastCaption, L"Fehler");
    EXPECT_TRUE(CWnd::GetFocus() == &b && textOf(b) == L"10" && b.GetSel() == MAKELONG(0, 2) && !b.GetModify());
    EXPECT_TRUE(a.getVal(value) && value == 30.123456 / 25.4) << "who asked for the focus keeps all decimals";
    a.SetFocus();
    EXPECT_TRUE(CWnd::GetFocus() == &a && form.changed == 2) << form.changed;
    for (const wchar_t each : std::wstring(L"\b-4")) // free text takes all, and a field too until it is left
        a.SendMessage(WM_CHAR, each);
    EXPECT_TRUE(textOf(a) == L"-4" && a.getVal(value) && value == 30.123456 / 25.4);
    user.box(L"Wert darf nicht kleiner sein als 0");
    b.SetFocus();
    EXPECT_TRUE(a.getVal(value) && value == 0.0 && textOf(a) == L"0");
}

TEST(ValueControls, ShowWordsAndFormats)
{
    Form form;
    CVekEdit& a = form.edits[0];
    double value = -1.0;
    int whole = -1;
    a.setVal(5.0);
    EXPECT_TRUE(a.isEmpty()) << "free text";
    a.setEditFlags(kLength, 33, 3, -kMax, kMax);
    EXPECT_TRUE(a.setKey(L"None", 0.0) && a.setKey(L"Auto", 0.0) && a.setKey(L"Half", 0.5) && a.setVal(0.0));
    EXPECT_EQ(textOf(a), L"Auto");
    a.setVal(0.5), a.setVal(0);
    EXPECT_TRUE(textOf(a) == L"Auto" && a.getVal(value) && value == 0.5) << "a whole number with a word is not stored";
    a.SetFocus(), type(L" hALF "), form.edits[1].SetFocus();
    EXPECT_TRUE(textOf(a) == L"Half" && a.GetModify() && a.getVal(value) && value == 0.5 && a.getVal(whole) &&
                whole == 0);
    EXPECT_TRUE(a.removeKeys() && !a.setFormat(Vek::lFormat{}) && a.setFormat(Vek::formatFractional) && a.setVal(0.1));
    EXPECT_EQ(textOf(a), L"0.1");
    EXPECT_TRUE(a.setFormat(Vek::formatCurrent) && a.setVal(1.0 / 3.0) && textOf(a) == L"0.333");
    form.edits[2].setEditFlags(kLength, 1, 3, -kMax, kMax);
    EXPECT_FALSE(form.edits[2].getVal(value) || form.edits[2].getVal(whole));
    form.edits[2].SetWindowText(std::wstring(100000, L' ').c_str());
    EXPECT_TRUE(form.edits[2].isEmpty());
    struct Ending : ModalQueue { // ends the control in its message box
        std::unique_ptr<CVekEdit> edit;
        int messageBox(HWND, LPCWSTR, LPCWSTR, UINT type) override
        {
            EXPECT_EQ(type, 0x2010u);
            return edit.reset(), IDOK;
        }
    };
    for (const double stored : {-1.0, 1.0}) { // in the dialog's handler too
        Ending user;
        user.edit = std::make_unique<CVekEdit>();
        ASSERT_TRUE(user.edit->Create(WS_CHILD | WS_VISIBLE, CRect(0, 0, 50, 20), &form, 2));
        user.edit->setEditFlags(kLength, stored < 0.0 ? 4 : 0, 3, 0.0, 0.0);
        user.edit->SetFocus(), type(L"-1");
        form.onLeave = [&](int id) { id == 2 ? user.edit.reset() : void(); };
        a.SetFocus();
        EXPECT_TRUE(!user.edit && CWnd::GetFocus() == &a);
    }
}

TEST(ValueControls, CorrectInAComboBoxInSilence)
{
    ModalQueue user;
    Form form;
    CVekComboBox& box = form.combo;
    double value = -1.0;
    int whole = -1;
    EXPECT_TRUE(box.AddVal(1.0) == -1 && !box.setVal(1.0) && !box.setVal(1) && !box.getVal(value) &&
                !box.getVal(whole));
    EXPECT_TRUE(box.setEditFlags(kLength, 40, 2, 8.0, 1.0) && box.setLUnits(1, 4) && box.setFormat(Vek::formatDecimal));
    EXPECT_TRUE(box.AddVal(2.0) == 0 && box.AddVal(3.0) == 1 && box.InsertVal(0, 1.0) == 0 && box.GetCount() == 3);
    EXPECT_TRUE(!box.setVal(4) && box.setVal(4.0) && textOf(box) == L"101.6" && box.getVal(value) && value == 4.0);
    for (const auto& [typed, shown] :
         {std::pair(L"0,1", L"25.4"), {L"9999", L"203.2"}, {L"50,8", L"50.8"}, {L"", L""}}) {
        box.SetFocus();
        box.SetEditSel(0, -1);
        type(L"\b"), type(typed);
        form.edits[0].SetFocus();
        EXPECT_TRUE(textOf(box) == shown && form.seen == shown) << "the dialog comes behind";
    }
    EXPECT_EQ(form.left[3], 4);
    box.setEditFlags(CVekComboBox::typeAngle, 0, -1, 0.0, 0.0);
    EXPECT_TRUE(box.setVal(std::acos(-1.0) / 2.0) && textOf(box) == L"90.00" && box.getVal(value) && value == 90.0);

    CVekArrayTempl<int> rows, given;
    for (const int row : {2, 0})
        rows.append(row);
    box.setAltBackgr(rows), box.getAltBackgr(given);
    EXPECT_TRUE(given.len() == 2 && given[0] == 0 && given[1] == 2);
    CClientDC dc(&form);
    ::SetBkColor(dc.m_hDC, RGB(200, 100, 50));
    const struct {
        UINT item, action, state;
        COLORREF back;
    } rowsDrawn[] = {{2, ODA_DRAWENTIRE, 0, RGB(190, 95, 47)},
                     {1, ODA_DRAWENTIRE, ODS_DISABLED, RGB(200, 100, 50)},
                     {0, ODA_SELECT, ODS_SELECTED, GetSysColor(COLOR_HIGHLIGHT)},
                     {UINT(-1), ODA_DRAWENTIRE, 0, RGB(200, 100, 50)}};
    for (const auto& each : rowsDrawn) {
        DRAWITEMSTRUCT request = {ODT_COMBOBOX,   3, each.item, each.action, each.state, box.m_hWnd, dc.m_hDC,
                                  {0, 0, 60, 20}, 0};
        box.DrawItem(&request);
        EXPECT_EQ(::GetPixel(dc.m_hDC, 59, 19), each.back) << each.item;
        int inked = 0;
        for (int i = 0; i < 60 * 20; ++i)
            inked += ::GetPixel(dc.m_hDC, i % 60, i / 60) != each.back;
        EXPECT_EQ(inked > 10, each.item < 3) << each.item;
        EXPECT_EQ(::GetBkColor(dc.m_hDC), RGB(200, 100, 50));
    }
}

TEST(ValueControls, ListTheLanguages)
{
    Form form;
    Template page = Template(WS_CHILD).item(7, L"COMBOBOX", CBS_DROPDOWNLIST);
    Dialog dialog(page);
    ASSERT_TRUE(dialog.CreateIndirect(page.get(), &form));
    CVekComboCountryBox boxes[2];
    ASSERT_TRUE(boxes[0].SubclassDlgItem(7, &dialog));
    ASSERT_TRUE(boxes[1].Create(WS_CHILD, CRect(0, 0, 90, 90), &form, 8));
    for (CVekComboCountryBox& box : boxes) {
        EXPECT_EQ(box.GetStyle() & 0x143, 0x43u) << "a list, not sorted";
        int rows = 0;
        for (const vek_country_st* each = VEK::dlCountries(); each->id; ++each, ++rows) {
            EXPECT_TRUE(box.SelectCountry(each->id) && box.GetCurSel() == rows && textOf(box) == each->name);
            EXPECT_EQ(box.GetCountry(), each->id);
        }
        EXPECT_EQ(box.GetCount(), rows);
        EXPECT_TRUE(box.SelectCountry(L"DE") && !box.SelectCountry(nullptr) && !box.SelectCountry(L"xx"));
        EXPECT_STREQ(box.GetCountry(), L"de");
        box.SetCurSel(-1);
        EXPECT_EQ(box.GetCountry(), nullptr);
    }
}

} // namespace
