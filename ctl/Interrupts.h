#pragma once

#include <csignal>

/// While it lives, the first Ctrl-C, hang-up or polite end from outside is only noted; a second one ends the program.
/// One inside another leaves all to the outer one.
class CInterrupts {
public:
    CInterrupts();
    ~CInterrupts();
    CInterrupts(const CInterrupts&) = delete;
    CInterrupts& operator=(const CInterrupts&) = delete;

    bool Noted() const;

private:
    static constexpr int Signals[] = {SIGINT, SIGTERM, SIGHUP};
    struct sigaction m_before[3] = {};
};
