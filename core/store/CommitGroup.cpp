#include "core/store/CommitGroup.h"

#include "core/store/Engine.h"

#include <thread>

namespace {

using namespace std::chrono_literals;

constexpr auto LongestHold = 2300ms;
/// A little longer than another writer waits between two looks.
constexpr auto OthersTurn = 110ms;

} // namespace

CCommitGroup::CCommitGroup(CDataStore& store, std::function<void()> kept)
    : m_engine(store.SharedEngine()), m_kept(std::move(kept)), m_open(!m_engine->InGroup()),
      m_lastFree(std::chrono::steady_clock::now()) {
    if (m_open)
        m_engine->BeginGroup();
}

CCommitGroup::~CCommitGroup() {
    if (m_open)
        m_engine->AbandonGroup();
}

void CCommitGroup::RecordDone() {
    if (!m_open)
        return;
    const bool longHeld = std::chrono::steady_clock::now() - m_lastFree >= LongestHold;
    if (!longHeld && !m_engine->IsCommitDue())
        return;
    Finish();
    if (longHeld)
        LeaveTheFileFree();
    m_engine->BeginGroup();
    m_open = true;
}

void CCommitGroup::LeaveTheFileFree() {
    std::this_thread::sleep_for(OthersTurn);
    m_lastFree = std::chrono::steady_clock::now();
}

void CCommitGroup::Finish() {
    if (!m_open)
        return;
    m_open = false;
    try {
        m_engine->EndGroup();
    } catch (const ComError&) {
        m_engine->AbandonGroup();
        throw;
    }
    if (m_kept)
        m_kept();
}

bool CCommitGroup::StillStands() noexcept {
    return m_open && m_engine->StillStands();
}

void CCommitGroup::Keep() noexcept {
    try {
        if (StillStands())
            Finish();
    } catch (const ComError&) {
        // Taken back. The error that ended the loop is the one to be told.
    }
}
