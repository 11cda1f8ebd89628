#include "details.h"
#include "slide_bytes.h"
#include "test_folder.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <set>

using namespace slide_test;
namespace fs = std::filesystem;

namespace
{

struct Entry {
    std::string name;
    std::uint32_t offset;
};

/// A library with that directory, its end mark and `rest` more bytes.
Bytes library(const std::vector<Entry>& entries, std::size_t rest, bool endMark = true)
{
    Bytes bytes(32, 'h');
    for (const Entry& entry : entries) {
        Bytes name(entry.name.begin(), entry.name.end());
        name.resize(32);
        bytes.insert(bytes.end(), name.begin(), name.end());
        for (int shift = 0; shift < 32; shift += 8)
            bytes.push_back(static_cast<unsigned char>(entry.offset >> shift));
    }
    bytes.resize(bytes.size() + (endMark ? 36 : 0) + rest);
    return bytes;
}

bool find(const Bytes& bytes, const wchar_t* name, VEK::SlideEntry* found = nullptr)
{
    VEK::SlideEntry entry;
    const bool is = VEK::slideFind(entry, bytes, bytes.size(), name);
    if (found)
        *found = entry;
    return is;
}

std::string textOf(const Bytes& bytes)
{
    return std::string(bytes.begin(), bytes.end());
}

} // namespace

TEST(SlideLibrary, NamesAndWhereTheirSlidesAre)
{
    const std::string full(32, 'n');
    const Bytes bytes =
        library({{"D\xC4mmpaneel", 220}, {full, 230}, {"next", 235}, {"?", 238}, {"", 240}, {"BEHIND", 250}}, 100);
    const std::wstring longest(32, L'N');
    struct Case {
        std::wstring name;
        std::uintmax_t begin, end; ///< 0 when it is not found
    };
    const Case cases[] = {
        {L"d\u00E4MMPANEEL", 220, 230},
        {L"d\u00E4mm", 0, 0},
        {L"dammpaneel", 0, 0},
        {longest, 230, 235},
        {longest + L"and more", 230, 235},
        {longest.substr(1), 0, 0},
        {L"next", 235, 238},
        {L"?", 238, bytes.size()},
        {L"\u0141", 0, 0}, // not in the code page
        {L"", 0, 0},
        {L"BEHIND", 0, 0}, // the empty name
    };
    for (const Case& c : cases) {
        VEK::SlideEntry entry;
        EXPECT_EQ(find(bytes, c.name.c_str(), &entry), c.end > 0);
        EXPECT_TRUE(c.end == 0 || (entry.begin == c.begin && entry.end == c.end)) << entry.begin << ' ' << entry.end;
    }
    EXPECT_FALSE(find(bytes, nullptr));
    VEK::SlideEntry entry;
    for (const Bytes& none : {library({}, 100), Bytes(), Bytes(31)})
        EXPECT_FALSE(VEK::slideEntry(entry, none, none.size(), 0));
}

TEST(SlideLibrary, OffsetsThatLeadAstrayAreNotFound)
{
    const auto size = static_cast<std::uint32_t>(library({{"A", 0}, {"B", 0}}, 100).size());
    struct {
        std::uint32_t a, b;
        bool hasA, hasB;
    } const cases[] = {
        {160, 150, false, true},         // backwards
        {160, 0xFFFFFFFF, false, false}, // up to somewhere outside
        {160, size + 1, false, false},
        {160, size, true, true}, // at the end: a slide of no bytes
        {32, 40, true, true},    // at the directory itself: garbage, but there
    };
    for (const auto& c : cases) {
        const Bytes bytes = library({{"A", c.a}, {"B", c.b}}, 100);
        EXPECT_EQ(find(bytes, L"A"), c.hasA) << c.b;
        EXPECT_EQ(find(bytes, L"B"), c.hasB) << c.b;
    }
    // The first entry of a name counts, readable or not.
    EXPECT_FALSE(find(library({{"A", 0xFFFFFF}, {"A", 150}}, 100), L"A"));
}

