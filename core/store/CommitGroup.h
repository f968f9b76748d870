#pragma once

#include "core/base/ComError.h"
#include "core/store/DataStore.h"

#include <chrono>

/// Joins the commits of a bulk operation. At the latest after 5,000 rows or a second, always between whole records,
/// what is written is committed. In a long run the file is left free for a moment every two seconds and a half, so that
/// another program's writer, which looks ten times a second, gets its turn: what was read before may have changed after
/// each record.
///
/// Only `Finish` (or `Keep`, where an error ended the loop) commits what is left. A group that is left without it takes
/// back what was not committed. A group inside another one, or inside an edit, leaves everything to that.
class CCommitGroup {
public:
    /// `kept` is called after each commit: all that was written until then is in the file. Raises ComError when the
    /// database is locked.
    explicit CCommitGroup(CDataStore& store, std::function<void()> kept = {});
    ~CCommitGroup();
    CCommitGroup(const CCommitGroup&) = delete;
    CCommitGroup& operator=(const CCommitGroup&) = delete;

    /// Raises ComError when what was written is lost: by a failed commit, or by the engine, which takes everything back
    /// by itself on a full disk.
    void RecordDone();
    /// Raises ComError, with what was not committed yet taken back.
    void Finish();
    /// After an error that one statement raised: what was written before it is committed, as if each statement were so
    /// by itself. Where the error took it back, as a full disk does, nothing is: whole records only stay.
    void Keep() noexcept;
    /// After an error: false where it took back what was not committed.
    bool StillStands() noexcept;

private:
    void LeaveTheFileFree();

    std::shared_ptr<CEngine> m_engine;
    std::function<void()> m_kept;
    bool m_open;
    std::chrono::steady_clock::time_point m_lastFree;
};

/// Runs the loop in a group, handed to it. Whatever ends it early, what was written stays as `Keep` says.
template <class Loop>
void InCommitGroup(CDataStore& store, std::function<void()> kept, const Loop& loop) {
    CCommitGroup group(store, std::move(kept));
    try {
        loop(group);
    } catch (...) {
        group.Keep();
        throw;
    }
    group.Finish();
}
