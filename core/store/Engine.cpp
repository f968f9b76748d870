#include "core/store/Engine.h"

#include "core/base/DateTime.h"
#include "core/store/jet/Functions.h"

#include <charconv>

namespace {

constexpr int ApplicationId = 1265988172; // "KuvL", as the delivered database carries it
constexpr int SchemaVersion = 1;
constexpr std::size_t MostPrepared = 500;
constexpr std::int64_t GroupRows = 5000;
constexpr std::chrono::seconds GroupAge{1};

constexpr const char* RequiredTables[] = {"Cover",     "CompCover",    "CompCover_Item", "TmpCover_Item",
                                          "Product",   "Prod_CoverDT", "Prod_Cover",     "Move",
                                          "Move_Prod", "Move_Cover",   "CoverDiscard",   "TmpID"};

std::int64_t Pragma(sqlite3* database, const char* sql) {
    sqlite::Statement statement(database, sql);
    return statement.Step() ? statement.Integer(0) : 0;
}

/// Sets a pragma and reads it back, since the engine answers an unknown or refused one with silence.
void RequirePragma(sqlite3* database, const char* set, const char* read, std::string_view expected) {
    sqlite::Execute(database, set);
    sqlite::Statement statement(database, read);
    if (!statement.Step() || statement.Text(0) != expected)
        throw ComError("open", set, ResultCode::Fail, QStringLiteral("Databázi nelze nastavit bezpečný režim zápisu."));
}

/// The ten-thousandths of a number literal; none when it has more decimals or passes 64 bits.
bool ScaledLiteral(std::string_view text, std::int64_t& count) {
    const std::size_t point = text.find('.');
    const std::string_view whole = text.substr(0, point);
    std::string_view decimals = point == std::string_view::npos ? std::string_view() : text.substr(point + 1);
    while (!decimals.empty() && decimals.back() == '0')
        decimals.remove_suffix(1);
    if (decimals.size() > 4)
        return false;
    std::string digits(whole);
    digits += decimals;
    digits.append(4 - decimals.size(), '0');
    const auto [end, error] = std::from_chars(digits.data(), digits.data() + digits.size(), count);
    return error == std::errc() && end == digits.data() + digits.size();
}

DateTime DateLiteral(std::string_view sql, std::string_view text) {
    int parts[3] = {};
    const char* at = text.data();
    const char* const end = at + text.size();
    bool good = true;
    for (int i = 0; i < 3 && good; ++i) {
        const auto [next, error] = std::from_chars(at, end, parts[i]);
        good = error == std::errc() && (i == 2 ? next == end : next != end && *next == '/');
        at = i == 2 ? next : next + 1;
    }
    const DateTime date = good ? DateTime::FromDay(parts[2], parts[0], parts[1]) : DateTime::Invalid();
    if (!date.IsValid())
        jet::RaiseSyntax(sql, "neplatné datum");
    return date;
}

/// The day, moved by some days, as the database holds it; beyond the calendar a text that sorts before or after every
/// date.
std::string MovedDay(const DateTime& day, std::string_view days, int sign, int shift) {
    constexpr std::int64_t calendar = 4'000'000; // days of ten thousand years, and more
    std::int64_t moved = 0;
    if (std::from_chars(days.data(), days.data() + days.size(), moved).ec != std::errc())
        moved = calendar;
    const DateTime target = day.AddDays(static_cast<int>(sign * std::min(moved, calendar) + shift));
    if (target.Year() < 1)
        return {};
    return target.Year() > 9999 ? std::string(":") : target.Stored().substr(0, 10);
}

void BindNumber(sqlite::Statement& statement, int index, std::string_view text, bool scaled) {
    std::int64_t value = 0;
    if (scaled) {
        if (ScaledLiteral(text, value)) {
            statement.Bind(index, value);
            return;
        }
    } else {
        const auto [end, error] = std::from_chars(text.data(), text.data() + text.size(), value);
        if (error == std::errc() && end == text.data() + text.size()) {
            statement.Bind(index, value);
            return;
        }
    }
    statement.Bind(index, std::strtod(std::string(text).c_str(), nullptr) * (scaled ? 10000.0 : 1.0));
}

} // namespace

Door<std::chrono::milliseconds>& LockPatience() {
    static Door<std::chrono::milliseconds> door(std::chrono::seconds(5));
    return door;
}

