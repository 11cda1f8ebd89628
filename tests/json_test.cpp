#include "data_leaves.h"
#include "test_folder.h"

#include <vek/json.h>

#include <gtest/gtest.h>

#include <cstdint>

namespace
{

std::string textOf(const CVekDataItem& tree)
{
    std::string text;
    CVekString error;
    EXPECT_TRUE(VEK::jsonWrite(tree, text, L"tree", error));
    EXPECT_TRUE(error.isNull());
    return text;
}

CVekDataItem treeOf(const std::string& text)
{
    CVekDataItem tree;
    CVekString error;
    EXPECT_TRUE(VEK::jsonRead(tree, text.data(), text.size(), L"tree", error)) << text.substr(0, 200);
    return tree;
}

/// The message for a text that is refused.
std::string messageOf(const std::string& text)
{
    CVekDataItem tree;
    VEK::dataSet(&tree, L"KEPT", 1);
    CVekString error;
    EXPECT_FALSE(VEK::jsonRead(tree, text.data(), text.size(), L"t", error)) << text.substr(0, 100);
    EXPECT_TRUE(tree.getItem(L"KEPT")) << "the tree that was there stays";
    const CVekArrayTempl<char> utf8 = VEK::toUtf8(error);
    return std::string(utf8.begin(), utf8.end());
}

double realOf(std::uint64_t bits)
{
    double value = 0;
    std::memcpy(&value, &bits, sizeof value);
    return value;
}

/// Everything of two trees alike: kinds, keys, order, and the values bit by bit, as their chains tell them.
void expectSame(const CVekDataItem& a, const CVekDataItem& b)
{
    ASSERT_EQ(a.kind(), b.kind());
    VEK::CDataIterator inB(&b);
    for (VEK::CDataIterator inA(&a); !inA.done(); inA.next(), inB.next()) {
        ASSERT_TRUE(!inB.done() && *inA->getKey() == *inB->getKey()) << VEK::toUtf8(*inA->getKey()).begin();
        expectSame(*inA.item(), *inB.item());
    }
    EXPECT_TRUE(inB.done());
    const VEK::CUniqResbuf chainA(a.isDir() ? nullptr : a.mkLisp()), chainB(b.isDir() ? nullptr : b.mkLisp());
    const resbuf* nodeB = chainB;
    for (const resbuf* node = chainA; node; node = node->rbnext, nodeB = nodeB->rbnext) {
        ASSERT_TRUE(nodeB && node->restype == nodeB->restype);
        if (node->restype == VEK::rbString)
            EXPECT_STREQ(node->resval.rstring, nodeB->resval.rstring);
        else
            EXPECT_EQ(std::memcmp(&node->resval, &nodeB->resval, node->restype == VEK::rbPoint3d ? 24 : 8), 0);
    }
    EXPECT_FALSE(nodeB);
}

void expectRoundTrip(const CVekDataItem& tree)
{
    SCOPED_TRACE(textOf(tree).substr(0, 500));
    expectSame(treeOf(textOf(tree)), tree);
}

} // namespace

TEST(Json, BringsBackEveryLeafTypeAndEveryKey)
{
    CVekDataItem tree;
    expectRoundTrip(tree);
    tree.mkDir();
    expectRoundTrip(tree);
    shapes::Random random(7);
    for (int round = 0; round < 20; ++round) {
        data_leaves::forEach(random, [&](const wchar_t* name, const auto& value) {
            const CVekDataKey key(5005, L"types", 5003, round, 5005, name, 0);
            VEK::dataItemSet(&tree, &key, value);
        });
    }
    VEK::dataSet(&tree, L"no points", CVekPoint3dArray());
    VEK::dataSet(&tree, L"no numbers", CVekArrayTempl<int>());
    VEK::dataSet(&tree, L"no texts", CVekArrayTempl<CVekString>());
    VEK::dataSet(&tree, L"no polylines", VEK::VertexArrays());
    VEK::dataSet(&tree, L"no regions", VEK::Regions());
    tree.makeItem(L"nothing");
    tree.makeDir(L"A\\B\\C");
    const int others = tree.getDir()->len();
    const CVekDataKey keys[] = {CVekDataKey(5003, 12, 0), CVekDataKey(L"12"),       CVekDataKey(L"#12"),
                                CVekDataKey(L"##12"),     CVekDataKey(L"#=12"),     CVekDataKey(5020, L"zwölf", 0),
                                CVekDataKey(L"@point"),   CVekDataKey(L"@@"),       CVekDataKey(L"@"),
                                CVekDataKey(L"#"),        CVekDataKey(L""),         CVekDataKey(5003, -1, 0),
                                CVekDataKey(L"a\\b"),     CVekDataKey(5020, L"", 0)};
    for (int value = 0; const CVekDataKey& key : keys)
        VEK::dataItemSet(&tree, &key, value++);
    EXPECT_EQ(tree.getDir()->len(), others + 13) << "the last one is the empty name again";
    expectRoundTrip(tree);
}

