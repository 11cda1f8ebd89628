#include "progress.h"

#include "core/platform/platform.h"

#include <chrono>
#include <cstdio>
#include <system_error>

Progress::Progress(const std::string& what)
{
    if (!VEK::platform::errorsGoToTerminal())
        return;
    try {
        m_thread = std::thread([this, what] { tell(what); });
    } catch (const std::system_error&) { // the work itself needs no thread
    }
}

Progress::~Progress()
{
    if (!m_thread.joinable())
        return;
    {
        const std::lock_guard lock(m_mutex);
        m_isEnded = true;
    }
    m_ended.notify_one();
    m_thread.join();
}

void Progress::tell(const std::string& what)
{
    std::unique_lock lock(m_mutex);
    std::size_t width = 0;
    for (int seconds = 1; !m_ended.wait_for(lock, std::chrono::seconds(1), [this] { return m_isEnded; }); ++seconds) {
        const std::string line = "vek: " + what + ", " + std::to_string(seconds) + " s";
        std::fprintf(stderr, "\r%s", line.c_str());
        std::fflush(stderr);
        width = line.size();
    }
    if (width > 0)
        std::fprintf(stderr, "\r%*s\r", static_cast<int>(width), "");
}
