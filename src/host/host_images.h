/// @file
/// What the ready host can do without being told: drills and standard parts along their axis, texts, extrusions.
#pragma once

#include <vek/data/item.h>
#include <vek/display/gdx.h>

struct resbuf;

namespace VEK::host
{

/// Draws a drill as a circle with its centre cross, and a standard part as what is seen along its axis, with "MTX",
/// "CMODE" and "STACK" of the parameters, in the colour of its layer.
/// @return false, with nothing added, if the object is neither, has no diameter above 0, and when memory runs out
bool imagePart(CVekGDX* gdx, const CVekDataItem* object, const CVekDataItem* parameters);

/// The host's side of `vek_text_to_regl`: a list of "TEXT", "HEIGHT" of the capitals (1.0) and "ALIGN" ("TL" to "BR"),
/// and a fineness, which a stroke font has no need of.
/// @return false if the arguments are no such list
bool textToRegions(resbuf* arguments, Regions& regions);

/// The host's side of `vek_gdx_image_extr`: draws an element, or what an element of "TYPE" "EXTR" would have as its
/// definition, into the display object of a key, as `vek_gdx_image_bgr` draws an assembly.
/// @return false if the arguments are none, there is no such display object, or nothing can be drawn
bool imageExtrusion(resbuf* arguments);

} // namespace VEK::host
