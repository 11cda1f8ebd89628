#include <vek/data/app.h>

#include "core/data/lasting.h"

namespace
{

/// The default host: every operation reports failure.
class CNoApp : public CVekApp
{
public:
    int defaultUnit() override { return 2; }
    unsigned long backgroundColor() override { return 0; }
    bool imageObject(CVekGDX*, CVekDataItem*, CVekDataItem*) override { return false; }
    void hatchPatternGet(const wchar_t*, VekPatternLines& lines) override { lines.setLogicalLength(0); }
    void viewMatrix(const wchar_t*, CVekMatrix3d&) override {}
    bool namedDataObject(VEK::CAdsName&, const wchar_t*, bool) override { return false; }
    int callFunction(const wchar_t*, resbuf*, VEK::CUniqResbuf&) override { return VEK::kHostError; }
};

CVekApp* noApp()
{
    static Lasting<CNoApp> app;
    return &app.object;
}

CVekApp* installed = nullptr;

} // namespace

VEK::CSharedPointer<CVekDataItem> CVekApp::dataObject(const VEK::CAdsName&)
{
    return {};
}

CVekApp* vekAppPtr()
{
    return installed ? installed : noApp();
}

CVekApp* vekAppSet(CVekApp* app)
{
    CVekApp* before = vekAppPtr();
    installed = app;
    return before;
}
