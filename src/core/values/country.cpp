#include <vek/values/country.h>

const vek_country_st* VEK::dlCountries()
{
    // German first, the language of the built-in texts: lists of languages start with their first row selected.
    static constexpr vek_country_st kCountries[] = {
        {L"de", L"Deutsch", L"German", L"DE"},        {L"en", L"English", L"English", L"GB"},
        {L"fr", L"Français", L"French", L"FR"},       {L"it", L"Italiano", L"Italian", L"IT"},
        {L"es", L"Español", L"Spanish", L"ES"},       {L"nl", L"Nederlands", L"Dutch", L"NL"},
        {L"pl", L"Polski", L"Polish", L"PL"},         {L"cs", L"Čeština", L"Czech", L"CZ"},
        {L"sk", L"Slovenčina", L"Slovak", L"SK"},     {L"hu", L"Magyar", L"Hungarian", L"HU"},
        {L"sl", L"Slovenščina", L"Slovenian", L"SI"}, {L"hr", L"Hrvatski", L"Croatian", L"HR"},
        {L"ro", L"Română", L"Romanian", L"RO"},       {L"bg", L"Български", L"Bulgarian", L"BG"},
        {L"el", L"Ελληνικά", L"Greek", L"GR"},        {L"tr", L"Türkçe", L"Turkish", L"TR"},
        {L"pt", L"Português", L"Portuguese", L"PT"},  {L"da", L"Dansk", L"Danish", L"DK"},
        {L"sv", L"Svenska", L"Swedish", L"SE"},       {L"nb", L"Norsk bokmål", L"Norwegian", L"NO"},
        {L"fi", L"Suomi", L"Finnish", L"FI"},         {L"et", L"Eesti", L"Estonian", L"EE"},
        {L"lv", L"Latviešu", L"Latvian", L"LV"},      {L"lt", L"Lietuvių", L"Lithuanian", L"LT"},
        {L"ru", L"Русский", L"Russian", L"RU"},       {L"uk", L"Українська", L"Ukrainian", L"UA"},
        {nullptr, nullptr, nullptr, nullptr},
    };
    return kCountries;
}
