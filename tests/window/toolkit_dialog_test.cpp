#include <afxtempl.h>
#include <afxwin.h>

#include <gtest/gtest.h>

#include <cstring>
#include <functional>
#include <string>
#include <vector>

namespace
{

/// A dialog template in memory.
class Template
{
public:
    explicit Template(DWORD style = WS_POPUP | WS_CAPTION | WS_SYSMENU)
    {
        const DLGTEMPLATE head = {style, 0, 0, 10, 10, 120, 80};
        put(&head, sizeof head);
        text(L""), text(L""), text(L"test");
    }
    Template& item(WORD id, const wchar_t* cls, DWORD style = 0, const wchar_t* caption = L"")
    {
        m_bytes.resize((m_bytes.size() + 3) / 4 * 4);
        const DLGITEMTEMPLATE item = {style | WS_CHILD | WS_VISIBLE, 0, 5, short(20 * count()), 50, 14, id};
        put(&item, sizeof item);
        text(cls), text(caption);
        const WORD none = 0;
        put(&none, sizeof none);
        ++reinterpret_cast<DLGTEMPLATE*>(m_bytes.data())->cdit;
        return *this;
    }
    LPCDLGTEMPLATE get() const { return reinterpret_cast<LPCDLGTEMPLATE>(m_bytes.data()); }

private:
    int count() const { return get()->cdit; }
    void put(const void* data, size_t size)
    {
        m_bytes.resize(m_bytes.size() + size);
        std::memcpy(m_bytes.data() + m_bytes.size() - size, data, size);
    }
    void text(const wchar_t* it) { put(it, (std::wcslen(it) + 1) * sizeof *it); }

    std::vector<unsigned char> m_bytes;
};

constexpr UINT kStep = WM_APP + 5;

/// A dialog that does what the test says when it is shown.
class Dialog : public CDialog
{
public:
    explicit Dialog(const Template& source, CWnd* parent = nullptr) { InitModalIndirect(source.get(), parent); }

    std::function<void(Dialog&)> onStart, onStep;
    std::function<void(CDataExchange*)> exchange;
    std::vector<std::string> log;

    BOOL OnInitDialog() override
    {
        CDialog::OnInitDialog();
        if (onStart)
            onStart(*this);
        if (onStep && m_hWnd != nullptr)
            SetTimer(1, 10, nullptr); // by then it is shown
        return TRUE;
    }
    void DoDataExchange(CDataExchange* pDX) override
    {
        CDialog::DoDataExchange(pDX);
        if (exchange)
            exchange(pDX);
    }
    BOOL PreTranslateMessage(MSG* message) override
    {
        if (message->message == WM_KEYDOWN)
            log.push_back("dialog");
        return CDialog::PreTranslateMessage(message);
    }
    using CDialog::OnOK;

protected:
    afx_msg LRESULT OnStep(WPARAM, LPARAM)
    {
        onStep(*this);
        return 0;
    }
    afx_msg void OnTimer(UINT_PTR id)
    {
        KillTimer(id);
        onStep(*this);
    }
    DECLARE_MESSAGE_MAP()
};

BEGIN_MESSAGE_MAP(Dialog, CDialog)
ON_MESSAGE(kStep, &Dialog::OnStep)
ON_WM_TIMER()
END_MESSAGE_MAP()

/// A window that knows two commands.
class Owner : public CWnd
{
public:
    std::vector<UINT> commands;

protected:
    afx_msg void OnRange(UINT id) { commands.push_back(id); }
    DECLARE_MESSAGE_MAP()
};

BEGIN_MESSAGE_MAP(Owner, CWnd)
ON_COMMAND_RANGE(0x7FFF, 0x8000, &Owner::OnRange)
END_MESSAGE_MAP()

class Key : public CEdit
{
public:
    explicit Key(std::vector<std::string>& entries) : log(entries) {}
    BOOL PreTranslateMessage(MSG* message) override
    {
        if (message->message != WM_KEYDOWN)
            return CEdit::PreTranslateMessage(message);
        log.push_back("edit");
        return message->wParam == VK_F5;
    }
    std::vector<std::string>& log;
};

} // namespace

TEST(ToolkitDialog, GivesTheResultOfItsEnd)
{
    const Template source;
    Dialog dialog(source);
    dialog.onStep = [](Dialog& d) {
        EXPECT_TRUE(d.IsWindowVisible()) << "a modal dialog shows itself";
        d.EndDialog(7);
    };
    EXPECT_EQ(dialog.DoModal(), 7);
    EXPECT_EQ(dialog.m_hWnd, nullptr);
    EXPECT_EQ(dialog.DoModal(), 7) << "it can run again";

    dialog.onStep = nullptr;
    dialog.onStart = [](Dialog& d) { d.EndDialog(8); };
    EXPECT_EQ(dialog.DoModal(), 8) << "ended before it was shown";
    dialog.onStart = [](Dialog& d) { d.PostMessage(WM_CLOSE); };
    EXPECT_EQ(dialog.DoModal(), IDCANCEL);
    dialog.onStart = [](Dialog& d) { d.PostMessage(WM_COMMAND, IDOK); };
    EXPECT_EQ(dialog.DoModal(), IDOK);
    dialog.onStart = nullptr;
    dialog.onStep = [](Dialog& d) { d.DestroyWindow(); };
    EXPECT_EQ(dialog.DoModal(), -1) << "its window was taken away";
    EXPECT_EQ(CDialog(UINT(12345)).DoModal(), -1) << "no such template";
}

