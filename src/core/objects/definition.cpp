#include "core/objects/definition.h"

#include <vek/data/iterator.h>
#include <vek/objects/element.h>

#include "core/values/whole.h"

#include <algorithm>
#include <cwchar>

namespace VEK
{
namespace objects
{
namespace
{

constexpr int kDeepestMerge = 64;

constexpr const wchar_t* kPlacement[] = {L"MTX", L"ORG", L"AXIS", L"XDIR", L"ZDIR", L"ROT", L"SCALE"};
constexpr const wchar_t* kNeutral[] = {L"REF", L"LAYER", L"LAYER_H", L"STAT", L"HIDE", L"PARM"};
constexpr const wchar_t* kGroups[] = {L"BGR", L"DEF"};

template <std::size_t N>
bool isOneOf(const wchar_t* key, const wchar_t* const (&keys)[N])
{
    return std::any_of(keys, keys + N, [&](const wchar_t* one) { return std::wcscmp(one, key) == 0; });
}

/// Finds a definition, and the object that it stands in, from an object outwards.
CVekDataItem* definition(const CVekString& name, const CVekDataItem*& object)
{
    const CVekDataKey path(5005, L"DEF", 5005, name, 0);
    for (; object; object = enclosing(object)) {
        CVekDataItem* found = object->getItem(&path);
        if (found && found->isDir())
            return found;
    }
    return nullptr;
}

} // namespace

CVekDataItem* enclosing(const CVekDataItem* object)
{
    const CVekDataItem* group = object->getParent();
    return group && isOneOf(*group->getKey(), kGroups) ? group->getParent() : nullptr;
}

bool isUnit(Vek::lUnit unit)
{
    return unit > Vek::unitNone && unit <= Vek::unitParsec;
}

Vek::lUnit unitOf(const CVekDataItem* object)
{
    Vek::lUnit unit = Vek::unitNone;
    for (; object; object = enclosing(object)) {
        if (dataGet(object, L"UNIT", unit) && isUnit(unit))
            return unit;
    }
    return Vek::unitNone;
}

bool isPlaced(const CVekDataItem* item)
{
    for (CDataIterator child(item); !child.done(); child.next()) {
        if (isOneOf(*child->getKey(), kPlacement))
            return true;
    }
    return false;
}

bool isNeutral(const wchar_t* key)
{
    return isOneOf(key, kNeutral) || (isOneOf(key, kPlacement) && std::wcscmp(key, L"AXIS") != 0); // it has a length
}

Layers::Layers(CVekDataItem* own, const CVekDataItem* object, bool withCommon)
{
    const CVekDataItem* scope = object;
    for (CVekDataItem* layer = own; layer && layer->isDir() && m_count < kMost - 1;) {
        if (std::find(m_layers, m_layers + m_count, layer) != m_layers + m_count)
            break; // it refers to itself
        add(layer);
        CVekString name;
        layer = dataGet(layer, L"REF", name) ? definition(name, scope) : nullptr;
    }
    m_refers = m_count > 1;
    if (withCommon && m_count > 0)
        add(object->getItem(L"COMMON"));
}

void Layers::add(CVekDataItem* layer)
{
    if (layer && layer->isDir())
        m_layers[m_count++] = layer;
}

Vek::lUnit Layers::unit(const CVekDataItem* object) const
{
    Vek::lUnit unit = Vek::unitNone;
    return get(L"UNIT", unit) && isUnit(unit) ? unit : unitOf(object);
}

const CVekDataItem* Layers::placed() const
{
    const auto end = m_layers + m_count;
    const auto found = std::find_if(m_layers, end, isPlaced);
    return found != end ? *found : m_count > 0 ? m_layers[0] : nullptr;
}

bool Layers::isHidden(const CVekDataItem* status) const
{
    bool hide = false;
    if (get(L"HIDE", hide) && hide)
        return true;
    for (const wchar_t* key : kStatusKeys) {
        int code = 0;
        int index = 0;
        CVekArrayTempl<int> hiding;
        if (dataGet(status, key, code) && get(CVekString(L"STAT\\") + key, hiding) && hiding.indexOf(code, index))
            return true;
    }
    return false;
}

void Layers::merge(CVekDataItem& target, const wchar_t* child) const
{
    for (int i = m_count; i-- > 0;) {
        const CVekDataItem* over = child ? m_layers[i]->getItem(child) : m_layers[i];
        if (!over || !over->isDir())
            continue;
        if (!child && target.isDir() && isPlaced(over)) { // a placement is one thing and does not mix with one beneath
            for (const wchar_t* key : kPlacement)
                target.remove(key);
        }
        layOver(target, *over);
    }
}

void layOver(CVekDataItem& target, const CVekDataItem& over, int depth)
{
    CVekDataDir* dir = target.mkDir();
    for (CDataIterator child(&over); dir && !child.done(); child.next()) {
        CVekDataItem* place = child->isDir() && depth < kDeepestMerge ? dir->getItem(child->getKey()) : nullptr;
        if (place && place->isDir())
            layOver(*place, *child, depth + 1);
        else
            dir->insertCopy(child->getKey(), child, true);
    }
}

} // namespace objects

namespace
{

CVekDataItem* elementOf(const CVekDataItem* object, const CVekString& name)
{
    const CVekDataKey path(5005, L"BT", 5005, name, 0);
    return object ? object->getItem(&path) : nullptr;
}

} // namespace

CVekDataItem* bgr_data_merge(CVekDataItem* object, const CVekString& name, CVekDataItem* second)
{
    CUniqPointer<CVekDataItem> merged = whole(CUniqPointer<CVekDataItem>(), [&] {
        CUniqPointer<CVekDataItem> element;
        const objects::Layers layers(elementOf(object, name), object, true);
        if (layers.len() == 0)
            return element;
        element = CUniqPointer<CVekDataItem>(new CVekDataItem(CVekDataItem::directory));
        if (!element)
            return element;
        layers.merge(*element, nullptr);
        element->remove(L"REF");
        if (const Vek::lUnit unit = layers.unit(object); unit != Vek::unitNone)
            dataSet(element, L"UNIT", unit);
        for (const wchar_t* key : objects::kStatusKeys) {
            int code = 0;
            if (dataGet(second, key, code))
                dataSet(element, key, code);
        }
        return element;
    });
    return merged.release();
}

bool lobj_unit(const CVekDataItem* object, Vek::lUnit& unit)
{
    const Vek::lUnit found = objects::unitOf(object);
    if (found == Vek::unitNone)
        return false;
    unit = found;
    return true;
}

bool bgr_bt_unit(const CVekDataItem* object, const CVekString& name, Vek::lUnit& unit)
{
    const Vek::lUnit found = whole(Vek::unitNone, [&] {
        const objects::Layers layers(elementOf(object, name), object, true);
        return layers.len() > 0 ? layers.unit(object) : Vek::unitNone;
    });
    if (found == Vek::unitNone)
        return false;
    unit = found;
    return true;
}

} // namespace VEK
