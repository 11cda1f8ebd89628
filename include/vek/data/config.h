/// @file
/// The configuration: one data tree per process, with named roots.
#pragma once

#include <vek/data/dir.h>

namespace VEK
{

/// The manager of the configuration tree.
class VEK_API CConfig : public CVekObj
{
public:
    /// The directory that contains, or would contain, the root of that name. It is the same for all roots.
    CVekDataDir* getCfgRoot(const wchar_t* name);

    /// The whole tree, for loading and saving.
    CVekDataItem* tree() { return &m_tree; }

private:
    CVekDataItem m_tree{CVekDataItem::directory};
};

/// The manager; it lives as long as the process.
VEK_API CConfig* cfgMgrPtr();

/// The item at a path from the configuration roots, or null; "MRA_MENU\COLOR\PDSIZE" descends at the backslashes.
VEK_API CVekDataItem* cfg_get(const wchar_t* path);
VEK_API CVekDataItem* cfg_get(const CVekDataKey* key);

/// The directory at a path from the configuration roots, created when it is missing.
VEK_API CVekDataItem* cfg_dir_make(const wchar_t* path);

/// Stores a text under a key whose first element names the root; the rest is the path below it.
/// @return false for a null key and one that does not begin with a text
VEK_API bool cfgSet(const CVekDataKey* key, const wchar_t* value);
VEK_API bool cfgSet(const CVekDataKey* key, const CVekString& value);

/// A scope guard that saves parts of the configuration and restores them on destruction. The item at a saved path keeps
/// its address, unless it was removed meanwhile; the items below it are recreated.
class VEK_API CCfgBackup : public CVekObj
{
public:
    /// @param restore false makes a guard that does nothing
    explicit CCfgBackup(bool restore) : m_restore(restore) {}
    CCfgBackup(const CCfgBackup&) = delete;
    CCfgBackup& operator=(const CCfgBackup&) = delete;

    /// Restores the saved parts, the last one first.
    ~CCfgBackup() override;

    /// Saves the item at a path, or that there is none; null saves the whole configuration. If memory runs out, the
    /// part is not restored.
    void attach(const wchar_t* path);

private:
    struct Saved {
        CVekString path;
        bool whole = false; ///< the whole configuration, whatever the path
        bool existed = false;
        CVekDataItem state;
    };

    bool m_restore;
    CVekArrayTempl<Saved> m_saved;
};

} // namespace VEK
