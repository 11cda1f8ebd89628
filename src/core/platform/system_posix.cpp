#include "core/platform/outside.h"

#include <algorithm>
#include <chrono>
#include <dlfcn.h>
#include <mutex>
#include <spawn.h>
#include <sys/wait.h>
#include <thread>
#include <unistd.h>
#include <vector>

namespace fs = std::filesystem;

namespace
{

/// The words of an argument text; double quotes enclose a word with blanks.
std::vector<std::string> argumentsOf(std::wstring_view text)
{
    std::vector<std::string> arguments;
    std::wstring word;
    bool inWord = false;
    bool quoted = false;
    for (const wchar_t c : text) {
        const bool blank = !quoted && (c == L' ' || c == L'\t');
        if (!blank) {
            inWord = true;
            if (c == L'"')
                quoted = !quoted;
            else
                word += c;
        } else if (inWord) {
            arguments.push_back(VEK::platform::utf8Of(word));
            word.clear();
            inWord = false;
        }
    }
    if (inWord)
        arguments.push_back(VEK::platform::utf8Of(word));
    return arguments;
}

bool hasEnded(pid_t process)
{
    return waitpid(process, nullptr, WNOHANG) != 0; // an error means that it is no longer our child
}

/// Keeps a process that nobody waits for until it can be reaped.
void leaveRunning(pid_t process)
{
    static std::mutex& guard = *new std::mutex;
    static std::vector<pid_t>& running = *new std::vector<pid_t>;
    const std::lock_guard<std::mutex> lock(guard);
    std::erase_if(running, hasEnded);
    running.push_back(process);
}

bool endsWithin(pid_t process, unsigned long timeout)
{
    using Clock = std::chrono::steady_clock;
    const Clock::time_point begin = Clock::now();
    std::chrono::milliseconds pause(1);
    while (!hasEnded(process)) {
        const auto passed = std::chrono::duration_cast<std::chrono::milliseconds>(Clock::now() - begin);
        if (static_cast<unsigned long>(passed.count()) >= timeout)
            return false;
        std::this_thread::sleep_for(pause);
        pause = std::min(pause * 2, std::chrono::milliseconds(20));
    }
    return true;
}

} // namespace

namespace VEK::platform
{

fs::path programPath()
{
    std::error_code error;
    return fs::read_symlink("/proc/self/exe", error);
}

fs::path modulePath()
{
    Dl_info info{};
    std::error_code error;
    if (dladdr(reinterpret_cast<void*>(&modulePath), &info) && info.dli_fname) {
        fs::path path = fs::canonical(info.dli_fname, error);
        if (!error)
            return path;
    }
    return programPath();
}

bool isReadable(const fs::path& path)
{
    return access(path.c_str(), R_OK) == 0;
}

std::vector<std::string> programArguments(int argc, const char* const* argv)
{
    return {argv + std::min(argc, 1), argv + argc};
}

bool errorsGoToTerminal()
{
    return ::isatty(STDERR_FILENO) == 1;
}

std::string systemCodePageOf(std::wstring_view text)
{
    return codePage1252Of(text);
}

std::wstring wideOfSystemCodePage(std::string_view bytes)
{
    return wideOfCodePage1252(bytes);
}

bool startBySystem(const OutsideCall& call)
{
    std::vector<std::string> words = argumentsOf(call.text);
    if (call.what == OutsideCall::What::document) {
        std::error_code error;
        const fs::path path = fs::absolute(pathOf(call.target), error);
        words = {"xdg-open", fs::exists(path, error) ? path.string() : utf8Of(call.target)};
    } else {
        words.insert(words.begin(), utf8Of(call.target));
    }
    std::vector<char*> argv;
    argv.reserve(words.size() + 1);
    for (std::string& word : words)
        argv.push_back(word.data());
    argv.push_back(nullptr);
    pid_t process = 0;
    if (posix_spawnp(&process, argv[0], nullptr, nullptr, argv.data(), environ) != 0)
        return false;
    if (call.timeout != 0 && endsWithin(process, call.timeout))
        return true;
    leaveRunning(process);
    return call.timeout == 0;
}

} // namespace VEK::platform
