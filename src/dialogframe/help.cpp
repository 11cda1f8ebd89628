#include <vek/data/config.h>
#include <vek/data/text.h>
#include <vek/dialogframe/help.h>

#include "core/platform/outside.h"
#include "core/values/whole.h"

namespace VEK
{

namespace
{

using What = platform::OutsideCall::What;

constexpr wchar_t kTopic[] = L"<topic>";
constexpr wchar_t kIndex[] = L"index";
constexpr wchar_t kLocal[] = L"file:///";

bool beginsWith(std::wstring_view text, std::wstring_view beginning)
{
    return platform::equalNoCase(text.substr(0, beginning.size()), beginning);
}

/// @return false, with `id` unchanged, if the configuration has none
bool applicationId(CVekString& id)
{
    return dataItemGet(cfg_get(L"*APPL*"), nullptr, id);
}

CVekString withTopic(CVekString location, const CVekString& topic)
{
    location.replace(kTopic, topic);
    return location;
}

/// The path of a local page's address.
CVekString pathOfAddress(const CVekString& address)
{
    if (!beginsWith(static_cast<const wchar_t*>(address), kLocal))
        return address;
    // Where full paths begin with a slash, that is the third one of the address.
    const unsigned slashes = std::filesystem::path("/").is_absolute() ? 2 : 3;
    return address.mid(static_cast<unsigned>(std::wcslen(L"file:")) + slashes);
}

HelpPlan planOf(const CVekString& location, const CVekString& topic)
{
    HelpPlan plan;
    plan.kind = helpKind(location);
    if (plan.kind == HelpKind::compiled) {
        plan.target = location;
        plan.keyword = topic;
    } else {
        plan.target = withTopic(location, topic);
    }
    if (plan.kind == HelpKind::html) {
        plan.isTested = true;
        plan.tested = pathOfAddress(plan.target);
        plan.fallback = withTopic(location, kIndex);
    }
    return plan;
}

/// Removes the folder before an address's last part: the index of a book is above its pages. An address on the web
/// keeps its empty parts, without which it would lose its host. One of local pages loses them, and so becomes
/// "file:/C:/...", which every browser opens; the file test then fails, but its other outcome is the index too.
CVekString withoutFolder(const CVekString& address, bool keepEmpty)
{
    CVekArrayTempl<CVekString> parts;
    strTok(parts, address, L"/", keepEmpty);
    if (parts.len() >= 2)
        parts.removeAt(parts.len() - 2);
    return implode(parts, L"/");
}

bool store(HelpPlan& plan, auto&& made)
{
    HelpPlan found;
    const bool good = whole(false, [&] {
        found = made();
        return true;
    });
    if (good)
        plan = std::move(found);
    return good;
}

} // namespace

HelpKind helpKind(const wchar_t* location)
{
    const std::wstring_view text = location ? location : L"";
    if (beginsWith(text, L"http:") || beginsWith(text, L"https:"))
        return HelpKind::web;
    return beginsWith(text, L"file:") ? HelpKind::html : HelpKind::compiled;
}

bool helpPlanOfDialog(HelpPlan& plan, const wchar_t* location, const wchar_t* topic)
{
    return store(plan, [&] {
        CVekString name(topic);
        if (name.find(L'~') >= 0) {
            // The topics of dialogs are index words of the suite's books, where ids are written in capitals.
            CVekString id(L"VEK");
            applicationId(id);
            id.makeUpper();
            name.replace(L"~", id);
        }
        HelpPlan made = planOf(location, name);
        if (made.kind == HelpKind::compiled) {
            made.isTested = true;
            made.tested = made.target;
        }
        return made;
    });
}

bool helpPlanOfBook(HelpPlan& plan, const wchar_t* location, const wchar_t* topic)
{
    return store(plan, [&] {
        const HelpKind kind = helpKind(location);
        const bool isIndex = kind != HelpKind::compiled && CVekString(topic).compareNoCase(kIndex) == 0;
        return planOf(isIndex ? withoutFolder(location, kind == HelpKind::web) : CVekString(location), topic);
    });
}

bool helpOpen(const HelpPlan& plan)
{
    return whole(true, [&] {
        const wchar_t* tested = plan.tested;
        const bool isMissing = plan.isTested && !platform::isReadable(platform::pathOf(tested));
        const wchar_t* target = isMissing ? plan.fallback : plan.target;
        const wchar_t* keyword = plan.keyword;
        if (plan.kind != HelpKind::compiled) {
            platform::outside({What::document, target});
        } else if (!isMissing) {
            platform::outside({What::helpTopic, target}); // opens the window in which the keyword is looked up
            platform::outside({What::helpKeyword, target, keyword});
        }
        return plan.kind != HelpKind::compiled || !isMissing;
    });
}

bool help(CVekString text)
{
    HelpPlan plan;
    const bool good = whole(false, [&] {
        // A caller knows how its pages are written, and web servers distinguish case: the id stays as it is.
        CVekString id;
        if (text.find(L'~') >= 0 && applicationId(id))
            text.replace(L"~", id);
        CVekArrayTempl<CVekString> parts;
        strTok(parts, text, L"\\", false);
        const bool hasBook = parts.len() >= 2;
        CVekString location;
        return help_find(hasBook ? parts[0] : CVekString(L"Vek"), location) &&
               helpPlanOfBook(plan, location, hasBook ? parts[1] : text);
    });
    return good && helpOpen(plan);
}

} // namespace VEK
