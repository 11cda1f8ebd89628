/// @file
/// The frame of dialogs: texts by key, and help.
#pragma once

#include <vek/dialogframe/help.h>
#include <vek/dialogframe/message.h>

#ifdef _WIN32
#include <vek/dialogframe/window/msg_dlg.h>
#endif
