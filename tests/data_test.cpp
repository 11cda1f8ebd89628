#include "data_leaves.h"

#include <gtest/gtest.h>

#include <limits>

namespace
{

CVekArrayTempl<CVekString> namesOf(const CVekDataItem& item)
{
    CVekArrayTempl<CVekString> names;
    for (VEK::CDataIterator child(&item); !child.done(); child.next())
        names.append(CVekString(*child->getKey()));
    return names;
}

CVekVertexArray square(double size)
{
    return shapes::rectangle(0, 0, size, size);
}

} // namespace

TEST(DataKey, IsBuiltFromPairs)
{
    const CVekString name(L"Pfosten");
    const CVekDataKey key(5005, L"BT", 5003, 7, 5020, name, 0);
    const CVekDataKey *second = key.next(), *third = second ? second->next() : nullptr;
    ASSERT_TRUE(third && !third->next());
    EXPECT_TRUE(key.type() == 5005 && second->type() == 5003 && third->type() == 5020);
    EXPECT_TRUE(CVekString(key) == L"BT" && static_cast<int>(*second) == 7 && CVekString(*third) == name);
}

TEST(DataKey, StopsBeforeAMalformedPair)
{
    for (const CVekDataKey& key : {CVekDataKey(5005, L"BT", 5001, 1, 0), CVekDataKey(5005, L"BT", 5003, L"7", 0),
                                   CVekDataKey(5005, L"BT", 5005, 7, 0), CVekDataKey(5005, L"BT", 5005)})
        EXPECT_TRUE(key == CVekDataKey(L"BT"));
    EXPECT_TRUE(CVekDataKey(4711, L"BT", 0).isEmpty() && CVekDataKey(static_cast<const wchar_t*>(nullptr)).isEmpty());
    EXPECT_FALSE(CVekDataKey(L"").isEmpty());
}

TEST(DataKey, CopiesAllOrTheFirst)
{
    const CVekDataKey key(5005, L"A", 5003, 1, 0);
    CVekDataKey copy(key);
    EXPECT_TRUE(copy == key);
    CVekDataKey first;
    first = key;
    EXPECT_TRUE(first == CVekDataKey(L"A"));
    copy = *copy.next(); // a part of itself
    EXPECT_TRUE(copy == CVekDataKey(5003, 1, 0));
    EXPECT_FALSE(CVekDataKey(5005, L"A", 0) == CVekDataKey(5020, L"A", 0));
    EXPECT_FALSE(key == first);
    CVekDataKey twice(key);
    twice.append(twice);
    EXPECT_TRUE(twice == CVekDataKey(5005, L"A", 5003, 1, 5005, L"A", 5003, 1, 0));
}

TEST(DataKey, IsAssignedToFreshSlotsAsToUsedOnes)
{
    const CVekDataKey path(5005, L"A", 5005, L"B", 0), first(L"A");
    CVekArrayTempl<CVekDataKey> used{path, path};
    used.setLogicalLength(0);
    CVekArrayTempl<CVekDataKey> fresh;
    for (CVekArrayTempl<CVekDataKey>* keys : {&used, &fresh}) {
        for (int i = 0; i < 20; ++i)
            keys->append(path);
        keys->append(CVekDataKey(path));
        *keys += CVekArrayTempl<CVekDataKey>{path};
        for (const CVekDataKey& key : *keys)
            EXPECT_TRUE(key == first);
    }
}

