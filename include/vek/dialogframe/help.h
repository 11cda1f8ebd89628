/// @file
/// Help: where a book of it is, and what opens a topic.
#pragma once

#include <vek/values/string.h>

namespace VEK
{

/// The kinds of help locations, told apart by how they begin, ignoring case.
enum class HelpKind {
    web,      ///< "http:" or "https:": an address with "<topic>" where the topic goes
    html,     ///< "file:": the address of a local page, with "<topic>"
    compiled, ///< anything else: the path of a compiled help file, in which a topic is a keyword
};

/// The kind of a location; null is taken as empty.
VEK_API HelpKind helpKind(const wchar_t* location);

/// What opens a topic.
struct HelpPlan {
    HelpKind kind = HelpKind::compiled;
    bool isTested = false; ///< whether to test first if the file `tested` can be read
    CVekString tested;     ///< path of a local page or compiled help file; empty for a dialog without help
    CVekString target;     ///< address or compiled help file to open
    CVekString fallback;   ///< of local pages: the address to open if the tested page cannot be read
    CVekString keyword;    ///< to look up in the compiled help file
};

/// How a dialog opens a topic in its help file. Each "~" in the topic stands for the application's id: the text at
/// "*APPL*" in the configuration, or else "VEK", in upper case. A local page that cannot be read is replaced by the
/// page "index", a compiled file that cannot be read is to be asked for.
/// @param location,topic null is taken as empty
/// @return false, with `plan` unchanged, when memory runs out
VEK_API bool helpPlanOfDialog(HelpPlan& plan, const wchar_t* location, const wchar_t* topic);

/// How `help` opens a topic at a book's location. Of an address, the topic "index", in any case, drops the folder
/// before the last part. A local page is treated as in a dialog, a compiled file is not tested.
VEK_API bool helpPlanOfBook(HelpPlan& plan, const wchar_t* location, const wchar_t* topic);

/// Opens what a plan says. Whether the system could open it is not known.
/// @return false, with nothing opened, if the user is to be asked for the compiled help file. The caller then sets
/// `target` to the answer and `isTested` to false, and calls again
VEK_API bool helpOpen(const HelpPlan& plan);

/// Opens a help topic.
/// @param text "book\topic", where further parts are ignored; or a topic of the book "Vek". Each "~" stands for the
/// text at "*APPL*" in the configuration, as it is written there; without it "~" stays
/// @return false if there is no such book (see `help_find`) or memory runs out; whether the topic exists is not known
VEK_API bool help(CVekString text);

} // namespace VEK
