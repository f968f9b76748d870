#pragma once

#include <QByteArrayList>

#include <sys/types.h>

#include <chrono>
#include <memory>
#include <mutex>

/// A program and everything that it starts, with a small process of ours between it and us: when we ask for it, or when
/// this process dies in whatever way, the undertaker ends the program's whole process group and whatever strayed from
/// it, removes what the run leaves on the disk and is gone itself.
class COfficeUndertaker {
public:
    /// Runs `arguments` with `environment` in a process group of its own, cut off from our terminal and open files.
    /// The files and folders `remains` are removed when the last process has ended. `heldFile` (a descriptor, or -1)
    /// stays open until then, so that a lock on it lasts as long as the program. Null when no process can be made; a
    /// program that is not there ends at once.
    static std::unique_ptr<COfficeUndertaker> Start(const QByteArrayList& arguments, const QByteArrayList& environment,
                                                    const QByteArrayList& remains, int heldFile);
    /// As `End`.
    ~COfficeUndertaker();
    COfficeUndertaker(const COfficeUndertaker&) = delete;
    COfficeUndertaker& operator=(const COfficeUndertaker&) = delete;

    /// Tells the undertaker to end the program; does not wait. May be called from any thread, and more than once.
    void Kill();
    /// Whether the program and everything that it started have ended, waiting at most so long for it.
    bool HasEnded(std::chrono::milliseconds wait = {});
    /// Ends the program and waits at most five seconds; whether nothing is left of it. (What the kernel cannot end in
    /// that time, a process in the middle of a dead network disk, the undertaker goes on waiting for by itself.)
    bool End();

private:
    COfficeUndertaker(pid_t undertaker, int control) : m_undertaker(undertaker), m_control(control) {}

    const pid_t m_undertaker;
    bool m_ended = false;
    bool m_givenUp = false;
    std::mutex m_controlMutex;
    int m_control; // our end of a pipe on which nothing is ever written: closing it is the order
};
