#include "window/dialog_fixture.h"
#include "window/modal_queue.h"

#include <limits>
#include <optional>
#include <random>

namespace
{

class ToolkitExchange : public testing::Test
{
protected:
    /// Opens the dialog with an edit 101 and what the test has put beside it.
    void open()
    {
        dialog = std::make_unique<Dialog>(source.item(101, L"EDIT", ES_AUTOHSCROLL | WS_TABSTOP));
        ASSERT_TRUE(dialog->CreateIndirect(source.get()));
    }
    BOOL update(const std::function<void(CDataExchange*)>& exchange, BOOL save)
    {
        dialog->exchange = exchange;
        return dialog->UpdateData(save);
    }
    CString text(int id = 101)
    {
        CString it;
        dialog->GetDlgItemText(id, it);
        return it;
    }
    /// What an exchange reads from the field; nothing when it is refused.
    template <class Value>
    std::optional<Value> read(const std::wstring& typed)
    {
        dialog->SetDlgItemText(101, typed.c_str());
        Value value = 7;
        const BOOL accepted = update([&value](CDataExchange* pDX) { DDX_Text(pDX, 101, value); }, TRUE);
        EXPECT_TRUE(accepted || value == 7) << "a refused value changes nothing";
        return accepted ? std::optional<Value>(value) : std::nullopt;
    }
    /// A whole number goes there and back; texts outside the type, or not numbers at all, are refused and told.
    template <class Value>
    void checkWhole(const wchar_t* refusal)
    {
        using Bounds = std::numeric_limits<Value>;
        const auto noLonger = [](const std::wstring& digits, const std::wstring& bound) {
            return digits.size() < bound.size() || (digits.size() == bound.size() && digits <= bound);
        };
        for (int i = 0; i < 90; ++i) { // digits of any count, so that they lie within and without
            std::wstring digits;
            for (int count = 1 + static_cast<int>(random() % (i % 2 == 0 ? 22 : Bounds::digits10 + 1)); count > 0;
                 --count)
                digits += static_cast<wchar_t>(L'0' + random() % 10);
            const std::wstring sign = i % 3 == 0 ? L"-" : L"", typed = L" " + sign + digits + L"\t ";
            digits.erase(0, std::min(digits.find_first_not_of(L'0'), digits.size() - 1));
            const std::wstring least = std::to_wstring(Bounds::min());
            const bool fits = sign.empty() ? noLonger(digits, std::to_wstring(Bounds::max()))
                                           : Bounds::is_signed && noLonger(digits, least.substr(1));
            if (!fits)
                user.box(refusal);
            const std::optional<Value> got = read<Value>(typed);
            ASSERT_EQ(got.has_value(), fits);
            if (fits) {
                EXPECT_EQ(std::to_wstring(*got), (digits == L"0" ? L"" : sign) + digits);
            }
        }
        for (Value value : {Bounds::min(), Bounds::max(), Value(0), Value(1)}) {
            ASSERT_TRUE(update([&value](CDataExchange* pDX) { DDX_Text(pDX, 101, value); }, FALSE));
            EXPECT_EQ(read<Value>(text().GetString()), value);
        }
        for (const wchar_t* typed : {L"", L" ", L"x", L"1x", L"1 2", L"1.5", L"--1"}) {
            user.box(refusal);
            EXPECT_FALSE(read<Value>(typed));
        }
    }
    template <class Value>
    void checkReal(const wchar_t* written)
    {
        Value value = Value(1) / 3;
        ASSERT_TRUE(update([&value](CDataExchange* pDX) { DDX_Text(pDX, 101, value); }, FALSE));
        EXPECT_EQ(text(), written);
        EXPECT_EQ(read<Value>(L" -2.5e3 "), Value(-2500));
        for (const wchar_t* typed : {L"", L"x", L"1,5", L"nan", L"inf", L"1e999"}) {
            user.box(L"eine Zahl");
            EXPECT_FALSE(read<Value>(typed));
        }
    }
    /// Validates one value against bounds from 2 to 5.
    template <class Value>
    void checkBounds(void(AFXAPI* validate)(CDataExchange*, Value, std::decay_t<Value>, std::decay_t<Value>),
                     const std::wstring& low = L"2", const std::wstring& high = L"5")
    {
        for (const int value : {1, 2, 5, 6}) {
            const bool inside = value >= 2 && value <= 5;
            if (!inside)
                user.box(L"zwischen " + low + L" und " + high + L" ein");
            for (const BOOL save : {FALSE, TRUE}) {
                const auto exchange = [&](CDataExchange* pDX) {
                    pDX->PrepareEditCtrl(101);
                    validate(pDX, static_cast<std::decay_t<Value>>(value), 2, 5);
                };
                EXPECT_EQ(update(exchange, save), inside || !save);
            }
        }
    }