TEST(ToolkitDialog, RunsInsideAnother)
{
    const Template source;
    CWnd owner;
    ASSERT_TRUE(owner.CreateEx(0, nullptr, L"", WS_OVERLAPPEDWINDOW | WS_VISIBLE, 0, 0, 300, 200, nullptr, nullptr));
    Dialog outer(source, &owner);
    INT_PTR within = 0;
    outer.onStep = [&](Dialog& o) {
        EXPECT_FALSE(owner.IsWindowEnabled());
        CWnd* temporary = CWnd::FromHandle(::GetDesktopWindow());
        Dialog inner(source, &o);
        inner.onStep = [&](Dialog& i) {
            EXPECT_FALSE(o.IsWindowEnabled());
            EXPECT_EQ(i.GetParent(), &o);
            i.EndDialog(3);
        };
        within = inner.DoModal();
        EXPECT_TRUE(o.IsWindowEnabled());
        EXPECT_FALSE(owner.IsWindowEnabled()) << "still behind the outer dialog";
        EXPECT_EQ(CWnd::FromHandle(::GetDesktopWindow()), temporary) << "the inner loop leaves it alone";
        o.EndDialog(4);
    };
    EXPECT_EQ(outer.DoModal(), 4);
    EXPECT_EQ(within, 3);
    EXPECT_TRUE(owner.IsWindowEnabled());
}

TEST(ToolkitDialog, HandsQuitOnToTheLoopOutside)
{
    const Template source;
    Dialog outer(source);
    outer.onStep = [&](Dialog&) {
        Dialog inner(source);
        inner.onStep = [](Dialog&) { ::PostQuitMessage(9); };
        EXPECT_EQ(inner.DoModal(), -1);
    };
    EXPECT_EQ(outer.DoModal(), -1);
    MSG message = {};
    ASSERT_TRUE(::PeekMessageW(&message, nullptr, WM_QUIT, WM_QUIT, PM_REMOVE));
    EXPECT_EQ(message.wParam, 9u);
}

TEST(ToolkitDialog, AsksTheControlBeforeTheDialog)
{
    Template source;
    source.item(101, L"EDIT", WS_TABSTOP).item(102, L"EDIT", WS_TABSTOP).item(IDOK, L"BUTTON", BS_DEFPUSHBUTTON);
    Dialog dialog(source);
    Key edit(dialog.log);
    dialog.exchange = [&](CDataExchange* pDX) { DDX_Control(pDX, 101, edit); };
    dialog.onStep = [&](Dialog& d) {
        EXPECT_EQ(CWnd::GetFocus(), &edit) << "the first control";
        edit.PostMessage(WM_KEYDOWN, VK_F5);
        edit.PostMessage(WM_KEYDOWN, VK_TAB);
        d.onStep = [&](Dialog& again) {
            EXPECT_EQ(CWnd::GetFocus()->GetDlgCtrlID(), 102) << "the dialog's keys work";
            again.GetDlgItem(102)->PostMessage(WM_KEYDOWN, VK_RETURN);
        };
        d.PostMessage(kStep);
    };
    EXPECT_EQ(dialog.DoModal(), IDOK) << "return presses the default button";
    EXPECT_EQ(dialog.log, (std::vector<std::string>{"edit", "edit", "dialog", "dialog"}));
    EXPECT_EQ(edit.m_hWnd, nullptr) << "a member control goes with its window";
}

