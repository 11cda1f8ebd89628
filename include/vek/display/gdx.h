/// @file
/// The display object.
#pragma once

#include <vek/display/list.h>

class CVekDataItem;

namespace VEK
{
class GdxBatch;
}

/// A retained picture: a flat list of display items with the view matrices and colours used to draw them.
///
/// A point p of an item with matrix m reaches the device as zoomMtx * viewMtx * projMtx * viewDirectionMtx * m * p.
/// Extents are computed before the view, after projMtx.
///
/// Later items cover earlier ones. Items are added at the end; only a sort or a pick changes their order, and item
/// numbers are valid until the next of these. An item's stack path, its hierarchical address given by the owner,
/// survives both; operations on groups of items take a path and act on every item whose path begins with it. An empty
/// path selects nothing, and an item with an empty path cannot be selected.
///
/// Item numbers follow the array rules: -1 is the last item, and a number past the end reads a default item. A copy is
/// deep. There is no locking: only one thread may use a display object at a time.
///
/// When memory runs out, an operation leaves the object unchanged and reports failure: false, -1, nothing. One without
/// a result leaves it unchanged too, which `VEK::memoryShortages` reports.
class VEK_API CVekGDX : public CVekObj
{
public:
    using Stack = CVekArrayTempl<int>;
    using Region = CVekArrayTempl<CVekVertexArray>;
    using RegionList = CVekArrayTempl<Region>;

    /// Takes the back colour from the host application, and point size, point style and the first five entries of the
    /// colour table from the configuration directory "MRA_MENU\COLOR", keys "PDSIZE", "PDMODE", "HIGHLIGHT", "REFER",
    /// "AXIS", "BASE" and "AUX". Missing values are 0 and default colours. All matrices are the identity.
    CVekGDX();

    /// Takes only these values; the colour table is empty.
    CVekGDX(const CVekColor& back, const CVekMatrix3d& projection, double pointSize, unsigned long pointMode,
            const CVekPoint3d& viewMin, const CVekPoint3d& viewMax);

    // Reading

    int lenGet() const { return displayList.len(); }
    const CVekDisplayList& getDisplayList() const { return displayList; }
    const CVekColor& backColorGet() const { return backColor; }
    VekDisplayObj typeGet(int i) const { return displayList[i].type; }
    unsigned long flagGet(int i) const { return displayList[i].flag; }
    const CVekColor& colorGet(int i) const { return displayList[i].color; }
    const CVekColor& fcolorGet(int i) const { return displayList[i].fcolor; }
    const CVekArrayTempl<double>& linetypeGet(int i) const { return displayList[i].linetype; }
    double ltscaleGet(int i) const { return displayList[i].ltscale; }
    const CVekMatrix3d& mtxGet(int i) const { return displayList[i].mtx; }
    int thicknGet(int i) const { return displayList[i].thickn; }
    const wchar_t* txtGet(int i) const { return displayList[i].txt; }
    const wchar_t* txtAlignGet(int i) const { return displayList[i].txtAlign; }
    CVekPoint3d txtPointGet(int i) const { return displayList[i].point; }
    void itemStackGet(Stack& stack, int i) const { stack = displayList[i].stack; }

    /// Copy the polyline, region, glyph regions or point of an item.
    void geomGet(CVekVertexArray& vl, int i) const { vl = displayList[i].vl; }
    void geomGet(Region& reg, int i) const { reg = displayList[i].reg; }
    void geomGet(RegionList& regl, int i) const { regl = displayList[i].regl; }
    void geomGet(CVekPoint3d& point, int i) const { point = displayList[i].point; }

    /// File name and resource number of a picture.
    /// @return false if there is neither: the number is 0x7FFFFFFF and the name is empty. When memory runs out, the
    ///     targets are unchanged
    bool pictureGet(int i, CVekString& file, unsigned long& id) const;

    /// @return false, with the target unchanged, if i is not below the length or memory runs out
    bool hatchGet(int i, VEK::CHatchProp& prop) const;

    unsigned long pdModeGet() const { return pdMode; }
    double pdSizeGet() const { return pdSize; }

