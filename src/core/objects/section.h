/// @file
/// The sections of elements: regions, lines of folded sheets, paths.
#pragma once

#include <vek/data/item.h>

namespace VEK::objects
{

/// The section of a definition: what `objGen` derived, or "REGION", or "OUTLINE" with "INNER" outlines as holes.
/// @param unit that of the element, to which an outline with a unit of its own is converted
/// @return false, with nothing in the region, if there is none
bool sectionOf(const CVekDataItem* bt, Vek::lUnit unit, VertexArrays& region);

/// The section by "OUTLINE" alone, appended.
bool outlineSection(const CVekDataItem& bt, Vek::lUnit unit, VertexArrays& region);

/// The section of an angle, its outer corner at the origin.
/// @return false, with nothing in the region, if it is none
bool angleSection(const CVekDataItem* bt, VertexArrays& region);

/// The length of an extruded element: "LEN" of its definition, or that of its "AXIS".
/// @return 0 if there is none
double lengthOf(const CVekDataItem* element, const CVekDataItem* bt);

/// One plane face of a folded sheet, between two bends.
struct Flat {
    CVekPoint3d start;
    CVekVector3d direction; ///< of length 1
};

/// The section of a folded sheet: the line of one of its sides, with the thickness to its right.
struct Fold {
    CVekVertexArray line; ///< with arcs for the bends
    CVekArrayTempl<Flat> flats;
    double thickness = 0.0;

    /// The coordinates of a plane face, from 0: the origin where the line of the face starts, x along it, y along the
    /// fold, z into the sheet. The identity for a number that the sheet has not.
    CVekMatrix3d plane(int number) const;
};

/// @param several "EDGE_N", the line is stored, else "EDGE", two legs
bool foldOf(const CVekDataItem* bt, bool several, Fold& fold);

/// Where an extruded element ends, in its own coordinates.
struct Ends {
    CVekPlane low{CVekPoint3d::kOrigin, CVekVector3d::kZAxis};
    CVekPlane high = low;
    bool square = true; ///< the planes are square to the z axis
};

/// @param cuts directory of planes; what lies on the side of their normals is cut away
/// @return false without a length
bool endsOf(const CVekDataItem* bt, double length, const CVekDataItem* cuts, Ends& ends);

/// The key under which `objGen` leaves the section.
inline constexpr const wchar_t* kDerivedSection = L"*REGION*";

} // namespace VEK::objects
