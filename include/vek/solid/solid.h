/// @file
/// Solids and their projection.
#pragma once

#include <vek/values/polyline.h>

/// Which kernel projects. There is one; every number means it.
using VEK_MODELER_TYPE = int;
inline constexpr VEK_MODELER_TYPE vekModelerFaces = 1; ///< the kernel of this library

/// Bodies of planar, cylindrical and conical faces, and their projection with hidden lines.
///
/// Bodies are added one after the other, each with a number of the caller's that every polyline of a projection brings
/// back (`CVekVertexArrayEx::element`); several bodies may have the same one. All lengths are in one unit of the
/// caller's. A placement maps the coordinates of the body, in which its section and its ends are given, to the world.
/// It may mirror and scale, also unevenly: a cylinder then becomes an elliptic one. It must be invertible.
///
/// This is a kernel of faces and no boolean modeller. Bodies may touch and penetrate each other; each hides what is
/// behind or inside it, but no line is drawn where two faces of different bodies penetrate. Only `drill` takes material
/// away.
///
/// What is wrong in itself is left out: a call that cannot make a body of what it is given (not finite, above 1e12,
/// without area or length, a singular placement), would make the solid larger than 5,000,000 edges, each chord of a
/// curve counted, or runs out of memory, gives false and changes nothing. An outline
/// that crosses itself makes a body whose inside is where a ray to the outside crosses the outline an odd number of
/// times; the line in which its faces penetrate is not drawn.
class VEK_API CVek_Solid : public CVekObj
{
public:
    using Region = CVekArrayTempl<CVekVertexArray>;

    CVek_Solid();
    CVek_Solid(const CVek_Solid&) = delete;
    CVek_Solid& operator=(const CVek_Solid&) = delete;
    ~CVek_Solid() override;

    /// Adds a prism: the region in the xy plane of the body, extruded along its z axis.
    ///
    /// Straight segments give planar faces, arcs cylindrical ones. Where two segments go over into one another without
    /// a corner no line is drawn, unless the face turns away there, or `folded` asks for it.
    /// @param region element 0 the outer contour, the others holes, of any winding; an open contour is closed by a
    ///     straight segment, arcs not parallel to xy become chords, z is ignored
    /// @param placement body to world
    /// @param z0,z1 the ends, in any order
    /// @param folded the section is that of a folded sheet: the transitions between straight segments and arcs without
    ///     a corner are drawn as lines of kind `fold`
    /// @return false, with nothing added, for a region without area, for z0 equal to z1 and for bad numbers
    bool extrude(const Region& region, const CVekMatrix3d& placement, double z0, double z1, int element,
                 bool folded = false);

    /// The same between two planes, given in the coordinates of the body: mitred ends. The normals may slant in both
    /// directions but not be square to z; their sign means nothing, nor does which of the planes is the higher one.
    /// @return false also if the planes meet within the section
    bool extrude(const Region& region, const CVekMatrix3d& placement, const CVekPlane& start, const CVekPlane& end,
                 int element, bool folded = false);

    /// Adds a folded sheet: its section is a line with a thickness, extruded like a region with `folded` set. The arcs
    /// of the line are the bends; a corner without an arc is a sharp one on both sides.
    /// @param line open and continuous, in the xy plane; arcs whose radius the thickness consumes give false
    /// @param thickness above 0
    /// @param side where the thickness lies: 0 half to each side, 1 to the left of the line's direction, -1 to its
    ///     right
    bool plate(const CVekVertexArray& line, double thickness, int side, const CVekMatrix3d& placement, double z0,
               double z1, int element);
    bool plate(const CVekVertexArray& line, double thickness, int side, const CVekMatrix3d& placement,
               const CVekPlane& start, const CVekPlane& end, int element);

    /// Adds a body of revolution about the z axis of the body.
    ///
    /// Segments parallel to the axis give cylindrical faces, those square to it planar ones, slanted ones conical
    /// faces; arcs give fine conical facets with a silhouette and no lines between them. Segments on the axis give no
    /// face.
    /// @param profile as the region of `extrude`: its x is the distance from the axis, nowhere below 0, its y the
    ///     height along the axis
    /// @param placement body to world
    /// @param from where the revolution begins, in radians from the x axis, counter-clockwise about z
    /// @param angle the included angle in radians, of either sign; a full turn or more closes the body
    bool revolve(const Region& profile, const CVekMatrix3d& placement, double from, double angle, int element);

