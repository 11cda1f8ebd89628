#include <vek/data/app.h>
#include <vek/data/config.h>
#include <vek/data/iterator.h>
#include <vek/data/label.h>
#include <vek/data/material.h>

#include "core/values/whole.h"

namespace VEK
{

namespace
{

/// The drawing's own materials.
CSharedPointer<CVekDataItem> drawingMaterials()
{
    CAdsName name;
    CVekApp* app = vekAppPtr();
    return app->namedDataObject(name, L"MAT", false) ? app->dataObject(name) : CSharedPointer<CVekDataItem>();
}

const CVekDataItem* childOf(const CVekDataItem* materials, const wchar_t* key)
{
    const CVekDataKey path(key);
    return materials && !path.isEmpty() ? materials->getItem(&path) : nullptr;
}

void listKeys(CVekArrayTempl<CVekString>& keys, const CVekDataItem* materials, const CVekDataItem* hiddenBy)
{
    for (CDataIterator material(materials); !material.done(); material.next()) {
        const CVekDataKey* key = material->getKey();
        bool below = false;
        dataGet(material, L"SUB", below);
        if (key->isText() && !below && !childOf(hiddenBy, *key))
            keys.append(CVekString(*key));
    }
}

void readPhys(const CVekDataItem& material, CMatProp& prop)
{
    const CVekDataItem* phys = material.getItem(L"PHYS");
    if (phys && phys->isDir())
        prop.physKind = matOwn;
    else if (phys && phys->get(prop.physRef))
        prop.physKind = matReference;
    for (CDataIterator value(phys); !value.done(); value.next()) {
        CVekString key(*value->getKey());
        key.makeUpper();
        value->get(prop.phys[key]);
    }
}

void readEdges(const CVekDataItem& material, CMatProp& prop)
{
    const CVekDataItem* edge = material.getItem(L"EDGE");
    if (!edge)
        return;
    if (edge->get(prop.edges))
        prop.edgeKind = matOwn;
    else if (edge->get(prop.edgeRef))
        prop.edgeKind = matReference;
}

} // namespace

void CMatMgr::matDrawAll(CVekArrayTempl<CVekString>& keys, bool drawingOnly) const
{
    keys = whole(CVekArrayTempl<CVekString>(), [&] {
        CVekArrayTempl<CVekString> found;
        const CSharedPointer<CVekDataItem> drawing = drawingMaterials();
        if (!drawingOnly)
            listKeys(found, cfg_get(L"*MAT*"), drawing);
        listKeys(found, drawing, nullptr);
        return found;
    });
}

bool CMatMgr::propGet(const wchar_t* key, CMatProp& prop) const
{
    const CSharedPointer<CVekDataItem> drawing = drawingMaterials();
    const CVekDataItem* material = childOf(drawing, key);
    if (!material)
        material = childOf(cfg_get(L"*MAT*"), key);
    if (!material)
        return false;
    CMatProp found;
    const bool good = whole(false, [&] {
        dataGet(material, L"SUBS", found.subKeys);
        readPhys(*material, found);
        readEdges(*material, found);
        return true;
    });
    if (good)
        prop = std::move(found);
    return good;
}

CVekString CMatMgr::matLabel(const wchar_t* key, const wchar_t* language) const
{
    const CSharedPointer<CVekDataItem> drawing = drawingMaterials();
    const CVekDataItem* material = childOf(drawing, key);
    if (!material)
        material = childOf(cfg_get(L"*MAT*"), key);
    CVekString label;
    CVekString text;
    if (dataGet(material, L"LABEL", label))
        label_get(text, label, language, true);
    return text;
}

bool CMatMgr::isShadowMat(const wchar_t* key) const
{
    return childOf(drawingMaterials(), key) != nullptr;
}

} // namespace VEK
