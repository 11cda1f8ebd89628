// Hatch pattern files.
#include "test_folder.h"

#include <vek/host.h>

#include <gtest/gtest.h>

#include <regex>
#include <string>
#include <vector>

namespace
{

struct Outcome {
    bool good = false;
    CVekArrayTempl<VEK::CHatchPattern> patterns;
    CVekString error;
};

Outcome read(const std::string& text)
{
    Outcome outcome;
    outcome.good = VEK::hatchPatternsRead(outcome.patterns, text.data(), text.size(), L"x.pat", outcome.error);
    return outcome;
}

std::vector<double> numbers(const CVekArrayTempl<double>& family)
{
    return {family.begin(), family.end()};
}

std::wstring wide(const CVekString& text)
{
    return static_cast<const wchar_t*>(text);
}

TEST(DataPattern, ReadsWhatFilesHold)
{
    const Outcome outcome = read("\xEF\xBB\xBF;; a file\r\n\r\n"
                                 "*ONE, Glas; au\xC3\x9F"
                                 "en, klar\r\n"
                                 "45, 0,0, 0,.125\r\n"
                                 "; between families\r\n"
                                 "  -30.5 ,+1e1, -.5,\t2.,-3 , -1.5,0,2 ; behind values\r\n"
                                 "*Two;no comma\r"
                                 "0,0,0,0,1\n"
                                 "*THREE,W\xE4rme\n"
                                 "90,0,0,0,1");
    EXPECT_TRUE(outcome.good) << wide(outcome.error).c_str();
    ASSERT_EQ(outcome.patterns.len(), 3);
    EXPECT_TRUE(outcome.patterns[0].name == L"ONE" && outcome.patterns[1].name == L"Two");
    EXPECT_EQ(outcome.patterns[0].description, L"Glas; au\x00DF"
                                               L"en, klar");
    ASSERT_EQ(outcome.patterns[0].lines.len(), 2);
    EXPECT_EQ(numbers(outcome.patterns[0].lines[0]), (std::vector<double>{45, 0, 0, 0, 0.125}));
    EXPECT_EQ(numbers(outcome.patterns[0].lines[1]), (std::vector<double>{-30.5, 10, -0.5, 2, -3, -1.5, 0, 2}));
    EXPECT_EQ(outcome.patterns[1].description, L"");
    EXPECT_EQ(outcome.patterns[2].description, L"W\x00E4rme"); // not UTF-8
    EXPECT_TRUE(read("").good);
    EXPECT_TRUE(read("*A\n0,0,0,0,1\n\x1Awhatever follows").good);
}

TEST(DataPattern, WrongLinesAreNamedAndWhatStandsBeforeStays)
{
    const std::string before = "*GOOD\n0,0,0,0,1\n";
    const std::pair<const char*, const wchar_t*> cases[] = {
        {"*BAD\n0,0,zero,0,1\n", L"x.pat:4: \"zero\" is no number"},
        {"*BAD\n0,0,1.2.3,0,1\n", L"x.pat:4: \"1.2.3\" is no number"},
        {"*BAD\n0,0,nan,0,1\n", L"x.pat:4: \"nan\" is no number"},
        {"*BAD\n0,0,1e999,0,1\n", L"x.pat:4: \"1e999\" is no number"},
        {"*BAD\n0,0,+-1,0,1\n", L"x.pat:4: \"+-1\" is no number"},
        {"*BAD\n0,0,,0,1\n", L"x.pat:4: a value is missing"},
        {"*BAD\n0,0,0,0,1,\n", L"x.pat:4: a value is missing"},
        {"*BAD\n\n0,0,0,1\n", L"x.pat:5: a family of lines needs 5 numbers or more"},
        {"*BAD\n;\n*NEXT\n0,0,0,0,1\n", L"x.pat:3: the pattern has no lines"},
        {"*BAD, at the end", L"x.pat:3: the pattern has no lines"},
        {" * , nameless\n0,0,0,0,1\n", L"x.pat:3: a pattern without a name"}};
    for (const std::string end : {"\n", "\r\n", "\r"}) {
        for (const auto& [text, error] : cases) {
            const Outcome outcome = read(std::regex_replace(before + text, std::regex("\n"), end));
            EXPECT_EQ(wide(outcome.error), error) << text;
            EXPECT_TRUE(!outcome.good && outcome.patterns.len() == 1 && outcome.patterns[0].name == L"GOOD") << text;
        }
    }
    EXPECT_EQ(wide(read("0,0,0,0,1\n*A\n0,0,0,0,1").error), L"x.pat:1: a family of lines before the first pattern");
}

TEST(DataPattern, ManyFamiliesAndManyDashes)
{
    std::string text = "*MANY\n";
    for (int i = 0; i < 531; ++i)
        text += std::to_string(i) + ",0,0,0,1,.5,-.5\n";
    text += "*LONG\n0,0,0,0,1";
    for (int i = 0; i < 1000000; ++i)
        text += ",1";
    const Outcome outcome = read(text);
    ASSERT_EQ(outcome.patterns.len(), 2);
    EXPECT_EQ(outcome.patterns[0].lines.len(), 531);
    EXPECT_EQ(outcome.patterns[0].lines[530][0], 530.0);
    EXPECT_EQ(outcome.patterns[1].lines[0].len(), 1000005);
}

TEST(DataPattern, LocalAppTakesFiles)
{
    const TestFolder folder(L"patterns");
    const std::wstring path =
        folder.save(L"a.pat", "*Steel\n45,0,0,0,1\n*Tin\n0,0,0,0,2\n*STEEL\n30,0,0,0,3\n*Bad\nx\n");
    CVekLocalApp app;
    VekPatternLines old;
    old[0][0] = 7.0;
    app.hatchPatternSet(L"TIN", old);
    app.hatchPatternSet(L"BAD", old);
    CVekString error;
    EXPECT_FALSE(app.hatchPatternFile(path.c_str(), error));
    EXPECT_EQ(wide(error), path + L":8: \"x\" is no number");
    VekPatternLines lines;
    for (const auto& [name, at, number] : {std::tuple(L"steel", 0, 30.0), {L"Tin", 4, 2.0}, {L"Bad", 0, 7.0}}) {
        app.hatchPatternGet(name, lines);
        EXPECT_EQ(lines[0][at], number);
    }
    std::filesystem::remove(folder / L"a.pat");
    EXPECT_FALSE(app.hatchPatternFile(path.c_str(), error));
    EXPECT_EQ(wide(error), path + L": the file cannot be read");
    EXPECT_FALSE(app.hatchPatternFile(nullptr, error));
}

} // namespace
