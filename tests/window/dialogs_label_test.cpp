// The label dialog as a user has it.
#include "window/modal_queue.h"
#include "window/text_application.h"

#include <vek/dialogs.h>
#include <vek/values/country.h>

namespace
{

constexpr wchar_t kStore[] = L"Software\\OSTWERK\\VEK_MSG\\DATA";
constexpr int kEnglish = 1, kGerman = 0;

class LabelDialog : public text_application::TextApplication
{
protected:
    ~LabelDialog() override { ::RegDeleteKeyW(HKEY_CURRENT_USER, kStore); }

    int open(bool multi, const wchar_t* start, const std::function<void(CVekLabelEdit&)>& act)
    {
        user.dialog<CVekLabelEdit>([this, act](CVekLabelEdit& dialog) {
            list = &dialog.m_list;
            act(dialog);
        });
        return VEK::dlgLabelEdit(VEK::DlgEnv_st(), label, multi, start, L"EN", m_file.c_str());
    }
    static void click(CWnd& dialog, int id) { dialog.SendDlgItemMessage(id, BM_CLICK); }
    CString text(int row) { return list->GetItemText(row, 1); }

    /// The height of all rows and the image of one.
    std::pair<int, int> look(int row)
    {
        CRect area;
        list->GetItemRect(0, &area, LVIR_BOUNDS);
        LVITEMW item = {};
        item.mask = LVIF_IMAGE;
        item.iItem = row;
        list->GetItem(&item);
        return {area.Height(), item.iImage};
    }
    void type(int row, const wchar_t* typed, const wchar_t* shown)
    {
        list->SetCurSel(row);
        CRect cell;
        list->GetSubItemRect(row, 1, LVIR_LABEL, cell);
        list->SendMessage(WM_LBUTTONDOWN, MK_LBUTTON, MAKELPARAM(cell.left + 3, cell.top + 3));
        list->SendMessage(WM_LBUTTONUP, 0, MAKELPARAM(cell.left + 3, cell.top + 3));
        CString before;
        list->GetDlgItemText(1025, before);
        EXPECT_STREQ(before, shown);
        list->SendDlgItemMessage(1025, EM_REPLACESEL, TRUE, reinterpret_cast<LPARAM>(typed));
        list->SetFocus();
    }
    /// The texts of the context menu.
    std::wstring menu()
    {
        static std::wstring found;
        found.clear();
        const auto look = [](HWND, UINT, UINT_PTR timer, DWORD) {
            const auto shown = ::SendMessageW(::FindWindowW(L"#32768", nullptr), MN_GETHMENU, 0, 0);
            wchar_t item[80];
            for (UINT i = 0; ::GetMenuStringW(reinterpret_cast<HMENU>(shown), i, item, 80, MF_BYPOSITION) > 0; ++i)
                found += item + std::wstring(L" ");
            ::KillTimer(nullptr, timer);
            ::EndMenu();
        };
        ::SetTimer(nullptr, 0, 100, look);
        list->SendMessage(WM_CONTEXTMENU, 0, -1);
        return found;
    }

    ModalQueue user;
    CVekString label;
    CVekLabelEditLst* list = nullptr;
};

TEST_F(LabelDialog, EditsTheTextsOfAllLanguages)
{
    using Look = std::pair<int, int>;
    const auto lines = [&](CVekLabelEdit& dialog) {
        EXPECT_EQ(::GetFocus(), list->m_hWnd);
        EXPECT_EQ(list->GetCurSel(), kEnglish);
        EXPECT_EQ(text(kEnglish) + text(kGerman), L"Door");
        EXPECT_EQ(look(kEnglish), Look(18, 0));
        EXPECT_EQ(menu(), L"Mehrzeilig Kopieren ");
        type(kEnglish, L"Door¶Gate\\n3", L"Door");
        EXPECT_EQ(text(kEnglish), L"Door\nGate\n3");
        EXPECT_EQ(look(kEnglish), Look(50, 1));
        EXPECT_TRUE(VEK::regWrite(kStore, L"de", L"before"));
        list->SendMessage(WM_COMMAND, 1029); // copies all
        EXPECT_EQ(menu(), L"Einzeilig Einfügen Kopieren ");
        list->SendMessage(WM_COMMAND, 1027); // one line
        EXPECT_EQ(text(kEnglish), L"Door Gate 3");
        EXPECT_EQ(look(kEnglish), Look(18, 0));
        list->SendMessage(WM_COMMAND, 1028); // pastes
        EXPECT_EQ(text(kEnglish) + text(kGerman), L"Door\nGate\n3");
        type(kEnglish, L"Tor", L"Door¶Gate¶3");
        type(kGerman, L"Tür", L"");
        type(kEnglish, L"", L"Tor");
        click(dialog, IDOK);
    };
    EXPECT_EQ(open(true, L"Door", lines), IDOK);
    EXPECT_STREQ(label, L"\\de:Tür");
    const auto single = [&](CVekLabelEdit& dialog) {
        EXPECT_EQ(menu(), L"Einfügen Kopieren ");
        list->SendMessage(WM_COMMAND, 1028);
        EXPECT_EQ(text(kEnglish) + text(kGerman), L"Door Gate 3");
        click(dialog, IDCANCEL);
    };
    EXPECT_EQ(open(false, label, single), IDCANCEL);
    EXPECT_STREQ(label, L"\\de:Tür");
}

TEST_F(LabelDialog, ImportsTheKeyThatIsSelectedInTheTextApplication)
{
    const auto import = [&](CVekLabelEdit& dialog) {
        user.box(L"Kein Text ausgewählt");
        click(dialog, 1086); // starts it
        IVekMsgDlg texts = running();
        EXPECT_TRUE(texts.SearchKey(L"B"));
        user.box(L"Mehzeilige");
        click(dialog, 1086);
        EXPECT_EQ(text(kEnglish), L"Door");
        EXPECT_TRUE(texts.SearchKey(L"A"));
        click(dialog, 1086);
        EXPECT_EQ(text(kEnglish) + text(kGerman), L"Höhe ≥");
        click(dialog, IDOK);
    };
    EXPECT_EQ(open(false, L"Door", import), IDOK);
    EXPECT_STREQ(label, L"\\de:Höhe ≥\\pl:Wysokość");
}

} // namespace
