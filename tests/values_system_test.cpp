#include <vek/values/system.h>

#include "core/platform/outside.h"
#include "test_folder.h"

#include <chrono>
#include <gtest/gtest.h>
#include <thread>
#include <vector>

namespace fs = std::filesystem;
using namespace VEK;
using namespace std::string_literals;
using What = platform::OutsideCall::What;

namespace
{

constexpr wchar_t kKey[] = L"Software\\OSTWERK\\VekTest";

std::wstring quotedSelf()
{
    return L"\"" + platform::textOf(platform::programPath()) + L"\"";
}

} // namespace

TEST(Case, MapsSingleCharactersOnly)
{
    const std::pair<wchar_t, wchar_t> pairs[] = {{L'a', L'A'}, {L'z', L'Z'}, {L'ä', L'Ä'}, {L'ÿ', L'Ÿ'},
                                                 {L'ł', L'Ł'}, {L'ž', L'Ž'}, {L'σ', L'Σ'}, {L'я', L'Я'},
                                                 {L'ё', L'Ё'}, {L'ԥ', L'Ԥ'}, {L'ẵ', L'Ẵ'}, {L'ⓐ', L'Ⓐ'}};
    for (const auto& [lower, upper] : pairs) {
        for (const wchar_t either : {lower, upper})
            EXPECT_TRUE(platform::upperOf(either) == upper && platform::lowerOf(either) == lower) << int(either);
    }
    for (const wchar_t same : {L'ß', L'1', L'@', L'[', L'`', L'{', L'×', L'÷', L'€', L'\0', L'中'})
        EXPECT_TRUE(platform::upperOf(same) == same && platform::lowerOf(same) == same) << int(same);
    EXPECT_EQ(platform::upperOf(L'ı'), L'I');
    EXPECT_EQ(platform::lowerOf(L'ẞ'), L'ß');
}

TEST(CodePage, Has256CharactersThatComeBack)
{
    std::string all;
    for (int code = 0; code < 256; ++code)
        all += static_cast<char>(code);
    const std::wstring wide = platform::wideOfCodePage1252(all);
    ASSERT_EQ(wide.size(), 256u);
    EXPECT_TRUE(wide[0x80] == L'€' && wide[0x9F] == L'Ÿ' && wide[0xE4] == L'ä');
    EXPECT_EQ(platform::codePage1252Of(wide), all);
    EXPECT_EQ(platform::codePage1252Of(L"Łä–€Ω"), "?\xE4\x96\x80?");
    EXPECT_EQ(platform::systemCodePageOf(L"SLIDE_1"), "SLIDE_1");
    EXPECT_EQ(platform::wideOfSystemCodePage("SLIDE_1"), L"SLIDE_1");
    EXPECT_EQ(platform::systemCodePageOf(L""), "");
}

TEST(File, ReadsBackWhatWasWritten)
{
    const TestFolder folder(L"system");
    const fs::path path = folder / L"größe €.bin";
    std::string read = "before";
    EXPECT_FALSE(platform::readFile(path, read));
    EXPECT_EQ(read, "");
    EXPECT_EQ(platform::textOf(path.filename()), L"größe €.bin");
    for (const std::string& bytes : {std::string("a\0b\r\n\xFF", 6), std::string(1000003, 'x'), std::string()}) {
        ASSERT_TRUE(platform::writeFile(path, bytes) && platform::readFile(path, read));
        EXPECT_EQ(read, bytes);
    }
    for (const fs::path& bad : {folder / L".", folder / L"none" / "x.bin"})
        EXPECT_FALSE(platform::writeFile(bad, "x") || platform::readFile(bad, read));
    EXPECT_EQ(folder.files(), 1) << "nothing is left behind";
}

