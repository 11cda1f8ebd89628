#include "core/objects/walk.h"

#include <vek/data/iterator.h>
#include <vek/objects/element.h>

#include "core/objects/placement.h"
#include "core/values/whole.h"

#include <algorithm>
#include <cwchar>
#include <vector>

bool BgrBt::operator==(const BgrBt& other) const
{
    return place == other.place && first == other.first && second == other.second;
}

bool BgrBt::operator<(const BgrBt& other) const
{
    if (place != other.place)
        return place < other.place;
    if (!(second == other.second))
        return second < other.second;
    return std::less<>()(first, other.first); // objects that a caller entered without their places
}

namespace VEK
{
namespace objects
{
namespace
{

constexpr std::size_t kDeepest = 64;
constexpr int kMostVisits = 1 << 18; // a few definitions that name one another twice each would multiply without end

class Walk
{
public:
    Walk(const CVekDataItem* status, const std::function<void(const Visit&)>& found) : m_status(status), m_found(found)
    {
    }

    bool run(CVekDataItem* object, const CVekMatrix3d& mtx, bool repeats)
    {
        if (m_path.size() >= kDeepest || std::find(m_path.begin(), m_path.end(), object) != m_path.end())
            return true;
        if (++m_visits > kMostVisits)
            return false;
        m_path.push_back(object);
        const bool good = elements(object, mtx, repeats) && assemblies(object, mtx, repeats);
        m_path.pop_back();
        return good;
    }

private:
    bool elements(CVekDataItem* object, const CVekMatrix3d& mtx, bool repeats)
    {
        std::vector<CVekDataItem*> sorted;
        for (CDataIterator element(object->getItem(L"BT")); !element.done(); element.next()) {
            if (element->isDir() && element->getKey()->isText())
                sorted.push_back(element);
        }
        std::sort(sorted.begin(), sorted.end(), [](const CVekDataItem* a, const CVekDataItem* b) {
            return std::wcscmp(*a->getKey(), *b->getKey()) < 0;
        });
        const int place = m_place++;
        for (CVekDataItem* element : sorted) {
            if (++m_visits > kMostVisits)
                return false;
            const Layers layers(element, object, true);
            if (!layers.isHidden(m_status))
                m_found({object, element, layers, mtx, place, repeats});
        }
        return true;
    }

    bool assemblies(CVekDataItem* object, const CVekMatrix3d& mtx, bool repeats)
    {
        for (CDataIterator child(object->getItem(L"BGR")); !child.done(); child.next()) {
            const Layers layers(child, object, false);
            CVekDataItem* inner = nullptr;
            for (int i = 0; i < layers.len() && !inner; ++i) {
                if (layers[i]->getItem(L"BT") || layers[i]->getItem(L"BGR"))
                    inner = layers[i];
            }
            if (!inner || layers.isHidden(m_status))
                continue;
            const double factor = unitFactor(unitOf(inner), unitOf(object));
            if (!run(inner, mtx * g_mtx_local(layers.placed()) * scaling(factor), repeats || layers.refers()))
                return false;
        }
        return true;
    }

    const CVekDataItem* m_status;
    const std::function<void(const Visit&)>& m_found;
    std::vector<const CVekDataItem*> m_path;
    int m_place = 0;
    int m_visits = 0;
};

} // namespace

bool walk(CVekDataItem* object, const CVekDataItem* status, const CVekMatrix3d& mtx,
          const std::function<void(const Visit&)>& found)
{
    return Walk(status, found).run(object, mtx, false);
}

} // namespace objects

bool checkBt(const CVekDataItem* element, const CVekDataItem*)
{
    return whole(false, [&] {
        const objects::Layers layers(const_cast<CVekDataItem*>(element), nullptr, false);
        return layers.len() > 0 && !layers.isHidden(element);
    });
}

} // namespace VEK

bool vek_bgr_strong(CVekDataItem* object, CVekDataItem* second, const CVekMatrix3d& mtx, int, CVekDataItem* parameters,
                    CVekMapTempl<BgrBt, CVekDataItem>& elements)
{
    using Elements = CVekMapTempl<BgrBt, CVekDataItem>;
    if (!object)
        return false;
    std::pair<bool, Elements> result = VEK::whole(std::pair<bool, Elements>(), [&] {
        std::pair<bool, Elements> found;
        CVekDataItem own(CVekDataItem::directory);
        for (const wchar_t* key : {L"CMODE", L"COORD", L"ACT", L"MTX"}) {
            const CVekDataKey name(key);
            const CVekDataItem* value = parameters ? parameters->getItem(&name) : nullptr;
            if (CVekDataDir* dir = value ? own.mkDir() : nullptr)
                dir->insertCopy(&name, value, true);
        }
        found.first = VEK::objects::walk(object, second, mtx, [&](const VEK::objects::Visit& visit) {
            CVekDataItem& value = found.second[BgrBt(visit.object, CVekString(*visit.element->getKey()), visit.place)];
            CVekDataItem* parm = value.makeDir(L"PARM");
            if (!parm)
                return;
            visit.layers.merge(*parm, L"PARM");
            const CVekDataKey cut(L"CUT");
            for (int i = 0; i < visit.layers.len() && !parm->getItem(&cut); ++i) {
                if (const CVekDataItem* planes = visit.layers[i]->getItem(&cut))
                    parm->getDir()->insertCopy(&cut, planes, true);
            }
            VEK::objects::layOver(*parm, own);
            if (!(visit.assembly == CVekMatrix3d::kIdentity))
                VEK::dataSet(&value, L"MTX", visit.assembly);
        });
        return found;
    });
    if (!result.first)
        return false;
    elements = std::move(result.second);
    return true;
}