    /// The item's point style and size, or the object's if the item has 0xFFFFFFFF or 0.
    unsigned long pdModeGet(int i) const;
    double pdSizeGet(int i) const;

    int ColorTabLenGet() const { return colorTab.len(); }

    /// The entry of colour mode 1 to 14; a default colour if it is not in the table. Below 1 the array rules apply: 0
    /// reads the last entry of the table.
    const CVekColor& colorTabGet(int mode) const;

    /// The items whose path begins with the given one, ascending.
    CVekArrayTempl<int> StackToItemNr(const Stack& stack) const;

    /// The largest first number of all paths, at least 0; the next free one is this plus 1.
    int stackGet() const;

    /// Whether exactly this path exists: 0 if so, -1 if not. Paths longer than the given one are skipped on purpose,
    /// and a shorter one is compared as if padded with zeros: callers test for presence and do not want a next number.
    int stackGet(const Stack& stack) const;

    // Changing

    void backColorSet(const CVekColor& color) { backColor = color; }
    void pdModeSet(unsigned long value) { pdMode = static_cast<unsigned>(value); }
    void pdSizeSet(double value) { pdSize = value; }

    /// Sets the entry of a colour mode from 1 to 14; false for any other and when memory runs out.
    bool ColorTabSet(int mode, const CVekColor& color);

    /// Appends copies of all items of a list; the caller must update the extents.
    /// @return whether any were added
    bool addDisplayList(const CVekArrayTempl<CVekDisplayItem>& list);

    /// Sets the point style or size in every item whose path is exactly the given one, whatever its type.
    /// @return whether any item matched
    bool pdModeSet(const Stack& stack, unsigned long value);
    bool pdSizeSet(const Stack& stack, double value);

    /// Sets the hatch, or the colour mode 0 to 15, of a group; the latter also clears all bits above bit 11.
    /// @return whether any item matched
    bool hatchSet(const Stack& stack, const VEK::CHatchProp& prop);
    bool cModeSet(const Stack& stack, unsigned mode);

    /// Changes a flag of a group and recomputes the extents.
    /// @param code a `VekPropCode`; any other number changes nothing
    /// @return whether any item matched
    bool propSet(const Stack& stack, int code);

    /// The same, where an empty path means all items.
    /// @return false only for an empty list and when memory runs out
    bool redraw(const Stack& stack, int code);

    /// Moves a group as one: the first of its items whose path is exactly the given one, or else the last item of the
    /// group, gets exactly the matrix m, and the others keep their position relative to it. Recomputes the extents.
    /// @return whether any item matched
    bool mtxSet(const Stack& stack, const CVekMatrix3d& m);

    /// Set the text, its alignment or its insertion point in a group, redo the layout of the glyphs and recompute the
    /// extents.
    /// @return false only for a null text and when memory runs out; nothing changes then
    bool txtSet(const Stack& stack, const wchar_t* text);
    bool txtAlignSet(const Stack& stack, const wchar_t* align);
    void txtPointSet(const Stack& stack, CVekPoint3d point);

    /// Empties the list and discards all extents. Matrices, colours and defaults are kept, and so is the list's memory.
    void clear();

    /// Removes a group in one pass and recomputes the extents.
    /// @return whether any item was removed
    bool clear(const Stack& stack);
    bool removeItemStack(const Stack& stack);

    /// Sorts for drawing, stable within each class: fills, ordinary lines, reference items (colour mode 2), highlighted
    /// regions (mode 1), other highlighted items, pictures. Does nothing to a sorted list.
    void displListSort();

    // Emission: each call adds one item at the end and updates the extents, or does neither if memory runs out. The
    // arguments are copied; they may belong to this object. Items that belong together go into a `VEK::GdxBatch`.

    /// @param refPoint reference point of a screen-fixed point
    void imagePt(const Stack& stack, unsigned long flag, const CVekPoint3d& point, const CVekColor& color,
                 const CVekMatrix3d& mtx, double pointSize, unsigned long pointMode, const CVekPoint3d& refPoint);

