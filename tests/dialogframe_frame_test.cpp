// What dialogs do without a window: places, texts, fields, language, paths, icon, stack.
#include <vek/data/config.h>
#include <vek/data/text.h>
#include <vek/dialogframe.h>
#include <vek/values/system.h>

#include <gtest/gtest.h>

#include <random>

namespace
{

using VEK::DlgPosition;
using VEK::DlgRect;

int draw(std::mt19937& random, int from, int to)
{
    return std::uniform_int_distribution<int>(from, to)(random);
}

TEST(DlgPlace, IsPulledBackByWhatHangsOver)
{
    std::mt19937 random(1);
    int seen[2][2] = {};
    for (int i = 0; i < 20000; ++i) {
        const int extent = i % 3 == 0 ? 70000 : 2000, edge[] = {draw(random, 1, extent), draw(random, 1, extent)};
        DlgRect rect = {draw(random, -extent, extent), draw(random, -extent, extent), 0, 0};
        rect.right = rect.left + draw(random, 0, extent);
        rect.bottom = rect.top + draw(random, 0, extent);
        const DlgRect back = VEK::dlgRectOf(VEK::dlgPositionOf(rect, edge[0], edge[1]));
        const int ways[2][5] = {{rect.left, rect.right, edge[0], back.left, back.right},
                                {rect.top, rect.bottom, edge[1], back.top, back.bottom}};
        for (const auto& [from, to, most, backFrom, backTo] : ways) { // words of 16 bits, the place by cases
            ++seen[from < 0][to > most];
            ASSERT_EQ(backFrom, static_cast<std::uint16_t>((from < 0 ? 0 : from) - (to > most ? to - most : 0)));
            ASSERT_EQ(backTo - backFrom, static_cast<std::uint16_t>(to - from));
        }
    }
    EXPECT_GT(std::min({seen[0][0], seen[0][1], seen[1][0], seen[1][1]}), 1000);
    const int least = std::numeric_limits<int>::min(), most = std::numeric_limits<int>::max();
    EXPECT_EQ(VEK::dlgPositionOf({least, most, most, most}, least, least).pos & 0xFFFF, 1u) << "no overflow";
}

TEST(DlgPlace, IsStoredUnderTheTitle)
{
    EXPECT_STREQ(VEK::dlgPositionKey(L"Title"), L"Software\\OSTWERK\\VEK\\Dialogs\\Title");
    EXPECT_STREQ(VEK::dlgPositionKey(nullptr), L"Software\\OSTWERK\\VEK\\Dialogs\\");
    const wchar_t* half = L"VekTest half";
    ASSERT_TRUE(VEK::regWrite(VEK::dlgPositionKey(half), L"Pos", 0x00070005ul));
    DlgRect rect = {1, 2, 3, 4};
    EXPECT_FALSE(VEK::dlgPositionRead(rect, half));
    EXPECT_EQ(rect, (DlgRect{5, 7, 3, 4})) << "the place without the size";
    EXPECT_FALSE(VEK::dlgPositionRead(rect, L"VekTest nowhere"));
    ASSERT_TRUE(VEK::dlgPositionWrite({0xFFFFFFFF, 0x00020001}, L"VekTest whole"));
    EXPECT_TRUE(VEK::dlgPositionRead(rect, L"VekTest whole"));
    EXPECT_EQ(rect, (DlgRect{65535, 65535, 65536, 65537}));
}

/// A dialog with some controls, which writes down what is done to it.
class Notebook : public VEK::TextControls
{
public:
    std::wstring log;
    int left = 1000; ///< how many texts are set before the dialog ends

