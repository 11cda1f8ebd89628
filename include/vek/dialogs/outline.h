/// @file
/// The choice of a standard outline, as the outline dialog makes it.
#pragma once

#include <vek/data/item.h>
#include <vek/values/map.h>
#include <vek/values/point.h>

namespace VEK
{

/// What the outline dialog is given and gives back. Angles among the parameters are in degrees.
struct outlineData {
    int code = 1;                      ///< kind, the integer key of an entry of the library
    int filter = 15;                   ///< bits of `OutlineGroup`: kinds that have none of them are not offered
    int textGen = 3;                   ///< how a designation is made, `OutlineText` of the kind
    int range = 3;                     ///< 1 to 4, for shapes of about 1, 10, 100 and 1000; others count as the nearest
    CVekString material;               ///< key; if empty the dialog does not offer materials
    CVekArrayTempl<double> parms;      ///< signed, in the order of the library
    CVekPoint3d basePoint;             ///< by which the outline is moved
    Vek::lUnit unit = acad_unit_get(); ///< of the lengths
};

/// Parameters by range index (0 to 3) and code.
using OutlineMemory = CVekArrayTempl<CVekMapTempl<int, CVekArrayTempl<double>>>;

/// What all outline dialogs of the process remember, whether they end by OK or not. For the user-interface thread.
VEK_API OutlineMemory& outlineMemory();

/// The state of an outline dialog and what its controls show and do, without the controls. Only the library knows the
/// shapes' parameters; its form is described at `outlineInit`. When memory runs out a function leaves all as it was.
class VEK_API OutlineChoice
{
public:
    static constexpr int maxRows = 6; ///< parameters that the dialog has fields for

    /// A kind on offer.
    struct Kind {
        int code = 0;
        CVekString label; ///< text key
    };

    /// A word that a parameter's field takes in place of a number.
    struct Word {
        CVekString word;
        double value = 0.0; ///< of an angle in radians
    };

    /// A parameter as its button and field show it.
    struct Row {
        CVekString label;  ///< text key
        bool plain = true; ///< whether it cannot be negative: the button does nothing
        bool angle = false;
        int valid = 0;      ///< flags for the field, "VALID"
        double value = 0.0; ///< for the field: without its sign unless plain, an angle in radians
        CVekArrayTempl<Word> words;
    };
    using Rows = CVekArrayTempl<Row>;

    CVekDataItem* library = nullptr; ///< not owned
    int rangeIndex = 2;              ///< 0 to 3
    int textGen = 3;
    int code = 1;
    int filter = 15;
    CVekArrayTempl<double> parms; ///< of the present kind
    Vek::lUnit unit = acad_unit_get();
    CVekArrayTempl<int> signs;                                  ///< 1, -1 or 0 for each parameter
    CVekArrayTempl<CVekMapTempl<int, CVekVector3d>> basePoints; ///< by range index and code

    /// Takes over everything but the material, or gives it back.
    /// @return false when memory runs out
    bool take(const outlineData& data);
    bool give(outlineData& data) const;

    /// The kinds that pass the filter, in the library's order; none when memory runs out. An entry without groups or
    /// label is no kind.
    CVekArrayTempl<Kind> kinds() const;

    /// The place of the present code among kinds; 0 if it is not there, -1 if there are none.
    int placeIn(const CVekArrayTempl<Kind>& kinds) const;

    /// Makes a kind the present one: keeps the parameters of the one before, and takes those that were last used with
    /// this one, or its defaults.
    /// @param rows receives the parameters as they are to be shown
    /// @return false when memory runs out
    bool load(int newCode, Rows& rows);

    /// Goes to another range: keeps the parameters, and takes those that were last used there. The present kind is to
    /// be loaded then.
    /// @return false when memory runs out
    bool rangeSet(int index);

    /// Turns the sign of a parameter that can be negative.
    /// @param label receives the text key of its new label
    /// @return false for any other parameter
    bool toggle(int index, CVekString& label);

    /// Takes a parameter from its field, an angle in radians.
    void parmSet(int index, double value);

    /// The base point as the dialog shows it: the position of the reference point relative to the outline, the opposite
    /// of the offset that is stored.
    CVekPoint3d basePosition() const;

    /// Takes one coordinate of it.
    /// @param axis 0 for x, 1 for y
    void basePositionSet(int axis, double value);

    /// The outline; empty if the parameters are not valid.
    CVekVertexArray outline() const;

private:
    bool remember() const;
    CVekVector3d baseOffset() const;
    CVekDataItem* parameter(int index) const;
    Row row(const CVekDataItem& item, int index);
};

} // namespace VEK