    /// @param linetype dashes; an empty list means a continuous line and is stored as the single value 1.0
    /// @param refPoint reference point of a screen-fixed polyline
    void imageVl(const Stack& stack, unsigned long flag, const CVekVertexArray& vl, const CVekColor& color,
                 const CVekMatrix3d& mtx, const CVekArrayTempl<double>& linetype, double ltscale, unsigned long thickn,
                 const CVekPoint3d& refPoint);

    /// The same; the polyline goes into the item without a copy.
    void imageVl(const Stack& stack, unsigned long flag, CVekVertexArray&& vl, const CVekColor& color,
                 const CVekMatrix3d& mtx, const CVekArrayTempl<double>& linetype, double ltscale, unsigned long thickn,
                 const CVekPoint3d& refPoint);

    /// @param fcolor fill colour; kept only with `itemFill` or `itemHatch`, and replaced by `color` if it has no index
    ///     of its own
    void imageReg(const Stack& stack, unsigned long flag, const Region& reg, const CVekColor& color,
                  const CVekMatrix3d& mtx, const CVekArrayTempl<double>& linetype, double ltscale, unsigned long thickn,
                  const CVekColor& fcolor, const VEK::CHatchProp& hatch, const CVekPoint3d& refPoint);

    /// The same; the region goes into the item without a copy.
    void imageReg(const Stack& stack, unsigned long flag, Region&& reg, const CVekColor& color, const CVekMatrix3d& mtx,
                  const CVekArrayTempl<double>& linetype, double ltscale, unsigned long thickn, const CVekColor& fcolor,
                  const VEK::CHatchProp& hatch, const CVekPoint3d& refPoint);

    /// A picture from a file or a resource number.
    /// @param corner1, corner2 opposite corners in device pixels; equal ones mean the whole drawing area
    void imagePicture(const Stack& stack, unsigned long flag, const wchar_t* file, int id, const CVekPoint3d& corner1,
                      const CVekPoint3d& corner2);

    /// A text in the built-in stroke font, in em units: capitals are 1.0 high; the matrix scales and rotates them.
    /// @param align alignment code; see `VEK::textRegions`
    /// @param point insertion point, before alignment
    void imageTxt(const Stack& stack, unsigned long flag, const wchar_t* text, const CVekColor& color,
                  const CVekMatrix3d& mtx, const wchar_t* align, const CVekPoint3d& point, const CVekPoint3d& refPoint);

    /// A text object of the host, which turns it into regions; see `vek_text_to_regl`.
    /// @return false, and no item is added, if textDir is not a directory or the host returns no regions
    bool imageTxt(const Stack& stack, unsigned long flag, const CVekDataItem* textDir, const CVekColor& color,
                  const CVekMatrix3d& mtx, double height, const CVekPoint3d& refPoint);

    // Views

    const CVekMatrix3d& viewMtxGet() const { return viewMtx; }
    const CVekMatrix3d& zoomMtxGet() const { return zoomMtx; }
    const CVekMatrix3d& projMtxGet() const { return projMtx; }
    const CVekMatrix3d& viewDirectionMtxGet() const { return viewDirectionMtx; }

    /// The extents do not depend on these two, so that a wheel step only repaints.
    void viewMtxSet(const CVekMatrix3d& m) { viewMtx = m; }
    void zoomMtxSet(const CVekMatrix3d& m) { zoomMtx = m; }

    /// These recompute the extents.
    void projMtxSet(const CVekMatrix3d& m);
    void viewDirectionMtxSet(const CVekMatrix3d& m);
    void viewDirectionHvcSet(const CVekVector3d& direction);

    /// @param keyword one of `vek_gdx_view_vdir_get`
    /// @return false for an unknown keyword, and the view is unchanged
    bool viewDirectionSet(CVekString keyword);

    /// The extents of all items that count, hidden ones included.
    /// @return false, with the targets unchanged, if there are none
    bool extmaxGet(CVekPoint3d& min, CVekPoint3d& max) const;

    /// Widens min and max, whose input values are the start, by the extents of a group. On purpose only the last region
    /// of a text counts, and an item without geometry of its own, such as a picture, widens by the box of the item
    /// before it, beginning with the origin: callers' fits are tuned to that.
    /// @return whether any item that counts matched
    bool extmaxGet(const Stack& stack, CVekPoint3d& min, CVekPoint3d& max) const;

