/// @file
/// The pictures of the gallery.
#pragma once

#include "shared/patterns.h"
#include "shared/project.h"

#include <vek/display.h>

#include <functional>
#include <memory>
#include <string>
#include <vector>

/// One line of the list.
struct CataloguePicture {
    CVekString group;
    CVekString name;
    /// Adds the items, or throws a failure. The patterns are the host's while the picture is shown.
    std::function<void(CVekGDX&, Patterns&)> add;
    /// The elements that `add` has drawn last, each of which is picked as one; null for a picture without elements.
    std::shared_ptr<std::vector<ProjectElement>> elements = nullptr;
};

/// All pictures, group by group: the slides, the objects of projects and the sheets of a folder of examples, each hatch
/// pattern, texts, and all kinds of items.
/// @param folder UTF-8; empty for none
/// @param problems receives a line for each file that cannot be read, and for a folder without pictures
std::vector<CataloguePicture> catalogue(const std::string& folder, std::vector<std::string>& problems);