TEST(File, ReplacesWhatALinkNames)
{
    const TestFolder folder(L"system");
    ASSERT_TRUE(platform::writeFile(folder / L"real", "old"));
    std::error_code error;
    fs::create_symlink(folder / L"real", folder / L"link", error);
    if (error) // not everybody may make links on Windows
        return;
    ASSERT_TRUE(platform::writeFile(folder / L"link", "new"));
    EXPECT_TRUE(fs::is_symlink(folder / L"link"));
    std::string read;
    ASSERT_TRUE(platform::readFile(folder / L"real", read));
    EXPECT_EQ(read, "new");
}

TEST(Settings, ComeBackByKeyAndName)
{
    const wchar_t* texts[] = {L"", L"Maß €", L"a=b [c] 100%25\n\t\\x", L"  blanks  ", L"]"};
    const wchar_t* names[] = {L"", L"Pos", L"with = and [", L"ä%41"};
    for (const wchar_t* name : names) {
        for (const wchar_t* text : texts) {
            CVekString read = L"before";
            ASSERT_TRUE(regWrite(kKey, name, text));
            ASSERT_TRUE(regRead(kKey, name, read));
            EXPECT_STREQ(read, text);
        }
    }
    unsigned long number = 0;
    ASSERT_TRUE(regWrite(L"\\Software\\OSTWERK\\VekTest\\Dialogs\\[1]\\", L"Size", 0xFFFFFFFFul));
    ASSERT_TRUE(regRead(L"SOFTWARE\\ostwerk\\VekTest\\Dialogs\\[1]", L"SIZE", number));
    EXPECT_EQ(number, 0xFFFFFFFFul);
}

TEST(Settings, LeaveTheTargetWhereThereIsNone)
{
    unsigned long number = 17;
    CVekString text = L"before";
    ASSERT_TRUE(regWrite(kKey, L"Text", L"5") && regWrite(kKey, L"Number", 5ul));
    EXPECT_FALSE(regRead(kKey, L"Text", number) || regRead(kKey, L"Number", text) || regRead(kKey, L"None", number));
    EXPECT_FALSE(regRead(L"Software\\OSTWERK\\VekTest\\None", L"Text", text) || regRead(nullptr, L"Text", text));
    EXPECT_FALSE(regWrite(L"", L"Text", L"x") || regWrite(nullptr, L"Text", 1ul));
    EXPECT_TRUE(number == 17u && text == L"before");
    ASSERT_TRUE(regWrite(kKey, L"Text", 6ul)) << "a value may change its type";
    EXPECT_TRUE(regRead(kKey, L"Text", number) && number == 6u);
}

TEST(SettingsThreads, LoseNoValue)
{
    constexpr unsigned long kThreads = 4;
    constexpr unsigned long kRounds = 10;
    std::vector<std::thread> threads;
    for (unsigned long t = 0; t < kThreads; ++t) {
        threads.emplace_back([t] {
            for (unsigned long i = 0; i < kRounds; ++i)
                regWrite(kKey, CVekString().format(L"T%lu", t), i);
        });
    }
    for (std::thread& thread : threads)
        thread.join();
    for (unsigned long t = 0; t < kThreads; ++t) {
        unsigned long value = 0;
        EXPECT_TRUE(regRead(kKey, CVekString().format(L"T%lu", t), value));
        EXPECT_EQ(value, kRounds - 1);
    }
}

TEST(Application, NamesItsKeyAndFiles)
{
    CVekString text = L"VEK";
    EXPECT_TRUE(regAppKey(text, text));
    EXPECT_STREQ(text, L"Software\\OSTWERK\\VEK");
    EXPECT_TRUE(regAppKey(text, nullptr));
    EXPECT_STREQ(text, L"Software\\OSTWERK");
    EXPECT_FALSE(appFileName(text, L"Vek", L"Mfc", L"Dll"));
    const fs::path path = platform::pathOf(static_cast<const wchar_t*>(text));
    EXPECT_EQ(path.filename(), "Vek_2018_20_64_Mfc.dll");
    EXPECT_EQ(path.parent_path(), platform::programPath().parent_path());
    EXPECT_TRUE(fs::is_regular_file(platform::programPath()));
}

