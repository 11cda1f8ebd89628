#include <vek/data/config.h>
#include <vek/dialogframe/help.h>

#include "core/platform/outside.h"

#include <gtest/gtest.h>

#include <fstream>

namespace
{

using VEK::HelpKind, VEK::HelpPlan, VEK::platform::OutsideCall;
using What = OutsideCall::What;

/// Records what is to be opened; a help file of the book and a local page stand in a folder of their own.
class Help : public testing::Test
{
protected:
    void SetUp() override
    {
        m_backup.attach(nullptr);
        std::filesystem::create_directories(m_folder);
        for (const char* name : {"VEK_A.html", "vek.chm"})
            std::ofstream(m_folder / name) << "x";
        VEK::platform::outsideHookSet([this](const OutsideCall& call) {
            m_calls.push_back(call);
            return false; // not looked at
        });
    }
    void TearDown() override
    {
        VEK::platform::outsideHookSet({});
        std::filesystem::remove_all(m_folder);
    }

    static void set(const wchar_t* name, const wchar_t* inside, const std::wstring& value)
    {
        const CVekDataKey key(5005, name, inside ? 5005 : 0, inside ? inside : L"", 0);
        ASSERT_TRUE(VEK::cfgSet(&key, value.c_str()));
    }
    std::vector<OutsideCall> taken() { return std::exchange(m_calls, {}); }

    const std::filesystem::path m_folder = std::filesystem::temp_directory_path() / "vek help test";
    /// The folder in an address, without the slash that begins it in some systems.
    const std::wstring m_address = [this] {
        const std::wstring path = m_folder.generic_wstring();
        return path.substr(path[0] == L'/');
    }();
    std::vector<OutsideCall> m_calls;
    VEK::CCfgBackup m_backup{true};
};

TEST_F(Help, OpensADialogsTopic)
{
    const std::wstring page = L"file:///" + m_address + L"/<topic>.html", chm = (m_folder / L"vek.chm").wstring();
    const auto local = [&](const wchar_t* topic) { return L"file:///" + m_address + L"/" + topic + L".html"; };
    const struct {
        std::wstring location, id, topic;
        std::vector<OutsideCall> calls; ///< empty: asks for the file
    } cases[] = {
        {L"http://x/<topic>/<topic>", L"", L"A", {{What::document, L"http://x/A/A"}}},
        {L"HTTPS:x", L"", L"A", {{What::document, L"HTTPS:x"}}},
        {L"https:<topic>", L"mra", L"~_~", {{What::document, L"https:MRA_MRA"}}},
        {L"https:<topic>", L"", L"~_\\~", {{What::document, L"https:VEK_\\VEK"}}},
        {L"https:<topic>", L"", L"", {{What::document, L"https:"}}},
        {page, L"vek", L"~_A", {{What::document, local(L"VEK_A")}}},
        {L"FILE" + page.substr(4), L"", L"VEK_A", {{What::document, L"FILE" + local(L"VEK_A").substr(4)}}},
        {page, L"", L"B", {{What::document, local(L"index")}}},
        {L"file:<topic>", L"", L"B", {{What::document, L"file:index"}}},
        {chm, L"nrd", L"~A", {{What::helpTopic, chm}, {What::helpKeyword, chm, L"NRDA"}}},
        {chm, L"", L"<topic>", {{What::helpTopic, chm}, {What::helpKeyword, chm, L"<topic>"}}},
        {L"http", L"", L"A", {}},
        {L"", L"", L"A", {}},
        {(m_folder / L"other.chm").wstring(), L"", L"A", {}},
    };
    for (const auto& c : cases) {
        VEK::CCfgBackup backup(true);
        backup.attach(L"*APPL*");
        if (!c.id.empty())
            set(L"*APPL*", nullptr, c.id);
        HelpPlan plan;
        ASSERT_TRUE(VEK::helpPlanOfDialog(plan, c.location.c_str(), c.topic.c_str()));
        EXPECT_EQ(VEK::helpOpen(plan), !c.calls.empty()) << testing::PrintToString(c.location);
        EXPECT_EQ(taken(), c.calls);
        if (!c.calls.empty())
            continue;
        plan.target = L"chosen.chm";
        plan.isTested = false;
        EXPECT_TRUE(VEK::helpOpen(plan));
        EXPECT_EQ(taken(), (std::vector<OutsideCall>{{What::helpTopic, L"chosen.chm"},
                                                     {What::helpKeyword, L"chosen.chm", L"A"}}));
    }
    HelpPlan plan;
    EXPECT_TRUE(VEK::helpPlanOfDialog(plan, nullptr, nullptr));
    EXPECT_FALSE(VEK::helpOpen(plan)) << "without help and topic";
}

TEST_F(Help, OpensABooksTopic)
{
    const std::wstring folder = L"file:///" + m_address;
    set(L"*HELP*", L"Vek", L"https://h/a/de/<topic>");
    set(L"*HELP*", L"Short", L"http:<topic>");
    set(L"*HELP*", L"Local", folder + L"/<topic>.html");
    set(L"*HELP*", L"File", L"missing.chm");
    const struct {
        std::wstring id, text;
        std::vector<OutsideCall> calls; ///< empty: there is no such book
    } cases[] = {
        {L"", L"A", {{What::document, L"https://h/a/de/A"}}},
        {L"", L"\\A\\", {{What::document, L"https://h/a/de/\\A\\"}}},
        {L"", L"", {{What::document, L"https://h/a/de/"}}},
        {L"", L"~", {{What::document, L"https://h/a/de/~"}}},
        {L"mra", L"~~", {{What::document, L"https://h/a/de/mramra"}}},
        {L"Short", L"~\\A", {{What::document, L"http:A"}}},
        {L"", L"\\Short\\\\B\\C", {{What::document, L"http:B"}}},
        {L"", L"Vek\\INDEX", {{What::document, L"https://h/a/INDEX"}}},
        {L"", L"Short\\index", {{What::document, L"http:index"}}},
        {L"", L"Local\\VEK_A", {{What::document, folder + L"/VEK_A.html"}}},
        {L"", L"Local\\B", {{What::document, folder + L"/index.html"}}},
        {L"",
         L"Local\\Index",
         {{What::document, L"file:/" + m_address.substr(0, m_address.rfind(L'/')) + L"/index.html"}}},
        {L"", L"File\\A", {{What::helpTopic, L"missing.chm"}, {What::helpKeyword, L"missing.chm", L"A"}}},
        {L"", L"File\\index", {{What::helpTopic, L"missing.chm"}, {What::helpKeyword, L"missing.chm", L"index"}}},
        {L"", L"None\\A", {}},
    };
    for (const auto& c : cases) {
        VEK::CCfgBackup backup(true);
        backup.attach(L"*APPL*");
        if (!c.id.empty())
            set(L"*APPL*", nullptr, c.id);
        EXPECT_EQ(VEK::help(c.text.c_str()), !c.calls.empty());
        EXPECT_EQ(taken(), c.calls) << testing::PrintToString(c.text);
    }
}

} // namespace