TEST(DataItem, ReadsEveryLeafTypeAsItWasWritten)
{
    CVekDataItem item;
    shapes::Random random(3);
    int types = 0;
    for (int round = 0; round < 20; ++round) {
        data_leaves::forEach(random, [&](const wchar_t*, const auto& value) {
            std::decay_t<decltype(value)> other{};
            EXPECT_TRUE(VEK::dataSet(&item, L"A\\B", value));
            EXPECT_FALSE(VEK::dataGet(&item, L"A\\C", other));
            EXPECT_TRUE(other == decltype(other){}) << "untouched";
            EXPECT_TRUE(VEK::dataGet(&item, L"A\\B", other));
            EXPECT_TRUE(other == value);
            ++types;
        });
    }
    double rows[4][4] = {{1, 0, 0, 7}, {0, 1, 0, 8}, {0, 0, 1, 9}, {0, 0, 0, 1}};
    CVekMatrix3d matrix;
    EXPECT_TRUE(VEK::dataSet(&item, L"MTX", rows) && VEK::dataGet(&item, L"MTX", matrix));
    EXPECT_TRUE(matrix == CVekMatrix3d().setToTranslation({7, 8, 9}));
    EXPECT_TRUE(VEK::dataSet(&item, L"MTX", matrix.inverse()) && VEK::dataGet(&item, L"MTX", rows));
    EXPECT_EQ(rows[1][3], -8);
    EXPECT_EQ(types, 20 * 16);
}

TEST(DataItem, ConvertsNumbersAndNothingElse)
{
    CVekDataItem item;
    int whole = 77;
    unsigned long natural = 77;
    double real = 77;
    bool flag = true;
    CVekString text(L"77");
    const auto reads = [&](auto stored, int asInt, unsigned long asNatural, double asReal, bool asFlag) {
        VEK::dataSet(&item, nullptr, stored);
        EXPECT_TRUE(item.get(whole) && item.get(natural) && item.get(real) && item.get(flag));
        EXPECT_TRUE(whole == asInt && natural == asNatural && real == asReal && flag == asFlag);
        EXPECT_FALSE(item.get(text));
    };
    reads(-2.9, -2, 0xFFFFFFFE, -2.9, true);
    reads(0.9, 0, 0, 0.9, false);
    reads(0xFFFFFFFFul, -1, 0xFFFFFFFF, 4294967295.0, true);
    reads(Vek::unitMetre, 6, 6, 6.0, true);
    whole = 77;
    for (double bad : {1e10, -1e10, 1e300, std::numeric_limits<double>::infinity(), VEK::nan()}) {
        VEK::dataSet(&item, nullptr, bad);
        EXPECT_FALSE(item.get(whole)) << bad;
    }
    VEK::dataSet(&item, nullptr, L"12");
    EXPECT_FALSE(item.get(whole));
    VEK::dataSet(&item, nullptr, CVekColor());
    EXPECT_FALSE(item.get(whole));
    item.mkDir();
    EXPECT_FALSE(item.get(whole));
    EXPECT_EQ(whole, 77);
}

TEST(DataItem, FindsPathsInText)
{
    CVekDataItem item;
    VEK::dataSet(&item, L"A\\B\\C", 1);
    VEK::dataSet(item.getItem(L"A"), L"", 2);
    const CVekDataKey whole(L"A\\B");
    VEK::dataItemSet(&item, &whole, 3);
    EXPECT_TRUE(item.getItem(nullptr) == &item);
    EXPECT_EQ(*item.getItem(L"A\\B")->peek<int>(), 3) << "a child of exactly that name comes first";
    EXPECT_EQ(*item.getItem(L"A\\B\\C")->peek<int>(), 1);
    EXPECT_EQ(*item.getItem(L"A\\")->peek<int>(), 2);
    EXPECT_FALSE(item.getItem(L"A\\B\\C\\D"));
    EXPECT_FALSE(item.getItem(L"B"));
    item.remove(L"A\\B\\C");
    EXPECT_FALSE(item.getItem(L"A\\B\\C"));
    EXPECT_TRUE(item.getItem(L"A\\B"));
    item.remove(L"no such child");
    EXPECT_STREQ(*item.makeDir(L"X\\Y")->getKey(), L"Y");
    EXPECT_TRUE(item.getItem(L"X\\Y")->isDir());
}

