#include <vek/data/label.h>
#include <vek/dialogs/label_rows.h>
#include <vek/values/country.h>

#include "core/values/whole.h"

#include <algorithm>

namespace VEK
{

namespace
{

constexpr int kLineHeight = 16; // that of the icons
constexpr int kSpace = 2;

constexpr const wchar_t* kTyped = L"\\n";
constexpr const wchar_t* kSign = L"\u00B6";

int count(const wchar_t* text, const wchar_t* what)
{
    int found = 0;
    for (const wchar_t* at = std::wcsstr(text, what); at; at = std::wcsstr(at + std::wcslen(what), what))
        ++found;
    return found;
}

/// The label of the texts that `textOf(i, record)` gives for each language.
CVekString made(auto&& textOf)
{
    CVekString label;
    const vek_country_st* languages = dlCountries();
    for (int i = 0; languages[i].id; ++i) {
        const CVekString text = textOf(i, languages[i].id);
        if (!text.isNull())
            label_set(label, text, languages[i].id);
    }
    return label;
}

} // namespace

LabelRows labelRows(const wchar_t* label, const wchar_t* language, bool multi)
{
    return whole(LabelRows(), [&] {
        CVekString texts(label);
        if (!texts.isNull() && texts[0] != L'\\') {
            texts = L"";
            label_set(texts, label, language);
        }
        LabelRows rows;
        for (const vek_country_st* each = dlCountries(); each->id; ++each) {
            LabelRow row;
            label_get(row.text, texts, each->id, false);
            if (multi)
                row.lineKind = row.text.find(L'\n') >= 0;
            else
                row.text.replace(L'\n', L' ');
            rows.append(std::move(row));
        }
        return rows;
    });
}

bool labelOfRows(CVekString& label, const LabelRows& rows)
{
    CVekString result;
    const bool good = whole(false, [&] {
        result = made([&](int i, const wchar_t*) {
            CVekString text = i < rows.len() ? rows[i].text : CVekString();
            text.replace(L"\r", L"");
            return text;
        });
        return true;
    });
    if (good)
        label = std::move(result);
    return good;
}

int labelRowHeight(const LabelRows& rows)
{
    int most = 1;
    for (const LabelRow& row : rows)
        most = std::max(most, 1 + count(row.text, L"\n") + count(row.text, kTyped) + count(row.text, kSign));
    return kLineHeight * most + kSpace;
}

void labelRowEdited(LabelRow& row)
{
    row.text.replace(kTyped, L"\n");
    row.text.replace(kSign, L"\n");
    row.lineKind = row.text.find(L'\n') >= 0;
}

void labelRowToggle(LabelRow& row)
{
    row.lineKind = row.lineKind == 0;
    if (row.lineKind == 0)
        row.text.replace(L'\n', L' ');
}

CVekString labelFieldText(const wchar_t* text)
{
    return whole(CVekString(), [&] {
        CVekString result(text);
        result.replace(L"\n", kSign);
        return result;
    });
}

void labelCopy(LabelStore& store, const LabelRows& rows)
{
    if (!store.clear())
        return;
    const vek_country_st* languages = dlCountries();
    for (int i = 0; i < rows.len() && languages[i].id; ++i)
        if (!rows[i].text.isNull())
            store.write(languages[i].id, rows[i].text);
}

bool labelPaste(LabelStore& store, bool multi, CVekString& label)
{
    CVekString pasted = whole(CVekString(), [&] {
        return made([&](int, const wchar_t* language) {
            CVekString text;
            if (store.read(language, text))
                text.replace(kTyped, multi ? L"\n" : L" ");
            return text;
        });
    });
    const bool good = !pasted.isNull();
    if (good)
        label = std::move(pasted);
    return good;
}

namespace
{

/// `labelImport` with a server that may be gone by the end: then what it gave may be a part of the texts.
LabelRefusal imported(LabelServer* server, bool multi, CVekString& label)
{
    const CVekString key = server ? server->selectedKey() : CVekString();
    if (key.isNull())
        return {L"VEK_MFC_0010", L"Kein Text ausgewählt"};
    if (!multi && server->text(key, L"0").find(L'M') >= 0)
        return {L"VEK_MFC_0017", L"Mehzeilige Texte nicht möglich"};
    CVekString texts = whole(CVekString(), [&] {
        return made([&](int, const wchar_t* language) {
            CVekString text = server->text(key, language);
            text.unEscapeWideChar();
            return text;
        });
    });
    if (texts.isNull())
        return {L"VEK_MFC_0011", L"Kein Text zugeordnet"};
    label = std::move(texts);
    return {};
}

} // namespace

LabelRefusal labelImport(LabelServer* server, bool multi, CVekString& label)
{
    CVekString texts;
    const LabelRefusal refusal = imported(server, multi, texts);
    if (server && server->isLost())
        return {L"VEK_MFC_0019", L"Verbindung zur Textanwendung abgebrochen"};
    if (!refusal.key)
        label = std::move(texts);
    return refusal;
}

} // namespace VEK
