#pragma once

#include <QTimer>

#include <functional>
#include <memory>

class QSocketNotifier;

/// The polite ends from outside: a signal to end, a terminal or a session that goes away. Each is turned into `act`,
/// run in the event loop again and again until this object goes, since an operation under way may have to come to its
/// end first. One object in a process.
class CEndSignals {
public:
    explicit CEndSignals(std::function<void()> act);
    /// The signals end the process at once again.
    ~CEndSignals();
    CEndSignals(const CEndSignals&) = delete;
    CEndSignals& operator=(const CEndSignals&) = delete;

private:
    QTimer m_again;
    std::unique_ptr<QSocketNotifier> m_notifier;
};
