#include "core/store/Recordset.h"

#include "core/base/SameName.h"
#include "core/store/Matches.h"
#include "core/store/Rows.h"

namespace {

[[noreturn]] void Raise(std::uint32_t code, const std::string& source, const QString& description) {
    throw ComError("recordset", source, code, description);
}

/// Whether the column can take the value; what it can take is written by `BindValue`.
bool Fits(jet::ValueType type, const Variant& value) {
    if (IsNull(value))
        return true;
    const Currency number = ToCurrency(value);
    const std::int64_t whole = number.count / Currency::One;
    switch (type) {
    case jet::ValueType::Text:
        return std::holds_alternative<QString>(value);
    case jet::ValueType::Date:
        return std::holds_alternative<DateTime>(value);
    case jet::ValueType::Currency:
        return number.status != ValueStatus::Invalid || std::holds_alternative<Currency>(value);
    case jet::ValueType::Long:
        return number.IsValid() && static_cast<std::int32_t>(whole) == whole;
    case jet::ValueType::Boolean:
        return number.IsValid();
    }
    return false;
}

void BindValue(sqlite::Statement& statement, int index, jet::ValueType type, const Variant& value) {
    if (IsNull(value)) {
        statement.BindNull(index);
        return;
    }
    switch (type) {
    case jet::ValueType::Text: {
        const QByteArray utf8 = std::get<QString>(value).toUtf8();
        statement.Bind(index, std::string_view(utf8.constData(), static_cast<std::size_t>(utf8.size())));
        break;
    }
    case jet::ValueType::Date: {
        const DateTime date = std::get<DateTime>(value);
        if (date.IsValid())
            statement.Bind(index, std::string_view(date.Stored()));
        else
            statement.BindNull(index);
        break;
    }
    case jet::ValueType::Currency: {
        const Currency currency = ToCurrency(value);
        if (currency.IsValid())
            statement.Bind(index, currency.count);
        else
            statement.BindNull(index);
        break;
    }
    case jet::ValueType::Boolean:
        statement.Bind(index, std::int64_t{ToBool(value) ? 1 : 0});
        break;
    default:
        statement.Bind(index, std::int64_t{ToLong(value)});
        break;
    }
}

} // namespace

CRecordset::CRecordset(std::shared_ptr<CEngine> engine)
    : m_engine(std::move(engine)), m_rows(new CRows), m_matches(new CMatches) {}

CRecordset::~CRecordset() = default;

void CRecordset::Open(std::shared_ptr<CEngine> engine, std::string_view source, CommandType type) {
    Close();
    m_engine = std::move(engine);
    m_source = source;
    m_type = type;
    if (type == CommandType::Table) {
        m_rows->Defer(m_engine->PrepareTable(source));
    } else {
        CEngine::PreparedPtr prepared = m_engine->Prepare(source);
        if (prepared->translation.kind == jet::Translation::Kind::Command)
            jet::RaiseSyntax(source, "příkaz nevrací záznamy");
        NamingText(source, [&] { m_rows->Read(*m_engine, std::move(prepared)); });
    }
    m_open = true;
}

void CRecordset::Requery() {
    NeedOpen();
    const std::string source = m_source;
    Open(m_engine, source, m_type);
}

void CRecordset::Close() {
    m_open = false;
    m_matches->Forget();
    CancelUpdate();
}

void CRecordset::NeedOpen() const {
    if (!m_open || !m_engine->IsOpen())
        Raise(ResultCode::ObjectClosed, m_source, QStringLiteral("Sada záznamů není otevřena."));
}

void CRecordset::NeedKeys() const {
    NeedOpen();
    m_rows->ReadDeferred(*m_engine);
}

void CRecordset::NeedRecord() const {
    NeedOpen();
    if (m_rows->OnNewRow())
        return;
    m_rows->ReadDeferred(*m_engine);
    if (m_rows->AtEnd())
        Raise(ResultCode::AtEnd, m_source, QStringLiteral("Žádný záznam není aktuální."));
}

void CRecordset::ReadCurrentRow() const {
    NeedRecord();
    if (!m_rows->ReadRow(*m_engine))
        Raise(ResultCode::NoCurrentRecord, m_source, QStringLiteral("Záznam byl odstraněn."));
}

bool CRecordset::IsThere() const {
    NeedRecord();
    return m_rows->ReadRow(*m_engine);
}

bool CRecordset::get_EOF() const {
    NeedKeys();
    return m_rows->AtEnd();
}

int CRecordset::get_RecordCount() const {
    NeedKeys();
    return static_cast<int>(m_rows->Count());
}

int CRecordset::get_AbsolutePosition() const {
    NeedKeys();
    return static_cast<int>(m_rows->Position()) + 1;
}

void CRecordset::MoveFirst() {
    NeedKeys();
    CancelUpdate();
    m_rows->MoveTo(0);
}

void CRecordset::MoveNext() {
    Move(1);
}

void CRecordset::Move(int count) {
    NeedKeys();
    const std::int64_t target = m_rows->Position() + count;
    if (target < 0 || target > m_rows->Count())
        Raise(ResultCode::AtEnd, m_source, QStringLiteral("Žádný záznam není aktuální."));
    CancelUpdate();
    m_rows->MoveTo(target);
}

void CRecordset::Find(std::string_view criterion) {
    NeedKeys();
    if (!m_rows->IsKeyset())
        Raise(ResultCode::ErrorsInCommand, m_source, QStringLiteral("Ve spojených tabulkách nelze hledat."));
    CancelUpdate();
    m_rows->Find(m_matches->Of(criterion, *m_engine, m_rows->Translation().table, m_rows->Position()));
}

