#include "core/store/DataStore.h"

#include "core/base/AppDir.h"
#include "core/base/Messages.h"
#include "core/store/Engine.h"

#include <QFile>

CDataStore g_dataStore;

CDataStore::CDataStore() {
    for (int list = 0; list < CodeListCount; ++list)
        m_codeLists[static_cast<std::size_t>(list)] = MakeCodeList(static_cast<CodeList>(list));
}

CDataStore::~CDataStore() {
    CloseDatabase();
}

CEngine& CDataStore::Engine() const {
    if (!IsOpen())
        throw ComError("database", {}, ResultCode::ObjectClosed, QStringLiteral("Databáze není otevřena."));
    return *m_engine;
}

std::shared_ptr<CEngine> CDataStore::SharedEngine() const {
    Engine();
    return m_engine;
}

bool CDataStore::IsOpen() const {
    return m_engine != nullptr && m_engine->IsOpen();
}

bool CDataStore::OpenDatabase(bool checkIntegrity) {
    if (sqlite3_initialize() != SQLITE_OK) {
        ShowMessage(QStringLiteral("Patrně nemáte nainsalováno ADO pro práci s databází!"), Message::Icon::Error);
        return false;
    }
    const QString path = DatabasePath();
    try {
        m_engine = std::make_shared<CEngine>(QFile::encodeName(path).toStdString(), checkIntegrity);
        return true;
    } catch (const ComError& error) {
        ShowMessage(QStringLiteral("Nemohu otevřít databázi '%1'\n%2").arg(path, error.Description()),
                    Message::Icon::Error);
        return false;
    }
}

bool CDataStore::CloseDatabase() {
    if (!m_engine)
        return true;
    const std::shared_ptr<CEngine> engine = std::move(m_engine);
    m_engine.reset();
    const bool atRest = !engine->InGroup();
    engine->Close();
    return atRest;
}

bool CDataStore::CompactDatabase() {
    CloseDatabase();
    const QString path = DatabasePath();
    if (!QFile::exists(path))
        return false;
    QFile::remove(SafetyCopyPath());
    try {
        CEngine engine(QFile::encodeName(path).toStdString());
        // In place, under the engine's own journal: another program that has the file open keeps a whole database.
        sqlite::Execute(engine.Handle(), "VACUUM");
        engine.Close();
        return true;
    } catch (const ComError&) {
        return false;
    }
}

void CDataStore::ExecuteSQL(std::string_view sql) {
    const CEngine::PreparedPtr prepared = Engine().Prepare(sql);
    if (prepared->translation.kind != jet::Translation::Kind::Command)
        jet::RaiseSyntax(sql, "příkaz vrací záznamy");
    ++*prepared->changes;
    NamingText(sql, [&] { prepared->statement.Run(); });
}

bool CDataStore::OpenRecordset(RecordsetPtr& recordset, std::string_view source, CursorType, LockType,
                               CommandType command) {
    Engine();
    if (!recordset)
        recordset = std::make_shared<CRecordset>(m_engine);
    recordset->Open(m_engine, source, command);
    return true;
}

RecordsetPtr CDataStore::Query(std::string_view sql) {
    RecordsetPtr recordset;
    OpenRecordset(recordset, sql, CursorType::Keyset, LockType::Optimistic, CommandType::Text);
    return recordset;
}

RecordsetPtr CDataStore::Table(std::string_view name) {
    RecordsetPtr recordset;
    OpenRecordset(recordset, name, CursorType::Dynamic, LockType::Optimistic, CommandType::Table);
    return recordset;
}

bool CDataStore::FindFirst(const RecordsetPtr& recordset, std::string_view criterion) {
    recordset->MoveFirst();
    recordset->Find(criterion);
    return true;
}

bool CDataStore::MoveToRecord(const RecordsetPtr& recordset, int position) {
    if (position < 0 || position >= recordset->get_RecordCount())
        return false;
    recordset->MoveFirst();
    recordset->Move(position);
    return !recordset->get_EOF();
}

QString CDataStore::CodeListText(CodeList list, int index) const {
    const QStringList& texts = Codes(list);
    return index >= 0 && index < texts.size() ? texts[index] : QStringLiteral("???");
}
