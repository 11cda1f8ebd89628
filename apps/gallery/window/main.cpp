// The window that shows every picture of the library. docs/gallery.md describes its use.
#include "core/platform/platform.h"
#include "gallery_window.h"
#include "shared/failure.h"
#include "shared/input.h"
#include "shared/texts.h"
#include "shared/window/report.h"

#include <vek/data/config.h>
#include <vek/data/text.h>
#include <vek/json.h>

#include <CLI/CLI.hpp>

#include <algorithm>
#include <memory>

namespace
{

struct Options {
    std::string examples; ///< folder; empty: searched for beside the program
    std::string picture;
    std::string language;
};

/// The folder of examples beside the program, or in one of its parent folders, as in a build.
std::string examplesOfProgram()
{
    std::error_code error;
    for (std::filesystem::path at = VEK::platform::programPath().parent_path();; at = at.parent_path()) {
        const std::filesystem::path folder = at / "examples";
        if (std::filesystem::exists(folder / "facade.slb", error))
            return VEK::platform::utf8Of(VEK::platform::textOf(folder));
        if (at == at.parent_path())
            return "";
    }
}

constexpr wchar_t kTitle[] = L"VEK Gallery";

/// @return false if the program ends here, after showing a text
bool parse(Options& options)
{
    CLI::App app("Shows slides, sheets, hatch patterns, texts and all kinds of items.", "gallery");
    app.allow_windows_style_options(false);
    app.add_option("EXAMPLES", options.examples,
                   "folder of slides and of sheets/ [examples beside the program or in a folder around it]");
    app.add_option("--show", options.picture, "name of the picture to begin with, in any case [the first]");
    app.add_option("--language", options.language, "language of the library's dialogs, such as pl [de]");
    std::vector<std::string> arguments = VEK::platform::programArguments(__argc, __argv);
    std::reverse(arguments.begin(), arguments.end());
    try {
        app.parse(arguments);
    } catch (const CLI::Success&) {
        report(app.help(), MB_ICONINFORMATION, kTitle);
        return false;
    } catch (const CLI::ParseError& error) {
        throw Failure(std::string(error.what()) + "; see gallery --help");
    }
    if (options.examples.empty())
        options.examples = examplesOfProgram();
    return true;
}

void loadTexts(const std::string& language, std::vector<std::string>& problems)
{
    const std::string catalogue = textsOfProgram();
    CVekString problem;
    if (!catalogue.empty() && !VEK::textsLoad(wide(catalogue), problem))
        problems.push_back(utf8(problem));
    VEK::msgLangSet(wide(language));
}

void loadMaterials(const std::string& examples, std::vector<std::string>& problems)
{
    const CVekString path = wide(examples + "/materials.json");
    std::error_code error;
    if (!std::filesystem::exists(VEK::platform::pathOf(static_cast<const wchar_t*>(path)),
                                 error)) // a folder of pictures alone
        return;
    CVekDataItem file;
    CVekString problem;
    if (VEK::jsonLoad(file, path, problem))
        *VEK::cfg_dir_make(L"*MAT*") = CVekDataItem(file.getItem(L"*MAT*"));
    else
        problems.push_back(utf8(problem));
}

class GalleryApp : public CWinApp
{
public:
    GalleryApp() : CWinApp(kTitle) {}

    BOOL InitInstance() override
    {
        try {
            return start();
        } catch (const std::exception& error) {
            report("gallery: " + std::string(error.what()) + "\n", MB_ICONERROR, kTitle);
            m_status = 2;
            return FALSE;
        }
    }
    int ExitInstance() override
    {
        const int status = CWinApp::ExitInstance();
        return m_status != 0 ? m_status : status;
    }

private:
    BOOL start()
    {
        Options options;
        if (!parse(options))
            return FALSE;
        std::vector<std::string> problems;
        loadTexts(options.language, problems);
        loadMaterials(options.examples, problems);
        m_window = std::make_unique<GalleryWindow>(catalogue(options.examples, problems));
        if (!m_window->open(wide(options.picture), problems))
            throw Failure("--show " + options.picture + ": no such picture");
        m_pMainWnd = m_window.get();
        m_window->ShowWindow(m_nCmdShow);
        m_window->UpdateWindow();
        return TRUE;
    }

    std::unique_ptr<GalleryWindow> m_window;
    int m_status = 0;
};

GalleryApp gallery;

} // namespace
