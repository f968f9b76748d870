#pragma once

#include "core/base/ComError.h"
#include "core/store/DataStore.h"

/// One user's edit: the record, its dependent rows and what is computed from them, committed together. Inside another
/// edit or a commit group it leaves that to them. No message may be shown while it is open, since the database is
/// locked meanwhile.
class CEdit {
public:
    /// Raises ComError when the database is locked.
    explicit CEdit(CDataStore& store);
    /// Takes back what was not committed.
    ~CEdit();
    CEdit(const CEdit&) = delete;
    CEdit& operator=(const CEdit&) = delete;

    /// Raises ComError, with everything taken back.
    void Commit();
    /// After an error that one statement raised: what was written before it is committed, as if each statement were so
    /// by itself. False where the error took the whole edit back, as a full disk does.
    bool KeepWhatWasWritten() noexcept;

private:
    std::shared_ptr<CEngine> m_engine;
    bool m_open;
};

/// Runs `act` as one edit. Raises ComError; `kept` says then whether what was written before the error is in the file.
template <class Act>
void InOneEdit(CDataStore& store, const Act& act, bool& kept) {
    kept = false;
    CEdit edit(store);
    try {
        act();
    } catch (const ComError&) {
        kept = edit.KeepWhatWasWritten();
        throw;
    }
    edit.Commit();
    kept = true;
}

template <class Act>
void InOneEdit(CDataStore& store, const Act& act) {
    bool kept = false;
    InOneEdit(store, act, kept);
}
