#include <vek/values/string.h>

#include <gtest/gtest.h>
#include <random>
#include <string>

TEST(String, OfNullOrNothingIsTheEmptyText)
{
    CVekString assigned = L"abc";
    assigned = static_cast<const wchar_t*>(nullptr);
    for (const CVekString& text :
         {assigned, CVekString(), CVekString(L""), CVekString(static_cast<const wchar_t*>(nullptr))})
        EXPECT_TRUE(text.isNull() && text.len() == 0 && *text == L'\0' && text[0] == L'\0');
    EXPECT_EQ(CVekString(L"ab\0cd", 5).len(), 2);
}

TEST(String, JoinsAlsoWithPartsOfItself)
{
    CVekString text = L"ab";
    text += text;
    text += static_cast<const wchar_t*>(text) + 3;
    EXPECT_STREQ(text, L"ababb");
    text = static_cast<const wchar_t*>(text) + 2;
    EXPECT_STREQ(text, L"abb");
    EXPECT_STREQ(L"<" + text + L'>' + L"!" + CVekString(L"?"), L"<abb>!?");
    CVekString built = text = *&text;
    std::wstring expected = L"abb";
    std::mt19937 random(5);
    for (int i = 0; i < 2000; ++i) {
        const std::wstring piece(random() % 20, static_cast<wchar_t>(L'a' + i % 26));
        built += piece.c_str();
        expected += piece;
    }
    EXPECT_STREQ(built, expected.c_str());
    EXPECT_EQ(built.len(), static_cast<int>(expected.size()));
}

TEST(String, WritesInPlaceAndEndsAtTheFirstTerminator)
{
    CVekString text = L"abcdef";
    text.setAt(1, L'X');
    text.setAt(6, L'Y');
    text.setAt(-1, L'Y');
    EXPECT_STREQ(text, L"aXcdef");
    text.setAt(3, L'\0');
    EXPECT_EQ(text.len(), 3);

    wchar_t* buffer = text.GetBuffer(10);
    EXPECT_STREQ(buffer, L"aXc");
    std::wcscpy(buffer, L"0123456789");
    EXPECT_EQ(text.len(), 10);
    buffer = text.GetBuffer(4);
    buffer[4] = L'\0';
    EXPECT_EQ(text.len(), 4);
    EXPECT_STREQ(text + L"!", L"0123!");
}

TEST(String, FindsAndCutsBesideThePlainText)
{
    const std::wstring plain = L"abcabc";
    const CVekString text = plain.c_str();
    for (int start = -1; start <= 8; ++start) {
        const auto at = static_cast<std::size_t>(start);
        for (const wchar_t* what : {L"bc", L"", L"a", L"abcabcd"})
            EXPECT_EQ(text.find(what, start), start < 0 ? -1 : static_cast<int>(plain.find(what, at))) << start;
        EXPECT_EQ(text.find(L'c', start), start < 0 ? -1 : static_cast<int>(plain.find(L'c', at))) << start;
        for (const unsigned count : {0u, 1u, 3u, 99u, ~0u})
            EXPECT_STREQ(text.mid(static_cast<unsigned>(start), count), at > 6 ? L"" : plain.substr(at, count).c_str());
        EXPECT_STREQ(text.right(static_cast<unsigned>(start)), plain.substr(at < 6 ? 6 - at : 0).c_str());
    }
    EXPECT_EQ(text.find(static_cast<const wchar_t*>(nullptr)), -1);
    EXPECT_EQ(text.find(L'\0'), -1);
    EXPECT_EQ(CVekString().find(L'a'), -1);
}

TEST(String, ReplacesAllHitsAndNoneInsideAReplacement)
{
    CVekString text = L"aaa";
    EXPECT_TRUE(text.replace(L"a", L"aa") == 3 && text == L"aaaaaa");
    EXPECT_TRUE(text.replace(L"aaaa", L"b") == 1 && text == L"baa");
    EXPECT_TRUE(text.replace(L"a", nullptr) == 2 && text == L"b");
    EXPECT_TRUE(text.replace(L"", L"x") == 0 && text.replace(nullptr, L"x") == 0 && text == L"b");
    text = L"1.2.3";
    EXPECT_TRUE(text.replace(L'.', L',') == 2 && text.replace(L',', L',') == 0 && text == L"1,2,3");
    EXPECT_TRUE(text.replace(L',', L'\0') == 1 && text == L"1");
}

TEST(String, ChangesRegardsAndIgnoresCase)
{
    CVekString text = L"aZ9 äÖß éŁ ωЖ";
    text.makeUpper();
    EXPECT_STREQ(text, L"AZ9 ÄÖß ÉŁ ΩЖ");
    text.makeLower();
    EXPECT_STREQ(text, L"az9 äöß éł ωж");
    const CVekString a = L"Abc", b = L"abc";
    EXPECT_TRUE(a < b && b > a && a != b && a == L"Abc" && a != L"abc" && a < L"abc" && b > L"Abc");
    EXPECT_FALSE(a < a || a > a || a != a);
    EXPECT_EQ(CVekString(L"Straße ÄÖÜ").compareNoCase(L"STRAßE äöü"), 0);
    EXPECT_LT(CVekString(L"ab").compareNoCase(L"AC"), 0);
    EXPECT_GT(CVekString(L"abc").compareNoCase(L"AB"), 0);
    EXPECT_GT(CVekString(L"a").compareNoCase(nullptr), 0);
}

