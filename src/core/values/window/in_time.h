/// @file
/// Calls of other programs' objects, which hold the caller as long as the program does not answer.
#pragma once

#include <windows.h>

#include <objidl.h>

#include <functional>

namespace VEK
{

/// An interface on its way to another thread.
class CMarshalled
{
public:
    CMarshalled() = default;
    CMarshalled(IUnknown* object, REFIID id);
    CMarshalled(CMarshalled&& other) noexcept;
    CMarshalled& operator=(CMarshalled&& other) noexcept;
    ~CMarshalled(); ///< gives its reference up if nobody has taken it

    explicit operator bool() const { return m_stream != nullptr; }

    /// The interface for the thread that calls, with a reference; null if there is none, and at a second call.
    void* take();

private:
    IStream* m_stream = nullptr;
    IID m_id = {};
};

/// Runs a job on a thread of the system's pool, in the multithreaded apartment, while calls of this thread's objects
/// are served.
/// @param job owns what it uses: if it does not end in time it goes on alone
/// @return whether it ended in time
bool inTime(unsigned long milliseconds, std::function<void()> job);

} // namespace VEK