TEST(ToolkitDialog, ExchangesValues)
{
    Template source;
    source.item(101, L"EDIT", ES_AUTOHSCROLL).item(102, L"BUTTON", BS_AUTOCHECKBOX);
    source.item(103, L"BUTTON", BS_AUTORADIOBUTTON | WS_GROUP).item(104, L"BUTTON", BS_AUTORADIOBUTTON);
    source.item(105, L"EDIT", WS_GROUP | ES_AUTOHSCROLL).item(106, L"COMBOBOX", CBS_DROPDOWNLIST);
    Dialog dialog(source);
    int number = 12, check = 1, radio = 1, row = 1;
    double real = 0.1;
    CComboBox combo;
    dialog.exchange = [&](CDataExchange* pDX) {
        DDX_Control(pDX, 106, combo);
        if (combo.GetCount() == 0)
            combo.AddString(L"a"), combo.AddString(L"b");
        DDX_Text(pDX, 101, number);
        DDX_Check(pDX, 102, check);
        DDX_Radio(pDX, 103, radio);
        DDX_Text(pDX, 105, real);
        DDX_CBIndex(pDX, 106, row);
    };
    dialog.onStart = [&](Dialog& d) {
        CString text;
        EXPECT_EQ(d.GetDlgItemInt(101), 12u);
        d.GetDlgItemText(105, text);
        EXPECT_EQ(text, L"0.1");
        EXPECT_EQ(d.GetCheckedRadioButton(103, 104), 104);
        combo.GetLBText(combo.GetCurSel(), text);
        EXPECT_EQ(text, L"b");
        d.SetDlgItemText(101, L"-5");
        d.CheckDlgButton(102, BST_UNCHECKED);
        d.CheckRadioButton(103, 104, 103);
        d.SetDlgItemText(105, L"2.5");
        combo.SetCurSel(0);
        d.OnOK();
    };
    EXPECT_EQ(dialog.DoModal(), IDOK);
    EXPECT_EQ(number, -5);
    EXPECT_EQ(check, 0);
    EXPECT_EQ(radio, 0);
    EXPECT_EQ(real, 2.5);
    EXPECT_EQ(row, 0);
}

TEST(ToolkitDialog, RefusesAndKeepsTheFocus)
{
    Template source;
    source.item(101, L"EDIT", WS_TABSTOP).item(102, L"EDIT", WS_TABSTOP);
    Dialog dialog(source);
    dialog.exchange = [](CDataExchange* pDX) {
        pDX->PrepareEditCtrl(102);
        if (pDX->m_bSaveAndValidate)
            pDX->Fail();
    };
    dialog.onStep = [](Dialog& d) {
        EXPECT_FALSE(d.UpdateData());
        EXPECT_EQ(CWnd::GetFocus()->GetDlgCtrlID(), 102);
        d.OnOK();
        EXPECT_NE(d.m_hWnd, nullptr);
        d.EndDialog(1);
    };
    EXPECT_EQ(dialog.DoModal(), 1);
}

TEST(ToolkitDialog, StandsWithoutALoop)
{
    const Template source(WS_POPUP | WS_CAPTION);
    CDialog dialog;
    ASSERT_TRUE(dialog.CreateIndirect(source.get()));
    EXPECT_EQ(CWnd::FromHandlePermanent(dialog.m_hWnd), &dialog);
    dialog.SendMessage(WM_COMMAND, IDCANCEL);
    EXPECT_TRUE(::IsWindow(dialog.m_hWnd)) << "hidden, not destroyed";
    EXPECT_TRUE(dialog.DestroyWindow());
}

TEST(ToolkitDialog, PassesCommandsOnToItsParent)
{
    Owner owner;
    ASSERT_TRUE(owner.CreateEx(0, nullptr, L"", WS_POPUP, 0, 0, 30, 20, nullptr, nullptr));
    const Template source(WS_CHILD);
    CDialog page;
    ASSERT_TRUE(page.CreateIndirect(source.get(), &owner));
    page.SendMessage(WM_COMMAND, 0x8000);
    page.SendMessage(WM_COMMAND, 0x7FFF); // the id of a control, which is nobody else's business
    EXPECT_EQ(owner.commands, std::vector<UINT>{0x8000});
}

TEST(ToolkitMap, FindsWalksAndRemoves)
{
    CMap<UINT, UINT, CString, LPCTSTR> map;
    CString text;
    EXPECT_FALSE(map.Lookup(3, text));
    for (UINT i = 0; i < 100; ++i)
        map.SetAt(i, CString(L'x', static_cast<int>(i)));
    EXPECT_EQ(map.GetCount(), 100);
    EXPECT_TRUE(map.Lookup(40, text));
    EXPECT_EQ(text.GetLength(), 40);
    UINT sum = 0, key = 0;
    for (POSITION at = map.GetStartPosition(); at != nullptr; sum += key)
        map.GetNextAssoc(at, key, text);
    EXPECT_EQ(sum, 99u * 100 / 2);
    EXPECT_TRUE(map.RemoveKey(40));
    EXPECT_FALSE(map.RemoveKey(40));
    EXPECT_EQ(map.PLookup(40), nullptr);
    INT_PTR walked = 0;
    for (const auto* pair = map.PGetFirstAssoc(); pair != nullptr; pair = map.PGetNextAssoc(pair))
        ++walked;
    EXPECT_EQ(walked, 99);
    map.RemoveAll();
    EXPECT_TRUE(map.IsEmpty());
    EXPECT_EQ(map.GetStartPosition(), nullptr);

    CMap<CString, LPCTSTR, double, double> byText;
    byText[L"one"] = 1.5;
    EXPECT_EQ(byText[L"one"], 1.5);
    EXPECT_EQ(byText.GetCount(), 1);
}
