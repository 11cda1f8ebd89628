/// @file
/// The user's registry as a store of one label, which the programs of the suite share.
#pragma once

#include <vek/dialogs/label_rows.h>

namespace VEK
{

class RegistryLabelStore final : public LabelStore
{
public:
    bool clear() override;
    void write(const wchar_t* language, const wchar_t* text) override;
    bool read(const wchar_t* language, CVekString& text) override;
};

} // namespace VEK
