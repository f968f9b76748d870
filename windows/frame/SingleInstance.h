#pragma once

#include <QString>

#include <chrono>
#include <functional>
#include <memory>

class QSocketNotifier;

/// Lets one process per user and program folder run. What it holds is released by the system when the process ends, in
/// whatever way.
class CSingleInstance {
public:
    CSingleInstance();
    ~CSingleInstance();
    CSingleInstance(const CSingleInstance&) = delete;
    CSingleInstance& operator=(const CSingleInstance&) = delete;

    /// False when another process runs for the folder; it has then been asked to come forward and has answered. One
    /// that is at its end does not answer: it is waited for, as long as the patience lasts, and this process takes its
    /// place.
    bool Acquire(const QString& programFolder, std::chrono::milliseconds patience = std::chrono::minutes(2));
    /// Run in the event loop each time another process is started. Requests made before it was set are not lost.
    void OnAnotherStart(std::function<void()> act);
    /// From here on a process that is started waits for the end of this one.
    void StopAnswering();

private:
    void Listen(const QString& path);
    void Answer();

    int m_lock = -1;
    int m_socket = -1;
    QString m_socketPath;
    std::unique_ptr<QSocketNotifier> m_notifier;
    std::function<void()> m_act;
};
