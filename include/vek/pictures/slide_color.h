/// @file
/// The colours of slides.
#pragma once

#include <vek/export.h>

namespace VEK
{

/// The colour of an index of the AutoCAD Color Index as slides show it, as a Windows `COLORREF`, 0x00BBGGRR.
///
/// It is computed and not taken from the palette (`VEK::paletteColor`), from which it differs in places: 1 to 6 are the
/// pure colours from red to magenta, 7 to 9 white and two greys, 10 to 249 a wheel of 24 hues in five steps of
/// brightness, each fully and half saturated, and from 250 greys up to white. Index 0 and below is black.
VEK_API unsigned long acadRGB(int index);

/// The index drawn for a slide's colour on a back colour: white lines stay visible on white, since 7 becomes 0, black,
/// if the back colour is 7 as well.
VEK_API int slideColor(int index, int backIndex);

} // namespace VEK
