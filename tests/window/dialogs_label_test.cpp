// The label dialog as a user has it.
#include "window/dialog_fixture.h"
#include "window/modal_queue.h"
#include "window/text_application.h"

#include <vek/dialogs.h>
#include <vek/values/country.h>

#include <thread>

namespace
{

constexpr wchar_t kStore[] = L"Software\\OSTWERK\\VEK_MSG\\DATA";
constexpr int kEnglish = 1, kGerman = 0;

class LabelDialog : public text_application::TextApplication
{
protected:
    ~LabelDialog() override { ::RegDeleteKeyW(HKEY_CURRENT_USER, kStore); }

    int open(bool multi, const wchar_t* start, const std::function<void(CVekLabelEdit&)>& act,
             const wchar_t* file = nullptr)
    {
        user.dialog<CVekLabelEdit>([this, act](CVekLabelEdit& dialog) {
            list = &dialog.m_list;
            act(dialog);
        });
        return VEK::dlgLabelEdit(VEK::DlgEnv_st(), label, multi, start, L"EN", file ? file : m_file.c_str());
    }
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
    void type(int row, const wchar_t* typed, const wchar_t* shown, bool keeps = true)
    {
        list->SetCurSel(row);
        CRect cell;
        list->GetSubItemRect(row, 1, LVIR_LABEL, cell);
        clickAt(list->m_hWnd, cell.TopLeft() + CSize(3, 3));
        EXPECT_EQ(textOf(list->m_hWnd, 1025), shown);
        list->SendDlgItemMessage(1025, EM_REPLACESEL, TRUE, reinterpret_cast<LPARAM>(typed));
        keeps ? static_cast<void>(list->SetFocus()) : press(VK_ESCAPE);
        EXPECT_TRUE(::GetFocus() == list->m_hWnd && !list->GetDlgItem(1025));
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
        type(kGerman, L"Fenster", L"Tür", false);
        type(kEnglish, L"", L"Tor");
        clickButton(dialog, IDOK);
    };
    EXPECT_EQ(open(true, L"Door", lines), IDOK);
    EXPECT_STREQ(label, L"\\de:Tür");
    const auto single = [&](CVekLabelEdit& dialog) {
        EXPECT_EQ(menu(), L"Einfügen Kopieren ");
        list->SendMessage(WM_COMMAND, 1028);
        EXPECT_EQ(text(kEnglish) + text(kGerman), L"Door Gate 3");
        EXPECT_TRUE(VEK::regWrite(kStore, L"de", L"other")); // by another program, meanwhile
        list->SendMessage(WM_COMMAND, 1028);
        EXPECT_EQ(text(kGerman) + text(kEnglish), L"otherDoor Gate 3");
        ::RegDeleteKeyW(HKEY_CURRENT_USER, kStore);
        EXPECT_EQ(menu(), L"Kopieren ");
        list->SendMessage(WM_COMMAND, 1028);
        EXPECT_EQ(text(kGerman) + text(kEnglish), L"otherDoor Gate 3");
        clickButton(dialog, IDCANCEL);
    };
    EXPECT_EQ(open(false, label, single), IDCANCEL);
    EXPECT_STREQ(label, L"\\de:Tür");
}

/// The first application reads the file of texts from a pipe, and dies there.
TEST_F(LabelDialog, ImportsTheKeyThatIsSelectedInTheTextApplication)
{
    constexpr wchar_t kPipe[] = L"\\\\.\\pipe\\vek label test";
    const HANDLE pipe = ::CreateNamedPipeW(kPipe, PIPE_ACCESS_OUTBOUND, PIPE_TYPE_BYTE, 1, 100, 100, 0, nullptr);
    const auto import = [&](CVekLabelEdit& dialog) {
        std::thread death([&] {
            ::ConnectNamedPipe(pipe, nullptr);
            text_application::kill(text_application::processes().at(0));
        });
        user.box(L"Verbindung zur Textanwendung abgebrochen");
        clickButton(dialog, 1086);
        death.join();
        dialog.m_msgFile = m_file.c_str();
        user.box(L"Kein Text ausgewählt");
        clickButton(dialog, 1086); // starts another one
        IVekMsgDlg texts = running();
        EXPECT_TRUE(texts.SearchKey(L"B"));
        user.box(L"Mehzeilige");
        clickButton(dialog, 1086);
        EXPECT_EQ(text(kEnglish), L"Door");
        EXPECT_TRUE(texts.SearchKey(L"A"));
        clickButton(dialog, 1086);
        EXPECT_EQ(text(kEnglish) + text(kGerman), L"Höhe ≥");
        clickButton(dialog, IDOK);
    };
    EXPECT_EQ(open(false, L"Door", import, kPipe), IDOK);
    EXPECT_STREQ(label, L"\\de:Höhe ≥\\pl:Wysokość");
    ::CloseHandle(pipe);
}

} // namespace
