// The text application: shows the texts of a catalogue and serves them to other programs. docs/texts.md describes its
// use.
#include "core/platform/platform.h"
#include "server.h"
#include "shared/failure.h"
#include "shared/input.h"
#include "shared/texts.h"
#include "shared/window/report.h"
#include "shared/window/window_program.h"

#include <vek/dialogframe.h>
#include <vek/values/system.h>

#include <CLI/CLI.hpp>

#include <algorithm>
#include <memory>

namespace
{

constexpr wchar_t kTitle[] = L"VEK Texts";

struct Options {
    std::string file; ///< empty: the catalogue of the programs
    std::string language;
    bool registers = false;
    bool unregisters = false;
    bool isServer = false; ///< started by the system for a client
};

/// Where the system looks for servers, below HKEY_CURRENT_USER.
struct Keys {
    CVekString programId = CVekString(L"Software\\Classes\\") + kMsgProgId;
    CVekString classId = L"Software\\Classes\\CLSID\\";
    wchar_t id[40] = L"";

    Keys()
    {
        StringFromGUID2(kMsgClass, id, static_cast<int>(std::size(id)));
        classId += id;
    }
};

void registerServer()
{
    const Keys keys;
    const CVekString program = L"\"" + CVekString(VEK::platform::programPath().c_str()) + L"\"";
    const struct {
        CVekString key;
        CVekString value;
    } rows[] = {
        {keys.programId, kTitle},
        {keys.programId + L"\\CLSID", keys.id},
        {keys.classId, kTitle},
        {keys.classId + L"\\ProgID", kMsgProgId},
        {keys.classId + L"\\LocalServer32", program},
    };
    for (const auto& row : rows) {
        if (!VEK::regWrite(row.key, L"", row.value))
            throw Failure("HKEY_CURRENT_USER\\" + utf8(row.key) + ": cannot be written");
    }
}

void unregisterServer()
{
    const Keys keys;
    for (const CVekString& key : {keys.programId, keys.classId}) {
        const LSTATUS status = RegDeleteTreeW(HKEY_CURRENT_USER, key);
        if (status != ERROR_SUCCESS && status != ERROR_FILE_NOT_FOUND)
            throw Failure("HKEY_CURRENT_USER\\" + utf8(key) + ": cannot be removed");
    }
}

/// @return false if the program ends here, after showing a text
bool parse(Options& options)
{
    CLI::App app("Shows the texts of a catalogue by key and language, and serves them to other programs.", "vek_msg");
    app.allow_windows_style_options(false);
    app.add_option("FILE", options.file, "catalogue (.json) [texts.json beside the program or in share/vek]");
    app.add_option("--language", options.language, "language to show, such as pl [de]");
    app.add_flag("--register", options.registers, "register the program as \"Vek_Msg.App\" for this user, and end");
    app.add_flag("--unregister", options.unregisters, "undo that, and end");
    std::vector<std::string> arguments = VEK::platform::programArguments(__argc, __argv);
    // What the system adds to the command line.
    options.isServer = std::erase_if(arguments, [](const std::string& argument) {
                           return argument.size() > 1 && lstrcmpiW(wide(argument.substr(1)), L"Embedding") == 0;
                       }) > 0;
    std::reverse(arguments.begin(), arguments.end());
    try {
        app.parse(arguments);
    } catch (const CLI::Success&) {
        report(app.help(), MB_ICONINFORMATION, kTitle);
        return false;
    } catch (const CLI::ParseError& error) {
        throw Failure(std::string(error.what()) + "; see vek_msg --help");
    }
    if (!options.file.empty()) // the program that runs may have another current folder
        options.file =
            utf8(std::filesystem::absolute(VEK::platform::pathOf(VEK::platform::wideOf(options.file))).c_str());
    return true;
}

/// Leaves the work to the program if it is registered and runs already.
bool handOver(const Options& options)
{
    IDispatch* running = nullptr;
    if (!VEK::dispatchFromProgID(kMsgProgId, &running))
        return false;
    IVekMsgDlg other(running);
    AllowSetForegroundWindow(ASFW_ANY);
    if (!options.file.empty() && !other.OpenFile(wide(options.file)))
        throw Failure(options.file + ": cannot be opened by the vek_msg that runs");
    if (!options.language.empty())
        other.SetCountry(wide(options.language));
    other.SetVisible(TRUE);
    return true;
}

class MsgApp : public WindowProgram
{
public:
    MsgApp() : WindowProgram("vek_msg", kTitle) {}

    int ExitInstance() override
    {
        m_server.reset();
        return WindowProgram::ExitInstance();
    }

protected:
    bool start() override
    {
        Options options;
        if (!parse(options))
            return false;
        if (options.registers)
            registerServer();
        if (options.unregisters)
            unregisterServer();
        if (options.registers || options.unregisters)
            return false;
        if (!AfxOleInit())
            throw Failure("OLE cannot be initialised");
        if (!options.isServer && handOver(options))
            return false;
        m_window = std::make_unique<MsgWindow>();
        if (!m_window->open())
            throw Failure("the window cannot be opened");
        m_pMainWnd = m_window.get();
        openFile(options);
        m_window->setLanguage(static_cast<const wchar_t*>(wide(options.language)));
        m_server = std::make_unique<MsgServer>(*m_window);
        if (!m_server->start(!options.isServer))
            throw Failure("the system does not accept it as an automation server");
        return true;
    }

private:
    /// Without a catalogue of its own the program waits for one.
    void openFile(const Options& options)
    {
        const std::string file = options.file.empty() ? textsOfProgram() : options.file;
        CVekString problem;
        if (!file.empty() && !m_window->openFile(wide(file), problem))
            throw Failure(utf8(problem));
    }

    std::unique_ptr<MsgWindow> m_window;
    std::unique_ptr<MsgServer> m_server;
};

MsgApp app;

} // namespace
