#pragma once

class CDataStore;

/// The one document. It holds no data of its own: all of it lives in the database.
class CKuvelDoc {
public:
    explicit CKuvelDoc(CDataStore& store) : m_store(store) {}
    CDataStore& Store() const { return m_store; }

private:
    CDataStore& m_store;
};
