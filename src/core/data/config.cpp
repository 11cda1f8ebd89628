#include <vek/data/config.h>

#include "core/data/lasting.h"

namespace VEK
{

CVekDataDir* CConfig::getCfgRoot(const wchar_t*)
{
    return m_tree.mkDir();
}

CConfig* cfgMgrPtr()
{
    static Lasting<CConfig> manager;
    return &manager.object;
}

CVekDataItem* cfg_get(const wchar_t* path)
{
    return cfgMgrPtr()->tree()->getItem(path);
}

CVekDataItem* cfg_get(const CVekDataKey* key)
{
    return cfgMgrPtr()->tree()->getItem(key);
}

CVekDataItem* cfg_dir_make(const wchar_t* path)
{
    return cfgMgrPtr()->tree()->makeDir(path);
}

bool cfgSet(const CVekDataKey* key, const wchar_t* value)
{
    if (!key || !key->isText())
        return false;
    CVekDataItem text; // before the key turns what the value may be part of into a directory
    if (!dataItemSet(&text, nullptr, value))
        return false;
    CVekDataDir* dir = cfgMgrPtr()->getCfgRoot(*key);
    if (!dir)
        return false;
    CVekDataKey root;
    root = *key;
    CVekDataItem* item = key->next() ? dir->makeDir(&root) : dir->makeItem(key);
    CVekDataItem* place = item ? item->makeItem(key->next()) : nullptr;
    if (place)
        *place = std::move(text);
    return place != nullptr;
}

bool cfgSet(const CVekDataKey* key, const CVekString& value)
{
    return cfgSet(key, static_cast<const wchar_t*>(value));
}

CCfgBackup::~CCfgBackup()
{
    CVekDataItem* tree = cfgMgrPtr()->tree();
    for (int i = m_saved.len() - 1; i >= 0; --i) {
        Saved& saved = m_saved[i];
        CVekDataItem* item = saved.whole ? tree : saved.existed ? tree->makeItem(saved.path) : nullptr;
        if (item)
            *item = std::move(saved.state);
        else if (!saved.existed)
            tree->remove(saved.path);
    }
}

void CCfgBackup::attach(const wchar_t* path)
{
    if (!m_restore)
        return;
    const unsigned long shortages = memoryShortages();
    Saved saved;
    saved.path = path;
    saved.whole = !path;
    const CVekDataItem* item = cfg_get(path);
    saved.existed = item != nullptr;
    saved.state = CVekDataItem(item);
    // For a path that did not exist, directories created on the way to its end must be removed as well.
    for (int end = saved.path.find(L'\\'); !item && end >= 0; end = saved.path.find(L'\\', end + 1)) {
        const CVekString beginning = saved.path.mid(0, static_cast<unsigned>(end));
        if (!cfg_get(beginning)) {
            saved.path = beginning;
            break;
        }
    }
    if (memoryShortages() == shortages)
        m_saved.append(std::move(saved));
}

} // namespace VEK
