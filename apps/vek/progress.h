/// @file
/// A word to whoever waits.
#pragma once

#include <condition_variable>
#include <mutex>
#include <string>
#include <thread>

/// Tells on a terminal what is being done and for how long, from the second second on, and takes the line back at its
/// end. Where standard error is a file or a pipe it says nothing.
class Progress
{
public:
    explicit Progress(const std::string& what);
    ~Progress();
    Progress(const Progress&) = delete;
    Progress& operator=(const Progress&) = delete;

private:
    void tell(const std::string& what);

    std::mutex m_mutex;
    std::condition_variable m_ended;
    bool m_isEnded = false;
    std::thread m_thread;
};
