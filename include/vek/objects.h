/// @file
/// Object services: what the suite's objects mean.
///
/// Lengths are in the object's unit, angles radians. No service raises an error; a service that fails gives false, null
/// or an empty result and leaves what it was to fill empty or as it was. Null items are allowed everywhere.
#pragma once

#include <vek/data/text.h> // msgBoxTitle
#include <vek/objects/attribute.h>
#include <vek/objects/bar.h>
#include <vek/objects/element.h>
#include <vek/objects/outline.h>
#include <vek/objects/projection.h>
#include <vek/objects/sheet.h>
#include <vek/solid.h>
