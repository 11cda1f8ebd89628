// Every dialog opened again and again: what it leaves behind, and on request how long it takes to be seen.
#include "window/free_handles.h"

#include <hole_dialog.h>
#include <toolkit/user.h>
#include <vek/data.h>
#include <vek/dialogs.h>
#include <vek/json.h>

#include <gtest/gtest.h>

#include <algorithm>
#include <cstdlib>
#include <functional>
#include <iostream>
#include <vector>

namespace
{

/// Cancels each dialog as soon as all of it is painted, and notes when that was.
class Watch : public toolkit::User
{
public:
    Watch() : m_before(toolkit::userSet(this)) {}
    ~Watch() override { toolkit::userSet(m_before); }

    LARGE_INTEGER painted = {};
    int dialogs = 0;

private:
    int messageBox(HWND, LPCWSTR text, LPCWSTR, UINT) override
    {
        ADD_FAILURE() << testing::PrintToString(std::wstring(text));
        return IDCANCEL;
    }
    bool chooseFile(OPENFILENAMEW&, bool) override { return false; }
    LPITEMIDLIST chooseFolder(BROWSEINFOW&) override { return nullptr; }
    bool dialogOpens(CDialog&) override { return ++dialogs > 0; }
    void dialogWaits(CDialog& dialog) override
    {
        ::RedrawWindow(dialog, nullptr, nullptr, RDW_UPDATENOW | RDW_ALLCHILDREN);
        ::GdiFlush();
        ::QueryPerformanceCounter(&painted);
        dialog.EndDialog(IDCANCEL);
    }
    void dialogEnded(CDialog&, INT_PTR) override {}

    toolkit::User* m_before;
};

struct Handles {
    int gdi = control_test::freeHandles(), user = control_test::freeUserHandles(),
        kernel = control_test::kernelHandles();
    bool operator==(const Handles&) const = default;
    friend std::ostream& operator<<(std::ostream& out, const Handles& it)
    {
        return out << it.gdi << " GDI and " << it.user << " USER handles free, " << it.kernel << " kernel handles";
    }
};

TEST(DialogsOpening, LeavesNoHandles)
{
    const char* const asked = std::getenv("VEK_OPENINGS"); // so many openings, with their times
    const int rounds = asked ? std::max(std::atoi(asked), 1) : 20;
    CVekString error;
    VEK::CCfgBackup backup(true);
    backup.attach(nullptr);
    ASSERT_TRUE(VEK::jsonLoad(*VEK::cfgMgrPtr()->tree(), VEK_SOURCE_DIR L"/examples/materials.json", error));
    ASSERT_TRUE(VEK::textsLoad(VEK_SOURCE_DIR L"/examples/texts.json", error));
    CVekLocalApp host;
    holeDialogEnter(host);
    vekAppSet(&host);
    const auto callBack = CVekDlg::SetMsgCallBack(&VEK::msgCallBack);
    VEK::outlineData outline;
    CVekDataItem library(CVekDataItem::directory), holes;
    CVekString label, material(L"GLASS"), active;
    const VEK::DlgEnv_st environment;
    const struct {
        const char* name;
        std::function<void()> open;
    } dialogs[] = {
        {"information", [] { CAboutboxDlg().DoModal(); }},
        {"outline", [&] { VEK::dlgOutline(environment, outline, &library); }},
        {"filter", [] { CDlgFilterOutline().DoModal(); }},
        {"material", [&] { VEK::dlgMatTree(VEK::DlgEnvMatTree_st(), material); }},
        {"unit", [&] { VEK::dlgUnits(environment, Vek::unitMillimetre); }},
        {"label", [&] { VEK::dlgLabelEdit(environment, label, 1, L"\\de:a\nb", L"de", nullptr); }},
        {"hole pattern", [&] { VEK::dlgBgr(environment, active, &holes, nullptr); }},
    };
    Watch watch;
    for (const auto& dialog : dialogs) { // the system keeps something of the first ones
        dialog.open();
        dialog.open();
    }
    LARGE_INTEGER frequency, entry;
    ::QueryPerformanceFrequency(&frequency);
    const Handles before;
    for (const auto& dialog : dialogs) {
        std::vector<LONGLONG> times;
        for (int i = 0; i < rounds; ++i) {
            ::QueryPerformanceCounter(&entry);
            dialog.open();
            times.push_back((watch.painted.QuadPart - entry.QuadPart) * 1000000 / frequency.QuadPart);
        }
        if (!asked)
            continue;
        EXPECT_EQ(Handles(), before) << dialog.name;
        std::sort(times.begin(), times.end());
        std::cout << dialog.name << ": painted after " << times[times.size() / 2] << " us, the slowest after "
                  << times.back() << '\n';
    }
    EXPECT_EQ(Handles(), before) << "VEK_OPENINGS=20 in the environment tells which dialog";
    EXPECT_EQ(watch.dialogs, 7 * (rounds + 2));
    CVekDlg::SetMsgCallBack(callBack);
    vekAppSet(nullptr);
}

} // namespace