TEST(DataItem, KeepsAddressesAndTurnsLeavesIntoDirectories)
{
    CVekDataItem item;
    VEK::dataSet(&item, L"A", 1);
    CVekDataItem* leaf = item.getItem(L"A");
    VEK::dataSet(&item, L"A", L"text");
    EXPECT_EQ(item.getItem(L"A"), leaf);
    VEK::dataSet(&item, L"A\\B", 2);
    EXPECT_EQ(item.getItem(L"A"), leaf);
    EXPECT_TRUE(leaf->isDir());
    VEK::dataItemSet(leaf, nullptr, *leaf->getItem(L"B")->peek<int>());
    EXPECT_EQ(*leaf->peek<int>(), 2);
    const CVekDataKey first(5005, L"K", 0), second(5020, L"K", 0);
    VEK::dataItemSet(&item, &first, 1);
    VEK::dataItemSet(&item, &second, 2);
    EXPECT_EQ(item.getDir()->len(), 2);
    EXPECT_EQ(item.getItem(&first)->getKey()->type(), 5005);
    EXPECT_EQ(*item.getItem(&first)->peek<int>(), 2);
}

TEST(DataItem, TakesPathsAndValuesThatBelongToIt)
{
    const wchar_t* const long1 = L"A\\a name that fits into no buffer of its own";
    const auto textOf = [](const CVekDataItem& item, const wchar_t* path) {
        return static_cast<const wchar_t*>(*item.getItem(path)->peek<CVekString>());
    };
    CVekDataItem item;
    VEK::dataSet(&item, L"A", long1);
    EXPECT_TRUE(VEK::dataSet(&item, textOf(item, L"A"), 5)); // its own text leads through it
    EXPECT_EQ(*item.getItem(long1)->peek<int>(), 5);
    VEK::dataSet(&item, L"A", long1);
    EXPECT_TRUE(item.makeItem(textOf(item, L"A")));
    VEK::dataSet(&item, L"A", long1);
    EXPECT_TRUE(VEK::dataSet(&item, L"A\\B", *item.getItem(L"A")->peek<CVekString>()));
    EXPECT_STREQ(textOf(item, L"A\\B"), long1);
    EXPECT_TRUE(VEK::dataSet(&item, L"A\\B\\C", textOf(item, L"A\\B")));
    EXPECT_STREQ(textOf(item, L"A\\B\\C"), long1);
    VEK::dataSet(&item, nullptr, long1);
    EXPECT_TRUE(VEK::dataSetList(&item, textOf(item, nullptr), square(2)));
    EXPECT_TRUE(*item.getItem(long1)->peek<CVekVertexArray>() == square(2));
    EXPECT_TRUE(VEK::dataSetList(&item, L"A\\B\\LIST", *item.getItem(long1)->peek<CVekVertexArray>()));
    EXPECT_TRUE(item.getItem(L"A\\B\\LIST")) << "a path";
    EXPECT_TRUE(VEK::dataSetList(&item, L"A\\B\\LIST", CVekVertexArray()));
    EXPECT_FALSE(item.getItem(L"A\\B\\LIST"));

    VEK::CCfgBackup backup(true);
    backup.attach(L"SELF");
    const CVekDataKey below(5005, L"SELF", 5005, L"X", 0);
    VEK::dataSet(VEK::cfgMgrPtr()->tree(), L"SELF", long1);
    EXPECT_TRUE(VEK::cfgSet(&below, textOf(*VEK::cfgMgrPtr()->tree(), L"SELF")));
    EXPECT_STREQ(textOf(*VEK::cfgMgrPtr()->tree(), L"SELF\\X"), long1);
}

TEST(DataItem, BearsNull)
{
    const CVekDataItem* none = nullptr;
    int value = 5;
    EXPECT_FALSE(VEK::dataItemGet(none, nullptr, value) || VEK::dataGet(none, L"A", value));
    EXPECT_EQ(value, 5);
    EXPECT_FALSE(VEK::dataItemSet(nullptr, nullptr, 1) || VEK::dataSet(nullptr, L"A", 1));
    EXPECT_FALSE(VEK::dataSetList(nullptr, L"A", CVekArrayTempl<int>()));
    EXPECT_EQ(CVekDataItem(none).kind(), VEK::DataKind::empty);
    const CVekDataItem leaf;
    for (const CVekDataItem* childless : {none, &leaf}) {
        VEK::CDataIterator it(childless);
        EXPECT_TRUE(it.done() && !it.item());
        it.next();
        EXPECT_TRUE(it.done());
    }
}

