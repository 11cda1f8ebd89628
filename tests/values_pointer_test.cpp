#include <vek/values/pointer.h>

#include <atomic>
#include <gtest/gtest.h>
#include <thread>

using namespace VEK;

namespace
{

struct Thing {
    static inline std::atomic<int> alive = 0;
    int value = 0;
    Thing() { ++alive; }
    ~Thing() { --alive; }
};

} // namespace

TEST(SharedPointer, LastHolderDeletes)
{
    CSharedPointer<Thing> a(new Thing), b(new Thing);
    const CSharedPointer<Thing>& self = a;
    a = self;
    EXPECT_EQ(a.refCount(), 1);
    b = a;
    a->value = 5;
    EXPECT_TRUE(Thing::alive == 1 && a.refCount() == 2 && b->value == 5 && b.ptr() == a.ptr());
    b = CSharedPointer<Thing>();
    EXPECT_EQ(b.refCount(), 0);
    EXPECT_EQ(b.ptr(), nullptr);
    b = std::move(a);
    EXPECT_EQ(b.refCount(), 1);
    b = nullptr;
    EXPECT_EQ(Thing::alive, 0);
}

TEST(SharedPointer, ReleaseLeavesNullToEveryHolder)
{
    CSharedPointer<Thing> a(new Thing);
    const CSharedPointer<Thing> b = a;
    Thing* raw = a.release();
    ASSERT_NE(raw, nullptr);
    EXPECT_EQ(static_cast<Thing*>(a), nullptr);
    EXPECT_EQ(static_cast<Thing*>(b), nullptr);
    EXPECT_EQ(a.release(), nullptr);
    EXPECT_FALSE(a.newRef(raw)) << "it has an entry";
    a = nullptr;
    CPtrMap& base = a;
    EXPECT_TRUE(base.newRef(raw));
    EXPECT_EQ(a->value, 0);
    EXPECT_EQ(base.decrRef(), raw);
    EXPECT_EQ(a.refCount(), 0);
    EXPECT_EQ(Thing::alive, 1);
    delete raw;
}

TEST(SharedPointer, ReusesTheEntriesOfItsTable)
{
    const CSharedPointer<Thing> first(new Thing);
    const std::size_t before = CPtrMap::m_DataArr.size();
    for (int round = 0; round < 100; ++round) {
        std::vector<CSharedPointer<Thing>> holders;
        for (int i = 0; i < 50; ++i)
            holders.emplace_back(new Thing);
    }
    EXPECT_LE(CPtrMap::m_DataArr.size(), before + 50);
    EXPECT_EQ(Thing::alive, 1);
}

TEST(UniqPointer, OwnsAlone)
{
    CUniqPointer<Thing> a(new Thing);
    CUniqPointer<Thing> b = std::move(a);
    EXPECT_EQ(static_cast<Thing*>(a), nullptr);
    b->value = 3;
    EXPECT_FALSE(b.newRef(a)) << "null";
    b = CUniqPointer<Thing>(new Thing);
    EXPECT_EQ(b->value, 0);
    EXPECT_EQ(Thing::alive, 1);
    EXPECT_FALSE(b.newRef(b)) << "it has one";
    EXPECT_EQ(b.refCount(), 1);
    delete b.decrRef();
    EXPECT_EQ(b.refCount(), 0);
    EXPECT_TRUE(b.newRef(new Thing));
    b = nullptr;
    EXPECT_EQ(Thing::alive, 0);
}

TEST(SharedPointerThreads, MayShareOneObject)
{
    constexpr int kThreads = 4;
    constexpr int kRounds = 2000;
    std::atomic<long> sum = 0;
    {
        CSharedPointer<Thing> shared(new Thing);
        shared->value = 1;
        std::vector<std::thread> threads;
        for (int t = 0; t < kThreads; ++t) {
            threads.emplace_back([own = shared, &sum] {
                for (int i = 0; i < kRounds; ++i) {
                    const CSharedPointer<Thing> copy = own;
                    sum += copy->value;
                    CSharedPointer<Thing> fresh(new Thing); // grows and shrinks the table meanwhile
                    fresh->value = i;
                    fresh = copy;
                }
            });
        }
        for (std::thread& thread : threads)
            thread.join();
        threads.clear();
        EXPECT_EQ(shared.refCount(), 1);
    }
    EXPECT_EQ(sum, static_cast<long>(kThreads) * kRounds);
    EXPECT_EQ(Thing::alive, 0);
}
