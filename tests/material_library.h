// Material libraries for tests.
#pragma once

#include "objects_data.h"

#include <vek/data.h>
#include <vek/host.h>

#include <map>

namespace material_test
{

using Keys = std::vector<std::string>;

struct Model {
    std::string label;
    Keys subs;
    int phys = 0; ///< kind; above 2 the own data have "E" and "RHO", else "E" alone
    int edge = 0; ///< kind; above 2 there are own data, else their list is empty
    bool isBelow = false, isOfDrawing = false;
    std::string from = "B"; ///< the material that it refers to
};
using Models = std::map<std::string, Model>;

inline CVekString wide(const std::string& text)
{
    return VEK::fromUtf8(text.data(), static_cast<unsigned>(text.size()));
}

inline CVekArrayTempl<CVekString> wide(const Keys& texts)
{
    CVekArrayTempl<CVekString> list;
    for (const std::string& text : texts)
        list.append(wide(text));
    return list;
}

/// A configuration and a drawing with these materials.
class Library
{
public:
    explicit Library(const Models& models)
    {
        m_backup.attach(nullptr);
        vekAppSet(&m_host);
        VEK::CAdsName name;
        m_host.namedDataObject(name, L"MAT", true);
        VEK::cfgMgrPtr()->tree()->remove(L"*MAT*");
        CVekDataItem* const places[] = {VEK::cfg_dir_make(L"*MAT*"), m_host.dataObject(name)};
        for (const auto& [key, model] : models) {
            CVekDataItem* const item = places[model.isOfDrawing]->makeDir(wide(key));
            VEK::dataSet(item, L"LABEL", wide(model.label));
            VEK::dataSet(item, L"SUBS", wide(model.subs));
            VEK::dataSet(item, L"SUB", model.isBelow);
            if (model.phys == 1)
                VEK::dataSet(item, L"PHYS", wide(model.from));
            for (int i = 2; i <= model.phys; ++i)
                VEK::dataSet(item, i == 2 ? L"PHYS\\E" : L"PHYS\\rho", 1.0);
            if (model.edge == 1)
                VEK::dataSet(item, L"EDGE", wide(model.from));
            if (model.edge > 1)
                VEK::dataSet(item, L"EDGE", wide(Keys(model.edge - 2u, "R1")));
        }
    }
    ~Library() { vekAppSet(nullptr); }

private:
    VEK::CCfgBackup m_backup{true};
    CVekLocalApp m_host;
};

/// Up to seven materials above, below and beside one another.
inline Models randomModels(std::mt19937& random, const Keys& names)
{
    const auto draw = [&](std::size_t count) { return static_cast<int>(random() % count); };
    const auto name = [&] { return names[random() % names.size()]; };
    const std::string labels[] = {"", "x", "Y", "y"};
    Models models;
    for (const std::string& key : names) {
        if (draw(4) > 0)
            models[key] = {labels[draw(4)], {}, draw(4), draw(4), draw(3) == 0, draw(4) == 0, name()};
        for (int i = models.contains(key) ? draw(4) : 0; i > 0; --i)
            models[key].subs.push_back(name());
    }
    return models;
}

} // namespace material_test