CEngine::CEngine(const std::string& path, bool checkIntegrity) : m_database(sqlite::Open(path)) {
    sqlite3* const database = m_database.get();
    sqlite3_busy_timeout(database, static_cast<int>(LockPatience()->count()));
    sqlite3_db_config(database, SQLITE_DBCONFIG_DEFENSIVE, 1, nullptr);
    sqlite3_db_config(database, SQLITE_DBCONFIG_TRUSTED_SCHEMA, 0, nullptr);
    sqlite3_db_config(database, SQLITE_DBCONFIG_DQS_DML, 0, nullptr);
    sqlite3_db_config(database, SQLITE_DBCONFIG_DQS_DDL, 0, nullptr);
    sqlite3_db_config(database, SQLITE_DBCONFIG_ENABLE_LOAD_EXTENSION, 0, nullptr);
    CheckIdentity(path);
    RequirePragma(database, "PRAGMA journal_mode = TRUNCATE", "PRAGMA journal_mode", "truncate");
    RequirePragma(database, "PRAGMA synchronous = FULL", "PRAGMA synchronous", "2");
    if (checkIntegrity) {
        sqlite::Statement statement(database, "PRAGMA integrity_check(1)");
        if (!statement.Step() || statement.Text(0) != "ok")
            sqlite::Raise(database, SQLITE_CORRUPT, "open", path);
    }
    m_schema = jet::Schema(database);
    for (const char* table : RequiredTables)
        if (m_schema.FindTable(table) == nullptr)
            sqlite::Raise(database, SQLITE_NOTADB, "open", path);
    jet::RegisterFunctions(database);
}

void CEngine::CheckIdentity(const std::string& path) {
    sqlite3* const database = m_database.get();
    const bool ours = Pragma(database, "PRAGMA application_id") == ApplicationId;
    const std::int64_t version = Pragma(database, "PRAGMA user_version");
    if (ours && version > SchemaVersion)
        throw ComError("open", path, ResultCode::Fail,
                       QStringLiteral("Databáze je z novější verze programu, než je tato."));
    if (!ours || version != SchemaVersion)
        sqlite::Raise(database, SQLITE_NOTADB, "open", path);
    // The engine reads what a last page lacks as noughts. The lock keeps a writer from being caught half-way.
    sqlite::Execute(database, "BEGIN");
    const std::int64_t pageSize = Pragma(database, "PRAGMA page_size");
    Pragma(database, "SELECT count(*) FROM sqlite_schema");
    sqlite3_file* file = nullptr;
    sqlite3_int64 size = 0;
    sqlite3_file_control(database, "main", SQLITE_FCNTL_FILE_POINTER, &file);
    const int result = file->pMethods->xFileSize(file, &size);
    sqlite::Execute(database, "COMMIT");
    if (result != SQLITE_OK || size % pageSize != 0)
        sqlite::Raise(database, SQLITE_CORRUPT, "open", path);
}

void CEngine::Close() {
    AbandonGroup();
    for (auto& [key, prepared] : m_prepared) {
        prepared->statement = {};
        prepared->row = {};
        prepared->ahead = {};
    }
    for (auto& [sql, statement] : m_own)
        *statement = {};
    m_prepared.clear();
    m_own.clear();
    m_database.reset();
}

sqlite3* CEngine::Handle() const {
    if (m_database == nullptr)
        throw ComError("database", {}, ResultCode::ObjectClosed, QStringLiteral("Databáze není otevřena."));
    return m_database.get();
}

CEngine::PreparedPtr CEngine::Cached(const std::string& key) const {
    const auto found = m_prepared.find(key);
    return found == m_prepared.end() ? nullptr : found->second;
}

CEngine::PreparedPtr CEngine::Keep(const std::string& key, jet::Translation translation) {
    auto prepared = std::make_shared<Prepared>();
    prepared->translation = std::move(translation);
    prepared->statement = sqlite::Statement(Handle(), prepared->translation.sql, true);
    if (!prepared->translation.rowSql.empty())
        prepared->row = sqlite::Statement(Handle(), prepared->translation.rowSql, true);
    if (!prepared->translation.aheadSql.empty())
        prepared->ahead = sqlite::Statement(Handle(), prepared->translation.aheadSql, true);
    prepared->literals = m_literals.size();
    prepared->changes = &m_changes[prepared->translation.table];
    if (m_prepared.size() >= MostPrepared)
        std::erase_if(m_prepared, [](const auto& entry) { return entry.second.use_count() == 1; });
    m_prepared.emplace(key, prepared);
    return prepared;
}

CEngine::PreparedPtr CEngine::Prepare(std::string_view sql) {
    Handle();
    RefuseAfterLoss();
    jet::Shape(sql, m_shape, m_literals);
    PreparedPtr prepared = Cached(m_shape);
    if (!prepared)
        prepared = NamingText(sql, [&] { return Keep(m_shape, jet::Translate(sql, m_schema)); });
    Bind(*prepared, sql);
    return prepared;
}

