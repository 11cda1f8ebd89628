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

TEST(Map, BehavesAsAnOrderedMapUnderRandomWorkAndKeepsTheAddressesOfItsValues)
{
    std::mt19937 random(7);
    CVekMapTempl<int, int> map;
    std::map<int, int> expected;
    std::map<int, const int*> addresses;
    for (int step = 0; step < 40000; ++step) {
        const int key = static_cast<int>(random() % 3000);
        int place = -1;
        const auto bound = expected.lower_bound(key);
        ASSERT_EQ(map.find(key, place), bound != expected.end() && bound->first == key);
        ASSERT_TRUE(map.len() == place || (bound != expected.end() && map.keyAt(place) == bound->first));
        if (random() % 3) {
            map[key] = step;
            expected[key] = step;
            addresses[key] = &map[key];
        } else {
            ASSERT_EQ(map.remove(key), expected.erase(key) == 1);
        }
        ASSERT_EQ(map.len(), static_cast<int>(expected.size()));
        if (step % 2000 == 0) {
            auto at = expected.begin();
            int index = 0;
            for (auto& [k, v] : map) {
                ASSERT_TRUE(at != expected.end() && k == at->first && v == at->second);
                ASSERT_TRUE(map.keyAt(index) == k && &map.valueAt(index) == &v && addresses[k] == &v);
                int found = -1;
                ASSERT_TRUE(map.find(k, found));
                ASSERT_EQ(found, index++);
                v = at++->second = step + index;
            }
            ASSERT_EQ(at, expected.end());
        }
    }
    CVekMapTempl<int, int> copy = map, taken;
    const int first = map.keyAt(0);
    copy[first] = -1; // deep
    EXPECT_EQ(map[first], expected[first]);
    const auto& self = map = copy;
    map = self;
    EXPECT_TRUE(map[first] == -1 && map.len() == copy.len());
    taken = std::move(map);
    EXPECT_EQ(taken.len(), copy.len());
    while (taken.len() > 0)
        ASSERT_TRUE(taken.remove(taken.keyAt(taken.len() / 2)));
    EXPECT_FALSE(taken.remove(1));
    copy.removeAll();
    EXPECT_TRUE(copy.len() == 0 && !copy.get(first));
}
