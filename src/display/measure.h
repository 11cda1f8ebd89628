// The extents after a change, computed before the change is made.
#pragma once

#include "core/values/whole.h"
#include "display/index.h"

#include <vek/display/gdx.h>

#include <algorithm>
#include <vector>

/// Computes the extents of all items that count: those of items that stay as they are by blocks, each computed once. A
/// region without contours, and such a region of a text, gets one empty contour in passing.
/// @param changed positions of the items that change
/// @param look is called with the place of each in `changed` and the item, and changes what the extents take from it
/// @return false when memory runs out; otherwise there is room for the corners
template <class Look>
bool CVekGDX::measure(Corners& corners, const CVekMatrix3d& view, const CVekArrayTempl<int>& changed, Look&& look)
{
    return VEK::whole(false, [&] {
        struct Member {
            int number;
            int place;
        };
        std::vector<Member> members;
        for (int i = 0; i < changed.len(); ++i)
            members.push_back({displayList.number(changed[i]), i});
        std::sort(members.begin(), members.end(), [](const Member& a, const Member& b) { return a.number < b.number; });
        auto member = members.cbegin();

        VEK::DisplayIndex* const index = displayList.index();
        if (index)
            index->measureBy(view);
        const int count = displayList.len();
        for (int first = 0; first < count; first += VEK::DisplayIndex::kMeasured) {
            const int end = std::min(first + VEK::DisplayIndex::kMeasured, count);
            const bool stays = member == members.cend() || member->number >= end;
            VEK::DisplayIndex::Extents* const known = index && stays ? &index->extents(first) : nullptr;
            Corners here;
            if (known && known->isKnown) {
                here = {known->min, known->max, known->any};
            } else {
                for (int number = first; number < end; ++number) {
                    CVekDisplayItem& item = displayList.m_items.begin()[number];
                    Seen seen{item.hasExtents(), &item.mtx, &item.regl};
                    if (member != members.cend() && member->number == number)
                        look(member++->place, item, seen);
                    if (seen.counts)
                        addCounted(here, item, seen, view);
                }
                if (known)
                    *known = {here.min, here.max, here.any, true};
            }
            if (here.any)
                corners.add(here.min, here.max);
        }
        return extMax.reserve(2);
    });
}
