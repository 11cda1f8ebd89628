#include <vek/data/dir.h>
#include <vek/data/iterator.h>
#include <vek/geometry/region.h>
#include <vek/objects/bar.h>
#include <vek/objects/outline.h>

#include "core/values/whole.h"

#include <string>
#include <unordered_map>
#include <vector>

namespace VEK
{
namespace
{

/// The regions of a bar in its own unit and place.
Regions regionsOf(const CVekDataItem* bar)
{
    Regions regions;
    VertexArrays contours;
    if (dataGet(bar, L"REGL", regions) && regions.len() > 0)
        return regions;
    if (dataGet(bar, L"VL", contours) && contours.len() > 0)
        return g_vll_regions(vll_regions_prepare(contours), 4);
    if (g_outline_region(contours, bar->getItem(L"OUTLINE"), Vek::unitCurrent))
        regions.append(std::move(contours));
    return regions;
}

/// The directory of a group: of the linked object if there is one, else of the root itself.
const CVekDataDir* groupOf(const CVekDataItem* root, const CVekString& group)
{
    const CVekDataKey linked(5005, L"LOBJ", 5005, group, 0), own(group);
    const CVekDataItem* item = root ? root->getItem(&linked) : nullptr;
    if (root && !item)
        item = root->getItem(&own);
    return item ? item->getDir() : nullptr;
}

} // namespace

Regions bar_regl(CDtaFilePointer* file, const CVekMatrix3d& mtx)
{
    const CVekDataItem* root = fileItem(file, static_cast<const CVekDataKey*>(nullptr));
    if (!root)
        return {};
    return whole(Regions(), [&] {
        Regions regions = regionsOf(root);
        Vek::lUnit unit = Vek::unitCurrent;
        dataGet(root, L"UNIT", unit);
        CVekMatrix3d place;
        place.setToScaling(acadUnitCv(1.0, unit, Vek::unitCurrent), CVekPoint3d::kOrigin);
        place = mtx * place;
        if (!(place == CVekMatrix3d()))
            for (VertexArrays& region : regions)
                for (CVekVertexArray& vl : region)
                    vl.transformBy(place);
        return regions;
    });
}

bool bar_bt_subs(CVekArrayTempl<CVekDataKey>& keys, CVekDataItem* root, const CVekString& group,
                 const CVekString& element)
{
    using Keys = CVekArrayTempl<CVekDataKey>;
    keys = whole(Keys(), [&] {
        Keys found;
        const CVekDataDir* dir = groupOf(root, group);
        const CVekDataKey own(element);
        if (!dir || own.isEmpty() || !dir->getItem(&own))
            return found;
        std::vector<const CVekDataKey*> names;
        std::unordered_map<std::wstring, std::vector<std::size_t>> below; // the places in `names` of an element's own
        for (CDataIterator child(dir); !child.done(); child.next()) {
            CVekString parent;
            if (!child->getKey()->isText() || !child->isDir() || !dataGet(child, L"PARENT", parent))
                continue;
            below[static_cast<const wchar_t*>(parent)].push_back(names.size());
            names.push_back(child->getKey());
        }
        std::vector<bool> isSub(names.size());
        std::vector<std::wstring> open{static_cast<const wchar_t*>(element)};
        while (!open.empty()) {
            const auto list = below.extract(open.back()); // taken out, so that a circle ends
            open.pop_back();
            if (list.empty())
                continue;
            for (const std::size_t place : list.mapped()) {
                const wchar_t* name = *names[place];
                isSub[place] = element != name;
                open.emplace_back(name);
            }
        }
        for (std::size_t i = 0; i < names.size(); ++i)
            if (isSub[i])
                found.append(*names[i]);
        return found;
    });
    return keys.len() > 0;
}

} // namespace VEK