    std::mt19937 random{5};
    ModalQueue user;
    Template source;
    std::unique_ptr<Dialog> dialog;
};

} // namespace

TEST_F(ToolkitExchange, ReadsAndWritesNumbersOfAllTypes)
{
    open();
    checkWhole<BYTE>(L"zwischen 0 und 255");
    checkWhole<short>(L"eine ganze Zahl");
    checkWhole<int>(L"eine ganze Zahl");
    checkWhole<long>(L"eine ganze Zahl");
    checkWhole<LONGLONG>(L"eine ganze Zahl");
    checkWhole<UINT>(L"positive ganze Zahl");
    checkWhole<DWORD>(L"positive ganze Zahl");
    checkWhole<ULONGLONG>(L"positive ganze Zahl");
    checkReal<float>(L"0.333333");
    checkReal<double>(L"0.333333333333333");
    user.box(L"eine Zahl");
    EXPECT_FALSE(read<float>(L"1e39"));
    EXPECT_EQ(read<double>(L"1e39"), 1e39);
}

TEST_F(ToolkitExchange, ValidatesAgainstBounds)
{
    open();
    checkBounds<BYTE>(DDV_MinMaxByte);
    checkBounds<short>(DDV_MinMaxShort);
    checkBounds<int>(DDV_MinMaxInt);
    checkBounds<long>(DDV_MinMaxLong);
    checkBounds<UINT>(DDV_MinMaxUInt);
    checkBounds<DWORD>(DDV_MinMaxDWord);
    checkBounds<LONGLONG>(DDV_MinMaxLongLong);
    checkBounds<ULONGLONG>(DDV_MinMaxULongLong);
    checkBounds<const float&>(DDV_MinMaxFloat);
    checkBounds<const double&>(DDV_MinMaxDouble);

    CString value = L"abcd";
    const auto exchange = [&](CDataExchange* pDX) {
        DDX_Text(pDX, 101, value);
        DDV_MaxChars(pDX, value, 3);
    };
    EXPECT_TRUE(update(exchange, FALSE));
    EXPECT_EQ(dialog->SendDlgItemMessage(101, EM_GETLIMITTEXT), 3) << "no more can be typed";
    user.box(L"höchstens 3 Zeichen");
    EXPECT_FALSE(update(exchange, TRUE));
    dialog->SetDlgItemText(101, L"abc");
    EXPECT_TRUE(update(exchange, TRUE));
}

TEST_F(ToolkitExchange, RefusesAndKeepsTheFocus)
{
    source.item(102, L"EDIT", WS_TABSTOP);
    open();
    dialog->ShowWindow(SW_SHOW);
    dialog->SetDlgItemText(101, L"many");
    dialog->GetDlgItem(102)->SetFocus();
    const auto before = toolkit::textSourceSet([](UINT id, LPCWSTR builtIn) -> LPCWSTR {
        return id == AFX_IDP_PARSE_INT && wcsstr(builtIn, L"ganze Zahl") ? L"A whole number!" : nullptr;
    });
    int value = 0;
    dialog->exchange = [&value](CDataExchange* pDX) { DDX_Text(pDX, 101, value); };
    user.box(L"A whole number!");
    dialog->OnOK();
    toolkit::textSourceSet(before);
    EXPECT_NE(dialog->m_hWnd, nullptr);
    EXPECT_EQ(CWnd::GetFocus()->GetDlgCtrlID(), 101);
    EXPECT_EQ(dialog->SendDlgItemMessage(101, EM_GETSEL), MAKELONG(0, 4)) << "ready to be typed over";
    EXPECT_THROW(CDataExchange(dialog.get(), TRUE).PrepareCtrl(999), CNotSupportedException*);
}

