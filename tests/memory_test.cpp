// Every allocation fails in turn: what comes out is whole, or told as a failure with everything as it was.
#include "failing_malloc.h"
#include "memory_jobs.h"

using namespace memory_test;

TEST(Memory, GlyphsThatTheFirstLookupDoesNotGetAreThereAtTheNext)
{
    FailingMemory memory(100, false);
    memory.during([] { return get_ascii_from_map(L'B').len(); });
    EXPECT_EQ(get_ascii_from_map(L'B').len(), 1);
    EXPECT_EQ(get_ascii_from_map(0xFC).len(), 3); // the last of all: a letter and its two dots
}

TEST(Memory, EachJobIsDoneAsAWholeOrNotAtAll)
{
    static CVekLocalApp host;
    host.functionSet(L"vek_text_to_regl", [](resbuf*, VEK::CUniqResbuf& result) {
        result.append(VEK::mkResbuf(VEK::Regions{kPlate}));
        return 5100;
    });
    host.functionSet(L"mra_hole_dial", [](resbuf*, VEK::CUniqResbuf& result) {
        result = VEK::CUniqResbuf(VEK::mkResbuf(1, VEK::rbShort));
        return VEK::kHostNormal;
    });
    VEK::CCfgBackup backup(true);
    backup.attach(nullptr);
    VEK::dataSet(VEK::cfg_dir_make(L"*MAT*"), L"ALU\\SUBS", CVekArrayTempl<CVekString>{L"SHEET", L"PROFILE"});
    CVekApp* const before = vekAppSet(&host);
    for (const Job& job : kJobs) {
        SCOPED_TRACE(job.name);
        World changed;
        const std::uint64_t old = changed.state();
        EXPECT_TRUE(job.run(changed).value_or(true));
        const std::uint64_t fresh = changed.state();
        const int failures = FailingMemory::forEveryAllocation([&](FailingMemory& memory) {
            World w;
            const unsigned long shortages = VEK::memoryShortages();
            const std::optional<bool> done = memory.during([&] { return job.run(w); });
            const bool counts = VEK::memoryShortages() != shortages;
            const std::uint64_t now = w.state();
            EXPECT_EQ(now, done.value_or(now == fresh) ? fresh : old);
            EXPECT_TRUE(done.value_or(now == fresh) || (memory.failed() && counts));
        });
        EXPECT_GE(failures, job.least);
    }
    vekAppSet(before);
}