// The contract lets callers copy what `getItem` gave without a test; only a caller without the sanitizer can do so.
#if defined(__GNUC__)
__attribute__((no_sanitize("undefined"), noinline))
#endif
static CVekDataItem
copyOf(const CVekDataItem* item)
{
    return CVekDataItem(*item);
}

TEST(DataItem, CopiesWhatIsMissingAsEmpty)
{
    CVekDataItem item;
    EXPECT_EQ(copyOf(item.getItem(L"BT")).kind(), VEK::DataKind::empty);
}

TEST(DataItem, ListsDropTheKeyWhenEmpty)
{
    CVekDataItem item;
    for (const int length : {4, 0}) {
        CVekVertexArray polyline = square(2);
        polyline.setLogicalLength(length);
        EXPECT_TRUE(VEK::dataSetList(&item, L"VL", polyline) && item.isDir());
        EXPECT_EQ(item.getItem(L"VL") != nullptr, length > 0);
    }
    CVekArrayTempl<int> stack{5};
    EXPECT_TRUE(VEK::dataSetList(&item, L"", stack)) << "the item itself";
    EXPECT_TRUE(item.get(stack));
    int one = 0;
    EXPECT_FALSE(item.get(one)) << "a list of one is no number";
}

TEST(DataDir, KeepsTheOrder)
{
    CVekDataItem item;
    CVekDataDir* dir = item.mkDir();
    for (const wchar_t* name : {L"D", L"B", L"C", L"A"})
        VEK::dataSet(&item, name, 1);
    const CVekDataKey b(L"B"), c(L"C");
    EXPECT_TRUE(dir->insertCopy(&c, nullptr, true));
    EXPECT_EQ(item.getItem(L"C")->kind(), VEK::DataKind::empty);
    EXPECT_TRUE(dir->remove(&b));
    EXPECT_FALSE(dir->remove(&b));
    VEK::dataSet(&item, L"B", 1);
    EXPECT_TRUE(VEK::implode(namesOf(item), L" ") == L"D C A B");
    EXPECT_FALSE(dir->makeItem(nullptr) || dir->insertCopy(nullptr, &item, true) || dir->getItem(nullptr));
}

TEST(DataDir, SharesAnItem)
{
    VEK::CSharedPointer<CVekDataItem> shared(new CVekDataItem);
    const CVekDataKey a(5005, L"X", 5005, L"A", 0);
    const CVekDataKey b(L"B");
    {
        CVekDataItem item;
        CVekDataDir* dir = item.mkDir();
        EXPECT_EQ(dir->insertItem(&a, shared, false), shared);
        VEK::dataSet(shared, nullptr, 42);
        EXPECT_EQ(*item.getItem(L"X\\A")->peek<int>(), 42);
        EXPECT_STREQ(*shared->getKey(), L"A");
        EXPECT_NE(dir->insertItem(&b, shared, false), shared) << "one parent only";
        EXPECT_FALSE(dir->insertItem(&b, VEK::CSharedPointer<CVekDataItem>(), false));
    }
    EXPECT_EQ(*shared->peek<int>(), 42);
    EXPECT_FALSE(shared->getParent());
}

TEST(DataDir, NeverHoldsItself)
{
    const VEK::CSharedPointer<CVekDataItem> top(new CVekDataItem(CVekDataItem::directory));
    const CVekDataKey self(L"SELF");
    CVekDataDir* below = top->makeDir(L"A\\B")->getDir();
    EXPECT_NE(below->insertItem(&self, top, false), top);
    EXPECT_TRUE(top->getItem(L"A\\B\\SELF\\A\\B"));
    EXPECT_FALSE(top->getItem(L"A\\B\\SELF\\A\\B\\SELF"));
}