// What is no statement is kept under a key that no statement can have, since "?" is outside of the dialect.

CEngine::PreparedPtr CEngine::PrepareTable(std::string_view name) {
    Handle();
    RefuseAfterLoss();
    const jet::Table* table = m_schema.FindTable(name);
    if (table == nullptr)
        jet::RaiseSyntax(name, "neznámá tabulka");
    const std::string key = "? " + table->name;
    PreparedPtr prepared = Cached(key);
    return prepared ? prepared : Keep(key, jet::TranslateTable(*table));
}

CEngine::PreparedPtr CEngine::PrepareCriterion(std::string_view criterion, const std::string& table) {
    Handle();
    RefuseAfterLoss();
    jet::Shape(criterion, m_shape, m_literals);
    const std::string key = "? " + table + " " + m_shape;
    PreparedPtr prepared = Cached(key);
    if (!prepared)
        prepared = NamingText(criterion, [&] {
            return Keep(key, jet::TranslateCriterion(criterion, *m_schema.FindTable(table), m_schema));
        });
    Bind(*prepared, criterion);
    return prepared;
}

std::int64_t CEngine::FileVersion() {
    const std::shared_ptr<sqlite::Statement> statement = PrepareOwn("PRAGMA data_version");
    const std::int64_t version = statement->Step() ? statement->Integer(0) : 0;
    statement->Reset();
    return version;
}

std::shared_ptr<sqlite::Statement> CEngine::PrepareOwn(const std::string& sql) {
    RefuseAfterLoss();
    std::shared_ptr<sqlite::Statement>& statement = m_own[sql];
    if (!statement || !*statement)
        statement = std::make_shared<sqlite::Statement>(Handle(), sql, true);
    return statement;
}

void CEngine::Bind(Prepared& prepared, std::string_view sql) {
    if (m_literals.size() != prepared.literals)
        jet::RaiseSyntax(sql, "jiný počet hodnot");
    // Inside a group a keyset reads its first rows with its keys.
    sqlite::Statement& statement = InTransaction() && prepared.ahead ? prepared.ahead : prepared.statement;
    int index = 0;
    for (const jet::Parameter& parameter : prepared.translation.parameters) {
        ++index;
        const std::string_view text = m_literals[static_cast<std::size_t>(parameter.literal)].text;
        switch (parameter.kind) {
        case jet::Parameter::Kind::Number:
        case jet::Parameter::Kind::Scaled:
            BindNumber(statement, index, text, parameter.kind == jet::Parameter::Kind::Scaled);
            break;
        case jet::Parameter::Kind::Text:
            statement.Bind(index, text.find('\'') == std::string_view::npos ? text : jet::Unquote(text));
            break;
        case jet::Parameter::Kind::Date:
            statement.Bind(index, DateLiteral(sql, text).Stored());
            break;
        case jet::Parameter::Kind::DayStart: {
            const std::string_view days = m_literals[static_cast<std::size_t>(parameter.days)].text;
            statement.Bind(index, MovedDay(DateLiteral(sql, text), days, parameter.daysSign, parameter.shift));
            break;
        }
        }
    }
}

void CEngine::RaiseLoss() {
    throw ComError("transaction", {}, ResultCode::Fail, QStringLiteral("Rozepsané záznamy se nepodařilo uložit."));
}

void CEngine::BeginGroup() {
    PrepareOwn("BEGIN IMMEDIATE")->Run();
    m_inGroup = true;
    ++m_transaction;
    m_groupChanges = Changes();
    m_groupStart = std::chrono::steady_clock::now();
}

bool CEngine::IsCommitDue() const {
    return Changes() - m_groupChanges >= GroupRows || std::chrono::steady_clock::now() - m_groupStart >= GroupAge;
}

void CEngine::EndGroup() {
    PrepareOwn("COMMIT")->Run();
    m_inGroup = false;
}

void CEngine::AbandonGroup() noexcept {
    if (InTransaction())
        sqlite3_exec(m_database.get(), "ROLLBACK", nullptr, nullptr, nullptr);
    m_inGroup = false;
}

bool CEngine::StillStands() noexcept {
    if (!InTransaction())
        return false;
    switch (sqlite3_errcode(m_database.get()) & 0xFF) {
    case SQLITE_FULL:
    case SQLITE_IOERR:
    case SQLITE_NOMEM:
    case SQLITE_CORRUPT:
    case SQLITE_READONLY:
    case SQLITE_CANTOPEN:
    case SQLITE_BUSY:
    case SQLITE_LOCKED:
    case SQLITE_INTERRUPT:
        sqlite3_exec(m_database.get(), "ROLLBACK", nullptr, nullptr, nullptr);
        return false;
    default:
        return true;
    }
}
