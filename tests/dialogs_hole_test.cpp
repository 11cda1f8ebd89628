// The hole dialog that a host brings along, with hosts, answers and data of all kinds.
#include "objects_data.h"

#include <vek/data.h>
#include <vek/dialogs.h>
#include <vek/host.h>

namespace
{

using objects_test::json, objects_test::tree;

const CVekDataKey kActive(5005, L"*HOLE*", 5005, L"BT", 0);

struct Host : CVekLocalApp {
    bool hasObject = true, opens = true;
    CVekDataItem found; ///< by the dialog, in the drawing
    CVekString active = L"none";
    const CVekDataItem edited = tree("{'':{'DRAW':'S','LABEL':'new'},'ORDER':'not this','BT':{'b':{},'a':1}}");

    CVekDataItem& object()
    {
        VEK::CAdsName name;
        CVekLocalApp::namedDataObject(name, L"HOLE", true);
        return *CVekLocalApp::dataObject(name);
    }
    bool namedDataObject(VEK::CAdsName& name, const wchar_t* kind, bool create) override
    {
        return hasObject && create && CVekLocalApp::namedDataObject(name, kind, create);
    }
    VEK::CSharedPointer<CVekDataItem> dataObject(const VEK::CAdsName& name) override
    {
        return opens ? CVekLocalApp::dataObject(name) : VEK::CSharedPointer<CVekDataItem>();
    }
};

/// What one form of a pattern is in the other, over what was there: in the file the texts belong to the header.
CVekDataItem exchanged(const CVekDataItem& from, bool intoFile, CVekDataItem to)
{
    const CVekDataItem* const texts = intoFile ? &from : from.getItem(L"");
    *to.makeItem(L"") = CVekDataItem(from.getItem(L""));
    for (const wchar_t* key : {L"LABEL", L"ORDER"}) {
        CVekString text;
        VEK::dataGet(texts, key, text);
        VEK::dataSet(intoFile ? to.getItem(L"") : &to, key, text);
    }
    *to.makeItem(intoFile ? L"BT" : L"HOLE") = CVekDataItem(from.getItem(intoFile ? L"HOLE" : L"BT"));
    return to;
}

TEST(HoleDialog, ExchangesThePatternWithAHostOfAnyKind)
{
    VEK::CCfgBackup backup(true);
    backup.attach(nullptr);
    const struct {
        short type;
        int number, result;
    } answers[] = {{5001, 1, 2}, {5003, 0, 2}, {5003, 1, 1}, {5003, -1, 0}, {5003, 2, 0},  {5010, 0, 2},
                   {5010, 1, 1}, {5010, 7, 0}, {5031, 0, 2}, {5031, 1, 1},  {5031, -1, 0}, {0, 0, 2}};
    const std::string patterns[] = {"", "{}",
                                    "{'':{'DRAW':'','PART_CON':'L'},'LABEL':'l','ORDER':'o','HOLE':{'h':{}},'MORE':2}",
                                    "{'':'no directory','LABEL':5,'HOLE':7}", "null"};
    int judged = 0;
    for (const auto& answer : answers) {
        for (int i = 0; i < 5 * 2 * 2 * 2; ++i, ++judged) {
            const std::string& pattern = patterns[i % 5];
            const bool hasData = !pattern.empty(), succeeds = i / 5 % 2;
            Host host;
            host.object() = tree("{'OLD':1,'BT':{'x':{}}}");
            host.hasObject = i / 10 % 2;
            host.opens = i / 20 % 2;
            host.functionSet(L"mra_hole_dial", [&](resbuf* arguments, VEK::CUniqResbuf& result) {
                const CVekDataKey tube(5005, L"*VEK_OUTLINE*", 5003, 24, 0);
                EXPECT_TRUE(VEK::cfg_get(&tube) && !arguments);
                VEK::dataItemGet(VEK::cfg_get(&kActive), nullptr, host.active);
                host.found = std::exchange(host.object(), host.edited);
                VEK::cfgSet(&kActive, L"a");
                result = VEK::CUniqResbuf(answer.type ? VEK::mkResbuf(answer.number, answer.type) : nullptr);
                return succeeds ? VEK::kHostNormal : VEK::kHostError;
            });
            vekAppSet(&host);
            VEK::cfgMgrPtr()->tree()->remove(L"*HOLE*");
            if (judged % 40 == 0)
                VEK::cfgMgrPtr()->tree()->remove(L"*VEK_OUTLINE*");
            const CVekDataItem given = hasData && pattern != "null" ? tree(pattern) : CVekDataItem();
            const CVekDataItem old = tree("{'OLD':1,'BT':{'x':{}}}");
            CVekDataItem data = given;
            CVekString active(L"h");
            const int result = VEK::holeDialog(active, hasData ? &data : nullptr);

            const bool reached = host.hasObject && host.opens, confirmed = succeeds && answer.result == 1;
            EXPECT_EQ(result, succeeds ? answer.result : 0);
            EXPECT_STREQ(host.active, host.hasObject ? L"h" : L"none");
            EXPECT_STREQ(active, confirmed ? L"a" : L"h");
            EXPECT_EQ(json(host.found), json(reached ? exchanged(given, true, old) : old));
            CVekDataItem start = given;
            start.mkDir();
            EXPECT_EQ(
                json(data),
                json(!confirmed || !hasData ? given : exchanged(reached ? host.edited : CVekDataItem(), false, start)));
        }
    }
    EXPECT_EQ(judged, 480);
    vekAppSet(nullptr);
}

} // namespace
