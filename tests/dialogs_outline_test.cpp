// The outline dialog without its window: random users on damaged libraries against the rules followed literally.
#include <vek/data/iterator.h>
#include <vek/dialogs/outline.h>
#include <vek/objects/outline.h>

#include <gtest/gtest.h>

#include <map>
#include <random>
#include <string>
#include <tuple>
#include <vector>

namespace
{

using VEK::OutlineChoice;
using Parms = std::vector<double>;

constexpr double kPi = 3.14159265358979323846;

template <class Value>
Value get(const CVekDataItem* item, const std::wstring& path, Value value)
{
    VEK::dataGet(item, path.c_str(), value);
    return value;
}

/// The dialog as its rules tell.
struct Replay {
    const CVekDataItem& library;
    int range, code, filter, textGen;
    Parms parms;
    std::vector<int> signs;
    std::map<std::pair<int, int>, Parms> memory;
    std::map<std::pair<int, int>, CVekVector3d> base;

    const CVekDataItem* entry(int i = -1) const
    {
        const CVekDataKey key(5003, code, i < 0 ? 0 : 5005, (L"PARM" + std::to_wstring(i + 1)).c_str(), 0);
        return library.getItem(&key);
    }
    CVekString text(int i, const wchar_t* name) const { return get(entry(i), name, CVekString()); }
    double degrees(int i) const { return code == 21 && i == 2 ? 180.0 / kPi : 1.0; }
    bool isPlain(int i) const { return text(i, L"MINUSP").isNull(); }
    bool isRow(int i) const { return i >= 0 && i < static_cast<int>(signs.size()); }
    double stored(int i) const { return i < static_cast<int>(parms.size()) ? parms[i] : 0.0; }
    void set(int i, double value)
    {
        parms.resize(std::max(parms.size(), std::size_t(i + 1)));
        parms[i] = value;
    }
    Parms& remembered() { return memory[{range, code}]; }
    void load(int next)
    {
        remembered() = parms;
        code = next;
        parms = remembered();
        signs.clear();
        textGen = get(entry(), L"TXTGEN", textGen);
        for (int i = 0; i < std::min(get(entry(), L"PARMS", 0), 6) && entry(i) && entry(i)->isDir(); ++i) {
            const CVekDataKey place(5005, L"VAL", 5003, range + 1, 0);
            double value = 0.0;
            if (static_cast<int>(parms.size()) <= i && VEK::dataItemGet(entry(i), &place, value))
                set(i, value);
            signs.push_back(isPlain(i) || stored(i) > 0.0 ? 1 : stored(i) < 0.0 ? -1 : 0);
        }
        parms.resize(std::min(parms.size(), signs.size()));
    }
    void expectRow(const OutlineChoice::Row& row, int i) const
    {
        const double value = stored(i) / degrees(i);
        EXPECT_EQ(row.label, text(i, signs[i] < 0 ? L"MINUSP" : L"LABEL"));
        EXPECT_TRUE(row.plain == isPlain(i) && row.angle == (text(i, L"TYPE") == L"A"));
        EXPECT_EQ(row.valid, get(entry(i), L"VALID", 0));
        EXPECT_DOUBLE_EQ(row.value, isPlain(i) ? value : std::abs(value));
        for (const auto& [word, number] : row.words)
            EXPECT_EQ(number, get(entry(i), L"KWORD\\" + std::wstring(word), 0.0));
    }
};

TEST(DialogsOutline, RandomUsersSeeWhatTheRulesTell)
{
    int loads = 0, toggles = 0, empty = 0, again = 0, words = 0;
    for (unsigned seed = 1; seed <= 150; ++seed) {
        SCOPED_TRACE(seed);
        std::mt19937 engine(seed);
        const auto below = [&](int limit) { return static_cast<int>(engine() % static_cast<unsigned>(limit)); };
        const auto number = [&] { return below(5) ? (below(4001) - 2000) / 8.0 : 0.0; };
        CVekDataItem library;
        ASSERT_TRUE(VEK::outlineInit(&library));
        VEK::dataSet(&library, L"a text as key\\LABEL", L"label");
        const auto damage = [&] {
            const wchar_t* parts[] = {L"CODE", L"LABEL", L"PARMS", L"TXTGEN", L"\\VALID", L"\\MINUSP", L"\\TYPE", L""};
            const int part = below(8);
            const std::wstring name = L"PARM" + std::to_wstring(below(4) + 1),
                               path = (part < 4 ? L"" : name) + parts[part];
            const CVekDataKey code(5003, below(41) + 1, 0), value(5005, name.c_str(), 5005, L"VAL", 5003, 3, 0);
            CVekDataItem* entry = library.getItem(&code);
            if (!entry || (below(40) == 0 && library.getDir()->remove(&code)))
                return;
            VEK::dataItemSet(entry, &value, number());
            if (part < 3 && below(2))
                VEK::dataSet(entry, path.c_str(), below(17) - 1); // a label becomes a number
            else if (part > 4 && below(2))
                VEK::dataSet(entry, path.c_str(), L"A"); // an angle, or no directory
            else
                entry->remove(path.c_str());
        };
        for (int i = seed % 3 * 100; i > 0; --i)
            damage();
        VEK::outlineMemory().setLogicalLength(0);
        VEK::outlineData data;
        data.code = below(2) ? 12345 : 21;
        data.filter = below(16);
        data.range = below(4) + 1;
        for (int i = below(9); i > 0; --i)
            data.parms.append(number());
        Replay replay{library, data.range - 1, data.code, data.filter, 3, {}, {}, {}, {}};
        replay.parms.assign(data.parms.begin(), data.parms.end());
        OutlineChoice choice;
        choice.library = &library;
        ASSERT_TRUE(choice.take(data));
        for (int step = 0; step < 40; ++step) {
            SCOPED_TRACE(step);
            const int act = step == 0 ? 0 : below(7), row = below(5) - 1;
            const double value = number();
            for (int i = seed % 5 * 2; i > 0; --i) // whoever owns the library may change it meanwhile
                damage();
            if (act == 1) {
                const int range = below(6) - 1; // clamped
                ASSERT_TRUE(choice.rangeSet(range));
                replay.remembered() = replay.parms;
                replay.range = std::clamp(range, 0, 3);
                again += !replay.remembered().empty();
                replay.parms = replay.remembered();
            } else if (act == 2) {
                choice.filter = replay.filter = below(16);
            } else if (act == 3 || act == 4) {
                CVekString label;
                const bool turns = replay.isRow(row) && !replay.isPlain(row);
                const int sign = turns && replay.signs[row] < 0 ? 1 : -1;
                const CVekString next = turns ? replay.text(row, sign < 0 ? L"MINUSP" : L"LABEL") : label;
                ASSERT_EQ(choice.toggle(row, label), !next.isNull());
                EXPECT_EQ(label, next);
                if (!next.isNull() && ++toggles) {
                    replay.signs[row] = sign;
                    replay.set(row, replay.stored(row) * -1.0);
                }
            } else if (act == 5) {
                choice.parmSet(row, value);
                if (replay.isRow(row))
                    replay.set(row, replay.signs[row] * value * replay.degrees(row));
            } else if (act == 6) {
                choice.basePositionSet(step % 2, value);
                replay.base[{replay.range, replay.code}][step % 2] = -value;
            }
            const auto kinds = choice.kinds();
            int place = -1, count = 0;
            for (VEK::CDataIterator each(&library); !each.done(); each.next()) {
                if (!(get(each, L"CODE", 0) & replay.filter) || get(each, L"LABEL", CVekString()).isNull())
                    continue;
                EXPECT_EQ(kinds[count].label, get(each, L"LABEL", CVekString()));
                place = kinds[count].code == replay.code || place < 0 ? count : place;
                EXPECT_EQ(kinds[count++].code, static_cast<int>(*each->getKey()));
            }
            ASSERT_EQ(kinds.len(), count);
            ASSERT_EQ(choice.placeIn(kinds), place);
            empty += count == 0;
            if (act < 3 && count > 0 && ++loads) {
                OutlineChoice::Rows rows;
                const int next = kinds[act == 0 && step > 0 ? below(count) : place].code;
                ASSERT_TRUE(choice.load(next, rows));
                replay.load(next);
                ASSERT_EQ(rows.len(), static_cast<int>(replay.signs.size()));
                for (int i = 0; i < rows.len(); words += rows[i++].words.len())
                    replay.expectRow(rows[i], i);
            }
            VEK::outlineData result;
            ASSERT_TRUE(choice.give(result));
            ASSERT_EQ(result.parms.len(), static_cast<int>(replay.parms.size()));
            for (int i = 0; i < result.parms.len(); ++i)
                EXPECT_DOUBLE_EQ(result.parms[i], replay.parms[i]);
            EXPECT_EQ(result.basePoint, (replay.base[{replay.range, replay.code}].asPoint()));
            EXPECT_EQ(choice.basePosition().x, -result.basePoint.x);
            EXPECT_EQ(std::tuple(result.code, result.range, result.filter, result.textGen),
                      std::tuple(replay.code, replay.range + 1, replay.filter, replay.textGen));
        }
    }
    EXPECT_TRUE(loads > 2000 && toggles > 40 && empty > 100 && again > 100 && words > 2000)
        << loads << ' ' << toggles << ' ' << empty << ' ' << again << ' ' << words;
}

} // namespace
