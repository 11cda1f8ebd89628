#include "test_folder.h"

#include <vek/data.h>
#include <vek/host.h>

#include <gtest/gtest.h>

#include <algorithm>
#include <random>
#include <utility>
#include <vector>

namespace
{

using FilePtr = VEK::CUniqPointer<VEK::CDtaFilePointer>;

/// Installs a host for the length of a test, and leaves the configuration as it was.
class HostTest : public testing::Test
{
protected:
    HostTest()
    {
        m_backup.attach(nullptr);
        vekAppSet(&app);
    }
    ~HostTest() override { vekAppSet(nullptr); }

    CVekLocalApp app;

private:
    VEK::CCfgBackup m_backup{true};
};

using ConfigTest = HostTest;

#if defined(__GNUC__)
__attribute__((no_sanitize("undefined"), noinline))
#endif
CVekDataItem*
askUntested(const VEK::CDtaFilePointer* file)
{
    const CVekDataKey key(L"BT");
    CVekDataItem* item = file->get(&key, false);
    return item ? item : file->get(L"BT", false);
}

} // namespace

TEST(DataFile, HoldsACopyInMemory)
{
    CVekDataItem item;
    VEK::dataSet(&item, L"A\\B", 1);
    const FilePtr file(VEK::dtaOpen(6, 3, nullptr, &item));
    VEK::dataSet(&item, L"A\\B", 2);
    EXPECT_EQ(*file->get(L"A\\B", false)->peek<int>(), 1);
    const CVekDataKey path(5005, L"X", 5003, 3, 0);
    EXPECT_TRUE(file->set(&item, &path));
    EXPECT_EQ(*file->get(&path, false)->getItem(L"A\\B")->peek<int>(), 2);
    EXPECT_FALSE(file->get(L"Y", false));
    EXPECT_TRUE(file->set(nullptr, &path)) << "a missing item is stored as an empty one";
    EXPECT_EQ(file->get(&path, false)->kind(), VEK::DataKind::empty);
    EXPECT_TRUE(VEK::fileItemSet(file, &path, L"text"));
    EXPECT_FALSE(VEK::fileItemSet(nullptr, &path, 5));
    CVekArrayTempl<CVekDataKey> keys;
    EXPECT_TRUE(file->dir(keys, nullptr));
    EXPECT_TRUE(keys.len() == 2 && keys[1] == CVekDataKey(L"X"));
    EXPECT_TRUE(!file->dir(keys, &path) && keys.len() == 0);
    const FilePtr fresh(VEK::dtaOpen(6, 3, nullptr, nullptr));
    EXPECT_TRUE(fresh->get(nullptr, false)->isDir());
    EXPECT_FALSE(VEK::dtaOpen(5, 3, nullptr, nullptr));
    EXPECT_FALSE(askUntested(nullptr) || VEK::fileItem(nullptr, L"BT"));
}

TEST(DataFile, SharesItsLinkedObject)
{
    FilePtr file(VEK::dtaOpen(6, 3, nullptr, nullptr));
    EXPECT_FALSE(file->lobjGet(nullptr, false));
    VEK::dataSet(file->get(nullptr, false), L"LOBJ\\S", 1.5);
    const FilePtr linked(file->lobjGet(nullptr, false));
    ASSERT_TRUE(linked);
    EXPECT_EQ(*linked->get(L"S", false)->peek<double>(), 1.5);
    const CVekDataKey d(L"D");
    VEK::fileItemSet(linked, &d, 20);
    EXPECT_EQ(*file->get(L"LOBJ\\D", false)->peek<int>(), 20);
    const CVekDataKey below(L"SUB");
    EXPECT_FALSE(file->lobjGet(&below, false));
    VEK::dataSet(file->get(nullptr, false), L"LOBJ\\SUB\\S", 2.5);
    EXPECT_EQ(*FilePtr(file->lobjGet(&below, false))->get(L"S", false)->peek<double>(), 2.5);
    file = FilePtr();
    EXPECT_TRUE(linked->get(&d, false)) << "either may be closed first";
}

