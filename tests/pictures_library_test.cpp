#include "core/platform/platform.h"
#include "details.h"
#include "slide_bytes.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <filesystem>
#include <fstream>
#include <iterator>
#include <map>
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

/// A file that is gone when the test is over.
class TempFile
{
public:
    explicit TempFile(const Bytes& bytes)
        : m_path(fs::temp_directory_path() /
                 VEK::platform::pathOf(L"vek \u00C4 " + std::to_wstring(++s_count) + L".slb"))
    {
        std::ofstream(m_path, std::ios::binary)
            .write(reinterpret_cast<const char*>(bytes.data()), static_cast<std::streamsize>(bytes.size()));
    }
    TempFile(const TempFile&) = delete;
    TempFile& operator=(const TempFile&) = delete;
    ~TempFile()
    {
        std::error_code error;
        fs::remove(m_path, error);
    }

    const fs::path& path() const { return m_path; }
    std::wstring name() const { return VEK::platform::textOf(m_path); }

private:
    static inline int s_count = 0;
    fs::path m_path;
};

Bytes contents(const fs::path& path)
{
    std::ifstream in(path, std::ios::binary);
    return Bytes((std::istreambuf_iterator<char>(in)), std::istreambuf_iterator<char>());
}

/// Counts the records of a slide by kind, by the layout alone: 'V', 'E', 'O', 'C', 'F' and 'X' for the end mark.
std::map<char, int> recordKinds(const Bytes& slide)
{
    const bool big = slide[18] == 2 && slide[29] == 0x12;
    std::size_t at = slide[18] == 2 ? 31 : 34;
    std::map<char, int> kinds;
    while (at + 1 < slide.size() && !kinds['X']) {
        const int op = slide[at + (big ? 0 : 1)];
        const bool isFill = op == 0xFD;
        const char kind = op < 0x80 ? 'V' : op == 0xFE ? 'E' : op == 0xFB ? 'O' : op == 0xFF ? 'C' : isFill ? 'F' : 'X';
        at += op < 0x80 ? 8 : op == 0xFE ? 3 : op == 0xFB ? 5 : isFill ? 6 : 2;
        ++kinds[kind];
    }
    EXPECT_EQ(at, slide.size());
    return kinds;
}

} // namespace

TEST(SlideLibrary, ReachesFromOffsetToOffset)
{
    const Bytes bytes = library({{"ONE", 140}, {"TWO", 150}}, 100);
    VEK::SlideEntry entry;
    ASSERT_TRUE(find(bytes, L"ONE", &entry));
    EXPECT_EQ(entry.begin, 140u);
    EXPECT_EQ(entry.end, 150u);
    ASSERT_TRUE(find(bytes, L"TWO", &entry));
    EXPECT_EQ(entry.begin, 150u);
    EXPECT_EQ(entry.end, bytes.size());
    EXPECT_FALSE(find(bytes, L"THREE"));
    EXPECT_FALSE(find(bytes, L""));
    EXPECT_FALSE(find(bytes, nullptr));
}

TEST(SlideLibrary, NamesAreFoundWithoutRegardToCase)
{
    const Bytes bytes = library({{"D\xC4mmpaneel", 140}, {"?", 150}}, 100);
    EXPECT_TRUE(find(bytes, L"d\u00E4MMPANEEL"));
    EXPECT_TRUE(find(bytes, L"?"));
    EXPECT_FALSE(find(bytes, L"\u0141")); // not in the code page
    EXPECT_FALSE(find(bytes, L"d\u00E4mm"));
    EXPECT_FALSE(find(bytes, L"dammpaneel"));
    VEK::SlideEntry entry;
    ASSERT_TRUE(VEK::slideEntry(entry, bytes, bytes.size(), 0));
    EXPECT_EQ(VEK::slideName(entry.name), L"D\u00C4mmpaneel");
}

TEST(SlideLibrary, NamesHaveThirtyTwoBytes)
{
    const std::string full(32, 'n');
    const Bytes bytes = library({{full, 140}, {"next", 150}}, 100);
    EXPECT_TRUE(find(bytes, std::wstring(32, L'N').c_str()));
    EXPECT_TRUE(find(bytes, (std::wstring(32, L'N') + L"and more").c_str()));
    EXPECT_FALSE(find(bytes, std::wstring(31, L'N').c_str()));
    EXPECT_TRUE(find(bytes, L"next"));
}

TEST(SlideLibrary, EmptyNameEndsTheDirectory)
{
    EXPECT_FALSE(find(library({{"", 140}, {"BEHIND", 150}}, 100), L"BEHIND"));
    VEK::SlideEntry entry;
    EXPECT_FALSE(VEK::slideEntry(entry, library({}, 100), 168, 0));
    EXPECT_FALSE(VEK::slideEntry(entry, {}, 0, 0));
    EXPECT_FALSE(VEK::slideEntry(entry, Bytes(31), 31, 0));
}

