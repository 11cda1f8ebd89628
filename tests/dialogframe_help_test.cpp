#include <vek/data/config.h>
#include <vek/dialogframe/help.h>

#include "core/platform/outside.h"

#include <gtest/gtest.h>

#include <fstream>
#include <optional>

namespace
{

using VEK::HelpKind, VEK::HelpPlan, VEK::platform::OutsideCall;
using What = OutsideCall::What;
using Calls = std::vector<OutsideCall>;

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
    Calls taken() { return std::exchange(m_calls, {}); }

    const std::filesystem::path m_folder = std::filesystem::temp_directory_path() / "vek help test";
    /// The folder in an address, without the slash that begins it in some systems.
    const std::wstring m_address = [this] {
        const std::wstring path = m_folder.generic_wstring();
        return path.substr(path[0] == L'/');
    }();
    Calls m_calls;
    VEK::CCfgBackup m_backup{true};
};

/// A location is a dialog's help file and tells of its topic; without one the text itself names book and topic.
TEST_F(Help, OpensTopicsOfDialogsAndBooks)
{
    const std::wstring folder = L"file:///" + m_address, page = folder + L"/<topic>.html",
                       chm = (m_folder / L"vek.chm").wstring();
    set(L"*HELP*", L"Vek", L"https://h/a/de/<topic>");
    set(L"*HELP*", L"Short", L"http:<topic>");
    set(L"*HELP*", L"Local", page);
    set(L"*HELP*", L"File", L"missing.chm");
    const auto document = [](const std::wstring& target) { return Calls{{What::document, target}}; };
    const auto keyword = [](const std::wstring& file, const wchar_t* topic) {
        return Calls{{What::helpTopic, file}, {What::helpKeyword, file, topic}};
    };
    const std::wstring above = L"file:/" + m_address.substr(0, m_address.rfind(L'/'));
    constexpr std::nullopt_t book = std::nullopt;
    const struct {
        const wchar_t *id, *topic;
        std::optional<std::wstring> location;
        Calls calls; ///< empty: a dialog asks for the file, and there is no such book
    } cases[] = {
        {L"", L"A", L"http://x/<topic>/<topic>", document(L"http://x/A/A")},
        {L"", L"A", L"HTTPS:x", document(L"HTTPS:x")},
        {L"mra", L"~_~", L"https:<topic>", document(L"https:MRA_MRA")},
        {L"", L"~_\\~", L"https:<topic>", document(L"https:VEK_\\VEK")},
        {L"", L"", L"https:<topic>", document(L"https:")},
        {L"vek", L"~_A", page, document(folder + L"/VEK_A.html")},
        {L"", L"VEK_A", L"FILE" + page.substr(4), document(L"FILE" + folder.substr(4) + L"/VEK_A.html")},
        {L"", L"B", page, document(folder + L"/index.html")},
        {L"", L"B", L"file:<topic>", document(L"file:index")},
        {L"nrd", L"~A", chm, keyword(chm, L"NRDA")},
        {L"", L"<topic>", chm, keyword(chm, L"<topic>")},
        {L"", L"A", L"http", {}},
        {L"", L"A", L"", {}},
        {L"", L"A", (m_folder / L"other.chm").wstring(), {}},
        {L"", L"A", book, document(L"https://h/a/de/A")},
        {L"", L"\\A\\", book, document(L"https://h/a/de/\\A\\")},
        {L"", L"", book, document(L"https://h/a/de/")},
        {L"", L"~", book, document(L"https://h/a/de/~")},
        {L"mra", L"~~", book, document(L"https://h/a/de/mramra")},
        {L"Short", L"~\\A", book, document(L"http:A")},
        {L"", L"\\Short\\\\B\\C", book, document(L"http:B")},
        {L"", L"Vek\\INDEX", book, document(L"https://h/a/INDEX")},
        {L"", L"Short\\index", book, document(L"http:index")},
        {L"", L"Local\\VEK_A", book, document(folder + L"/VEK_A.html")},
        {L"", L"Local\\B", book, document(folder + L"/index.html")},
        {L"", L"Local\\Index", book, document(above + L"/index.html")},
        {L"", L"File\\A", book, keyword(L"missing.chm", L"A")},
        {L"", L"File\\index", book, keyword(L"missing.chm", L"index")},
        {L"", L"None\\A", book, {}},
    };
    for (const auto& c : cases) {
        SCOPED_TRACE(testing::PrintToString(c.topic));
        VEK::CCfgBackup backup(true);
        backup.attach(L"*APPL*");
        if (*c.id)
            set(L"*APPL*", nullptr, c.id);
        HelpPlan plan;
        ASSERT_TRUE(!c.location || VEK::helpPlanOfDialog(plan, c.location->c_str(), c.topic));
        EXPECT_EQ(c.location ? VEK::helpOpen(plan) : VEK::help(c.topic), !c.calls.empty());
        EXPECT_EQ(taken(), c.calls);
        if (!c.location || !c.calls.empty())
            continue;
        plan.target = L"chosen.chm";
        plan.isTested = false;
        EXPECT_TRUE(VEK::helpOpen(plan));
        EXPECT_EQ(taken(), keyword(L"chosen.chm", L"A"));
    }
    HelpPlan plan;
    EXPECT_TRUE(VEK::helpPlanOfDialog(plan, nullptr, nullptr));
    EXPECT_FALSE(VEK::helpOpen(plan)) << "without help and topic";
}

} // namespace
