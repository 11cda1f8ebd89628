/// @file
/// The data store: the tree, its keys, directories, files and configuration, texts, labels and materials.
#pragma once

#include <vek/data/app.h>
#include <vek/data/config.h>
#include <vek/data/dir.h>
#include <vek/data/file.h>
#include <vek/data/item.h>
#include <vek/data/iterator.h>
#include <vek/data/key.h>
#include <vek/data/label.h>
#include <vek/data/material.h>
#include <vek/data/pattern.h>
#include <vek/data/resbuf.h>
#include <vek/data/text.h>