TEST(StringFormat, TakesWideTextInEveryBuild)
{
    CVekString text;
    text.format(L"%s|%ls|%hs|%c|%5s|%-4s|%.2s", L"Maß €", L"wide", "narrow", L'Ω', L"r", L"l", L"cut");
    EXPECT_STREQ(text, L"Maß €|wide|narrow|Ω|    r|l   |cu");
    text.format(L"%d %5.2f %x %% %*d %ld %05u", -3, 2.5, 255, 4, 7, 8L, 42u);
    EXPECT_STREQ(text, L"-3  2.50 ff %    7 8 00042");
    text.format(L"100%%s");
    EXPECT_STREQ(text, L"100%s");
}

TEST(StringFormat, TakesTheTextItselfAndLongOnes)
{
    CVekString text = L"in";
    text.format(L"<%s|%s>", static_cast<const wchar_t*>(text), static_cast<const wchar_t*>(text));
    EXPECT_STREQ(text, L"<in|in>");
    text.format(L"[%s]", std::wstring(100000, L'x').c_str());
    EXPECT_TRUE(text.len() == 100002 && text[100001] == L']');
    text.format(nullptr);
    EXPECT_TRUE(text.isNull());
}

TEST(StringEscape, BecomesTheCharacter)
{
    const std::pair<const wchar_t*, const wchar_t*> cases[] = {
        {L"\\U+00E4\\u20ac", L"ä€"},
        {L"Ma\\U+00dfe", L"Maße"},
        {L"\\u12G4 \\U00E4", L"\\u12G4 \\U00E4"},
        {L"\\u20A", L"\\u20A"},
        {L"\\u0000x", L"\\u0000x"},
        {L"a\\\\u00E4", L"a\\ä"},
        {L"\\uD83D\\uDE00", L"\U0001F600"},
        {L"\\uD83D\\U+DE00!", L"\U0001F600!"},
    };
    for (const auto& [escaped, plain] : cases) {
        CVekString text = escaped;
        text.unEscapeWideChar();
        EXPECT_STREQ(text, plain);
    }
}

TEST(StringTokens, KeepOrDropEmptyParts)
{
    CVekArrayTempl<CVekString> parts;
    const auto joined = [&](const wchar_t* text, const wchar_t* delimiters, bool keepEmpty) {
        const bool any = VEK::strTok(parts, text, delimiters, keepEmpty);
        EXPECT_EQ(any, parts.len() > 0);
        return VEK::implode(parts, L"|");
    };
    EXPECT_STREQ(joined(L"a;b,c", L";,", false), L"a|b|c");
    EXPECT_STREQ(joined(L";a;;b;", L";", false), L"a|b");
    EXPECT_STREQ(joined(L";a;;b;", L";", true), L"|a||b|");
    EXPECT_EQ(parts.len(), 5);
    EXPECT_STREQ(joined(L"abc", nullptr, true), L"abc");
    for (const auto& [text, keep, count] : {std::tuple(L";;", false, 0), {L"", true, 1}, {nullptr, true, 0}}) {
        joined(text, L";", keep);
        EXPECT_EQ(parts.len(), count);
    }
    joined(L"C:\\x", L"\\", true);
    VEK::strTok(parts, parts[0], L":", false); // a part of the very list
    EXPECT_STREQ(VEK::implode(parts, nullptr), L"C");
}

TEST(StringUtf8, GoesBothWays)
{
    const wchar_t* text = L"aß€\U0001F600";
    CVekArrayTempl<char> bytes = VEK::toUtf8(text);
    EXPECT_EQ(std::string(bytes.begin(), bytes.end()), "a\xC3\x9F\xE2\x82\xAC\xF0\x9F\x98\x80");
    EXPECT_STREQ(VEK::fromUtf8(bytes.begin(), static_cast<unsigned>(bytes.len())), text);
    EXPECT_EQ(VEK::toUtf8(nullptr).len(), 0);
    EXPECT_TRUE(VEK::fromUtf8(nullptr, 5).isNull());
}

TEST(StringUtf8, ReplacesWhatIsNotValid)
{
    const std::pair<std::string, const wchar_t*> cases[] = {
        {"a\xFFz", L"a\uFFFDz"},         {"\xC3", L"\uFFFD"},           {"\xC3x", L"\uFFFDx"},
        {"\x80z", L"\uFFFDz"},           {"\xC0\xAF", L"\uFFFD\uFFFD"}, {"\xED\xA0\x80", L"\uFFFD"},
        {"\xF4\x90\x80\x80", L"\uFFFD"},
    };
    for (const auto& [bytes, text] : cases)
        EXPECT_STREQ(VEK::fromUtf8(bytes.data(), static_cast<unsigned>(bytes.size())), text);
    const wchar_t lone[] = {L'a', static_cast<wchar_t>(0xD800), L'z', L'\0'};
    const CVekArrayTempl<char> bytes = VEK::toUtf8(lone);
    EXPECT_EQ(std::string(bytes.begin(), bytes.end()), "a\xEF\xBF\xBDz");
}
