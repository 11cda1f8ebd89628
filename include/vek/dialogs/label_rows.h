/// @file
/// The rows of the label dialog: one text for each language of `dlCountries`, in that order.
#pragma once

#include <vek/values/string.h>

namespace VEK
{

/// One row of a label.
struct LabelRow {
    CVekString text;
    int lineKind = 0; ///< 1 for a row of several lines
};
using LabelRows = CVekArrayTempl<LabelRow>;

/// The rows of a label.
/// @param language of a label that is a plain text; null for that of the process
/// @param multi whether rows may have several lines; else a blank stands for each line feed
/// @return empty when memory runs out
VEK_API LabelRows labelRows(const wchar_t* label, const wchar_t* language, bool multi);

/// The label of rows, without their carriage returns. Rows without a text drop out.
/// @param label receives it; unchanged on failure
/// @return false when memory runs out
VEK_API bool labelOfRows(CVekString& label, const LabelRows& rows);

/// The height in pixels, at 96 dots an inch, that all rows of the list get for the one with the most lines. What a user
/// types for a line feed, the two characters "\n" or the sign "¶", counts as one.
VEK_API int labelRowHeight(const LabelRows& rows);

/// A row in which a user has typed, in a label whose rows may have several lines: "\n" and "¶" become line feeds.
VEK_API void labelRowEdited(LabelRow& row);

/// Makes a row one of several lines, or of a single one, with a blank for each line feed.
VEK_API void labelRowToggle(LabelRow& row);

/// A text as the field shows it in which a user edits it: with "¶" for a line feed.
VEK_API CVekString labelFieldText(const wchar_t* text);

/// Where labels are copied to: a text for each language.
class LabelStore
{
public:
    virtual ~LabelStore() = default;

    /// Removes what is there.
    /// @return false if nothing can be written
    virtual bool clear() = 0;
    virtual void write(const wchar_t* language, const wchar_t* text) = 0;

    /// @return false, with `text` unchanged, if there is none
    virtual bool read(const wchar_t* language, CVekString& text) = 0;
};

/// Replaces what is in the store: the rows are the texts of the languages in the order of `dlCountries`, empty ones
/// left out. A store that cannot be cleared stays as it is.
VEK_API void labelCopy(LabelStore& store, const LabelRows& rows);

/// The label in a store. In its texts "\n" is a line feed, or a blank if rows have a single line.
/// @param label receives it; unchanged on failure
/// @return false if there is no text of a known language
VEK_API bool labelPaste(LabelStore& store, bool multi, CVekString& label);

/// A program that has the translations, in which the user has selected a key.
class LabelServer
{
public:
    virtual ~LabelServer() = default;

    /// The selected key, empty if none is.
    virtual CVekString selectedKey() = 0;

    /// The text of a key, empty if there is none. The language "0" gives its attributes: "M" for one of several lines.
    virtual CVekString text(const wchar_t* key, const wchar_t* language) = 0;

    /// Whether it has ended or hangs, since when all that it gives is empty.
    virtual bool isLost() const = 0;
};

/// Why nothing was imported: key and built-in text of a message.
struct LabelRefusal {
    const wchar_t* key = nullptr; ///< null if all is well
    const wchar_t* builtIn = nullptr;
};

/// Makes a label of the texts of the selected key.
/// @param server null if there is none: then no text is selected
/// @param label receives it; unchanged if it is refused
VEK_API LabelRefusal labelImport(LabelServer* server, bool multi, CVekString& label);

} // namespace VEK
