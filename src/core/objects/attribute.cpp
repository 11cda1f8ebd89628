#include <vek/data/iterator.h>
#include <vek/objects/attribute.h>

#include "core/values/whole.h"

#include <utility>

namespace VEK
{

CVekString getCfgKey(const CVekString& component)
{
    return component.isNull() ? CVekString() : whole(CVekString(), [&] { return CVekString(L"*ATT*\\") + component; });
}

} // namespace VEK

/// How an attribute is read from the component's directory.
class CVekAttributeMgr::Attribute : public CVekObj
{
public:
    explicit Attribute(const CVekString& name) : m_key(name) {}

    virtual bool get(const CVekDataItem* component, CVekString& value) const { return component->get(value, &m_key); }
    virtual bool get(const CVekDataItem* component, double& value) const { return component->get(value, &m_key); }

private:
    CVekDataKey m_key;
};

/// An attribute that is a part of the hatch stored under "HATCH".
class CVekAttributeMgr::HatchAttribute : public Attribute
{
public:
    enum Part { name, angle, scale };

    HatchAttribute(const CVekString& key, Part part) : Attribute(key), m_part(part) {}

    bool get(const CVekDataItem* component, CVekString& value) const override
    {
        VEK::CHatchProp hatch;
        if (Attribute::get(component, value))
            return true;
        if (m_part != name || !VEK::dataGet(component, L"HATCH", hatch))
            return false;
        value = hatch.name;
        return true;
    }
    bool get(const CVekDataItem* component, double& value) const override
    {
        VEK::CHatchProp hatch;
        if (Attribute::get(component, value))
            return true;
        if (m_part == name || !VEK::dataGet(component, L"HATCH", hatch))
            return false;
        value = m_part == angle ? hatch.angle : hatch.scale;
        return true;
    }

private:
    Part m_part;
};

CVekAttributeMgr::CVekAttributeMgr(const CVekString& component, const CVekString& second)
    : m_cfgKey(VEK::getCfgKey(component))
{
    if (!m_cfgKey.isNull() && !second.isNull())
        m_cfgKey = m_cfgKey + L"\\" + second;
}

CVekAttributeMgr::~CVekAttributeMgr() = default;

bool CVekAttributeMgr::init()
{
    using Attributes = CVekMapTempl<CVekString, VEK::CSharedPointer<Attribute>>;
    m_attributes.removeAll();
    const CVekDataItem* component = cfgItem();
    if (!component || !component->isDir())
        return false;
    std::pair<bool, Attributes> learnt = VEK::whole(std::pair(false, Attributes()), [&] {
        Attributes found;
        for (VEK::CDataIterator child(component); !child.done(); child.next())
            if (child->getKey()->isText() && !child->isDir()) {
                const CVekString name(*child->getKey());
                found[name] = VEK::CSharedPointer<Attribute>(new Attribute(name));
            }
        if (component->getItem(L"HATCH")) {
            const auto add = [&](const wchar_t* name, HatchAttribute::Part part) {
                found[name] = VEK::CSharedPointer<Attribute>(new HatchAttribute(name, part));
            };
            add(L"HPNAME", HatchAttribute::name);
            add(L"HPANG", HatchAttribute::angle);
            add(L"HPSCALE", HatchAttribute::scale);
        }
        return std::pair(true, std::move(found));
    });
    m_attributes = std::move(learnt.second);
    return learnt.first;
}

CVekDataItem* CVekAttributeMgr::cfgItem() const
{
    return m_cfgKey.isNull() ? nullptr : VEK::cfg_get(m_cfgKey);
}

bool CVekAttributeMgr::has_construction_object() const
{
    const CVekDataItem* component = cfgItem();
    const CVekDataItem* model = component ? component->getItem(L"MODEL") : nullptr;
    return model && model->isDir();
}

CVekDataItem* CVekAttributeMgr::get_model_attribute(const CVekString& name) const
{
    const CVekDataKey path(5005, L"MODEL", 5005, name, 0);
    const CVekDataItem* component = cfgItem();
    return component ? component->getItem(&path) : nullptr;
}

bool CVekAttributeMgr::has_att(const CVekString& name, bool value)
{
    if (!m_attributes.get(name))
        return false;
    return !value || cfgItem();
}

template <class T>
bool CVekAttributeMgr::read(const CVekString& name, T& value)
{
    if (has_construction_object()) {
        const CVekDataItem* item = get_model_attribute(name);
        return item && item->get(value, nullptr);
    }
    if (!has_att(name, true))
        return false;
    const CVekDataItem* component = cfgItem();
    const VEK::CSharedPointer<Attribute>* attribute = m_attributes.get(name);
    return component && attribute && *attribute && (*attribute)->get(component, value);
}

bool CVekAttributeMgr::get_att(const CVekString& name, CVekString& value)
{
    return read(name, value);
}

bool CVekAttributeMgr::get_att(const CVekString& name, double& value)
{
    return read(name, value);
}