TEST_F(HostTest, KeepsTheDrawingsDataObjects)
{
    VEK::CAdsName name;
    EXPECT_FALSE(app.namedDataObject(name, L"HOLE", false));
    EXPECT_TRUE(name.isNull());
    EXPECT_FALSE(VEK::dtaOpen(3, 3, name, nullptr, nullptr));
    ASSERT_TRUE(vekAppPtr()->namedDataObject(name, L"HOLE", true));
    const CVekDataKey bt(L"BT");
    VEK::fileItemSet(FilePtr(VEK::dtaOpen(3, 3, name, nullptr, nullptr)), &bt, 5);
    VEK::CAdsName again;
    ASSERT_TRUE(app.namedDataObject(again, L"HOLE", false));
    EXPECT_TRUE(again == name);
    const FilePtr file(VEK::dtaOpen(3, 3, again, nullptr, nullptr));
    EXPECT_EQ(*file->get(&bt, false)->peek<int>(), 5);
}

TEST_F(HostTest, CallsFunctionsByName)
{
    app.functionSet(L"twice", [](resbuf* arguments, VEK::CUniqResbuf& result) {
        result = VEK::mkResbuf(2 * arguments->resval.rint, 5003);
        return VEK::kHostNormal;
    });
    app.functionSet(L"fails", [](resbuf*, VEK::CUniqResbuf&) -> int { throw 1; });
    const VEK::CUniqResbuf arguments(VEK::mkResbuf(21, 5003));
    VEK::CUniqResbuf result;
    EXPECT_EQ(vekAppPtr()->callFunction(L"twice", arguments, result), 5100);
    EXPECT_EQ(result->resval.rint, 42);
    for (const wchar_t* name : {L"fails", L"thrice", static_cast<const wchar_t*>(nullptr)})
        EXPECT_NE(vekAppPtr()->callFunction(name, nullptr, result), 5100);
}

TEST_F(HostTest, GivesWhatWasEntered)
{
    VekPatternLines found{{45.0}}; // what is entered is judged with files of patterns
    app.hatchPatternGet(L"NONE", found);
    EXPECT_EQ(found.len(), 0);
    const CVekMatrix3d view = CVekMatrix3d().setToTranslation(CVekVector3d(1, 2, 3));
    app.viewMatrixSet(L"Ansicht", view);
    CVekMatrix3d read, other;
    app.viewMatrix(L"Ansicht", read);
    app.viewMatrix(L"other", other);
    EXPECT_TRUE(read == view && other == CVekMatrix3d());
    EXPECT_FALSE(app.imageObject(nullptr, nullptr, nullptr));
    app.imageObjectSet([](CVekGDX*, CVekDataItem* object, CVekDataItem*) { return object != nullptr; });
    CVekDataItem object;
    EXPECT_TRUE(app.imageObject(nullptr, &object, nullptr));
}

TEST(NoHost, ReportsFailure)
{
    CVekApp* app = vekAppPtr();
    EXPECT_EQ(app->defaultUnit(), 2);
    VekPatternLines lines{{1.0}};
    app->hatchPatternGet(L"ANSI31", lines);
    EXPECT_EQ(lines.len(), 0);
    VEK::CAdsName name;
    EXPECT_FALSE(app->namedDataObject(name, L"HOLE", true) || app->imageObject(nullptr, nullptr, nullptr));
    VEK::CUniqResbuf result;
    EXPECT_NE(app->callFunction(L"x", nullptr, result), 5100);
    EXPECT_FALSE(VEK::dtaOpen(3, 3, name, nullptr, nullptr));
    CVekLocalApp own;
    EXPECT_EQ(vekAppSet(&own), app);
    EXPECT_EQ(vekAppSet(nullptr), &own);
    EXPECT_EQ(vekAppPtr(), app);
}

