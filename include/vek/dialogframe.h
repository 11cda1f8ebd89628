/// @file
/// The frame of dialogs: their texts, help, places and fields, and the classes that dialogs derive from.
#pragma once

#include <vek/dialogframe/field_chain.h>
#include <vek/dialogframe/folder.h>
#include <vek/dialogframe/help.h>
#include <vek/dialogframe/icon.h>
#include <vek/dialogframe/language.h>
#include <vek/dialogframe/message.h>
#include <vek/dialogframe/position.h>
#include <vek/dialogframe/replacement.h>
#include <vek/dialogframe/stack.h>

#ifdef _WIN32
#include <vek/dialogframe/window/about_box.h>
#include <vek/dialogframe/window/dlg.h>
#include <vek/dialogframe/window/dlg_env.h>
#include <vek/dialogframe/window/file_dialog.h>
#include <vek/dialogframe/window/msg_dlg.h>
#endif
