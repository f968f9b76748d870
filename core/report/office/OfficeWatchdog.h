#pragma once

#include <chrono>
#include <condition_variable>
#include <functional>
#include <mutex>
#include <optional>
#include <thread>

/// Watches that no single call to the office lasts longer than it may. A call cannot be interrupted from within; when
/// its time is over, the watchdog's own thread runs `expired`, which must make the call fail.
class COfficeWatchdog {
public:
    using Clock = std::chrono::steady_clock;

    explicit COfficeWatchdog(std::function<void()> expired);
    ~COfficeWatchdog();

    /// Guards one call: its time starts with the construction and stops with the destruction. One at a time.
    class CGuard {
    public:
        CGuard(COfficeWatchdog& watchdog, std::chrono::milliseconds limit);
        ~CGuard();
        CGuard(const CGuard&) = delete;
        CGuard& operator=(const CGuard&) = delete;

    private:
        COfficeWatchdog& m_watchdog;
    };

    /// Whether any call has run out of time so far.
    bool HasExpired() const;

private:
    void Watch();

    std::function<void()> m_expired;
    mutable std::mutex m_mutex;
    std::condition_variable m_changed;
    std::optional<Clock::time_point> m_deadline;
    Clock::time_point m_waitingUntil = Clock::time_point::max();
    bool m_hasExpired = false;
    bool m_stopping = false;
    std::thread m_thread;
};