    /// Drills a round hole into every body of that element number that exists at this time.
    ///
    /// The hole cuts planar faces at any angle, and those cylindrical faces whose axis is parallel to it, earlier holes
    /// among them; it may overlap the edges of faces and other holes. Its rim is of kind `hole`, and its wall hides and
    /// is seen through the hole. A body in which it meets other faces within its length, round ones at an angle to its
    /// axis and cones, stays as it was; so does one whose parallel round faces it would cut to a part of their length.
    /// Where two holes at an angle to one another meet inside a body, their walls are not cut.
    /// @param element the number given when the bodies were added
    /// @param axis the hole's own coordinates to the world: the hole runs along +z from the origin. Of its axes only
    ///     the directions count, so the diameter and the depth are in world units
    /// @param diameter above 0
    /// @param depth of a blind hole, which has a flat bottom and begins at the origin; 0 for a hole through everything,
    ///     in both directions
    /// @return whether anything was cut in any body
    bool drill(int element, const CVekMatrix3d& axis, double diameter, double depth = 0.0);

    /// Drills many holes of one diameter and depth, at a cost of n log n if they touch neither one another nor an edge.
    ///
    /// Of one direction the first 10,000 are drilled, in order of their places, and the first 1,000 of those that do
    /// touch, seen along their axis; a hole given twice counts once.
    bool drillEach(int element, const CVekArrayTempl<CVekMatrix3d>& axes, double diameter, double depth = 0.0);

    /// The same for one body and one hole.
    /// @param body its place in the order of adding, from 0
    bool drillBody(int body, const CVekMatrix3d& axis, double diameter, double depth = 0.0);

    /// Appends the bodies of another solid, transformed, with the holes that they have. The other one may be this one.
    /// @param placement the other's world to this one's
    /// @return false, with nothing added, if the other is empty or the placement singular
    bool add(const CVek_Solid& other, const CVekMatrix3d& placement);

    /// The same, with one element number for all that is added.
    bool add(const CVek_Solid& other, const CVekMatrix3d& placement, int element);

    /// Removes all bodies.
    void clear();

    /// The number of bodies.
    int bodies() const;

    /// The bounding box of all bodies in the world, curved faces included.
    /// @return false if there is no body, with the corners unchanged
    bool extents(CVekPoint3d& min, CVekPoint3d& max) const;

    /// Prepares the bodies for projections. It may be called repeatedly, also between adding bodies; a projection
    /// prepares what is not prepared yet.
    /// @return false if there is no body, or memory runs out
    virtual bool solid();

    /// Projects all bodies.
    ///
    /// The lines are in view coordinates at z = 0, each with its kind and its element number. The viewer is at +z of
    /// the view, infinitely far away. Circles seen along their axis are true arcs, also their parts; all other curves
    /// are chords. Lines seen end-on are left out.
    ///
    /// Lines that coincide in the picture are drawn once, by the foremost; visible ones win over hidden ones. Visible
    /// and hidden pieces follow the order of bodies and, in a body, of its lines, so the result depends on nothing but
    /// the order of adding. Pieces of one element, kind and visibility that continue each other, without a branch, are
    /// one polyline; a contour seen from its front is thus one closed polyline.
    /// @param view the view to the world, the inverse of the view matrix
    /// @param together true lets the bodies hide one another, and draws lines that coincide once over all; false
    ///     projects each body as if it were alone
    /// @param visible,hidden are emptied first, and stay empty on failure; the same list for both receives the visible
    ///     lines followed by the hidden ones
    /// @param modeler every number means the kernel of this library
    /// @return false if there is no body, the view has no inverse or memory runs out
    virtual bool project(const CVekMatrix3d& view, bool together, CVekArrayTempl<CVekVertexArrayEx>& visible,
                         CVekArrayTempl<CVekVertexArrayEx>& hidden, VEK_MODELER_TYPE modeler);

private:
    struct Rep;
    Rep* m_rep = nullptr;
};
