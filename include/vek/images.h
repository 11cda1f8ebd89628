/// @file
/// Image generators: the suite's objects as display items.
#pragma once

#include <vek/images/element.h>
#include <vek/images/object.h>