    /// The extents to fit: set by the caller, copied from the items, and read. If none are set those of the items are
    /// read, and if there are none the targets are unchanged.
    void extMaxViewSet(const CVekPoint3d& min, const CVekPoint3d& max);
    void extMaxViewSet();
    void extMaxViewGet(CVekPoint3d& min, CVekPoint3d& max) const;

    // Picking

    /// The world point of a device point. The order of the inverses is exact only if projMtx and viewMtx commute, in
    /// practice if projMtx is the identity; callers compensate for it elsewhere, so it must not change.
    CVekPoint3d imagePtWc(const CVekPoint3d& devicePoint) const;

    /// Picks the topmost polyline, point or region boundary within 5.0 world units of a device point. Sorts the list
    /// and leaves it reversed; an item picked with an empty path gets the path (0).
    /// @return the first number of its path, or -1; also -1 when memory runs out, and the list may then be left sorted
    int imageItemGet(const CVekPoint3d& devicePoint);

protected:
    void cFlagSet(int i, unsigned mode);
    void flagSet(int i, int code);
    bool removeItem(int i);
    void txtReglUpd(int i);

    /// Merges a transformed point or polyline into extMax. An empty polyline is the origin. Anything not finite is
    /// ignored.
    void refresh_ext(const CVekPoint3d& point, const CVekMatrix3d& m);
    void refresh_ext(const CVekVertexArray& vl, const CVekMatrix3d& m);

    /// Recomputes extMax. A region without contours, and such a region of a text, gets one empty contour.
    void refresh_ext();

    CVekColor backColor;
    double pdSize = 0.0;
    unsigned pdMode = 0;
    CVekMatrix3d projMtx;
    CVekMatrix3d viewMtx;
    CVekMatrix3d zoomMtx;
    CVekPoint3dArray extMax; ///< empty, or min and max
    CVekPoint3d extViewMin;
    CVekPoint3d extViewMax; ///< unset if equal to extViewMin
    CVekDisplayList displayList;
    CVekArrayTempl<CVekColor> colorTab; ///< entry n - 1 belongs to colour mode n
    CVekMatrix3d viewDirectionMtx;

private:
    friend class VEK::GdxBatch;

    /// A box that grows.
    struct Corners {
        CVekPoint3d min;
        CVekPoint3d max;
        bool any = false;

        void add(const CVekPoint3d& low, const CVekPoint3d& high);
    };

    /// What the extents take from an item.
    struct Seen {
        bool counts;
        const CVekMatrix3d* mtx;
        RegionList* regl;
    };

    struct Lettering;

    template <class Build>
    bool emit(VekDisplayObj type, const Stack& stack, unsigned long flag, Build&& build);
    static void addItem(Corners& corners, const CVekDisplayItem& item, const Seen& seen, const CVekMatrix3d& view);
    static void addCounted(Corners& corners, CVekDisplayItem& item, const Seen& seen, const CVekMatrix3d& view);
    template <class Look>
    bool measure(Corners& corners, const CVekMatrix3d& view, const CVekArrayTempl<int>& changed, Look&& look);
    Corners cornersGet() const;
    void cornersSet(const Corners& corners);
    bool look(const CVekMatrix3d& projection, const CVekMatrix3d& direction);
    bool flagsSet(const CVekArrayTempl<int>& changed, int code);
    bool remove(const CVekArrayTempl<int>& gone);
    template <class Set>
    bool letter(const Stack& stack, Set set);
    template <class Change>
    bool forExactly(const Stack& stack, Change change);
};

namespace VEK
{

/// Items that belong together: if memory runs out before all of them are added, none is.
///
/// Between construction and `complete`, items may only be added to the display object.
class VEK_API GdxBatch
{
public:
    explicit GdxBatch(CVekGDX& gdx);

    /// Ends the batch.
    /// @return false if memory ran out since it began; the items added since then are removed, and the extents are as
    ///     before
    bool complete();

private:
    CVekGDX& m_gdx;
    CVekGDX::Corners m_corners;
    int m_length;
    unsigned long m_shortages;
};

} // namespace VEK
