/// @file
/// Objects, texts and what belongs to a module.
#pragma once

#include <toolkit/exception.h>
#include <toolkit/object.h>
#include <toolkit/state.h>
#include <toolkit/string.h>