TEST_F(ConfigTest, IsSetWhereItIsRead)
{
    EXPECT_FALSE(VEK::cfg_get(L"*T*\\BT"));
    const CVekDataKey key(5005, L"*T*", 5005, L"BT", 0);
    EXPECT_TRUE(VEK::cfgSet(&key, CVekString(L"Loch 1")));
    EXPECT_TRUE(*VEK::cfg_get(L"*T*\\BT")->peek<CVekString>() == L"Loch 1");
    EXPECT_EQ(VEK::cfg_get(&key), VEK::cfg_get(L"*T*\\BT"));
    const CVekDataKey root(5020, L"*APPL*", 0);
    EXPECT_TRUE(VEK::cfgSet(&root, L"vek"));
    EXPECT_TRUE(*VEK::cfg_get(L"*APPL*")->peek<CVekString>() == L"vek");
    const CVekDataKey number(5003, 1, 0);
    EXPECT_FALSE(VEK::cfgSet(nullptr, L"x") || VEK::cfgSet(&number, L"x"));
    const CVekDataItem* fresh = VEK::cfg_dir_make(L"*NEW*");
    EXPECT_TRUE(VEK::cfg_get(L"*NEW*") == fresh && fresh->isDir());
    EXPECT_TRUE(VEK::cfgMgrPtr()->getCfgRoot(L"*NEW*")->getItem(&root));
}

/// A path that a guard was told of comes back as it was then, or goes with what was not there of it; others stay.
TEST_F(ConfigTest, IsPutBackByTheGuard)
{
    const std::wstring paths[] = {L"*T*", L"*T*\\A", L"*T*\\A\\B", L"*T*\\C", L"*U*\\B\\C", L"*U*"};
    CVekDataItem* const tree = VEK::cfgMgrPtr()->tree();
    const auto values = [&] {
        std::vector<int> now;
        for (const std::wstring& path : paths) {
            const CVekDataItem* item = VEK::cfg_get(path.c_str());
            const int* value = item ? item->peek<int>() : nullptr;
            now.push_back(value ? *value : item ? -1 : -2);
        }
        return now;
    };
    std::mt19937 random(9);
    const auto anyPath = [&]() -> const std::wstring& { return paths[random() % std::size(paths)]; };
    const auto change = [&] {
        if (random() % 3)
            VEK::dataSet(tree, anyPath().c_str(), static_cast<int>(random() % 1000));
        else
            tree->remove(anyPath().c_str());
    };
    for (int round = 0; round < 5000; ++round) {
        tree->mkDir();
        for (int i = 0; i < 3; ++i)
            change();
        const bool isWhole = random() % 10 == 0;
        const bool restores = random() % 4 != 0;
        const std::wstring path = anyPath();
        std::wstring kept = path;
        for (std::size_t end = 0; end != path.npos && kept == path;) {
            end = path.find(L'\\', end + 1);
            if (!VEK::cfg_get(path.substr(0, end).c_str()))
                kept = path.substr(0, end);
        }
        const std::vector<int> before = values();
        std::vector<int> after;
        {
            VEK::CCfgBackup guard(restores);
            guard.attach(isWhole ? nullptr : path.c_str());
            change();
            guard.attach(VEK::cfg_get(kept.c_str()) ? kept.c_str() : L"*V*"); // told again, now of another state
            change();
            after = values();
        }
        const std::vector<int> now = values();
        for (std::size_t i = 0; i < std::size(paths); ++i) {
            const bool isBelow = isWhole || (paths[i] + L'\\').starts_with(kept + L'\\');
            const bool isAbove = !isWhole && kept.starts_with(paths[i] + L'\\'); // may have to become a directory again
            if (restores ? isBelow || !isAbove : true) {
                ASSERT_EQ(now[i], restores && isBelow ? before[i] : after[i]) << round << ' ' << i;
            }
        }
    }
}