TEST(Json, KeepsRealsToTheLastBit)
{
    std::mt19937_64 random(4711);
    std::vector<double> reals{0.0,
                              -0.0,
                              1.0,
                              -1.0,
                              5e-324,
                              1.7976931348623157e308,
                              2.2250738585072014e-308,
                              9007199254740993.0,
                              1e22,
                              1e23,
                              123456789012345680000.0,
                              18446744073709551616.0,
                              VEK::nan(),
                              -VEK::nan(),
                              realOf(0x7FF0000000000001),
                              realOf(0xFFF8000000000123),
                              HUGE_VAL,
                              -HUGE_VAL};
    while (reals.size() < 3000)
        reals.push_back(reals.size() % 4 ? realOf(random()) : static_cast<double>(random()));
    CVekDataItem tree;
    CVekPoint3dArray points;
    CVekVertexArray lines;
    for (int i = 0; const double value : reals) {
        const CVekDataKey key(5003, i++, 0);
        VEK::dataItemSet(&tree, &key, value);
        points.append(CVekPoint3d(value, -value, value));
        lines.append({{value, -value, 0}, {1, 0, value}, value});
    }
    VEK::dataSet(&tree, L"points", points);
    VEK::dataSet(&tree, L"lines", lines);
    expectRoundTrip(tree);
}

TEST(Json, ReadsWhatAPersonWrites)
{
    const CVekDataItem tree =
        treeOf("\xEF\xBB\xBF { \"A\": 1, \"B\": 1e0, \"S\": [\"x\", \"y\"], \"N\": [1, -2],\r\n"
               " \"P\": {\"@point\": [1, 2.5, -0]}, \"C\": {\"@color\": {\"index\": 3}},\n"
               " \"H\": {\"@hatch\": {\"name\": \"NET\"}}, \"VL\": {\"@polyline\": [[0,0,0, 1,0,0, 0]]},"
               " \"D\": {\"#4\": null, \"\\u0041\\ud83d\\ude00\": true} }");
    EXPECT_EQ(*tree.getItem(L"A")->peek<int>(), 1);
    EXPECT_EQ(*tree.getItem(L"B")->peek<double>(), 1.0);
    EXPECT_EQ(tree.getItem(L"S")->peek<CVekArrayTempl<CVekString>>()->len(), 2);
    EXPECT_EQ((*tree.getItem(L"N")->peek<CVekArrayTempl<int>>())[1], -2);
    EXPECT_TRUE(*tree.getItem(L"P")->peek<CVekPoint3d>() == CVekPoint3d(1, 2.5, 0));
    EXPECT_EQ(tree.getItem(L"C")->peek<CVekColor>()->color(), 0x00FF00ul);
    EXPECT_EQ(tree.getItem(L"H")->peek<VEK::CHatchProp>()->scale, 1.0);
    EXPECT_EQ((*tree.getItem(L"VL")->peek<CVekVertexArray>())[0].end[0], 1.0);
    const CVekDataKey four(5003, 4, 0);
    EXPECT_EQ(tree.getItem(L"D")->getItem(&four)->kind(), VEK::DataKind::empty);
    EXPECT_TRUE(tree.getItem(L"D\\A\U0001F600"));
}

