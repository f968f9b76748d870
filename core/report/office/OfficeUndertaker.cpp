#include "core/report/office/OfficeUndertaker.h"

#include <fcntl.h>
#include <poll.h>
#include <signal.h>
#include <sys/prctl.h>
#include <sys/signalfd.h>
#include <sys/stat.h>
#include <sys/wait.h>
#include <unistd.h>

#include <algorithm>
#include <cerrno>
#include <thread>
#include <vector>

// Between fork and exec, and for the whole life of the undertaker, only async-signal-safe calls are allowed: another
// thread may have held the allocator's lock at the moment of the fork. So everything is laid out before.

namespace {

struct Errand {
    std::vector<char*> arguments;
    std::vector<char*> environment;
    std::vector<char*> removal; // the command that removes what remains
    int control;                // read end of the pipe
    int heldFile;
};

std::vector<char*> Pointers(const QByteArrayList& texts) {
    std::vector<char*> pointers;
    for (const QByteArray& text : texts)
        pointers.push_back(const_cast<char*>(text.constData()));
    pointers.push_back(nullptr);
    return pointers;
}

void CloseAllBut(int one, int other) {
    const int low = std::min(one, other), high = std::max(one, other);
    unsigned first = 3;
    for (int kept : {low, high}) {
        if (kept < static_cast<int>(first))
            continue;
        if (kept > static_cast<int>(first))
            close_range(first, kept - 1, 0);
        first = kept + 1;
    }
    close_range(first, ~0U, 0);
}

/// Our program's handlers must not run in the undertaker; the office gets the defaults.
void ResetSignals(sighandler_t interruption) {
    for (int number = 1; number < NSIG; ++number)
        signal(number, SIG_DFL);
    for (int number : {SIGINT, SIGTERM, SIGHUP, SIGQUIT})
        signal(number, interruption);
}

/// The strays that left the program's group: they became our children when their parent ended.
void EndChildren() {
    char path[] = "/proc/thread-self/children";
    const int list = open(path, O_RDONLY | O_CLOEXEC);
    if (list < 0)
        return;
    char text[4096];
    const ssize_t length = read(list, text, sizeof text);
    close(list);
    pid_t child = 0;
    for (ssize_t i = 0; i < length; ++i) {
        if (text[i] >= '0' && text[i] <= '9') {
            child = child * 10 + (text[i] - '0');
        } else {
            if (child > 0)
                kill(child, SIGKILL);
            child = 0;
        }
    }
}

[[noreturn]] void RunProgram(const Errand& errand) {
    setpgid(0, 0);
    ResetSignals(SIG_DFL);
    sigset_t none;
    sigemptyset(&none);
    sigprocmask(SIG_SETMASK, &none, nullptr);
    close_range(3, ~0U, 0);
    umask(S_IRWXG | S_IRWXO); // whoever can connect to the office's sockets commands it
    execve(errand.arguments[0], errand.arguments.data(), errand.environment.data());
    _exit(127);
}

[[noreturn]] void RunUndertaker(const Errand& errand) {
    setsid();
    prctl(PR_SET_CHILD_SUBREAPER, 1, 0, 0, 0);
    ResetSignals(SIG_IGN);
    sigset_t childSignal;
    sigemptyset(&childSignal);
    sigaddset(&childSignal, SIGCHLD);
    sigprocmask(SIG_SETMASK, &childSignal, nullptr);
    // Away from the standard descriptors, which we may have been started without.
    const int control = fcntl(errand.control, F_DUPFD, 3);
    const int heldFile = errand.heldFile < 0 ? -1 : fcntl(errand.heldFile, F_DUPFD, 3);
    const int nowhere = open("/dev/null", O_RDWR);
    for (int standard : {0, 1, 2})
        dup2(nowhere, standard);
    CloseAllBut(control, heldFile);
    const int childEvents = signalfd(-1, &childSignal, SFD_CLOEXEC | SFD_NONBLOCK);

    const pid_t program = fork();
    if (program == 0)
        RunProgram(errand);
    bool ending = program < 0, groupIsGone = program < 0;
    if (program > 0)
        setpgid(program, program);

    for (;;) {
        pid_t reaped;
        while ((reaped = waitpid(-1, nullptr, WNOHANG)) > 0) {
        }
        if (reaped < 0)
            break; // no child is left
        // Once the group is gone its number may be given to strangers. What still hangs on to us then is a daemon that
        // the program left behind.
        if (!groupIsGone && kill(-program, ending ? SIGKILL : 0) != 0)
            groupIsGone = ending = true;
        if (ending)
            EndChildren();
        pollfd events[] = {{control, POLLIN, 0}, {childEvents, POLLIN, 0}};
        if (ending)
            events[0].fd = -1;
        poll(events, 2, ending ? 5 : -1);
        if (!ending && events[0].revents != 0)
            ending = true;
        signalfd_siginfo ignored;
        while (read(childEvents, &ignored, sizeof ignored) > 0) {
        }
    }
    close_range(3, ~0U, 0); // the lock goes only now
    execve(errand.removal[0], errand.removal.data(), errand.environment.data());
    _exit(0);
}

} // namespace

std::unique_ptr<COfficeUndertaker> COfficeUndertaker::Start(const QByteArrayList& arguments,
                                                            const QByteArrayList& environment,
                                                            const QByteArrayList& remains, int heldFile) {
    int ends[2];
    if (pipe2(ends, O_CLOEXEC) != 0)
        return nullptr;
    const QByteArrayList removal = QByteArrayList{"/bin/rm", "-rf", "--"} + remains;
    const Errand errand{Pointers(arguments), Pointers(environment), Pointers(removal), ends[0], heldFile};
    const pid_t undertaker = fork();
    if (undertaker == 0)
        RunUndertaker(errand);
    close(ends[0]);
    if (undertaker < 0) {
        close(ends[1]);
        return nullptr;
    }
    return std::unique_ptr<COfficeUndertaker>(new COfficeUndertaker(undertaker, ends[1]));
}

COfficeUndertaker::~COfficeUndertaker() {
    End();
}

bool COfficeUndertaker::End() {
    Kill();
    if (!m_givenUp)
        m_givenUp = !HasEnded(std::chrono::seconds(5));
    return m_ended;
}

void COfficeUndertaker::Kill() {
    const std::lock_guard lock(m_controlMutex);
    if (m_control >= 0)
        close(m_control);
    m_control = -1;
}

bool COfficeUndertaker::HasEnded(std::chrono::milliseconds wait) {
    const auto deadline = std::chrono::steady_clock::now() + wait;
    while (!m_ended) {
        const pid_t result = waitpid(m_undertaker, nullptr, WNOHANG);
        m_ended = result == m_undertaker || (result < 0 && errno != EINTR);
        if (m_ended || std::chrono::steady_clock::now() >= deadline)
            break;
        std::this_thread::sleep_for(std::chrono::milliseconds(2));
    }
    return m_ended;
}
