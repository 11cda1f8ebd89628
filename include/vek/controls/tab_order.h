/// @file
/// What a control with tabs decides without its window: which tab comes next, and where a page is.
#pragma once

#include <vek/dialogframe/position.h>
#include <vek/values/array.h>

namespace VEK
{

/// A bit in the flags of a tab: the user cannot select it.
inline constexpr unsigned tabDisabled = 1;

/// The enabled tab after another one, in a circle: where Ctrl+Tab leads. It is the tab itself when no other one is
/// enabled.
/// @param flags of all tabs
/// @param from any tab, enabled or not; -1 for none
/// @param isBackward the one before instead, for Ctrl+Shift+Tab
/// @return -1 if no tab is enabled
VEK_API int nextEnabledTab(const CVekArrayTempl<unsigned>& flags, int from, bool isBackward);

/// The selected tab after one was inserted: the same tab as before.
/// @param selected -1 for none
VEK_API int tabAfterInsertion(int selected, int inserted);

/// The selected tab after one was deleted: the same tab as before; after the selected one was deleted, the tab that
/// took its place, or the last one that is left.
/// @param selected -1 for none
/// @param left number of tabs that are left
/// @return -1 for none
VEK_API int tabAfterDeletion(int selected, int deleted, int left);

/// The place of a page below its tabs, which are in one row at the top.
/// @param client of the control with the tabs, in its client pixels
/// @param tabHeight of a tab, in pixels
/// @return in client pixels of the control; empty, without negative size, if there is no room
VEK_API DlgRect tabPageRect(const DlgRect& client, int tabHeight);

} // namespace VEK
