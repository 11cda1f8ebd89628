#include "data_leaves.h"

#include <gtest/gtest.h>

#include <string>
#include <vector>

namespace
{

std::vector<int> typesOf(const resbuf* chain)
{
    std::vector<int> types;
    for (; chain; chain = chain->rbnext)
        types.push_back(chain->restype);
    return types;
}

CVekVertexArray arcs()
{
    return shapes::path({shapes::line(0, 0, 2, 0, 0.5), shapes::line(2, 0, 2, 1)});
}

resbuf* point(double x)
{
    resbuf* node = vekNewRb(VEK::rbPoint3d);
    node->resval.rpoint[0] = x;
    return node;
}

/// The chain of a description: "(" and ")" lists, "p" a point, "r" a real, "s" a short, "t" a text, "n" a nil, "." a
/// dot.
resbuf* chainOf(const char* text)
{
    VEK::CUniqResbuf chain;
    for (; *text; ++text) {
        switch (*text) {
        case '(': chain.append(vekNewRb(VEK::rbListBegin)); break;
        case ')': chain.append(vekNewRb(VEK::rbListEnd)); break;
        case 'p': chain.append(point(1)); break;
        case 'r': chain.append(VEK::mkResbuf(0.5, VEK::rbReal)); break;
        case 's': chain.append(VEK::mkResbuf(3, VEK::rbShort)); break;
        case 't': chain.append(VEK::mkResbuf(L"T", VEK::rbString)); break;
        case 'n': chain.append(vekNewRb(VEK::rbNil)); break;
        default: chain.append(vekNewRb(VEK::rbDot)); break;
        }
    }
    return chain.release();
}

VEK::DataKind kindOf(const char* chain)
{
    CVekDataItem item;
    EXPECT_TRUE(item.setData(chainOf(chain), false)) << chain;
    return item.kind();
}

} // namespace

TEST(Chain, GrowsAtItsEndWhateverItHolds)
{
    VEK::CUniqResbuf chain(chainOf("rs")); // taken over with two nodes
    std::vector<int> expected = typesOf(chain);
    const auto add = [&](const char* more) {
        const VEK::CUniqResbuf same(chainOf(more));
        for (const int type : typesOf(same))
            expected.push_back(type);
        chain.append(chainOf(more));
    };
    for (int i = 0; i < 1000; ++i) {
        add(i % 3 ? "p" : "(st)");
        chain.append(nullptr);
        if (i % 100 == 7) {
            VEK::CUniqResbuf moved(std::move(chain));
            add("n"); // the one that was left begins anew
            moved.append(chain.release());
            chain = std::move(moved);
        }
    }
    EXPECT_EQ(typesOf(chain), expected);
}

TEST(Chain, HasTheToldForm)
{
    CVekArrayTempl<int> numbers;
    EXPECT_EQ(typesOf(VEK::CUniqResbuf(VEK::mkResbuf(numbers))), (std::vector<int>{5019}));
    numbers.append(70000);
    const VEK::CUniqResbuf list(VEK::mkResbuf(numbers));
    EXPECT_EQ(typesOf(list), (std::vector<int>{5016, 5010, 5017}));
    EXPECT_EQ(list->rbnext->resval.rlong, 70000);
    const VEK::CUniqResbuf polyline(VEK::mkResbuf(arcs()));
    EXPECT_EQ(typesOf(polyline),
              (std::vector<int>{5016, 5016, 5009, 5009, 5001, 5017, 5016, 5009, 5009, 5001, 5017, 5017}));
    EXPECT_EQ(polyline->rbnext->rbnext->rbnext->resval.rpoint[0], 2);
    VEK::CUniqResbuf directory;
    CVekDataItem item;
    VEK::dataSet(&item, L"A", 1.5);
    VEK::dataSet(&item, L"B\\C", L"x");
    directory = VEK::rbToList(item.mkLisp());
    EXPECT_EQ(typesOf(directory), (std::vector<int>{5016, 5016, 5005, 5018, 5001, 5017, 5016, 5005, 5018, 5016, 5016,
                                                    5005, 5018, 5005, 5017, 5017, 5017, 5017}));
    EXPECT_EQ(typesOf(VEK::CUniqResbuf(VEK::rbToList(nullptr))), (std::vector<int>{5016, 5017}));
}

TEST(Chain, NodesHoldWhatTheirTypeCan)
{
    const VEK::CUniqResbuf small(VEK::mkResbuf(-7, 5003)), big(VEK::mkResbuf(3e9, 5031)), real(VEK::mkResbuf(2, 5001));
    EXPECT_TRUE(small->resval.rint == -7 && big->resval.mnInt64 == 3000000000 && real->resval.rreal == 2.0);
    EXPECT_FALSE(VEK::mkResbuf(40000, 5003) || VEK::mkResbuf(1, 5016));
    EXPECT_FALSE(VEK::mkResbuf(VEK::nan(), 5010) || VEK::mkResbuf(L"x", 5001));
}

