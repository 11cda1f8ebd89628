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
    std::vector<int> offered() const
    {
        std::vector<int> codes;
        for (VEK::CDataIterator each(&library); !each.done(); each.next())
            if (get(each, L"CODE", 0) & filter && !get(each, L"LABEL", CVekString()).isNull())
                codes.push_back(*each->getKey());
        return codes;
    }
    double degrees(int i) const { return code == 21 && i == 2 ? 180.0 / kPi : 1.0; }
    bool isPlain(int i) const { return text(i, L"MINUSP").isNull(); }
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
    void expectRows(const OutlineChoice::Rows& rows) const
    {
        ASSERT_EQ(rows.len(), static_cast<int>(signs.size()));
        for (int i = 0; i < rows.len(); ++i) {
            const double value = stored(i) / degrees(i);
            EXPECT_EQ(rows[i].label, text(i, signs[i] < 0 ? L"MINUSP" : L"LABEL"));
            EXPECT_EQ(rows[i].plain, isPlain(i));
            EXPECT_EQ(rows[i].angle, text(i, L"TYPE") == L"A");
            EXPECT_EQ(rows[i].valid, get(entry(i), L"VALID", 0));
            EXPECT_DOUBLE_EQ(rows[i].value, isPlain(i) ? value : std::abs(value));
            int words = 0;
            for (VEK::CDataIterator each(entry(i)->getItem(L"KWORD")); !each.done(); each.next(), ++words)
                EXPECT_EQ(rows[i].words[words].value, *each->peek<double>());
            EXPECT_EQ(rows[i].words.len(), words);
        }
    }
};

TEST(DialogsOutline, RandomUsersSeeWhatTheRulesTell)
{
    int loads = 0, toggles = 0, empty = 0, again = 0, shapes = 0;
    for (unsigned seed = 1; seed <= 150; ++seed) {
        SCOPED_TRACE(seed);
        std::mt19937 engine(seed);
        const auto below = [&](int limit) { return static_cast<int>(engine() % static_cast<unsigned>(limit)); };
        const auto number = [&] { return below(5) ? (below(4001) - 2000) / 8.0 : 0.0; };
        CVekDataItem library;
        ASSERT_TRUE(VEK::outlineInit(&library));
        VEK::dataSet(&library, L"a text as key\\LABEL", L"label");
        for (int damage = seed % 3 * 100; damage > 0; --damage) {
            const wchar_t* parts[] = {L"CODE", L"LABEL", L"TXTGEN", L"PARMS", L"\\VALID", L"\\MINUSP", L"\\TYPE", L""};
            const int part = below(8);
            const std::wstring name = L"PARM" + std::to_wstring(below(4) + 1);
            const std::wstring path = part < 4 ? parts[part] : name + parts[part];
            const CVekDataKey code(5003, below(41) + 1, 0),
                value(5005, name.c_str(), 5005, L"VAL", 5003, below(4) + 1, 0);
            CVekDataItem* entry = library.getItem(&code);
            VEK::dataItemSet(entry, &value, number());
            if (below(2))
                entry->remove(path.c_str());
            else if (part < 4)
                VEK::dataSet(entry, path.c_str(), below(17) - 1); // a label becomes a number
            else if (below(part < 7 ? 1 : 4) == 0)
                VEK::dataSet(entry, path.c_str(), L"A"); // no directory, or a type
        }
        VEK::outlineMemory().setLogicalLength(0);
        VEK::outlineData data = {below(2) ? 12345 : 21,     below(16),     5, below(4) + 1, {}, {},
                                 {number(), number(), 4.0}, Vek::unitMetre};
        if (below(2))
            data.parms = {number(), number(), number()};
        Replay replay{library, data.range - 1, data.code, data.filter, 5, {}, {}, {}, {}};
        replay.parms.assign(data.parms.begin(), data.parms.end());
        replay.base[{replay.range, replay.code}] = data.basePoint.asVector();
        OutlineChoice choice;
        choice.library = &library;
        ASSERT_TRUE(choice.take(data));
        OutlineChoice::Rows rows;
        for (int step = 0; step < 40; ++step) {
            SCOPED_TRACE(step);
            const int act = step == 0 ? 0 : below(7), row = below(5) - 1;
            const bool isRow = row >= 0 && row < static_cast<int>(replay.signs.size());
            const double value = number();
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
                ASSERT_EQ(choice.toggle(row, label), isRow && !replay.isPlain(row));
                if (isRow && !replay.isPlain(row) && ++toggles) {
                    replay.signs[row] = replay.signs[row] < 0 ? 1 : -1;
                    EXPECT_EQ(label, replay.text(row, replay.signs[row] < 0 ? L"MINUSP" : L"LABEL"));
                    replay.set(row, replay.stored(row) * -1.0);
                }
            } else if (act == 5) {
                choice.parmSet(row, value);
                if (isRow)
                    replay.set(row, replay.signs[row] * value * replay.degrees(row));
            } else if (act == 6) {
                choice.basePositionSet(step % 2, value);
                replay.base[{replay.range, replay.code}][step % 2] = -value;
            }
            const auto kinds = choice.kinds();
            const std::vector<int> codes = replay.offered();
            const auto at = std::find(codes.begin(), codes.end(), replay.code);
            int place = codes.empty() && ++empty ? -1 : at == codes.end() ? 0 : static_cast<int>(at - codes.begin());
            ASSERT_EQ(kinds.len(), static_cast<int>(codes.size()));
            ASSERT_EQ(choice.placeIn(kinds), place);
            if (act < 3 && place >= 0 && ++loads) {
                place = act == 0 && step > 0 ? below(kinds.len()) : place;
                ASSERT_EQ(kinds[place].code, codes[place]);
                ASSERT_TRUE(choice.load(codes[place], rows));
                replay.load(codes[place]);
                EXPECT_EQ(kinds[place].label, get(replay.entry(), L"LABEL", CVekString()));
                replay.expectRows(rows);
            }
            shapes += choice.outline().len() > 0;
            const CVekPoint3d base = replay.base[{replay.range, replay.code}].asPoint();
            VEK::outlineData result;
            ASSERT_TRUE(choice.give(result));
            ASSERT_EQ(result.parms.len(), static_cast<int>(replay.parms.size()));
            for (int i = 0; i < result.parms.len(); ++i)
                EXPECT_DOUBLE_EQ(result.parms[i], replay.parms[i]);
            EXPECT_EQ(std::vector<int>(choice.signs.begin(), choice.signs.end()), replay.signs);
            EXPECT_EQ(choice.basePosition(), CVekPoint3d(-base.x, -base.y, -base.z));
            EXPECT_EQ(
                std::tuple(result.code, result.range, result.filter, result.textGen, result.unit, result.basePoint),
                std::tuple(replay.code, replay.range + 1, replay.filter, replay.textGen, Vek::unitMetre, base));
        }
    }
    EXPECT_TRUE(loads > 2000 && toggles > 50 && empty > 100 && again > 100 && shapes > 2500)
        << loads << ' ' << toggles << ' ' << empty << ' ' << again << ' ' << shapes;
}

} // namespace