TEST(SlideLibrary, OffsetsThatLeadAstrayAreNotFound)
{
    const std::size_t size = library({{"A", 0}, {"B", 0}}, 100).size();
    const auto entries = [](std::uint32_t a, std::uint32_t b) { return library({{"A", a}, {"B", b}}, 100); };
    EXPECT_FALSE(find(entries(160, 150), L"A")); // backwards
    EXPECT_TRUE(find(entries(160, 150), L"B"));
    EXPECT_FALSE(find(entries(160, 0xFFFFFFFF), L"A")); // up to somewhere outside
    EXPECT_FALSE(find(entries(160, 0xFFFFFFFF), L"B"));
    EXPECT_FALSE(find(entries(160, static_cast<std::uint32_t>(size + 1)), L"B"));
    EXPECT_TRUE(find(entries(160, static_cast<std::uint32_t>(size)), L"B")); // at the end: a slide of no bytes
    EXPECT_TRUE(find(entries(32, 40), L"A")); // at the directory itself: garbage, but there

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
    const TempFile file(bytes);
    std::vector<unsigned char> slide;
    ASSERT_TRUE(VEK::slideLoad(slide, L"a", file.name().c_str()));
    EXPECT_EQ(slide, Bytes(bytes.begin() + 140, bytes.begin() + 150));
    ASSERT_TRUE(VEK::slideLoad(slide, L"b", file.name().c_str()));
    EXPECT_EQ(slide, Bytes(bytes.begin() + 150, bytes.end()));
    ASSERT_TRUE(VEK::slideLoad(slide, file.name().c_str(), nullptr));
    EXPECT_EQ(slide, bytes);

    EXPECT_FALSE(VEK::slideLoad(slide, L"c", file.name().c_str()));
    EXPECT_TRUE(slide.empty());
    EXPECT_FALSE(VEK::slideLoad(slide, nullptr, file.name().c_str()));
    EXPECT_FALSE(VEK::slideLoad(slide, L"a", L""));
    EXPECT_FALSE(VEK::slideLoad(slide, L"a", (file.name() + L"x").c_str()));
    EXPECT_FALSE(VEK::slideLoad(slide, VEK::platform::textOf(fs::temp_directory_path()).c_str(), nullptr));
}

TEST(SlideLoad, ReadsADirectoryOfAnyLength)
{
    // Longer than what is read of the file at first, and in a second piece the wanted name.
    std::vector<Entry> entries;
    for (int i = 0; i < 3000; ++i)
        entries.push_back({"N" + std::to_string(i), static_cast<std::uint32_t>(32 + 3001 * 36 + 7 * i)});
    const TempFile file(library(entries, 3000 * 7));
    std::vector<unsigned char> slide;
    for (const wchar_t* name : {L"N0", L"N453", L"N454", L"N2999"}) {
        ASSERT_TRUE(VEK::slideLoad(slide, name, file.name().c_str())) << name;
        EXPECT_EQ(slide.size(), 7u);
    }
    EXPECT_FALSE(VEK::slideLoad(slide, L"N3000", file.name().c_str()));
}

TEST(SlideLoad, RefusesAFileThatIsTooLarge)
{
    const TempFile file(library({{"A", 70}}, 100));
    fs::resize_file(file.path(), VEK::kSlideFileLimit + 1);
    std::vector<unsigned char> slide;
    EXPECT_FALSE(VEK::slideLoad(slide, L"A", file.name().c_str()));
}

TEST(ExampleSlides, AreWhatTheirDrawingsGive)
{
    const fs::path folder = fs::path(VEK_SOURCE_DIR) / "examples";
    const auto files = slides::exampleFiles();
    EXPECT_GE(files.size(), 4u);
    for (const auto& [name, bytes] : files)
        EXPECT_TRUE(contents(folder / name) == bytes) << name << " is not what make_slides writes";
}

TEST(ExampleSlides, UseEveryFormAndRecord)
{
    const Bytes bytes = contents(fs::path(VEK_SOURCE_DIR) / "examples" / "facade.slb");
    std::map<char, int> kinds;
    std::set<std::string> formats;
    VEK::SlideEntry entry;
    std::size_t count = 0;
    for (; VEK::slideEntry(entry, bytes, bytes.size(), count); ++count) {
        ASSERT_TRUE(entry.readable) << entry.name;
        const Bytes slide(bytes.begin() + static_cast<std::ptrdiff_t>(entry.begin),
                          bytes.begin() + static_cast<std::ptrdiff_t>(entry.end));
        formats.insert(slide[18] == 1 ? "old" : slide[29] == 0x34 ? "little" : "big");
        for (const auto& [kind, times] : recordKinds(slide))
            kinds[kind] += times;
    }
    EXPECT_GE(count, 8u);
    EXPECT_EQ(formats.size(), 3u);
    for (const char kind : {'V', 'E', 'O', 'C', 'F'})
        EXPECT_GT(kinds[kind], 20) << kind;
    EXPECT_EQ(kinds['X'], static_cast<int>(count));
}
