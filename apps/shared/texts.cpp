#include "texts.h"

#include "core/platform/platform.h"

std::string textsOfProgram()
{
    std::error_code error;
    const std::filesystem::path name = "texts.json", folder = VEK::platform::programPath().parent_path();
    const auto isThere = [&](const std::filesystem::path& file) { return std::filesystem::exists(file, error); };
    std::filesystem::path found;
    for (const auto& file : {folder / name, folder.parent_path() / "share" / "vek" / name}) {
        if (found.empty() && isThere(file))
            found = file;
    }
    for (std::filesystem::path at = folder; found.empty(); at = at.parent_path()) {
        if (isThere(at / "examples" / name))
            found = at / "examples" / name;
        else if (at == at.parent_path())
            break;
    }
    return VEK::platform::utf8Of(VEK::platform::textOf(found));
}