TEST(Memory, APaintAgainTakesNoneForItemsVerticesAndLines)
{
    using Emit = std::function<void(CVekGDX&, const CVekMatrix3d&, int)>;
    const CVekVertexArray steps = shapes::path({shapes::line(0, 0, 4, 4), shapes::line(4, 4, 8, 0)});
    const std::pair<const char*, Emit> kinds[] = {
        {"lines", [&](CVekGDX& g, const CVekMatrix3d& m, int i) { g.imageVl({i}, 0, steps, kColor, m, {}, 1, 1, {}); }},
        {"wide gaps",
         [&](CVekGDX& g, const CVekMatrix3d& m, int i) {
             g.imageVl({i}, 0, shapes::path({steps[0], steps[0], steps[1]}), kColor, m, {}, 1, 4, {});
         }},
        {"dashes",
         [&](CVekGDX& g, const CVekMatrix3d& m, int i) {
             g.imageVl({i}, 0, steps, kColor, m, {1.0, -0.5, 0.0, -0.5}, 1, 1, {});
         }},
        {"arcs",
         [&](CVekGDX& g, const CVekMatrix3d& m, int i) { g.imageVl({i}, 0, kUpright, kColor, m, {}, 1, 1, {}); }},
        {"points", [&](CVekGDX& g, const CVekMatrix3d& m, int i) { g.imagePt({i}, 0, {}, kColor, m, 4, 34, {}); }},
        {"texts", [&](CVekGDX& g, const CVekMatrix3d& m, int i) { g.imageTxt({i}, 0, L"AO", kColor, m, L"", {}, {}); }},
        {"fills",
         [&](CVekGDX& g, const CVekMatrix3d& m, int i) {
             g.imageReg({i}, itemFill | itemOutline, kPlate, kColor, m, {}, 1, 1, kColor, kHatch, {});
         }},
        {"hatches", [&](CVekGDX& g, const CVekMatrix3d& m, int i) {
             const double pitch = i < 20 ? 2.0 : 0.2; // so that the longer list has more lines to a hatch as well
             g.imageReg({i}, itemHatch, kPlate, kColor, m, {}, 1, 1, kColor, {kUser, 0.5, pitch, true}, {});
         }}};
    for (const auto& [kind, emit] : kinds) {
        for (const wchar_t* view : {L"P", L"SO"}) {
            long taken[2];
            for (const int count : {20, 200}) {
                CVekGDX gdx(kColor, {}, 0.0, 0, {}, {});
                CVekMatrix3d m;
                for (int i = 0; i < count; ++i)
                    emit(gdx, m.setToTranslation({1.0 * (i % 7), 2.0, 0.0}), i);
                ASSERT_TRUE(gdx.viewDirectionSet(view));
                VEK::CPixels pixels;
                ASSERT_TRUE(VEK::rasterPixels(pixels, 20, 20, 0));
                const auto surface = VEK::rasterSurface(pixels);
                const auto paint = [&] { ASSERT_TRUE(VEK::gdxDraw(gdx, *surface, 20, 20, VEK::screenRules)); };
                paint();
                taken[count > 20] = FailingMemory::allocations(paint);
            }
            EXPECT_LE(taken[1], taken[0] + 20) << kind << ' ' << static_cast<char>(view[0]); // of longer buffers
        }
    }
}

TEST(Memory, LinesOfAListInUseAgainSeekNone)
{
    CVekGDX gdx(kColor, kStretch, 0.0, 0, {}, {});
    const auto emit = [&] {
        for (int i = 0; i < 100; ++i)
            gdx.imageVl(kLine, 0, kCross, kColor, {}, {}, 1.0, 0, {});
    };
    emit();
    gdx.clear();
    FailingMemory memory(0, true);
    memory.during([&] { emit(); });
    EXPECT_TRUE(!memory.failed() && gdx.lenGet() == 100);
}

TEST(Memory, ACacheKeepsNoFailure)
{
    FailingMemory::forEveryAllocation([&](FailingMemory& memory) {
        VEK::CPictureCache cache;
        const VEK::PictureRequest request{.name = kBmp};
        const bool had = memory.during([&] { return cache.picture(request) != nullptr; });
        EXPECT_TRUE(had || memory.failed());
        EXPECT_TRUE(cache.picture(request));
    });
}

TEST(Memory, FilesAreWrittenAsAWhole)
{
    const CVekDataItem& old = kTree;
    CVekDataItem fresh = kTree;
    VEK::dataSet(&fresh, L"TEXT", L"another text");
    CVekGDX gdx = picture();
    const CVekString path = kFolder.name(L"tree.json").c_str();
    CVekString error;
    const std::function<void()> jobs[] = {[&] { refresh(&gdx, path, 100, 100); },
                                          [&] { VEK::jsonSave(fresh, path, error); }};
    for (const auto& job : jobs) {
        job();
        const std::string whole = kFolder.read(L"tree.json");
        EXPECT_NE(whole, jsonOf(old));
        FailingMemory::forEveryAllocation([&](FailingMemory& memory) {
            ASSERT_TRUE(VEK::jsonSave(old, path, error));
            memory.during(job);
            const std::string now = kFolder.read(L"tree.json");
            EXPECT_TRUE(now == whole || (now == jsonOf(old) && memory.failed()));
            EXPECT_EQ(kFolder.files(), 4) << "beside it";
        });
    }
}