/// The keys once read are there also when the database was closed meanwhile.
void CRecordset::NeedPosition(int position) const {
    if (!m_open || m_rows->Count() == 0)
        NeedKeys();
    if (!m_rows->IsKeyset())
        Raise(ResultCode::ErrorsInCommand, m_source, QStringLiteral("Spojené tabulky nemají klíč."));
    if (position < 0 || position >= m_rows->Count())
        Raise(ResultCode::AtEnd, m_source, QStringLiteral("Žádný záznam není aktuální."));
}

std::int64_t CRecordset::KeyAt(int position) const {
    NeedPosition(position);
    return m_rows->KeyAt(position);
}

void CRecordset::Drop(int position) {
    NeedPosition(position);
    CancelUpdate();
    m_rows->Drop(position);
}

int CRecordset::ColumnIndex(std::string_view name) const {
    const auto& columns = m_rows->Translation().columns;
    for (std::size_t i = 0; i < columns.size(); ++i)
        if (SameName(columns[i].name, name))
            return static_cast<int>(i);
    Raise(ResultCode::NoSuchField, std::string(name),
          QStringLiteral("Pole \"%1\" v sadě záznamů není.")
              .arg(QString::fromUtf8(name.data(), static_cast<qsizetype>(name.size()))));
}

Variant CRecordset::get_Collect(std::string_view column) const {
    NeedOpen();
    const int index = ColumnIndex(column);
    for (const Edit& edit : m_edits)
        if (edit.column == index)
            return edit.value;
    if (m_adding)
        return {};
    if (m_rows->OnNewRow()) {
        const jet::Table* table = m_engine->Tables().FindTable(m_rows->Translation().table);
        if (table->key >= 0 && SameName(table->columns[static_cast<std::size_t>(table->key)].name, column))
            return static_cast<std::int32_t>(m_rows->Key());
    }
    ReadCurrentRow();
    return m_rows->Cell(index);
}

void CRecordset::put_Collect(std::string_view column, const Variant& value) {
    NeedOpen();
    if (!m_rows->IsKeyset())
        Raise(ResultCode::ErrorsInCommand, m_source, QStringLiteral("Spojené tabulky nelze měnit."));
    if (!m_adding)
        NeedRecord();
    const int index = ColumnIndex(column);
    if (!m_rows->Translation().columns[static_cast<std::size_t>(index)].stored)
        Raise(ResultCode::ErrorsInCommand, std::string(column), QStringLiteral("Vypočtené pole nelze měnit."));
    if (!Fits(m_rows->Translation().columns[static_cast<std::size_t>(index)].type, value))
        Raise(ResultCode::TypeMismatch, std::string(column), QStringLiteral("Hodnota neodpovídá typu pole."));
    for (Edit& edit : m_edits) {
        if (edit.column == index) {
            edit.value = value;
            return;
        }
    }
    m_edits.push_back({index, value});
}

void CRecordset::AddNew() {
    NeedOpen();
    if (!m_rows->IsKeyset())
        Raise(ResultCode::ErrorsInCommand, m_source, QStringLiteral("Spojené tabulky nelze měnit."));
    CancelUpdate();
    m_adding = true;
}

void CRecordset::CancelUpdate() {
    m_edits.clear();
    m_adding = false;
}

void CRecordset::Update() {
    NeedOpen();
    if (m_adding)
        Insert();
    else if (!m_edits.empty())
        Change();
    CancelUpdate();
}

void CRecordset::Insert() {
    const auto& columns = m_rows->Translation().columns;
    std::string sql = "INSERT INTO " + m_rows->Translation().table;
    std::string values;
    for (const Edit& edit : m_edits) {
        sql += (values.empty() ? " (" : ", ") + columns[static_cast<std::size_t>(edit.column)].name;
        values += values.empty() ? "?" : ", ?";
    }
    sql += m_edits.empty() ? " DEFAULT VALUES" : ") VALUES (" + values + ")";
    const std::shared_ptr<sqlite::Statement> statement = m_engine->PrepareOwn(sql);
    int index = 0;
    for (const Edit& edit : m_edits)
        BindValue(*statement, ++index, columns[static_cast<std::size_t>(edit.column)].type, edit.value);
    statement->Run();
    ++*m_rows->Prepared()->changes;
    m_rows->Append(sqlite3_last_insert_rowid(m_engine->Handle()));
}

void CRecordset::Change() {
    NeedRecord();
    const auto& columns = m_rows->Translation().columns;
    std::string sql = "UPDATE " + m_rows->Translation().table + " SET ";
    for (const Edit& edit : m_edits)
        sql += (&edit == &m_edits.front() ? "" : ", ") + columns[static_cast<std::size_t>(edit.column)].name + " = ?";
    sql += " WHERE rowid = ?";
    const std::shared_ptr<sqlite::Statement> statement = m_engine->PrepareOwn(sql);
    int index = 0;
    for (const Edit& edit : m_edits)
        BindValue(*statement, ++index, columns[static_cast<std::size_t>(edit.column)].type, edit.value);
    statement->Bind(++index, m_rows->Key());
    const std::int64_t changes = m_engine->Changes();
    statement->Run();
    m_matches->RecordWritten(*m_engine, changes, m_rows->Position());
    ++*m_rows->Prepared()->changes;
    if (sqlite3_changes64(m_engine->Handle()) == 0)
        Raise(ResultCode::NoCurrentRecord, m_source, QStringLiteral("Záznam byl odstraněn."));
    m_rows->Forget();
}
