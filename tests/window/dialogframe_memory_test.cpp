// Dialogs while the memory ends, for `new`: the run-time system of MinGW does not bear it in its own allocations.
#include "failing_memory.h"
#include "window/dialog_test.h"

namespace
{

/// A dialog with all that it may have.
class Full : public Form
{
public:
    explicit Full(const Template& source) : Form(source)
    {
        fill = [](Form& form) {
            form.m_mapLangKey[1] = L"\\FIRST\\...", form.m_mapLangDef[1] = L"eins";
            form.m_mapLangKey[2] = L"SECOND", form.m_mapLangDef[2] = L"zwei";
            form.m_mapHlpKey[1] = L"HELP", form.m_mapToolTipKey[1] = L"TIP";
        };
    }
    bool hasText(int id, const wchar_t* expected) // needs no memory of its own
    {
        wchar_t text[80] = L"";
        ::GetDlgItemTextW(m_hWnd, id, text, 80);
        return std::wcscmp(text, expected) == 0;
    }
};

class DialogMemory : public DialogTest
{
protected:
    const Template source = Template(WS_POPUP | WS_CAPTION | WS_THICKFRAME | DS_SETFONT, 9, 9, L"VekTest memory")
                                .item(1, L"STATIC", 0, L"template")
                                .item(2, L"EDIT");
};

TEST_F(DialogMemory, EndsWhileADialogOpens)
{
    int opened = 0, refused = 0;
    FailingMemory::forEveryAllocation([&](FailingMemory& memory) {
        const long blocks = FailingMemory::blocks;
        {
            Full dialog(source);
            const bool isOpen = memory.during([&] { return dialog.open(); });
            ++(isOpen ? opened : refused);
            EXPECT_EQ(isOpen, dialog.m_hWnd != nullptr);
            EXPECT_EQ(isOpen, dialog.hasText(1, L"eins...") && dialog.hasText(2, L"zwei"));
        }
        EXPECT_EQ(FailingMemory::blocks, blocks) << "lost";
    });
    EXPECT_GT(opened, 0);
    EXPECT_GT(refused, 10);
}

/// Values do not throw: they count what they miss.
TEST_F(DialogMemory, IsMissedByAValueOfADialog)
{
    for (const bool isLate : {false, true}) {
        Full dialog(source);
        (isLate ? dialog.onStart : dialog.fill) = [](Form&) { VEK::memoryShort(); };
        user.dialog<Full>();
        EXPECT_EQ(dialog.DoModal(), -1);
        EXPECT_FALSE(dialog.open() || dialog.m_hWnd);
    }
    Full dialog(source);
    ASSERT_TRUE(dialog.open());
    static const wchar_t* (*const missing)(const wchar_t*, const wchar_t*, const wchar_t*) =
        [](const wchar_t* key, const wchar_t*, const wchar_t*) { return VEK::memoryShort(), key; };
    CVekDlg::SetMsgCallBack(missing);
    dialog.SetCountry(L"pl");
    EXPECT_TRUE(dialog.hasText(1, L"eins...")) << "it keeps the text that it has";
}

} // namespace
