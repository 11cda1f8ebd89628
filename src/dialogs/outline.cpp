#include <vek/data/iterator.h>
#include <vek/dialogs/outline.h>
#include <vek/geometry/outline.h>

#include "core/values/whole.h"

#include <algorithm>
#include <cmath>
#include <utility>

namespace VEK
{

namespace
{

constexpr int kRanges = 4;
constexpr double kPi = 3.14159265358979323846;

/// The angle of a sector of a ring is stored in degrees and edited in radians. No mark in the library tells that:
/// stored parameters of this kind are older than the library.
bool isInDegrees(int code, int index)
{
    return code == 21 && index == 2;
}

CVekString nameOf(int index)
{
    CVekString name;
    name.format(L"PARM%d", index + 1);
    return name;
}

int clampedRange(int index)
{
    return std::clamp(index, 0, kRanges - 1);
}

/// @return false, with nothing changed, when memory runs out
bool assign(CVekArrayTempl<double>& target, const CVekArrayTempl<double>& source)
{
    CVekArrayTempl<double> copy = source;
    const bool good = copy.len() == source.len();
    if (good)
        target.swap(copy);
    return good;
}

bool get(const CVekDataItem& item, const wchar_t* name, auto& value)
{
    const CVekDataKey key(name);
    return dataItemGet(&item, &key, value);
}

CVekArrayTempl<OutlineChoice::Word> wordsOf(const CVekDataItem& parameter)
{
    CVekArrayTempl<OutlineChoice::Word> words;
    for (CDataIterator each(parameter.getItem(L"KWORD")); !each.done(); each.next()) {
        OutlineChoice::Word word;
        if (each->getKey()->isText() && dataItemGet(each, nullptr, word.value)) {
            word.word = static_cast<const wchar_t*>(*each->getKey());
            words.append(std::move(word));
        }
    }
    return words;
}

} // namespace

OutlineMemory& outlineMemory()
{
    static OutlineMemory memory;
    return memory;
}

bool OutlineChoice::take(const outlineData& data)
{
    const int index = clampedRange(data.range - 1);
    const bool good = whole(false, [&] {
        basePoints[index][data.code] = data.basePoint.asVector();
        return true;
    });
    if (!good || !assign(parms, data.parms))
        return false;
    rangeIndex = index;
    filter = data.filter;
    code = data.code;
    textGen = data.textGen;
    unit = data.unit;
    return true;
}

bool OutlineChoice::give(outlineData& data) const
{
    if (!assign(data.parms, parms))
        return false;
    data.range = rangeIndex + 1;
    data.filter = filter;
    data.code = code;
    data.textGen = textGen;
    data.basePoint = CVekPoint3d::kOrigin + baseOffset();
    data.unit = unit;
    return true;
}

CVekArrayTempl<OutlineChoice::Kind> OutlineChoice::kinds() const
{
    return whole(CVekArrayTempl<Kind>(), [&] {
        CVekArrayTempl<Kind> result;
        for (CDataIterator entry(library); !entry.done(); entry.next()) {
            int groups = 0;
            Kind kind;
            if (entry->getKey()->type() == CVekDataKey::keyInt && get(*entry, L"CODE", groups) &&
                (groups & filter) != 0 && get(*entry, L"LABEL", kind.label)) {
                kind.code = *entry->getKey();
                result.append(std::move(kind));
            }
        }
        return result;
    });
}

int OutlineChoice::placeIn(const CVekArrayTempl<Kind>& kinds) const
{
    const auto* place = std::find_if(kinds.begin(), kinds.end(), [&](const Kind& kind) { return kind.code == code; });
    if (place != kinds.end())
        return static_cast<int>(place - kinds.begin());
    return kinds.len() > 0 ? 0 : -1;
}

CVekDataItem* OutlineChoice::parameter(int index) const
{
    const CVekDataKey key(5003, code, 5005, nameOf(index), 0);
    CVekDataItem* item = library ? library->getItem(&key) : nullptr;
    return item && item->isDir() ? item : nullptr;
}

OutlineChoice::Row OutlineChoice::row(const CVekDataItem& item, int index)
{
    if (parms.len() <= index) {
        const CVekDataKey key(5005, L"VAL", 5003, rangeIndex + 1, 0);
        double value = 0.0;
        if (dataItemGet(&item, &key, value))
            parms[index] = value;
    }
    const double stored = index < parms.len() ? parms[index] : 0.0;
    Row row;
    CVekString negative, type;
    row.plain = !get(item, L"MINUSP", negative);
    get(item, L"LABEL", row.label);
    if (!row.plain && stored < 0.0)
        row.label = negative;
    get(item, L"VALID", row.valid);
    get(item, L"TYPE", type);
    row.angle = type == L"A";
    row.words = wordsOf(item);
    const double value = isInDegrees(code, index) ? stored * kPi / 180.0 : stored;
    row.value = row.plain ? value : std::fabs(value);
    // A 0 has no sign: what is typed over it stays 0 until the button is pressed.
    signs[index] = row.plain || stored > 0.0 ? 1 : stored < 0.0 ? -1 : 0;
    return row;
}

bool OutlineChoice::load(int newCode, Rows& rows)
{
    struct Loaded {
        bool good = false;
        OutlineChoice choice;
        Rows rows;
    };
    if (!remember())
        return false;
    const CVekDataKey key(CVekDataKey::keyInt, newCode);
    Loaded loaded = whole(Loaded(), [&] {
        Loaded result;
        OutlineChoice& next = result.choice;
        next.library = library;
        next.rangeIndex = rangeIndex;
        next.textGen = textGen;
        next.code = newCode;
        if (const CVekArrayTempl<double>* last = outlineMemory()[rangeIndex].get(newCode))
            next.parms = *last;
        int count = 0;
        if (const CVekDataItem* entry = library ? library->getItem(&key) : nullptr) {
            get(*entry, L"TXTGEN", next.textGen);
            get(*entry, L"PARMS", count);
        }
        count = std::clamp(count, 0, maxRows);
        for (int i = 0; i < count; ++i) {
            const CVekDataItem* item = next.parameter(i);
            if (!item)
                break;
            result.rows.append(next.row(*item, i));
        }
        if (next.parms.len() > result.rows.len())
            next.parms.setLogicalLength(result.rows.len());
        result.good = true;
        return result;
    });
    if (loaded.good) {
        code = newCode;
        textGen = loaded.choice.textGen;
        parms.swap(loaded.choice.parms);
        signs.swap(loaded.choice.signs);
        rows.swap(loaded.rows);
    }
    return loaded.good;
}

bool OutlineChoice::rangeSet(int index)
{
    const int next = clampedRange(index);
    if (!remember())
        return false;
    const CVekArrayTempl<double> none;
    const CVekArrayTempl<double>* last = outlineMemory()[next].get(code);
    if (!assign(parms, last ? *last : none))
        return false;
    rangeIndex = next;
    return true;
}

bool OutlineChoice::toggle(int index, CVekString& label)
{
    const bool wasNegative = std::as_const(signs)[index] < 0;
    const bool good = index >= 0 && index < signs.len() && whole(false, [&] {
                          const CVekDataItem* item = parameter(index);
                          CVekString negative;
                          return item && parms.reserve(index + 1) && get(*item, L"MINUSP", negative) &&
                                 get(*item, wasNegative ? L"LABEL" : L"MINUSP", label);
                      });
    if (good) {
        signs[index] = wasNegative ? 1 : -1;
        parms[index] = 0.0 - parms[index]; // a zero without a sign stays one
    }
    return good;
}

void OutlineChoice::parmSet(int index, double value)
{
    if (index >= 0 && index < signs.len())
        parms[index] = signs[index] * (isInDegrees(code, index) ? value * 180.0 / kPi : value);
}

/// The parameters of the present range and kind as those that were last used with them.
bool OutlineChoice::remember() const
{
    return whole(false, [&] {
        outlineMemory()[rangeIndex][code] = parms;
        return true;
    });
}

CVekVector3d OutlineChoice::baseOffset() const
{
    const CVekVector3d* offset = basePoints[rangeIndex].get(code);
    return offset ? *offset : CVekVector3d();
}

CVekPoint3d OutlineChoice::basePosition() const
{
    return CVekPoint3d::kOrigin - baseOffset();
}

void OutlineChoice::basePositionSet(int axis, double value)
{
    basePoints[rangeIndex][code][axis] = 0.0 - value;
}

CVekVertexArray OutlineChoice::outline() const
{
    return g_outline(code, baseOffset(), parms);
}

} // namespace VEK
