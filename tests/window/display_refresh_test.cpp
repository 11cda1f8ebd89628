// The export on Windows: files that the system writes, and the clipboard.
#include "display_conformance.h"
#include "emf_reader.h"

#include <windows.h>

#include <atomic>
#include <filesystem>
#include <fstream>
#include <map>
#include <set>
#include <sstream>
#include <thread>

namespace display_test
{
namespace
{

std::string bytesOf(const std::filesystem::path& path)
{
    std::ifstream file(path, std::ios::binary);
    return std::string(std::istreambuf_iterator<char>(file), {});
}

/// Every kind of item, with dashes, arcs, holes and wide pens.
Gdx everything()
{
    Gdx gdx = grey();
    addLine(gdx, line(0, 0, 100, 60));
    addLine(gdx, polyline({{{10, 10, 0}, {40, 10, 0}, 0.5}, {{40, 10, 0}, {40, 30, 0}}, {{50, 30, 0}, {60, 30, 0}}}),
            rgb(0x00FF00), kNone, 0, 3);
    gdx.imageVl(path({}), 0, line(0, 50, 100, 50), kRed, kNone, doubles({1, 1, 1}), 0.7, 1, CVekPoint3d());
    for (const unsigned mode : {0u, 2u, 3u, 4u, 8u, 34u, 67u})
        gdx.imagePt(path({}), 0, {5.0 + 10 * mode, 40, 0}, rgb(0x0000FF), kNone, -9.0, mode, CVekPoint3d());
    CVekArrayTempl<CVekVertexArray> region;
    region.append(box(60, 5, 30));
    region.append(box(70, 10, 10));
    addRegion(gdx, itemFill | itemOutline, region, kRed, rgb(0xC0FFEE));
    region[0].move({-55, 0, 0});
    region[1].move({-55, 0, 0});
    gdx.imageReg(path({}), itemHatch | itemOutline, region, kRed, kNone, doubles({}), 1.0, 1, CVekColor(),
                 VEK::CHatchProp(L"_USER", 0.5, 4.0, true), CVekPoint3d());
    CVekMatrix3d up;
    gdx.imageTxt(path({}), 0, L"AO8", kRed, up.setToScaling(8.0, CVekPoint3d::kOrigin), L"", {20, 30, 0},
                 CVekPoint3d());
    return gdx;
}

class Refresh : public testing::Test
{
protected:
    void TearDown() override
    {
        std::error_code ignored;
        std::filesystem::remove(file, ignored);
    }
    const std::filesystem::path file = std::filesystem::temp_directory_path() / "vek_refresh_test.emf";
};

/// What draws in a metafile, one line a record, with the pen and the brush in force.
std::vector<std::string> drawn(const EmfFile& emf)
{
    std::map<int, std::string> objects;
    std::string pen, brush;
    std::vector<std::string> lines;
    for (const EmfFile::Record& record : emf.records) {
        std::string text;
        for (const int word : record.words)
            text += ' ' + std::to_string(word);
        switch (record.type) {
        case 38: objects[record.words[0]] = "pen" + text.substr(text.find(' ', 1)); break;
        case 39: objects[record.words[0]] = "brush" + text.substr(text.find(' ', 1)); break;
        case 37: {
            const std::string object = objects.contains(record.words[0]) ? objects[record.words[0]] : text;
            const bool isPen =
                object.starts_with("pen") || record.words[0] == int(0x80000007) || record.words[0] == int(0x80000008);
            (isPen ? pen : brush) = object;
            break;
        }
        case 27:
        case 54:
        case 87:
        case 90: lines.push_back(std::to_string(record.type) + text + " | " + pen); break;
        case 15:
        case 76: lines.push_back(std::to_string(record.type) + text); break;
        case 42:
        case 43:
        case 86:
        case 91: lines.push_back(std::to_string(record.type) + text + " | " + pen + " | " + brush); break;
        default: break;
        }
    }
    return lines;
}

/// What else stands in a metafile.
std::set<unsigned> others(const EmfFile& emf)
{
    std::set<unsigned> types;
    for (const EmfFile::Record& record : emf.records)
        types.insert(record.type);
    for (const unsigned type : {1, 14, 15, 27, 37, 38, 39, 42, 43, 54, 76, 86, 87, 90, 91})
        types.erase(type);
    return types;
}

/// The words of a line, up to the pen.
std::vector<long> words(const std::string& line)
{
    std::istringstream in(line);
    std::vector<long> result;
    for (long word = 0; in >> word;)
        result.push_back(word);
    return result;
}

/// The colours of the bitmap of a bit block record.
std::vector<unsigned> colors(const std::string& line)
{
    const std::vector<long> w = words(line);
    const auto at = [&](std::size_t byte) { // of the record, whose type and size stand before the words
        return static_cast<unsigned long>(w[1 + (byte - 8) / 4]) >> byte % 4 * 8 & 0xFF;
    };
    const std::size_t header = static_cast<std::size_t>(w[1 + 19]), pixels = static_cast<std::size_t>(w[1 + 21]);
    const long width = w[1 + (header - 8) / 4 + 1], height = w[1 + (header - 8) / 4 + 2];
    const std::size_t size = (at(header + 14) | at(header + 15) << 8) / 8;
    const std::size_t pitch = (static_cast<std::size_t>(width) * size + 3) / 4 * 4;
    std::vector<unsigned> result;
    for (long y = 0; y < height; ++y) {
        for (long x = 0; x < width; ++x) {
            const std::size_t pixel = pixels + static_cast<std::size_t>(y) * pitch + static_cast<std::size_t>(x) * size;
            result.push_back(static_cast<unsigned>(at(pixel) | at(pixel + 1) << 8 | at(pixel + 2) << 16));
        }
    }
    return result;
}

/// Our own writer and the system's give the same records for the same object, but for three differences, all on
/// purpose.
TEST_F(Refresh, OurFileHasTheRecordsOfTheSystems)
{
    Gdx gdx = everything();
    const TestFolder folder(L"refresh");
    using namespace picture_bytes;
    const std::wstring picture =
        folder.save(L"a.bmp", bmp(info(2, 2, 24), hex("00FF00 FF0000 0000 0000FF 0000FF 0000")));
    gdx.imagePicture(path({}), 0, picture.c_str(), -1, {30, 40, 0}, {50, 52, 0});
    ::refresh(&gdx, file.c_str(), 240, 320);
    VEK::CMemorySink sink;
    const auto surface = VEK::emfSurface(sink);
    VEK::gdxDraw(gdx, *surface, 240, 320, VEK::paperRules);
    ASSERT_TRUE(surface->finish());
    const EmfFile theirs(bytesOf(file)), ours(sink.bytes());
    EXPECT_EQ(ours.fault, "");
    EXPECT_EQ(ours.bounds, theirs.bounds);

    // 1. The clip. The system stores each clip as a list of rectangles (75). Ours is a rectangle within a saved context
    // (30, 33, 34), which readers that know no regions understand. Both set the background colour (25) and the fill
    // rule (19). The system deletes objects (40) at the end and has its context saved, too; ours leaves that to the
    // player, as the format allows.
    EXPECT_EQ(others(theirs), (std::set<unsigned>{19, 25, 33, 34, 40, 75}));
    EXPECT_EQ(others(ours), (std::set<unsigned>{19, 25, 30, 33, 34}));

    const std::vector<std::string> a = drawn(theirs), b = drawn(ours);
    std::size_t i = 0, k = 0;
    int figures = 0, pictures = 0;
    for (; i < a.size() && k < b.size(); ++i, ++k) {
        if (a[i] == b[k])
            continue;
        const std::vector<long> theirWords = words(a[i]), ourWords = words(b[k]);
        if (theirWords[0] == 86 && ourWords[0] == 91 && k + 1 < b.size()) {
            // 2. An area with holes (86, Polygon16, with the holes out of the clip) is one figure with holes in ours
            // (91, PolyPolygon16, without pen) and a line around it (87, Polyline16).
            const long count = theirWords[5], polygons = ourWords[5];
            EXPECT_EQ(ourWords[7], count);
            for (long p = 0; p < count; ++p) {
                EXPECT_EQ(ourWords[static_cast<std::size_t>(7 + polygons + p)],
                          theirWords[static_cast<std::size_t>(6 + p)]);
                EXPECT_EQ(words(b[k + 1])[static_cast<std::size_t>(6 + p)],
                          theirWords[static_cast<std::size_t>(6 + p)]);
            }
            EXPECT_EQ(b[k].substr(b[k].rfind('|')), a[i].substr(a[i].rfind('|'))); // the brush
            ++k;
            ++figures;
        } else if (theirWords[0] == 76 && ourWords[0] == 76) {
            // 3. A picture (76, BitBlt) has 24 bits a pixel in ours, which more readers know than 32 with masks. The
            // place, the operation and the colours are the same.
            EXPECT_TRUE(std::equal(theirWords.begin(), theirWords.begin() + 19, ourWords.begin()));
            EXPECT_EQ(colors(a[i]), colors(b[k]));
            EXPECT_EQ(colors(a[i]).size(), 20u * 12u);
            ++pictures;
        } else {
            ADD_FAILURE() << "record " << i << ": " << a[i] << "\nours: " << b[k];
            break;
        }
    }
    EXPECT_EQ(i, a.size());
    EXPECT_EQ(k, b.size());
    EXPECT_GT(a.size(), 50u);
    EXPECT_EQ(figures, 3); // A, O and 8
    EXPECT_EQ(pictures, 1);
}

TEST_F(Refresh, TwiceGivesTheSameFileAndAnUnwritablePathNone)
{
    Gdx gdx = everything();
    ::refresh(&gdx, file.c_str(), 0, 0);
    const std::string first = bytesOf(file);
    ::refresh(&gdx, file.c_str(), 0, 0);
    EXPECT_GT(first.size(), 1000u);
    EXPECT_EQ(bytesOf(file), first);
    const auto nowhere = file / "below" / "a file.emf";
    gdx.viewMtxSet(CVekMatrix3d());
    ::refresh(&gdx, nowhere.c_str(), 0, 0);
    EXPECT_FALSE(std::filesystem::exists(nowhere));
    EXPECT_NE(gdx.viewMtxGet(), CVekMatrix3d()); // sorted and fitted all the same
    ::refresh(nullptr, file.c_str(), 0, 0);
    EXPECT_EQ(bytesOf(file), first);
}

/// The number of records on the clipboard, 0 without a metafile there.
unsigned clipboardRecords()
{
    ENHMETAHEADER header = {};
    if (!OpenClipboard(nullptr))
        return 0;
    const auto metafile = static_cast<HENHMETAFILE>(GetClipboardData(CF_ENHMETAFILE));
    if (metafile)
        GetEnhMetaFileHeader(metafile, sizeof header, &header);
    CloseClipboard();
    return header.nRecords;
}

TEST_F(Refresh, GoesToTheClipboardUnlessSomebodyHoldsIt)
{
    Gdx gdx = everything();
    ::refresh(&gdx, nullptr, 240, 320);
    const unsigned records = clipboardRecords();
    EXPECT_GT(records, 60u);

    Gdx other = grey();
    addLine(other, line(0, 0, 9, 9));
    std::atomic<bool> held = false, done = false;
    std::thread holder([&] {
        const HWND window = CreateWindowW(L"STATIC", L"", 0, 0, 0, 0, 0, HWND_MESSAGE, nullptr, nullptr, nullptr);
        held = OpenClipboard(window) != FALSE;
        while (!done)
            Sleep(5);
        CloseClipboard();
        DestroyWindow(window);
    });
    for (int i = 0; i < 400 && !held; ++i)
        Sleep(5);
    EXPECT_TRUE(held);
    ::refresh(&other, nullptr, 240, 320);
    done = true;
    holder.join();
    EXPECT_EQ(clipboardRecords(), records);
    ::refresh(&other, nullptr, 240, 320);
    EXPECT_LT(clipboardRecords(), 20u);
}

} // namespace
} // namespace display_test