TEST(Chain, BringsEveryLeafBack)
{
    CVekDataItem item;
    shapes::Random random(5);
    data_leaves::forEach(random, [&](const wchar_t* name, const auto& value) { VEK::dataSet(&item, name, value); });
    item.makeItem(L"nothing");
    item.makeDir(L"empty");
    const CVekDataKey number(5003, 100000, 0);
    VEK::dataItemSet(&item, &number, 1);

    CVekDataItem back;
    ASSERT_TRUE(back.setData(item.mkLisp(), false));
    VEK::CDataIterator copy(&back);
    for (VEK::CDataIterator leaf(&item); !leaf.done(); leaf.next(), copy.next()) {
        ASSERT_FALSE(copy.done());
        EXPECT_TRUE(*leaf->getKey() == *copy->getKey());
        const bool asNumber = leaf->kind() == VEK::DataKind::boolean || leaf->kind() == VEK::DataKind::unit;
        EXPECT_EQ(copy->kind(), asNumber ? VEK::DataKind::integer : leaf->kind()) << CVekString(*leaf->getKey()).len();
    }
    EXPECT_TRUE(copy.done());
    random = shapes::Random(5);
    data_leaves::forEach(random, [&](const wchar_t* name, const auto& value) {
        std::decay_t<decltype(value)> other{};
        EXPECT_TRUE(VEK::dataGet(&back, name, other) && other == value);
    });
}

TEST(Chain, IsToldByItsShape)
{
    using VEK::DataKind;
    for (const char* directory : {"", "()", "((t.r))", "(t.r)(s.((t.n)))", "(t.())"})
        EXPECT_EQ(kindOf(directory), DataKind::directory) << directory;
    EXPECT_EQ(kindOf("n"), DataKind::empty);
    EXPECT_EQ(kindOf("(tt)"), DataKind::texts);
    EXPECT_EQ(kindOf("((pps))"), DataKind::polyline);
    EXPECT_EQ(kindOf("(((ppr))n)"), DataKind::polylines);
    EXPECT_EQ(kindOf("((((ppr))))"), DataKind::regions);
}

TEST(Chain, RefusesWhatIsNoValue)
{
    for (const char* bad : {"(", ")", "((", "(t.", "(t.r", "(t.r)r", "(t.r)(", "(rt)", "rr", "((pp))", "(.r)", "(r.r)",
                            "(t.)", ".", "((((((r))))))", "(t.r))", "((t.r)"}) {
        CVekDataItem item;
        VEK::dataSet(&item, nullptr, 5);
        EXPECT_FALSE(item.setData(chainOf(bad), false)) << bad;
        EXPECT_EQ(*item.peek<int>(), 5) << bad;
    }
    CVekDataItem item;
    EXPECT_FALSE(item.setData(vekNewRb(5100), false));
}

TEST(Chain, GivesRegionsAndMovesOn)
{
    const VEK::Regions regions{{arcs()}};
    VEK::CUniqResbuf chain(VEK::mkResbuf(regions));
    chain.append(VEK::mkResbuf(1, 5003));
    resbuf* at = chain;
    VEK::Regions read;
    for (const bool isRegion : {true, false}) {
        EXPECT_EQ(VEK::fromRb(read, at, 0), isRegion);
        ASSERT_TRUE(read == regions && at && at->restype == 5003);
    }
    const VEK::CUniqResbuf nil(vekNewRb(5019));
    at = nil;
    EXPECT_TRUE(VEK::fromRb(read, at, 0) && read.len() == 0 && !at);
    EXPECT_FALSE(VEK::fromRb(read, at, 0));
}

TEST(Chain, BearsAnySequenceOfNodes)
{
    std::mt19937 random(4711);
    int read = 0;
    for (int round = 0; round < 20000; ++round) {
        std::string chain;
        for (std::uint32_t length = random() % 12; length > 0; --length)
            chain += "(()).tsrpn"[random() % 10];
        CVekDataItem item;
        if (!item.setData(chainOf(chain.c_str()), false))
            continue;
        ++read;
        CVekDataItem again;
        ASSERT_TRUE(again.setData(item.mkLisp(), false)) << chain;
        const VEK::CUniqResbuf first(item.mkLisp()), second(again.mkLisp());
        EXPECT_EQ(typesOf(first), typesOf(second)) << chain;
    }
    EXPECT_GT(read, 1000);
}
