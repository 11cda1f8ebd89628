// The user in tests: knows what should come, in which order, and what to do then.
#pragma once

#include <gtest/gtest.h>

#include <afxwin.h>
#include <toolkit/user.h>

#include <chrono>
#include <condition_variable>
#include <cstdlib>
#include <deque>
#include <functional>
#include <iostream>
#include <mutex>
#include <string>
#include <thread>
#include <utility>

/// What comes unexpectedly fails and is refused; what does not come fails at the end. What never ends, ends the
/// program.
class ModalQueue : public toolkit::User
{
public:
    ModalQueue() : m_before(toolkit::userSet(this)), m_watchdog([this] { watch(); }) {}
    ~ModalQueue() override
    {
        toolkit::userSet(m_before);
        {
            const std::lock_guard<std::mutex> guard(m_lock);
            m_over = true;
        }
        m_wake.notify_all();
        m_watchdog.join();
        EXPECT_TRUE(m_expected.empty()) << m_expected.size() << " did not come";
    }

    /// A message box whose text holds `part`; it is answered.
    void box(const std::wstring& part, int answer = IDOK)
    {
        m_expected.emplace_back().box = [part, answer](LPCWSTR text) {
            EXPECT_NE(std::wstring(text).find(part), std::wstring::npos) << "another message box";
            return answer;
        };
    }
    /// A dialog of this class, in which something is done when it waits; without that it ends before.
    template <class Dialog>
    void dialog(const std::function<void(Dialog&)>& act = {})
    {
        Expected& expected = m_expected.emplace_back();
        expected.isIt = [](CDialog& it) { return dynamic_cast<Dialog*>(&it) != nullptr; };
        if (act)
            expected.act = [act](CDialog& it) { act(dynamic_cast<Dialog&>(it)); };
    }
    void file(const std::function<bool(OPENFILENAMEW&, bool save)>& choose) { m_expected.emplace_back().file = choose; }

    /// The dialog for folders; what comes back belongs to its caller.
    void folder(const std::function<LPITEMIDLIST(BROWSEINFOW&)>& choose) { m_expected.emplace_back().folder = choose; }

    std::wstring lastBox, lastCaption;

private:
    struct Expected {
        std::function<int(LPCWSTR)> box;
        std::function<bool(OPENFILENAMEW&, bool)> file;
        std::function<LPITEMIDLIST(BROWSEINFOW&)> folder;
        std::function<bool(CDialog&)> isIt;
        std::function<void(CDialog&)> act;
    };

    /// Takes the next one off the queue when it is of the kind that came.
    Expected take(const char* kind, bool fits)
    {
        if (!fits) {
            ADD_FAILURE() << "unexpected " << kind;
            return {};
        }
        Expected next = std::move(m_expected.front());
        m_expected.pop_front();
        return next;
    }
    int messageBox(HWND, LPCWSTR text, LPCWSTR caption, UINT) override
    {
        lastBox = text;
        lastCaption = caption;
        const Expected next = take("message box", !m_expected.empty() && m_expected.front().box);
        return next.box ? next.box(text) : IDCANCEL;
    }
    bool chooseFile(OPENFILENAMEW& request, bool save) override
    {
        const Expected next = take("file dialog", !m_expected.empty() && m_expected.front().file);
        return next.file && next.file(request, save);
    }
    LPITEMIDLIST chooseFolder(BROWSEINFOW& request) override
    {
        const Expected next = take("folder dialog", !m_expected.empty() && m_expected.front().folder);
        return next.folder ? next.folder(request) : nullptr;
    }
    bool dialogOpens(CDialog& dialog) override
    {
        const bool fits = !m_expected.empty() && m_expected.front().isIt && m_expected.front().isIt(dialog);
        Expected next = take("dialog", fits);
        if (fits)
            m_open.push_back(std::move(next.act));
        return fits;
    }
    void dialogWaits(CDialog& dialog) override
    {
        const auto act = std::exchange(m_open.back(), {});
        if (act)
            return act(dialog);
        ADD_FAILURE() << "the dialog waits, and nobody is to do anything";
        dialog.EndDialog(-1);
    }
    void dialogEnded(CDialog&, INT_PTR) override
    {
        EXPECT_FALSE(m_open.back()) << "the dialog ended before it waited";
        m_open.pop_back();
    }
    void watch()
    {
        std::unique_lock<std::mutex> lock(m_lock);
        if (m_wake.wait_for(lock, std::chrono::seconds(60), [this] { return m_over; }))
            return;
        std::cerr << "A dialog has not ended within a minute.\n";
        std::_Exit(3);
    }

    toolkit::User* m_before;
    std::deque<Expected> m_expected;
    std::deque<std::function<void(CDialog&)>> m_open;
    std::mutex m_lock;
    std::condition_variable m_wake;
    bool m_over = false;
    std::thread m_watchdog; ///< last: it uses the rest
};