    bool exists() override { return left > 0; }
    bool has(unsigned id) override { return id != 7; }
    const wchar_t* message(const wchar_t* key, const wchar_t* builtIn) override
    {
        log += std::wstring(L"?") + key + L"," + (builtIn ? builtIn : L"none") + L" ";
        return std::wcscmp(key, L"NULL") == 0 ? nullptr : builtIn ? L"text" : L"first";
    }
    void setText(unsigned id, const wchar_t* text) override
    {
        log += std::to_wstring(id) + L"=" + text + L" ";
        --left;
    }
    void showMissing(const wchar_t* text) override { log += std::wstring(L"missing") + text + L" "; }
};

TEST(DlgTexts, AreReplacedInOrder)
{
    const CVekArrayTempl<VEK::ControlText> texts = {{3, L"A", true, L"a"},
                                                    {7, L"GONE", true, L"x"},
                                                    {2, L"B", false, L""},
                                                    {4, L"NULL", true, L"n"},
                                                    {5, L"C", true, L""}};
    const std::pair<int, const wchar_t*> cases[] = {
        // how many texts are set before the dialog ends
        {9, L"?A,a 3=text ?B,none ?B,first 2=text ?NULL,n ?C, 5=text "},
        {-9, L"?A,[a] 3=text missing\nSetDlgItemText failed:\nDlgID = 7\nKEY = 'GONE' "
             L"?B,none ?B,[first] 2=text ?NULL,[n] ?C,[] 5=text "},
        {-1, L"?A,[a] 3=text "}};
    for (const auto& [left, log] : cases) { // negative: under a debugger
        Notebook controls;
        controls.left = std::abs(left);
        VEK::replaceTexts(texts, controls, left < 0);
        EXPECT_EQ(controls.log, log);
    }
}

/// Siblings numbered from 1.
class Row : public VEK::Siblings
{
public:
    std::vector<bool> fields;
    mutable std::size_t steps = 0;

    static const void* at(std::size_t index) { return reinterpret_cast<const void*>(index + 1); }
    std::size_t of(const void* window) const { return ++steps, reinterpret_cast<std::size_t>(window) - 1; }
    const void* next(const void* w) const override { return of(w) + 1 < fields.size() ? at(of(w) + 1) : nullptr; }
    const void* previous(const void* w) const override { return of(w) > 0 ? at(of(w) - 1) : nullptr; }
    bool isField(const void* w) const override { return fields[of(w)]; }
};

TEST(FieldChain, LeadsToTheNextAndTheFirstField)
{
    std::mt19937 random(2);
    int judged = 0, found = 0, wrapped = 0;
    for (int i = 0; i < 3000; ++i) {
        Row row;
        const std::size_t count = static_cast<std::size_t>(draw(random, 1, 9));
        std::size_t first = count; // of the fields
        for (std::size_t k = 0; k < count; ++k) {
            row.fields.push_back(draw(random, 0, 2) == 0);
            first = first == count && row.fields[k] ? k : first;
        }
        for (std::size_t from = 0; from < count; ++from, ++judged) {
            const void* next = nullptr; // around the ring, which the last one does not enter
            for (std::size_t step = 1; step < count && from + 1 < count && !next; ++step)
                next = row.fields[(from + step) % count] ? Row::at((from + step) % count) : nullptr;
            ASSERT_EQ(VEK::nextField(row, Row::at(from)), next);
            ASSERT_EQ(VEK::firstField(row, Row::at(from)), from > 0 && first < count ? Row::at(first) : nullptr);
            found += next != nullptr;
            wrapped += next && next < Row::at(from);
        }
    }
    EXPECT_TRUE(judged > 10000 && found > 5000 && wrapped > 1000);
    Row many;
    many.fields.resize(100000);
    EXPECT_EQ(VEK::nextField(many, Row::at(99998)), nullptr);
    EXPECT_LT(many.steps, 1000000u) << "each sibling a few times";
}

TEST(FieldChain, KnowsFields)
{
    for (unsigned bits = 0; bits < 64; ++bits) {
        const bool visible = bits & 1, enabled = bits & 2, edit = bits & 4, box = bits & 8;
        const unsigned long style = bits >> 4; // 1 simple, 2 drop down, 3 drop down list
        const bool expected = visible && enabled && (edit || (box && (style == 0 || style == 2)));
        EXPECT_EQ(VEK::isField({visible, enabled, edit, box, style | 0x50010000}), expected) << bits;
    }
}

/// Parents with their languages, null for one of another class.
class Above : public VEK::DlgParents
{
public:
    std::vector<const wchar_t*> languages;
    int asked = -1;