TEST(SlideLibrary, DirectoryWithoutEndStopsAtTheEndOfTheFile)
{
    const Bytes bytes = library({{"A", 40}, {"B", 50}}, 20, false);
    EXPECT_TRUE(find(bytes, L"B"));
    EXPECT_FALSE(find(bytes, L"C"));
    for (std::size_t length = 0; length < bytes.size(); ++length)
        find(Bytes(bytes.begin(), bytes.begin() + static_cast<std::ptrdiff_t>(length)), L"C");
}

TEST(SlideLoad, ReadsOneSlideOfALibraryOrAWholeFile)
{
    Bytes bytes = library({{"A", 140}, {"B", 150}}, 100);
    bytes[140] = 'a';
    bytes[150] = 'b';
    const TestFolder own(L"slides");
    const std::wstring path = own.save(L"a.slb", textOf(bytes)), absent = path + L"x", folder = own.name(L"."),
                       largePath = own.save(L"large.slb", textOf(bytes));
    fs::resize_file(own / L"large.slb", VEK::kSlideFileLimit + 1);
    struct {
        const wchar_t *name, *library;
        Bytes expected;
    } const cases[] = {{L"a", path.c_str(), Bytes(bytes.begin() + 140, bytes.begin() + 150)},
                       {L"b", path.c_str(), Bytes(bytes.begin() + 150, bytes.end())},
                       {path.c_str(), nullptr, bytes},
                       {L"c", path.c_str(), {}},
                       {nullptr, path.c_str(), {}},
                       {L"a", L"", {}},
                       {L"a", absent.c_str(), {}},
                       {folder.c_str(), nullptr, {}},
                       {L"a", largePath.c_str(), {}}};
    for (const auto& c : cases) {
        std::vector<unsigned char> slide(1);
        EXPECT_EQ(VEK::slideLoad(slide, c.name, c.library), !c.expected.empty()) << &c - cases;
        EXPECT_EQ(slide, c.expected) << &c - cases;
    }
}

TEST(SlideLoad, ReadsADirectoryOfAnyLength)
{
    // Longer than what is read of the file at first, and in a second piece the wanted name.
    std::vector<Entry> entries;
    for (int i = 0; i < 3000; ++i)
        entries.push_back({"N" + std::to_string(i), static_cast<std::uint32_t>(32 + 3001 * 36 + 7 * i)});
    const TestFolder own(L"slides");
    const std::wstring file = own.save(L"a.slb", textOf(library(entries, 3000 * 7)));
    std::vector<unsigned char> slide;
    for (const wchar_t* name : {L"N0", L"N453", L"N454", L"N2999"}) {
        ASSERT_TRUE(VEK::slideLoad(slide, name, file.c_str())) << name;
        EXPECT_EQ(slide.size(), 7u);
    }
    EXPECT_FALSE(VEK::slideLoad(slide, L"N3000", file.c_str()));
    CVekArrayTempl<CVekString> names;
    names.append(L"before");
    EXPECT_TRUE(VEK::slideNames(names, file.c_str()));
    ASSERT_EQ(names.len(), 3000);
    for (int i = 0; i < 3000; ++i)
        EXPECT_EQ(names[i], (L"N" + std::to_wstring(i)).c_str());
    for (const wchar_t* none : {static_cast<const wchar_t*>(nullptr), L"", L"no such file"})
        EXPECT_FALSE(VEK::slideNames(names, none));
    EXPECT_EQ(names.len(), 0);
}

TEST(ExampleSlides, AreWhatTheirDrawingsGive)
{
    const auto files = slides::exampleFiles();
    EXPECT_GE(files.size(), 4u);
    for (const auto& [name, bytes] : files) {
        std::string file;
        EXPECT_TRUE(VEK::platform::readFile(fs::path(VEK_SOURCE_DIR) / "examples" / name, file));
        EXPECT_TRUE(file == textOf(bytes)) << name << " is not what make_slides writes";
    }
}