TEST(Execute, TakesACommandApart)
{
    const TestFolder folder(L"system");
    const std::wstring program = platform::textOf(folder / L"my program");
    ASSERT_TRUE(platform::writeFile(platform::pathOf(program), ""));
    const std::tuple<std::wstring, std::wstring, std::wstring> cases[] = {
        {L"  tool -a \"b c\" ", L"tool", L"-a \"b c\""},
        {L"\"C:\\a b\\tool.exe\" -x", L"C:\\a b\\tool.exe", L"-x"},
        {L"\"C:\\a b", L"C:\\a b", L""},
        {L"tool", L"tool", L""},
        {program, program, L""},
        {program + L" -x y", program, L"-x y"},
        {L"", L"", L""},
    };
    for (const auto& [text, name, arguments] : cases) {
        const platform::Command command = platform::commandOf(text);
        EXPECT_EQ(command.program, name);
        EXPECT_EQ(command.arguments, arguments);
    }
}

// What the tests below start in a process of its own. In the run of all tests these two do no harm.
TEST(ExecuteChild, LeavesASign)
{
    EXPECT_TRUE(regWrite(kKey, L"Child", 1ul));
}

TEST(ExecuteChild, Sleeps)
{
    if (GTEST_FLAG_GET(filter) == "ExecuteChild.Sleeps")
        std::this_thread::sleep_for(std::chrono::seconds(3));
}

TEST(Execute, RunsAProgramWithItsArguments)
{
    ASSERT_TRUE(regWrite(kKey, L"Child", 0ul));
    const std::wstring command = quotedSelf() + L" \"--gtest_filter=ExecuteChild.LeavesASign\" --gtest_output=";
    EXPECT_TRUE(execute(command.c_str(), 60000, false));
    unsigned long ran = 0;
    EXPECT_TRUE(regRead(kKey, L"Child", ran));
    EXPECT_EQ(ran, 1u);
}

TEST(Execute, WaitsNoLongerThanAllowed)
{
    const std::wstring command = quotedSelf() + L" --gtest_filter=ExecuteChild.Sleeps --gtest_output=";
    const auto begin = std::chrono::steady_clock::now();
    EXPECT_TRUE(execute(command.c_str(), 0, false));
    EXPECT_FALSE(execute(command.c_str(), 200, false));
    EXPECT_LT(std::chrono::steady_clock::now() - begin, std::chrono::milliseconds(2900));
}

TEST(Outside, GoesToTheHookInThePlaceOfTheSystem)
{
    std::vector<platform::OutsideCall> calls;
    bool answer = true;
    const auto before = platform::outsideHookSet([&](const platform::OutsideCall& call) {
        calls.push_back(call);
        return answer;
    });
    EXPECT_FALSE(before);
    EXPECT_TRUE(execute(L"vek-no-such-program -x \"y z\"", 70, false));
    EXPECT_TRUE(execute(L"https://example.org/a b", 0, true));
    answer = false;
    EXPECT_FALSE(execute(L"\"vek no such program\" z", 0, true));
    EXPECT_FALSE(platform::outside({What::helpPopup, L"", L"text", 0, true, 3, -4}));
    EXPECT_FALSE(execute(L" ", 0, true)) << "nothing to ask for";
    EXPECT_TRUE(platform::outsideHookSet({}));
    EXPECT_EQ(calls,
              (std::vector<platform::OutsideCall>{{What::program, L"vek-no-such-program", L"-x \"y z\"", 70, false},
                                                  {What::document, L"https://example.org/a b", L"", 0, true},
                                                  {What::program, L"vek no such program", L"z", 0, true},
                                                  {What::helpPopup, L"", L"text", 0, true, 3, -4}}));
    for (const std::wstring& none : {L"vek-no-such-program -x"s, std::wstring(40000, L'x'), L"  "s})
        EXPECT_FALSE(execute(none.c_str(), 1000, true)) << "the system again";
    EXPECT_FALSE(execute(nullptr, 0, true));
}
