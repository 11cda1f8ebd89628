#include <vek/data.h>

#include <gtest/gtest.h>

#include <random>
#include <vector>

namespace
{

constexpr int kDeep = 100000;

struct Model {
    CVekDataKey key;
    int value;
};

void expectSame(const CVekDataItem& item, const std::vector<Model>& model)
{
    ASSERT_EQ(item.getDir()->len(), static_cast<int>(model.size()));
    VEK::CDataIterator child(&item);
    for (const Model& expected : model) {
        ASSERT_FALSE(child.done());
        EXPECT_TRUE(*child->getKey() == expected.key);
        EXPECT_EQ(*child->peek<int>(), expected.value);
        EXPECT_EQ(item.getItem(&expected.key), child.item());
        child.next();
    }
    EXPECT_TRUE(child.done());
}

/// A chain of directories "N" below the item, with a number at its end.
void deepen(CVekDataItem& item)
{
    CVekDataItem* at = &item;
    for (int i = 0; i < kDeep; ++i)
        at = at->makeDir(L"N");
    VEK::dataSet(at, L"END", 7);
}

int depthOf(const CVekDataItem& item)
{
    int depth = 0;
    for (const CVekDataItem* at = item.getItem(L"N"); at; at = at->getItem(L"N"))
        ++depth;
    return depth;
}

} // namespace

TEST(DataTree, AgreesWithAPlainListUnderRandomChanges)
{
    std::mt19937 random(4711);
    CVekDataItem item(CVekDataItem::directory);
    std::vector<Model> model;
    for (int step = 0; step < 20000; ++step) {
        const int number = static_cast<int>(random() % 400);
        const short type = number % 3 == 1 ? CVekDataKey::keyText : CVekDataKey::keyText2;
        const CVekDataKey key = number % 3 == 0 ? CVekDataKey(5003, 200 - number, 0)
                                : number == 1   ? CVekDataKey(L"")
                                                : CVekDataKey(type, CVekString().format(L"K%d", number), 0);
        const auto there =
            std::find_if(model.begin(), model.end(), [&](const Model& entry) { return entry.key == key; });
        // Growing and shrinking in turn, so that the table appears, is rebuilt and loses its gaps.
        if (random() % 8 < (step / 2000 % 2 ? 2u : 6u)) {
            VEK::dataItemSet(&item, &key, step);
            if (there == model.end())
                model.push_back({key, step});
            else
                there->value = step;
        } else {
            EXPECT_EQ(item.getDir()->remove(&key), there != model.end());
            if (there != model.end())
                model.erase(there);
        }
        if (step % 500 == 0)
            expectSame(item, model);
    }
    expectSame(item, model);
}

TEST(DataTree, LosesChildrenUnderAnIterator)
{
    CVekDataItem item(CVekDataItem::directory);
    for (int i = 0; i < 100; ++i) {
        const CVekDataKey key(5003, i, 0);
        VEK::dataItemSet(&item, &key, i);
    }
    int met = 0;
    for (VEK::CDataIterator child(&item); !child.done(); child.next(), ++met) {
        const CVekDataKey own = *child->getKey();
        if (met % 3)
            item.getDir()->remove(&own);
    }
    EXPECT_EQ(met, 100);
    EXPECT_EQ(item.getDir()->len(), 34);
}

TEST(DataTree, AssignsAcrossItself)
{
    CVekDataItem item;
    VEK::dataSet(&item, L"A\\B\\C", 1);
    CVekDataItem up(item), moved(item), down(item);
    up = *up.getItem(L"A\\B");
    moved = std::move(*moved.getItem(L"A\\B"));
    EXPECT_TRUE(*up.getItem(L"C")->peek<int>() == 1 && *moved.getItem(L"C")->peek<int>() == 1);
    CVekDataItem* b = down.getItem(L"A\\B");
    *b = down;
    EXPECT_EQ(*down.getItem(L"A\\B\\A\\B\\C")->peek<int>(), 1);
    EXPECT_STREQ(*b->getKey(), L"B");
    *b = std::move(down);
    EXPECT_TRUE(b->getItem(L"A\\B\\A\\B\\C"));
    const VEK::CUniqPointer<CVekDataItem> copy(item.clone());
    item = *&item;
    VEK::dataSet(&item, L"A\\E", 2);
    EXPECT_FALSE(copy->getItem(L"A\\E") || copy->getParent());
    EXPECT_EQ(copy->getItem(L"A\\B\\C")->getParent()->getParent()->getParent(), copy);
    EXPECT_EQ(*item.getItem(L"A\\B\\C")->peek<int>(), 1);
}

TEST(DataTree, MovesWithItsChildren)
{
    CVekDataItem item;
    VEK::dataSet(&item, L"A\\B", 1);
    CVekDataItem* a = item.getItem(L"A");
    CVekArrayTempl<CVekDataItem> items;
    items.append(std::move(item));
    for (int i = 0; i < 100; ++i)
        items.append(CVekDataItem());
    EXPECT_EQ(items[0].getItem(L"A"), a);
    EXPECT_EQ(a->getParent(), &items[0]);
    EXPECT_EQ(item.kind(), VEK::DataKind::empty);
}

TEST(DataTree, IsAsDeepAsItLikes)
{
    CVekDataItem item;
    deepen(item);
    const CVekDataItem copy(item);
    EXPECT_EQ(depthOf(copy), kDeep);
    CVekDataItem back;
    EXPECT_TRUE(back.setData(copy.mkLisp(), false) && depthOf(back) == kDeep);
    back.remove(L"N");
    EXPECT_EQ(depthOf(back), 0);
}

TEST(DataTree, DestroysDeepChainsOfSharedItems)
{
    VEK::CSharedPointer<CVekDataItem> top(new CVekDataItem);
    const CVekDataKey key(L"N");
    CVekDataItem* at = top;
    for (int i = 0; i < kDeep; ++i) {
        const VEK::CSharedPointer<CVekDataItem> below(new CVekDataItem);
        at = at->mkDir()->insertItem(&key, below, false);
    }
    EXPECT_EQ(depthOf(*top), kDeep);
    top = VEK::CSharedPointer<CVekDataItem>(); // overflows the stack when it fails
}
