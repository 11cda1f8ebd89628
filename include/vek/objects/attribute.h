/// @file
/// Attributes of components.
#pragma once

#include <vek/data/config.h>
#include <vek/values/map.h>
#include <vek/values/pointer.h>

namespace VEK
{

/// The place in the configuration of a component such as "DICHT" or "DM".
VEK_API CVekString getCfgKey(const CVekString& component);

} // namespace VEK

/// The attributes of a component: those of its construction object if it has one, else those of the configuration.
class VEK_API CVekAttributeMgr : public CVekObj
{
public:
    CVekAttributeMgr(const CVekString& component, const CVekString& second);
    ~CVekAttributeMgr() override;

    bool init();
    bool has_att(const CVekString& name, bool value);
    bool get_att(const CVekString& name, CVekString& value);
    bool get_att(const CVekString& name, double& value);

private:
    class Attribute;

    bool has_construction_object() const;
    CVekDataItem* get_model_attribute(const CVekString& name) const;

    CVekString m_cfgKey;
    CVekMapTempl<CVekString, VEK::CSharedPointer<Attribute>> m_attributes;
};