TEST_F(ToolkitExchange, LeavesWhatIsEqualAndIsDeafMeanwhile)
{
    open();
    int value = 12;
    const auto exchange = [&value](CDataExchange* pDX) { DDX_Text(pDX, 101, value); };
    dialog->notices = 0;
    dialog->SetDlgItemText(101, L"x");
    EXPECT_EQ(dialog->notices, 2) << "EN_UPDATE and EN_CHANGE";
    EXPECT_TRUE(update(exchange, FALSE));
    EXPECT_EQ(dialog->notices, 2) << "but not meanwhile";
    EXPECT_EQ(text(), L"12");
    dialog->SendDlgItemMessage(101, EM_SETSEL, 1, 1);
    dialog->SendDlgItemMessage(101, EM_SETMODIFY, TRUE);
    EXPECT_TRUE(update(exchange, FALSE));
    EXPECT_EQ(dialog->SendDlgItemMessage(101, EM_GETSEL), MAKELONG(1, 1)) << "the caret stays";
    EXPECT_TRUE(dialog->SendDlgItemMessage(101, EM_GETMODIFY));
    dialog->SetDlgItemText(101, L"y");
    EXPECT_EQ(dialog->notices, 4);
}

TEST_F(ToolkitExchange, ChoosesButtonsAndRows)
{
    source.item(102, L"BUTTON", BS_AUTO3STATE).item(103, L"BUTTON", BS_AUTORADIOBUTTON | WS_GROUP);
    source.item(104, L"BUTTON", BS_AUTORADIOBUTTON).item(105, L"COMBOBOX", CBS_DROPDOWN | WS_GROUP);
    source.item(106, L"LISTBOX", LBS_HASSTRINGS).item(107, L"SCROLLBAR");
    open();
    for (const wchar_t* row : {L"one", L"only", L"on"}) {
        dialog->SendDlgItemMessage(105, CB_ADDSTRING, 0, reinterpret_cast<LPARAM>(row));
        dialog->SendDlgItemMessage(106, LB_ADDSTRING, 0, reinterpret_cast<LPARAM>(row));
    }
    ::SetScrollRange(*dialog->GetDlgItem(107), SB_CTL, 0, 50, FALSE);
    int check = 2, radio = 1, combo = 1, list = 2, bar = 33;
    const auto all = [&](CDataExchange* pDX) {
        DDX_Check(pDX, 102, check);
        DDX_Radio(pDX, 103, radio);
        DDX_CBIndex(pDX, 105, combo);
        DDX_LBIndex(pDX, 106, list);
        DDX_Scroll(pDX, 107, bar);
    };
    EXPECT_TRUE(update(all, FALSE));
    EXPECT_EQ(dialog->GetCheckedRadioButton(103, 104), 104);
    check = radio = combo = list = bar = 9;
    EXPECT_TRUE(update(all, TRUE));
    EXPECT_EQ((std::vector{check, radio, combo, list, bar}), (std::vector{2, 1, 1, 2, 33}));
    check = 3, radio = combo = list = -1;
    EXPECT_TRUE(update(all, FALSE));
    EXPECT_TRUE(update(all, TRUE));
    EXPECT_EQ((std::vector{check, radio, combo, list}), (std::vector{0, -1, -1, -1}));

    using Routine = void(AFXAPI*)(CDataExchange*, int, CString&);
    const struct {
        Routine routine;
        int id;
        const wchar_t *given, *read;
    } cases[] = {
        {DDX_CBString, 105, L"onl", L"only"},   {DDX_CBString, 105, L"none", L"none"},
        {DDX_CBStringExact, 105, L"ON", L"on"}, {DDX_CBStringExact, 105, L"o", L"o"},
        {DDX_LBString, 106, L"none", L""}, // none is chosen yet
        {DDX_LBString, 106, L"onl", L"only"},   {DDX_LBStringExact, 106, L"on", L"on"},
        {DDX_LBString, 106, L"none", L"on"}, // stays
    };
    for (const auto& each : cases) {
        CString value = each.given;
        const auto exchange = [&](CDataExchange* pDX) { each.routine(pDX, each.id, value); };
        EXPECT_TRUE(update(exchange, FALSE));
        EXPECT_TRUE(update(exchange, TRUE));
        EXPECT_EQ(value, each.read);
    }
    wchar_t buffer[4] = L"";
    dialog->SetDlgItemText(101, L"abcdef");
    EXPECT_TRUE(update([&](CDataExchange* pDX) { DDX_Text(pDX, 101, buffer, 4); }, TRUE));
    EXPECT_STREQ(buffer, L"abc");
}
