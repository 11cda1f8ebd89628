#include <vek/data/config.h>
#include <vek/dialogframe/icon.h>

namespace VEK
{

int appIconId()
{
    struct Row {
        const wchar_t* application;
        int icon;
    };
    constexpr Row rows[] = {{L"MRA", 2000}, {L"NRD", 2007}};
    CVekString application;
    dataItemGet(cfg_get(L"*APPL*"), nullptr, application);
    for (const Row& row : rows) {
        if (application.compareNoCase(row.application) == 0)
            return row.icon;
    }
    return rows[0].icon;
}

} // namespace VEK
