#include <vek/data/app.h>
#include <vek/data/config.h>
#include <vek/dialogs/hole.h>
#include <vek/objects/outline.h>

#include "core/values/whole.h"

#include <memory>

namespace VEK
{

namespace
{

constexpr int kFailed = 0, kOk = 1, kCancelled = 2;

constexpr wchar_t kOutlines[] = L"*VEK_OUTLINE*";
constexpr const wchar_t* kRoot = nullptr;
constexpr const wchar_t* kHeaderTexts[] = {L"LABEL", L"ORDER"};

CVekDataKey activeKey()
{
    return CVekDataKey(5005, L"*HOLE*", 5005, L"BT", 0);
}

const CVekDataItem* childOf(const CVekDataItem* item, const wchar_t* key)
{
    return item ? item->getItem(key) : nullptr;
}

/// Copies the texts of a pattern, empty ones for those that are missing.
void copyTexts(CVekDataItem& to, const CVekDataItem* from)
{
    for (const wchar_t* key : kHeaderTexts) {
        CVekString text;
        dataGet(from, key, text);
        dataSet(&to, key, text);
    }
}

bool provideOutlines()
{
    if (cfg_get(kOutlines) || outlineInit(cfg_dir_make(kOutlines)))
        return true;
    cfgMgrPtr()->tree()->remove(kOutlines); // so that the next call tries again
    return false;
}

std::unique_ptr<CDtaFilePointer> open(const CAdsName& name)
{
    return std::unique_ptr<CDtaFilePointer>(dtaOpen(vekDtaDrawing, 3, name, nullptr, nullptr));
}

bool store(const CAdsName& name, const CVekString& bt, const CVekDataItem* data)
{
    return whole(false, [&] {
        CVekDataItem header(childOf(data, L"")), elements(childOf(data, L"HOLE"));
        copyTexts(header, data);
        const std::unique_ptr<CDtaFilePointer> file = open(name);
        if (CVekDataItem* root = fileItem(file.get(), kRoot)) {
            CVekDataItem* headerPlace = root->makeItem(L"");
            CVekDataItem* elementsPlace = root->makeItem(L"BT");
            if (!headerPlace || !elementsPlace)
                return false;
            *headerPlace = std::move(header);
            *elementsPlace = std::move(elements);
        }
        const CVekDataKey key = activeKey();
        return cfgSet(&key, bt);
    });
}

bool fetch(const CAdsName& name, CVekString& bt, CVekDataItem* data)
{
    const std::unique_ptr<CVekDataItem> before(data ? data->clone() : nullptr);
    if (data && !before)
        return false;
    CVekString active;
    const bool good = whole(false, [&] {
        active = bt;
        const CVekDataKey key = activeKey();
        dataItemGet(cfg_get(&key), nullptr, active);
        if (!data)
            return true;
        const std::unique_ptr<CDtaFilePointer> file = open(name);
        const CVekDataItem* root = fileItem(file.get(), kRoot);
        const CVekDataItem* header = childOf(root, L"");
        CVekDataDir* const dir = data->mkDir();
        if (!dir)
            return false;
        const CVekDataKey headerKey(L""), elementsKey(L"HOLE");
        dir->insertCopy(&headerKey, header, true);
        copyTexts(*data, header);
        dir->insertCopy(&elementsKey, childOf(root, L"BT"), true);
        return true;
    });
    if (good)
        bt = std::move(active);
    else if (data)
        *data = std::move(*before);
    return good;
}

/// Reads an answer's integer.
/// @return false for an answer of another type
bool numberOf(const CUniqResbuf& answer, int& number)
{
    const short type = answer ? answer->restype : static_cast<short>(0);
    if (type == rbShort)
        number = answer->resval.rint;
    else if (type == rbLong)
        number = answer->resval.rlong;
    else if (type == rbInt64) // the host's own programs read the long of it
        number = static_cast<std::int32_t>(answer->resval.mnInt64);
    else
        return false;
    return true;
}

} // namespace

int holeDialog(CVekString& bt, CVekDataItem* data)
{
    CVekApp* const app = vekAppPtr();
    CAdsName name;
    if (!provideOutlines() || (app->namedDataObject(name, L"HOLE", true) && !store(name, bt, data)))
        return kFailed;
    CUniqResbuf answer;
    if (app->callFunction(L"mra_hole_dial", nullptr, answer) != kHostNormal)
        return kFailed;
    int number = 0;
    if (!numberOf(answer, number) || number == 0)
        return kCancelled;
    return number == 1 && fetch(name, bt, data) ? kOk : kFailed;
}

} // namespace VEK
