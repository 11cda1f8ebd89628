// The hole dialog that a host brings along, with hosts and data of all kinds.
#include "objects_data.h"

#include <vek/data.h>
#include <vek/dialogs.h>
#include <vek/host.h>

namespace
{

using objects_test::json, objects_test::tree;

const CVekDataKey kActive(5005, L"*HOLE*", 5005, L"BT", 0);

/// A host that does what the test says, and notes what its dialog found.
class Host : public CVekLocalApp
{
public:
    bool hasObject = true, opens = true;
    int status = VEK::kHostNormal;
    resbuf* answer = nullptr;
    CVekDataItem found, edited;
    CVekString foundActive, editedActive;

    bool namedDataObject(VEK::CAdsName& name, const wchar_t* kind, bool create) override
    {
        EXPECT_TRUE(create && std::wcscmp(kind, L"HOLE") == 0);
        return hasObject && CVekLocalApp::namedDataObject(name, kind, create);
    }
    VEK::CSharedPointer<CVekDataItem> dataObject(const VEK::CAdsName& name) override
    {
        return opens ? CVekLocalApp::dataObject(name) : VEK::CSharedPointer<CVekDataItem>();
    }
    int callFunction(const wchar_t* name, resbuf* arguments, VEK::CUniqResbuf& result) override
    {
        EXPECT_TRUE(std::wcscmp(name, L"mra_hole_dial") == 0 && !arguments);
        const CVekDataKey tube(5005, L"*VEK_OUTLINE*", 5003, 24, 0);
        EXPECT_TRUE(VEK::cfg_get(&tube)) << "the standard outlines";
        foundActive = L"none";
        VEK::dataItemGet(VEK::cfg_get(&kActive), nullptr, foundActive);
        if (hasObject && opens) {
            found = *object();
            *object() = edited;
        }
        VEK::cfgSet(&kActive, editedActive);
        result = VEK::CUniqResbuf(answer);
        return status;
    }
    CVekDataItem* object()
    {
        VEK::CAdsName name;
        CVekLocalApp::namedDataObject(name, L"HOLE", true);
        return CVekLocalApp::dataObject(name);
    }
};

/// A directory with some of these children.
CVekDataItem some(std::mt19937& random, std::initializer_list<const char*> members)
{
    std::string text;
    for (const char* member : members)
        text += random() % 4 ? (text.empty() ? "" : ",") + std::string(member) : "";
    return tree("{" + text + "}");
}

CVekString textAt(const CVekDataItem* item, const wchar_t* key)
{
    CVekString text;
    VEK::dataGet(item, key, text);
    return text;
}

/// What one form of a pattern is in the other: in the file the texts belong to the header alone.
CVekDataItem exchanged(const CVekDataItem& from, const CVekDataItem* texts, const wchar_t* elements,
                       const wchar_t* renamed, bool intoHeader, CVekDataItem to)
{
    *to.makeItem(L"") = CVekDataItem(from.getItem(L""));
    for (const wchar_t* key : {L"LABEL", L"ORDER"})
        VEK::dataSet(intoHeader ? to.getItem(L"") : &to, key, textAt(texts, key));
    *to.makeItem(renamed) = CVekDataItem(from.getItem(elements));
    return to;
}

TEST(HoleDialog, ExchangesThePatternWithAHostOfAnyKind)
{
    VEK::CCfgBackup backup(true);
    backup.attach(nullptr);
    std::mt19937 random(4);
    int results[3] = {}, unopened = 0, filled = 0;
    for (int round = 0; round < 2000; ++round) {
        Host host;
        vekAppSet(&host);
        if (round % 50 == 0)
            VEK::cfgMgrPtr()->tree()->remove(L"*VEK_OUTLINE*");
        VEK::cfgMgrPtr()->tree()->remove(L"*HOLE*");
        host.hasObject = random() % 5;
        host.opens = random() % 5;
        *host.object() = some(random, {"'':{'DRAW':'F'}", "'OLD':1", "'BT':{'x':{}}"});
        host.edited = some(random, {"'':{'DRAW':'S','LABEL':'new'}", "'LABEL':'not this'", "'BT':{'b':{},'a':1}"});
        host.editedActive = L"a";
        host.status = random() % 6 ? VEK::kHostNormal : VEK::kHostError;
        const short types[] = {5001, 5003, 5003, 5003, 5005, 5010, 5010, 5019, 5031, 5031};
        const short type = types[random() % 10];
        const int numbers[] = {-1, 0, 1, 1, 1, 1, 2, 30000}, number = numbers[random() % 8];
        const bool isNumber = type == 5003 || type == 5010 || type == 5031;
        const bool hasAnswer = random() % 9;
        host.answer = !hasAnswer ? nullptr : isNumber ? VEK::mkResbuf(number, type) : vekNewRb(type);
        const CVekDataItem given = some(
            random, {"'':{'DRAW':'','PART_CON':'L'}", "'LABEL':'l'", "'ORDER':'o'", "'HOLE':{'h':{}}", "'MORE':2"});
        CVekDataItem data = random() % 9 ? given : CVekDataItem();
        const bool hasData = random() % 9;
        const CVekDataItem old = hasData ? data : CVekDataItem();
        const std::string before = json(data);
        const std::string drawing = json(*host.object());
        CVekString active(L"h");

        const int result = VEK::holeDialog(active, hasData ? &data : nullptr);

        int expected = 0;
        if (host.status == VEK::kHostNormal)
            expected = !hasAnswer || !isNumber || number == 0 ? 2 : number == 1;
        ASSERT_EQ(result, expected) << type << " " << number;
        ++results[result];
        ASSERT_STREQ(host.foundActive, host.hasObject ? L"h" : L"none");
        ASSERT_STREQ(active, result == 1 ? L"a" : L"h");
        const bool reached = host.hasObject && host.opens;
        if (reached) {
            ASSERT_EQ(json(host.found), json(exchanged(old, &old, L"HOLE", L"BT", true, tree(drawing))));
            ++filled;
        }
        if (result != 1 || !hasData) {
            ASSERT_EQ(json(data), before);
            continue;
        }
        const CVekDataItem file = reached ? host.edited : CVekDataItem();
        CVekDataItem start = tree(before);
        start.mkDir();
        ASSERT_EQ(json(data), json(exchanged(file, file.getItem(L""), L"BT", L"HOLE", false, start)));
        unopened += !reached;
    }
    vekAppSet(nullptr);
    EXPECT_GT(std::min({results[0], results[1], results[2]}), 300);
    EXPECT_GT(unopened, 100);
    EXPECT_GT(filled, 1000);
}

} // namespace