TEST_F(ConfigTest, HoldsTranslations)
{
    VEK::dataSet(VEK::cfg_dir_make(L"*MSG*"), L"VEK_\\en\\DLG_002", L"Cancel");
    EXPECT_TRUE(vek_msg_get(L"VEK_", L"DLG_002", L"Abbrechen", L"EN") == L"Cancel");
    EXPECT_TRUE(vek_msg_get(L"VEK_", L"DLG_002", L"Abbrechen", L"fr") == L"Abbrechen");
    EXPECT_TRUE(vek_msg_get(L"VEK_", L"DLG_001", L"OK", L"en") == L"OK");
    EXPECT_TRUE(vek_msg_get(nullptr, nullptr, nullptr, nullptr) == L"");
    EXPECT_STREQ(VEK::msgLangSet(nullptr), L"de");
    EXPECT_STREQ(VEK::msgLangSet(L"en"), L"de");
    EXPECT_TRUE(vek_msg_get(L"VEK_", L"DLG_002", L"Abbrechen", nullptr) == L"Cancel");
    EXPECT_STREQ(VEK::msgLangSet(L"de"), L"en");
}

TEST_F(ConfigTest, FindsFilesAndHelp)
{
    const TestFolder folder(L"find");
    folder.save(L"Kontur.chm", "x");
    VEK::filePathSet({L"no such folder", folder.name(L".").c_str()});
    CVekString path(L"before");
    for (const wchar_t* none : {L"Nichts.sld", L".", L"", static_cast<const wchar_t*>(nullptr)})
        EXPECT_FALSE(VEK::fileFind(path, none));
    EXPECT_TRUE(path == L"before");
    EXPECT_TRUE(VEK::fileFind(path, L"Kontur.chm"));
    EXPECT_TRUE(std::filesystem::equivalent(VEK::platform::pathOf(std::wstring(path)), folder / L"Kontur.chm"));
    CVekString again, help;
    EXPECT_TRUE(VEK::fileFind(again, path));
    EXPECT_TRUE(VEK::help_find(L"Kontur", help) && help == path);
    VEK::dataSet(VEK::cfg_dir_make(L"*HELP*"), L"Kontur", L"https://example.org/<topic>");
    EXPECT_TRUE(VEK::help_find(L"Kontur", help) && help == L"https://example.org/<topic>");
    EXPECT_FALSE(VEK::help_find(L"Vek", help));
    VEK::filePathSet({});
}

/// A label beside a plain list of its texts, in random languages, one of them the process's.
TEST(Label, AgreesWithAListOfTexts)
{
    const wchar_t* const texts[] = {L"", L"\\", L"\\\\", L"\\en:x", L"a\\b\\", L"x\ny\n", L"a:b", L"\\:", L"Tür"};
    const wchar_t* const languages[] = {L"de", L"EN", L"fr", L"pl", L"", nullptr, L"d:e", L"d\\e"};
    const CVekString before(VEK::msgLangSet(nullptr));
    std::mt19937 random(8);
    int found = 0;
    for (int round = 0; round < 500; ++round) {
        VEK::msgLangSet(languages[random() % 4]);
        const CVekString own(VEK::msgLangSet(nullptr));
        CVekString label(random() % 2 ? L"Fenster" : L"");
        const bool isPlain = !label.isNull();
        std::vector<std::pair<CVekString, CVekString>> list;
        if (isPlain)
            list.emplace_back(own, label);
        const auto place = [&](const wchar_t* language) {
            const CVekString sought = language && *language ? CVekString(language) : own;
            return std::find_if(list.begin(), list.end(),
                                [&](const auto& entry) { return entry.first.compareNoCase(sought) == 0; });
        };
        bool changed = false;
        for (int step = 0; step < 8; ++step) {
            const wchar_t* const language = languages[random() % std::size(languages)];
            const wchar_t* const text = texts[random() % std::size(texts)];
            const wchar_t* const whole = VEK::label_set(label, text, language);
            EXPECT_STREQ(whole, label);
            if (!language || !std::wcspbrk(language, L"\\:")) {
                const auto at = place(language);
                changed = true;
                if (!*text && at != list.end())
                    list.erase(at);
                else if (*text && at != list.end())
                    at->second = text;
                else if (*text)
                    list.emplace_back(language && *language ? CVekString(language) : own, text);
            }
            for (const wchar_t* sought : {L"DE", L"en", L"fr", L"sv", L"", static_cast<const wchar_t*>(nullptr)}) {
                for (const bool any : {false, true}) {
                    auto at = place(sought);
                    if (at == list.end() && any)
                        at = place(nullptr);
                    if (at == list.end() && (any || (isPlain && !changed))) // a plain text is that of every language
                        at = list.begin();
                    CVekString out(L"before");
                    const bool is = VEK::label_get(out, label, sought, any);
                    ASSERT_EQ(is, at != list.end()) << round;
                    ASSERT_STREQ(out, is ? at->second : CVekString(L"before")) << round;
                    found += is;
                }
            }
        }
    }
    VEK::msgLangSet(before);
    EXPECT_GT(found, 20000);
    CVekString out;
    for (const wchar_t* broken : {L"\\", L"\\de", L"\\d\\e:x", L"\\\\"})
        EXPECT_FALSE(VEK::label_get(out, broken, L"de", true)) << broken;
}

