#include <vek/values/map.h>
#include <vek/values/string.h>

#include <gtest/gtest.h>
#include <map>
#include <random>

TEST(Map, EntersAnAbsentKeyWithADefaultValue)
{
    CVekMapTempl<CVekString, int> map;
    EXPECT_EQ(map.get(L"B"), nullptr);
    EXPECT_EQ(map[L"B"], 0);
    map[L"a"] = 3;
    map[L"A"] = 1;
    EXPECT_TRUE(map.len() == 3 && map.keyAt(0) == L"A" && map.keyAt(1) == L"B" && map.keyAt(2) == L"a");
    EXPECT_TRUE(map.valueAt(0) == 1 && *map.get(L"a") == 3);
    EXPECT_TRUE(map.valueAt(3) == 0 && map.keyAt(-1).isNull());
}

TEST(Map, BehavesAsAnOrderedMapUnderRandomWork)
{
    std::mt19937 random(7);
    CVekMapTempl<int, int> map;
    std::map<int, int> expected;
    for (int step = 0; step < 40000; ++step) {
        const int key = static_cast<int>(random() % 3000);
        int place = -1;
        const auto bound = expected.lower_bound(key);
        ASSERT_EQ(map.find(key, place), bound != expected.end() && bound->first == key);
        ASSERT_TRUE(map.len() == place || (bound != expected.end() && map.keyAt(place) == bound->first));
        if (random() % 3) {
            map[key] = step;
            expected[key] = step;
        } else {
            ASSERT_EQ(map.remove(key), expected.erase(key) == 1);
        }
        ASSERT_EQ(map.len(), static_cast<int>(expected.size()));
        if (step % 2000 == 0) {
            auto at = expected.begin();
            int index = 0;
            for (auto& [k, v] : map) {
                ASSERT_TRUE(at != expected.end() && k == at->first && v == at->second);
                ASSERT_TRUE(map.keyAt(index) == k && &map.valueAt(index) == &v);
                int found = -1;
                ASSERT_TRUE(map.find(k, found));
                ASSERT_EQ(found, index++);
                v = at++->second = step + index;
            }
            ASSERT_EQ(at, expected.end());
        }
    }
    while (map.len() > 0)
        ASSERT_TRUE(map.remove(map.keyAt(map.len() / 2)));
    EXPECT_FALSE(map.remove(1));
}

TEST(Map, KeepsTheAddressesOfItsValues)
{
    constexpr int kCount = 100000;
    std::mt19937 random(3);
    std::vector<int> keys(kCount);
    for (int i = 0; i < kCount; ++i)
        keys[static_cast<std::size_t>(i)] = i;
    std::shuffle(keys.begin(), keys.end(), random);
    CVekMapTempl<int, int> map;
    std::vector<int*> addresses(kCount);
    for (const int key : keys) {
        map[key] = -key;
        addresses[static_cast<std::size_t>(key)] = &map[key];
    }
    for (int key = 0; key < kCount; key += 3)
        map.remove(key);
    for (int key = 1, index = 0; key < kCount; key += key % 3 == 1 ? 1 : 2, ++index) {
        ASSERT_EQ(map.get(key), addresses[static_cast<std::size_t>(key)]);
        ASSERT_EQ(map.keyAt(index), key);
    }
}

TEST(Map, CopiesDeeplyAndBearsItself)
{
    CVekMapTempl<int, CVekString> map;
    map[1] = L"one";
    CVekMapTempl<int, CVekString> copy = map;
    copy[1] = L"changed";
    EXPECT_STREQ(map[1], L"one");
    CVekMapTempl<int, CVekString>& self = map;
    map = self;
    EXPECT_EQ(map.len(), 1);
    map = copy;
    EXPECT_STREQ(map[1], L"changed");
    map.removeAll();
    EXPECT_EQ(map.len(), 0);
    EXPECT_EQ(map.get(1), nullptr);
    map = std::move(copy);
    EXPECT_EQ(map.len(), 1);
}
