/// @file
/// The languages of the suite.
#pragma once

#include <vek/export.h>

/// One language.
struct vek_country_st {
    const wchar_t* id;      ///< two small letters of ISO 639-1; null in the record that ends the table
    const wchar_t* name;    ///< the language's own name for itself
    const wchar_t* english; ///< its English name
    const wchar_t* region;  ///< the ISO 3166-1 code of the country where the suite uses it
};

namespace VEK
{

/// The constant table of at least 20 languages, ended by a record whose `id` is null.
VEK_API const vek_country_st* dlCountries();

} // namespace VEK