TEST_F(ConfigTest, HoldsMaterials)
{
    CVekDataItem* library = VEK::cfg_dir_make(L"*MAT*");
    VEK::dataSet(library, L"ALU\\LABEL", L"\\de:Aluminium\\en:Aluminium alloy");
    const CVekArrayTempl<CVekString> subs{L"ALU_6060"};
    VEK::dataSet(library, L"ALU\\SUBS", subs);
    VEK::dataSet(library, L"ALU\\PHYS", L"ALU_6060");
    VEK::dataSet(library, L"ALU_6060\\SUB", true);
    VEK::dataSet(library, L"ALU_6060\\PHYS\\density", 2.7);
    VEK::dataSet(library, L"ALU_6060\\EDGE", subs);
    library->makeDir(L"STAHL");
    VEK::CAdsName name;
    app.namedDataObject(name, L"MAT", true);
    VEK::dataSet(app.dataObject(name), L"STAHL\\EDGE", L"ALU_6060");

    const VEK::CMatMgr materials;
    CVekArrayTempl<CVekString> keys;
    for (const bool isShadow : {false, true}) {
        materials.matDrawAll(keys, isShadow);
        EXPECT_TRUE(VEK::implode(keys, L" ") == (isShadow ? L"STAHL" : L"ALU STAHL"));
        EXPECT_EQ(materials.isShadowMat(isShadow ? L"STAHL" : L"ALU"), isShadow);
        EXPECT_TRUE(materials.matLabel(isShadow ? L"STAHL" : L"ALU", L"en") == (isShadow ? L"" : L"Aluminium alloy"));
    }
    VEK::CMatProp prop;
    EXPECT_FALSE(materials.propGet(L"HOLZ", prop) || materials.propGet(nullptr, prop));
    ASSERT_TRUE(materials.propGet(L"ALU", prop));
    EXPECT_TRUE(prop.subKeys == subs && prop.physKind == VEK::matReference && prop.physRef == L"ALU_6060" &&
                prop.edgeKind == VEK::matNone);
    ASSERT_TRUE(materials.propGet(prop.physRef, prop));
    ASSERT_TRUE(prop.physKind == VEK::matOwn && prop.phys.get(CVekString(L"DENSITY")));
    EXPECT_TRUE(*prop.phys.get(CVekString(L"DENSITY")) == 2.7 && prop.edgeKind == VEK::matOwn);
    ASSERT_TRUE(materials.propGet(L"STAHL", prop));
    EXPECT_TRUE(prop.edgeKind == VEK::matReference && prop.edgeRef == L"ALU_6060" && prop.subKeys.len() == 0);
}
