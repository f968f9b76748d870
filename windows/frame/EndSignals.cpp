#include "windows/frame/EndSignals.h"

#include <QSocketNotifier>

#include <fcntl.h>
#include <unistd.h>

#include <csignal>
#include <utility>

namespace {

constexpr int Signals[] = {SIGTERM, SIGHUP, SIGINT};
constexpr int Pause = 200; // ms

/// A handler may do no more than write to a pipe.
int g_pipe[2] = {-1, -1};

void Note(int) {
    const char mark = 0;
    // A full pipe holds a mark already.
    [[maybe_unused]] const auto written = write(g_pipe[1], &mark, 1);
}

void Handle(void (*handler)(int)) {
    struct sigaction action {};
    action.sa_handler = handler;
    action.sa_flags = SA_RESTART;
    for (const int signal : Signals)
        sigaction(signal, &action, nullptr);
}

} // namespace

CEndSignals::CEndSignals(std::function<void()> act) {
    if (pipe2(g_pipe, O_CLOEXEC | O_NONBLOCK) != 0)
        return;
    m_again.setInterval(Pause);
    m_notifier = std::make_unique<QSocketNotifier>(g_pipe[0], QSocketNotifier::Read);
    QObject::connect(m_notifier.get(), &QSocketNotifier::activated, &m_again, [this] {
        m_notifier->setEnabled(false);
        m_again.start();
    });
    QObject::connect(&m_again, &QTimer::timeout, &m_again, std::move(act));
    Handle(Note);
}

CEndSignals::~CEndSignals() {
    if (!m_notifier)
        return;
    Handle(SIG_DFL);
    m_notifier.reset();
    for (int& end : g_pipe)
        close(std::exchange(end, -1));
}
