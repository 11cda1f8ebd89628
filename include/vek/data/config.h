/// @file
/// The configuration: one data tree of the process with named roots.
#pragma once

#include <vek/data/dir.h>

namespace VEK
{

/// The manager of the configuration tree.
class VEK_API CConfig : public CVekObj
{
public:
    /// The directory in which the root of that name stands or would stand. All roots stand in one.
    CVekDataDir* getCfgRoot(const wchar_t* name);

    /// The whole tree, for loading and saving.
    CVekDataItem* tree() { return &m_tree; }

private:
    CVekDataItem m_tree{CVekDataItem::directory};
};

/// The manager, which lives as long as the process.
VEK_API CConfig* cfgMgrPtr();

/// The item at a path from the configuration roots, or null; "MRA_MENU\COLOR\PDSIZE" descends at the backslashes.
VEK_API CVekDataItem* cfg_get(const wchar_t* path);
VEK_API CVekDataItem* cfg_get(const CVekDataKey* key);

/// The directory at a path from the configuration roots, created when it is missing.
VEK_API CVekDataItem* cfg_dir_make(const wchar_t* path);

/// Stores a text under a key whose first element names the root; the rest of the key descends in it.
/// @return false for a null key and for one that does not begin with a text
VEK_API bool cfgSet(const CVekDataKey* key, const wchar_t* value);
VEK_API bool cfgSet(const CVekDataKey* key, const CVekString& value);

/// A guard in scope: it saves parts of the configuration and puts them back at its end. The part's own item keeps its
/// address, unless it was removed meanwhile; the items below it come anew.
class VEK_API CCfgBackup : public CVekObj
{
public:
    /// @param restore whether anything is put back; false makes a guard that does nothing
    explicit CCfgBackup(bool restore) : m_restore(restore) {}
    CCfgBackup(const CCfgBackup&) = delete;
    CCfgBackup& operator=(const CCfgBackup&) = delete;

    /// Puts the saved parts back, the last one first.
    ~CCfgBackup() override;

    /// Saves what stands at a path, or that nothing does; null saves the whole configuration. What the memory does not
    /// hold twice is not put back.
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
