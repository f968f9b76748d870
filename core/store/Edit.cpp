#include "core/store/Edit.h"

#include "core/store/Engine.h"

CEdit::CEdit(CDataStore& store) : m_engine(store.SharedEngine()), m_open(!m_engine->InGroup()) {
    if (m_open)
        m_engine->BeginGroup();
}

CEdit::~CEdit() {
    if (m_open)
        m_engine->AbandonGroup();
}

void CEdit::Commit() {
    if (!m_open)
        return;
    m_engine->EndGroup();
    m_open = false;
}

bool CEdit::KeepWhatWasWritten() noexcept {
    if (!m_open)
        return m_engine->StillStands();
    if (!m_engine->StillStands())
        return false;
    try {
        Commit();
        return true;
    } catch (...) {
        // The destructor takes it back; the error before this one is the one to be told.
        return false;
    }
}
