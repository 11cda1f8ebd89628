/// @file
/// Attributes of components.
#pragma once

#include <vek/data/config.h>
#include <vek/values/map.h>
#include <vek/values/pointer.h>

namespace VEK
{

/// The place of a component such as "DICHT" (gaskets) or "DM" (insulation) in the configuration, "*ATT*" \ component,
/// as a path for `cfg_get` and `CCfgBackup`. It is a directory with
///  - the component's attributes, each a leaf under its name: layers "PART_CON" and "PART_FILL", a hatch "HPNAME",
///    "HPSCALE", "HPANG", and any others;
///  - "HATCH": a hatch, from which those three are taken where they are missing;
///  - "MODEL": the attributes of the component that is being constructed; they count alone as long as it exists.
/// @return empty for an empty component
VEK_API CVekString getCfgKey(const CVekString& component);

} // namespace VEK

/// The attributes of a component: those of its construction object if it has one, else those of the configuration.
class VEK_API CVekAttributeMgr : public CVekObj
{
public:
    /// @param component key of the component, as for `VEK::getCfgKey`
    /// @param second a path below the component's place to a directory of the same form; empty for the component's own
    CVekAttributeMgr(const CVekString& component, const CVekString& second);
    CVekAttributeMgr(const CVekAttributeMgr&) = delete;
    CVekAttributeMgr& operator=(const CVekAttributeMgr&) = delete;
    ~CVekAttributeMgr() override;

    /// Learns the names of the attributes from the configuration; their values are read when they are asked for.
    /// @return false, without any attribute, if the component is not in the configuration, and when memory runs out
    bool init();

    /// Whether the component has an attribute of that name, as `init` found it.
    /// @param value whether the configuration must also still hold the component, so that it has a value
    bool has_att(const CVekString& name, bool value);

    /// Reads an attribute. A number does not read as a text, nor a text as a number.
    /// @param value unchanged if there is no such attribute, or if it is of the other type
    bool get_att(const CVekString& name, CVekString& value);
    bool get_att(const CVekString& name, double& value);

private:
    class Attribute;
    class HatchAttribute;

    CVekDataItem* cfgItem() const;
    bool has_construction_object() const;
    CVekDataItem* get_model_attribute(const CVekString& name) const;

    template <class T>
    bool read(const CVekString& name, T& value);

    CVekString m_cfgKey;
    CVekMapTempl<CVekString, VEK::CSharedPointer<Attribute>> m_attributes;
};
