#include "ctl/Interrupts.h"

static volatile std::sig_atomic_t s_noted = 0;
static int s_depth = 0;

CInterrupts::CInterrupts() {
    if (s_depth++ > 0)
        return;
    s_noted = 0;
    struct sigaction action = {};
    action.sa_handler = [](int) { s_noted = 1; };
    action.sa_flags = static_cast<int>(SA_RESTART | SA_RESETHAND);
    for (int i = 0; i < 3; ++i) {
        sigaction(Signals[i], nullptr, &m_before[i]);
        // What the caller has us ignore (nohup) stays ignored.
        if (m_before[i].sa_handler != SIG_IGN)
            sigaction(Signals[i], &action, nullptr);
    }
}

CInterrupts::~CInterrupts() {
    if (--s_depth > 0)
        return;
    for (int i = 0; i < 3; ++i)
        sigaction(Signals[i], &m_before[i], nullptr);
}

bool CInterrupts::Noted() const {
    return s_noted != 0;
}