TEST(Json, NamesLineAndCause)
{
    const struct {
        const char* text;
        const char* message;
    } cases[] = {{"", "t:1: "},
                 {"{\"A\": 1,\n \"B\": [1,\n 2,\n}", "t:4: "},
                 {"{\n\"A\": 1\n", "t:3: "},
                 {"{\n\"A\": 1e999}", "t:2: number overflow"},
                 {"{\n\"A\": 3000000000\n}", "t:2: an integer beyond 32 bits"},
                 {"{\n\"A\": 99999999999999999999999\n}", "t:2: an integer beyond 32 bits"},
                 {"{\n\"A\": -3000000000\n}", "t:2: an integer beyond 32 bits"},
                 {"{\"A\": 1,\n\"A\": 2}", "t:2: \"A\" stands here twice"},
                 {"{\"A\": \"\\u0000\"}", "t:1: a text cannot hold"},
                 {"{\"A\\u0000\": 1}", "t:1: a name cannot hold"},
                 {"{\"A\":\n\"\xFF\"}", "t:2: syntax error"},
                 {"{\"A\": \"\\ud800\"}", "t:1: syntax error"},
                 {"{\"A\": []}", "t:1: a list without elements"},
                 {"{\"A\": [1,\n\"x\"]}", "t:2: an integer from"},
                 {"{\"A\": [\"x\",\n1]}", "t:2: a text is missing"},
                 {"{\"A\": [1.5]}", "t:1: a list without a tag"},
                 {"{\"A\": [{}]}", "t:1: a list without a tag"},
                 {"{\"A\": {\"@point\": [1,\n2]}}", "t:2: a number is missing"},
                 {"{\"A\": {\"@point\": [1,2,3,4]}}", "t:1: a point has three numbers"},
                 {"{\"A\": {\"@point\": [1,2,3],\n\"B\": 1}}", "t:2: a value with a tag"},
                 {"{\"A\": {\"@point\": {}}}", "t:1: a list of numbers"},
                 {"{\"A\": {\"@matrix\": [[1,0,0,0],[1,0,0,0],[0,0,0,1]]}}", "t:1: a list of numbers"},
                 {"{\"A\": {\"@polyline\": [[0,0,0,1,1,1,0,\"12\"]]}}", "t:1: a tag has sixteen"},
                 {"{\"A\": {\"@polyline\": {\"nomal\": [0,0,1]}}}", "t:1: a polyline has"},
                 {"{\"A\": {\"@regions\": [[[[[[[[1]]]]]]]]}}", "t:1: no value has lists this deep"},
                 {"{\"A\": {\"@color\": {\"index\": 40000}}}", "t:1: a colour index"},
                 {"{\"A\": {\"@color\": {\"rgb\": -1}}}", "t:1: a colour from"},
                 {"{\"A\": {\"@double\": \"0x12\"}}", "t:1: a number is missing"},
                 {"{\"A\": {\"@ulong\": -1}}", "t:1: an integer from 0 on"},
                 {"{\"A\": {\"@ulong\": 99999999999999999999999}}", "t:1: an integer from 0 on"},
                 {"{\"A\": {\"@pint\": 1}}", "t:1: no value has this tag"},
                 {"{\"A\": 1, \"@point\": [1,2,3]}", "t:1: a tag stands alone"},
                 {"{\"#x\": 1}", "t:1: behind #"},
                 {"{\"#99999999999\": 1}", "t:1: behind #"},
                 {"{} x", "t:1: syntax error"},
                 {"{\"A\": NaN}", "t:1: syntax error"}};
    for (const auto& each : cases)
        EXPECT_EQ(messageOf(each.text).compare(0, std::strlen(each.message), each.message), 0) << each.text << '\n'
                                                                                               << messageOf(each.text);
}

TEST(Json, RefusesWhatLiesTooDeep)
{
    const auto nested = [](int depth, const char* open, const char* close) {
        std::string text;
        for (int i = 0; i < depth; ++i)
            text += open;
        for (int i = 0; i < depth; ++i)
            text += close;
        return text;
    };
    std::string deep = nested(VEK::kJsonDepth - 1, "{\"A\":", "}");
    deep.insert(deep.find('}'), "{}");
    expectRoundTrip(treeOf(deep));
    EXPECT_NE(messageOf(nested(100000, "{\"A\":", "}")).find("too deep"), std::string::npos);
    EXPECT_NE(messageOf(nested(100000, "[", "]")).find("deep"), std::string::npos);
    EXPECT_NE(messageOf(std::string(100000, '{')).find("syntax error"), std::string::npos);
    EXPECT_LT(messageOf("\"" + std::string(100000, 'x')).size(), 400u) << "a message does not quote it all";

    CVekDataItem tree;
    CVekDataItem* at = &tree;
    for (int i = 0; i < VEK::kJsonDepth; ++i)
        at = at->makeDir(L"N");
    std::string text("kept");
    CVekString error;
    EXPECT_FALSE(VEK::jsonWrite(tree, text, L"t", error));
    EXPECT_EQ(text, "kept");
    EXPECT_EQ(error.find(L"t: directories lie too deep"), 0);
}

TEST(Json, LoadsAndSavesFiles)
{
    const TestFolder folder(L"json");
    const CVekString path = folder.name(L"tree.json").c_str();
    CVekDataItem tree;
    VEK::dataSet(&tree, L"A\\B", 0.1);
    CVekString error;
    EXPECT_TRUE(VEK::jsonSave(tree, path, error));
    CVekDataItem back;
    EXPECT_TRUE(VEK::jsonLoad(back, path, error));
    expectSame(back, tree);
    EXPECT_TRUE(error.isNull());
    EXPECT_FALSE(VEK::jsonLoad(back, path + L"x", error));
    EXPECT_TRUE(error == path + L"x: cannot be read");
    EXPECT_FALSE(VEK::jsonSave(back, path + L"/x/y", error));
    EXPECT_TRUE(error == path + L"/x/y: cannot be written");
    EXPECT_FALSE(VEK::jsonLoad(back, nullptr, error));
    expectSame(back, tree);
    EXPECT_EQ(folder.files(), 1) << "nothing else is left behind";
}