    bool up() override { return ++asked < static_cast<int>(languages.size()); }
    const wchar_t* language() override { return languages[static_cast<std::size_t>(asked)]; }
};

TEST(DlgLanguage, IsOwnElseOfTheSameClassElseOfTheProcess)
{
    const struct {
        const wchar_t* own;
        std::vector<const wchar_t*> languages;
        const wchar_t* expected;
    } cases[] = {{L"pl", {L"fr"}, L"pl"},
                 {L"", {nullptr, L"fr", L"en"}, L"fr"},
                 {nullptr, {nullptr, L"", L"en"}, L""}, // whatever the nearest one has
                 {nullptr, {nullptr, nullptr}, L"cs"},
                 {L"", {}, L"cs"}};
    const CVekString before = VEK::msgLangSet(L"cs");
    for (const auto& each : cases) {
        Above above;
        above.languages = each.languages;
        EXPECT_STREQ(VEK::dlgLanguage(each.own, above), each.expected);
    }
    VEK::msgLangSet(before);
}

TEST(DlgPaths, AreCleanedAndSplit)
{
    const wchar_t* const paths[][4] = {
        // cleaned, then split
        {L"C:/Projekt/vek.chm", L"C:\\Projekt\\vek.chm", L"C:/Projekt/", L"vek.chm"},
        {L"C:\\Projekt/", L"C:\\Projekt", L"C:\\Projekt/", L""},
        {L"C:", L"C:\\", L"C:", L""},
        {L"C:/", L"C:\\", L"C:/", L""},
        {L"C:vek", L"C:vek", L"C:", L"vek"},
        {L"//server/share/", L"\\\\server\\share", L"//server/share/", L""},
        {L"https://a/<topic>.html", L"https:\\\\a\\<topic>.html", L"https://a/", L"<topic>.html"},
        {L"a\\\\", L"a\\", L"a\\\\", L""},
        {L"/", L"\\", L"/", L""},
        {L":", L":", L"", L":"},
        {nullptr, L"", L"", L""}};
    CVekString folder, name;
    for (const auto& [path, clean, before, behind] : paths) {
        EXPECT_STREQ(VEK::folderStart(path), clean);
        VEK::pathSplit(path, folder, name);
        EXPECT_STREQ(folder, before);
        EXPECT_STREQ(name, behind);
    }
    const CVekString endless = CVekString(std::wstring(100000, L'd').c_str()) + L"/x";
    folder = endless;
    VEK::pathSplit(folder, name, folder);
    EXPECT_TRUE(name + folder == endless && folder == L"x") << "the source is a target";
}

TEST(AppIcon, GoesByTheApplication)
{
    VEK::CCfgBackup backup(true);
    backup.attach(L"*APPL*");
    VEK::cfgMgrPtr()->tree()->remove(L"*APPL*");
    EXPECT_EQ(VEK::appIconId(), 2000);
    const CVekDataKey key(CVekDataKey::keyText, L"*APPL*", 0);
    const std::pair<const wchar_t*, int> rows[] = {
        {L"nrd", 2007}, {L"NRD", 2007}, {L"mra", 2000}, {L"NRD2", 2000}, {L"", 2000}};
    for (const auto& [application, icon] : rows) {
        ASSERT_TRUE(VEK::cfgSet(&key, application));
        EXPECT_EQ(VEK::appIconId(), icon);
    }
}

TEST(DlgStack, GivesTheLastAndNullWhenEmpty)
{
    for (int again = 0; again < 2; ++again) {
        for (std::size_t i = 0; i < 100; ++i)
            VEK::dlgStackPush(reinterpret_cast<HWND__*>(i));
        for (std::size_t i = 100; i-- > 0;)
            EXPECT_EQ(VEK::dlgStackPop(), reinterpret_cast<HWND__*>(i));
        EXPECT_TRUE(!VEK::dlgStackPop() && !VEK::dlgStackPop());
    }
}

} // namespace
