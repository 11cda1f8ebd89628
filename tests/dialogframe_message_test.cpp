#include <vek/data/config.h>
#include <vek/data/text.h>
#include <vek/dialogframe/message.h>

#include <gtest/gtest.h>

#include <deque>
#include <map>
#include <random>

namespace
{

class Messages : public testing::Test
{
protected:
    void SetUp() override
    {
        m_backup.attach(L"*MSG*");
        for (const auto& [place, text] : m_texts) {
            const CVekDataKey key(5005, L"*MSG*", 5005, L"VEK_", 5005, place.first.c_str(), 5005, place.second.c_str(),
                                  0);
            ASSERT_TRUE(VEK::cfgSet(&key, text.c_str()));
        }
    }

    const std::map<std::pair<std::wstring, std::wstring>, std::wstring> m_texts = {
        {{L"de", L"K0"}, L"Höhe"},
        {{L"pl", L"K0"}, L"Wysokość"},
        {{L"pl", L"K1"}, L""},
        {{L"de", L"K2"}, L"..."},
        {{L"pl", L"K2"}, std::wstring(100000, L'x')},
    };
    VEK::CCfgBackup m_backup{true};
};

/// Parts joined by backslashes, split by hand.
TEST_F(Messages, AreDecoratedAndStayForSevenCalls)
{
    std::mt19937 random(63);
    const std::wstring parts[] = {L"", L"K0", L"K1", L"K2", L"K9", L"...", L"a b", std::wstring(100000, L'y')};
    const wchar_t* languages[] = {nullptr, L"", L"de", L"PL", L"xx", L"00"};
    std::deque<std::pair<const wchar_t*, std::wstring>> held;
    int decorated = 0, translated = 0;
    for (int i = 0; i < 3000; ++i) {
        const std::size_t count = 1 + random() % 5;
        std::wstring key, split[5];
        for (std::size_t n = 0; n < count; ++n) {
            split[n] = parts[random() % std::size(parts)];
            key += (n > 0 ? L"\\" : L"") + split[n];
        }
        const wchar_t* language = languages[random() % std::size(languages)];
        const std::wstring place = language == nullptr || *language == 0 ? L"de" : *language == L'P' ? L"pl" : language;
        const wchar_t* builtIn = random() % 4 ? L"eingebaut" : nullptr;
        const auto found = m_texts.find({place, count == 3 ? split[1] : key});
        std::wstring expected = found != m_texts.end() ? found->second : builtIn ? builtIn : L"";
        if (count == 3)
            expected = split[0] + expected + split[2];
        held.emplace_back(VEK::msgCallBack(key.c_str(), builtIn, language), expected);
        if (held.size() > 8)
            held.pop_front();
        for (const auto& [text, copy] : held)
            ASSERT_TRUE(text == copy) << "call " << i;
        decorated += count == 3;
        translated += found != m_texts.end();
    }
    EXPECT_GT(decorated, 500);
    EXPECT_GT(translated, 200);
}

TEST_F(Messages, UseEightBuffersInTurn)
{
    for (int i = 0; i < 8; ++i)
        VEK::msgCallBack(L"K2", L"", L"pl");
    const wchar_t* texts[9];
    for (int i = 0; i < 9; ++i)
        texts[i] = VEK::msgCallBack(L"none", std::to_wstring(i).c_str(), nullptr);
    for (int i = 0; i < 9; ++i)
        EXPECT_EQ(*texts[i], L'0' + (i == 0 ? 8 : i)) << "the first pointer holds the ninth text";

    const wchar_t* own = L"\\K0\\...";
    EXPECT_EQ(VEK::msgCallBack(own, L"Filter", L"0"), own) << "the key itself, as it is";
    EXPECT_EQ(VEK::msgCallBack(nullptr, L"Filter", L"0"), nullptr);
    EXPECT_STREQ(texts[1], L"1") << "a call that shows the key takes a place too, and leaves it alone";
    EXPECT_STREQ(VEK::msgCallBack(own, L"Filter", nullptr), L"Höhe...");
    EXPECT_STREQ(texts[3], L"Höhe...");
    for (int i = 0; i < 7; ++i)
        VEK::msgCallBack(L"none", L"", nullptr);
    EXPECT_STREQ(VEK::msgCallBack(L"none", texts[3], nullptr), L"Höhe...") << "a text that the call itself replaces";
    EXPECT_STREQ(VEK::msgCallBack(nullptr, nullptr, nullptr), L"");
}

} // namespace
