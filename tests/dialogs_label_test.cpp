// The label dialog without its window: random labels and users against the rules followed on plain texts.
#include <vek/data/label.h>
#include <vek/dialogs/label_rows.h>
#include <vek/values/country.h>

#include <gtest/gtest.h>

#include <map>
#include <random>
#include <regex>
#include <string>
#include <utility>

namespace
{

using Texts = std::map<std::wstring, std::wstring>;

/// A store of labels, and a program that has texts.
struct Other : VEK::LabelStore, VEK::LabelServer {
    bool clear() override { return isOpen && (texts.clear(), true); }
    void write(const wchar_t* language, const wchar_t* text) override { texts[language] = text; }
    bool read(const wchar_t* language, CVekString& text) override
    {
        const auto at = texts.find(language);
        return at != texts.end() && (text = at->second.c_str(), true);
    }
    CVekString selectedKey() override { return answers() ? key.c_str() : L""; }
    CVekString text(const wchar_t*, const wchar_t* language) override
    {
        return answers() ? texts[language].c_str() : L"";
    }
    bool isLost() const override { return calls < 0; }
    bool answers() { return calls >= 0 && --calls >= 0; }
    Texts texts;
    int calls = 1000; ///< until it dies
    std::wstring key;
    bool isOpen = true;
};

std::wstring replaced(const std::wstring& text, const wchar_t* pattern, const wchar_t* with)
{
    return std::regex_replace(text, std::wregex(pattern), with);
}

void expectLabel(const CVekString& label, Texts texts, const wchar_t* pattern, const wchar_t* with)
{
    for (const vek_country_st* each = VEK::dlCountries(); each->id; ++each) {
        CVekString got;
        VEK::label_get(got, label, each->id, false);
        EXPECT_EQ(got, replaced(texts[each->id], pattern, with).c_str());
    }
}

TEST(DialogsLabel, RandomUsersSeeWhatTheRulesTell)
{
    std::mt19937 random(7);
    const auto below = [&](int limit) { return static_cast<int>(random() % static_cast<unsigned>(limit)); };
    const auto text = [&] {
        const wchar_t* parts[] = {L"a", L"Tür", L"\n", L"\\n", L"¶", L"\r", L" ", L"\\", L":"};
        std::wstring result;
        for (int i = below(7); i > 0; --i)
            result += parts[below(9)];
        return result;
    };
    int edited = 0, pasted = 0;
    Other store;
    for (int round = 0; round < 300; ++round) {
        SCOPED_TRACE(round);
        const bool multi = below(2) == 0;
        CVekString label;
        Texts expected;
        if (below(3) == 0)
            label = (expected[L"en"] = L"x" + text()).c_str();
        else
            for (const wchar_t* id : {L"cs", L"de", L"fr"})
                VEK::label_set(label, (expected[id] = text()).c_str(), id);
        VEK::LabelRows rows = VEK::labelRows(label, L"en", multi);
        int most = 1;
        for (int i = 0; i < rows.len(); ++i) {
            std::wstring& row = expected[VEK::dlCountries()[i].id];
            row = multi ? row : replaced(row, L"\n", L" ");
            EXPECT_EQ(rows[i].lineKind, multi && row.find(L'\n') != row.npos);
            if (multi && below(3) == 0) {
                rows[i].text = (row = text()).c_str();
                EXPECT_EQ(VEK::labelFieldText(rows[i].text), replaced(row, L"\n", L"¶").c_str());
                if (below(2) == 0) {
                    VEK::labelRowEdited(rows[i]);
                    row = replaced(row, L"\\\\n|¶", L"\n");
                    EXPECT_EQ(rows[i].lineKind, row.find(L'\n') != row.npos);
                }
                row = rows[i].lineKind ? replaced(row, L"\n", L" ") : row;
                VEK::labelRowToggle(rows[i]);
                ++edited;
            }
            EXPECT_EQ(rows[i].text, row.c_str());
            const std::wstring breaks = replaced(row, L"\n|\\\\n|¶", L"\1");
            most = std::max(most, 1 + static_cast<int>(std::count(breaks.begin(), breaks.end(), L'\1')));
        }
        EXPECT_EQ(VEK::labelRowHeight(rows), 16 * most + 2);
        ASSERT_TRUE(VEK::labelOfRows(label, rows));
        expectLabel(label, expected, L"\r", L"");
        store.isOpen = below(4) > 0;
        const Texts kept = store.isOpen ? expected : store.texts;
        VEK::labelCopy(store, rows);
        CVekString other(L"unchanged");
        if (VEK::labelPaste(store, multi, other) && ++pasted)
            expectLabel(other, kept, L"\\\\n", multi ? L"\n" : L" ");
        else
            EXPECT_TRUE(other == L"unchanged" && store.texts.empty());
    }
    EXPECT_TRUE(edited > 1000 && pasted > 200) << edited << ' ' << pasted;
}

TEST(DialogsLabel, ImportsATextThatFits)
{
    const wchar_t *none = L"VEK_MFC_0010", *lines = L"VEK_MFC_0017", *empty = L"VEK_MFC_0011";
    int asked = 0, all = 0;
    for (int i = 0; i < 32; ++i) {
        const bool multi = i & 1, runs = i & 2, isSelected = i & 4, hasLines = i & 8, hasText = i & 16;
        Other server;
        server.key = isSelected ? L"KEY" : L"";
        server.texts = {{L"0", hasLines ? L"XM" : L"X"}, {L"en", hasText ? L"A\\U+00DF" : L""}};
        const wchar_t* reason = !runs || !isSelected ? none : hasLines && !multi ? lines : hasText ? nullptr : empty;
        do { // it dies in its first call, in its second one, ..., not at all
            server.calls = asked++;
            CVekString label(L"unchanged");
            const VEK::LabelRefusal refusal = VEK::labelImport(runs ? &server : nullptr, multi, label);
            const wchar_t* expected = server.isLost() ? L"VEK_MFC_0019" : reason;
            EXPECT_EQ(CVekString(refusal.key), CVekString(expected)) << i;
            EXPECT_EQ(label, expected ? L"unchanged" : L"\\en:Aß") << i;
        } while (server.isLost());
        all += std::exchange(asked, 0);
    }
    int languages = 0;
    while (VEK::dlCountries()[languages].id)
        ++languages;
    EXPECT_EQ(all, 16 + 8 * 2 + 4 * (2 + languages) + 2 * (3 + languages) + 2 * 3);
}

} // namespace
