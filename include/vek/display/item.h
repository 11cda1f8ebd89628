/// @file
/// One item of a display list.
#pragma once

#include <vek/values/color.h>
#include <vek/values/linetype.h>
#include <vek/values/polyline.h>

/// Kind of a display item. The numbers are fixed: callers use them. An item of any other number draws nothing and has
/// no extents.
enum VekDisplayObj : int {
    dispNone = 0,
    dispPolyline = 1,
    dispPoint = 2,
    dispRegion = 3,
    dispText = 5,
    dispPicture = 6
};

/// Bits of an item's flag. The numbers are fixed: callers use them.
enum VekItemFlag : unsigned {
    itemFill = 1,          ///< region: solid fill
    itemHatch = 2,         ///< region: hatch
    itemHidden = 4,        ///< not drawn
    itemNoExt = 8,         ///< not counted in the extents
    itemOutline = 16,      ///< region: the boundary is drawn
    itemFullWindow = 32,   ///< picture: fills the whole drawing area, whatever its corners
    itemTransparent = 64,  ///< picture: its key colour is left out
    itemScreenFixed = 128, ///< of fixed size on the screen, anchored at its reference point; not in the extents
    itemColorMode = 0xF00  ///< the colour mode, shifted left by `itemColorModeShift`
};

inline constexpr int itemColorModeShift = 8;

/// What `CVekGDX::propSet` and `redraw` change. The numbers are fixed: callers use them.
enum VekPropCode : int {
    propShow = 1,
    propHide = 2,
    propExt = 3, ///< counts in the extents
    propNoExt = 4,
    propOutline = 5,
    propNoOutline = 6,
    propFullWindow = 7,
    propNoFullWindow = 8,
    propTransparent = 9,
    propNotTransparent = 10
};

namespace VEK
{

/// Colour mode of an item: its own colour, an entry of the display object's colour table, or the exact inverse of the
/// background. Modes 6 to 14 are entries whose meaning the caller defines.
enum GdxColorMode : unsigned {
    colorOwn = 0,
    colorHighlight = 1, ///< selected items
    colorRefer = 2,     ///< reference items
    colorAxis = 3,      ///< axes
    colorBase = 4,      ///< base items
    colorAux = 5,       ///< auxiliary items
    colorInverse = 15
};

} // namespace VEK

/// A display item: geometry in the coordinates in which it was passed, the matrix that is applied to it first, and its
/// appearance. Nothing in it is in device pixels except the corners of a picture. A copy is deep.
class VEK_API CVekDisplayItem : public CVekObj
{
public:
    using MovesAsBytes = CVekDisplayItem; ///< see `kVekMovesAsBytes`

    CVekDisplayItem() {} // a defaulted one would be filled with zeros before its members are built

    // What a plain polyline needs stands first, since lists of them are long.
    VekDisplayObj type = dispNone;
    unsigned flag = 0;               ///< `VekItemFlag` and the colour mode
    int thickn = 0;                  ///< pen width in pixels
    unsigned pdMode = 0;             ///< point: style, 0xFFFFFFFF the display object's; picture: resource number
    double ltscale = 0.0;            ///< factor on the dash lengths
    CVekArrayTempl<double> linetype; ///< dashes; the single value 1.0 is a continuous line
    CVekArrayTempl<int> stack;       ///< the owner's hierarchical address
    CVekColor color;                 ///< pen colour
    CVekVertexArray vl;              ///< polyline: geometry; picture: corner to corner; screen-fixed point, text:
                                     ///< vertex 0 starts at the reference point
    CVekMatrix3d mtx;
    CVekPoint3d point;                   ///< point, text: position; screen-fixed polyline, region: reference point
    double pdSize = 0.0;                 ///< point: size, 0 the display object's
    CVekArrayTempl<CVekVertexArray> reg; ///< region: boundary and holes
    CVekColor fcolor;                    ///< fill colour of a region
    VEK::CHatchProp hatch;
    CVekString txtAlign;                                  ///< text: alignment code
    CVekString txt;                                       ///< text: the text; picture: file name
    CVekArrayTempl<CVekArrayTempl<CVekVertexArray>> regl; ///< text: the regions of its glyphs

    /// The colour mode, 0 to 15.
    unsigned colorMode() const { return flag >> itemColorModeShift & 15u; }

    /// Whether the item counts in the extents.
    bool hasExtents() const { return (flag & (itemNoExt | itemScreenFixed)) == 0; }
};

/// The resource number of a picture that has none.
inline constexpr unsigned vekNoPicture = 0x7FFFFFFF;
