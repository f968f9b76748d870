#include "core/report/office/OfficeWatchdog.h"

#include <utility>

COfficeWatchdog::COfficeWatchdog(std::function<void()> expired)
    : m_expired(std::move(expired)), m_thread([this] { Watch(); }) {}

COfficeWatchdog::~COfficeWatchdog() {
    {
        const std::lock_guard lock(m_mutex);
        m_stopping = true;
    }
    m_changed.notify_one();
    m_thread.join();
}

COfficeWatchdog::CGuard::CGuard(COfficeWatchdog& watchdog, std::chrono::milliseconds limit) : m_watchdog(watchdog) {
    const std::lock_guard lock(m_watchdog.m_mutex);
    m_watchdog.m_deadline = Clock::now() + limit;
    // Calls are many and short. The thread is woken only when it would sleep past the new deadline; otherwise it wakes
    // at an older one by itself and finds the newer.
    if (*m_watchdog.m_deadline < m_watchdog.m_waitingUntil)
        m_watchdog.m_changed.notify_one();
}

COfficeWatchdog::CGuard::~CGuard() {
    const std::lock_guard lock(m_watchdog.m_mutex);
    m_watchdog.m_deadline.reset();
}

bool COfficeWatchdog::HasExpired() const {
    const std::lock_guard lock(m_mutex);
    return m_hasExpired;
}

void COfficeWatchdog::Watch() {
    std::unique_lock lock(m_mutex);
    while (!m_stopping) {
        if (!m_deadline) {
            m_waitingUntil = Clock::time_point::max();
            m_changed.wait(lock);
        } else if (Clock::now() < *m_deadline) {
            m_waitingUntil = *m_deadline;
            m_changed.wait_until(lock, m_waitingUntil);
        } else {
            m_deadline.reset();
            m_hasExpired = true;
            m_expired();
        }
    }
}
