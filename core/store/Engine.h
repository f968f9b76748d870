#pragma once

#include "core/base/Door.h"
#include "core/store/jet/Translator.h"
#include "core/store/sqlite/Sqlite.h"

#include <chrono>
#include <map>
#include <memory>
#include <string>
#include <string_view>
#include <unordered_map>

/// Runs `act`; an error that it raises names this text of the dialect, not what the engine was given for it.
template <class Act>
auto NamingText(std::string_view sql, Act act) {
    try {
        return act();
    } catch (const ComError& error) {
        throw ComError(error.Operation(), std::string(sql), error.Code(), error.Description());
    }
}

/// How long a connection opened from here on waits for another program's lock: 5 s until something else is put in.
Door<std::chrono::milliseconds>& LockPatience();

/// The open database behind `CDataStore` and its recordsets: the connection, what its columns hold, and the statements
/// prepared so far. Every member raises ComError.
class CEngine {
public:
    /// A statement of the dialect, translated and prepared once; its literals are bound anew for each text.
    struct Prepared {
        jet::Translation translation;
        sqlite::Statement statement;
        sqlite::Statement row;
        sqlite::Statement ahead;
        /// How many literals its text has; every text of its shape has as many.
        std::size_t literals = 0;
        /// Counts this program's changes of `translation.table`.
        std::uint64_t* changes = nullptr;
    };
    using PreparedPtr = std::shared_ptr<Prepared>;

    /// Refuses a file that is not ours: application id, schema version and tables are checked.
    explicit CEngine(const std::string& path, bool checkIntegrity = false);
    /// Takes back an open transaction. Everything that holds the engine raises from here on.
    void Close();
    bool IsOpen() const { return m_database != nullptr; }
    sqlite3* Handle() const;
    const jet::Schema& Tables() const { return m_schema; }

    /// The statement of this text with its literals bound, ready to step.
    PreparedPtr Prepare(std::string_view sql);
    /// All rows of the table of this name.
    PreparedPtr PrepareTable(std::string_view name);
    /// The rows of `table` that meet the condition, literals bound.
    PreparedPtr PrepareCriterion(std::string_view criterion, const std::string& table);
    /// Another number whenever another program has written to the file since it was asked last.
    std::int64_t FileVersion();
    /// The rows that this connection has written so far.
    std::int64_t Changes() const { return sqlite3_total_changes64(Handle()); }
    /// A statement of the engine's own SQL.
    std::shared_ptr<sqlite::Statement> PrepareOwn(const std::string& sql);

    // One transaction, for a commit group or an edit. Once the engine has taken it back by itself, as a full disk makes
    // it, every statement is refused until `AbandonGroup`: what belongs together must not be committed in part.

    /// Waits for another program's lock.
    void BeginGroup();
    /// Whether the transaction is old or large enough to be committed.
    bool IsCommitDue() const;
    /// Commits. An error leaves the transaction to be abandoned.
    void EndGroup();
    /// Takes back what is not committed yet.
    void AbandonGroup() noexcept;
    bool InGroup() const { return m_inGroup; }
    /// After an error: whether the transaction goes on. Where the error leaves open what was written, it is taken back.
    bool StillStands() noexcept;
    /// 0 outside a commit group; inside, the number of the transaction, which locks other programs out.
    std::uint64_t Transaction() const { return InTransaction() ? m_transaction : 0; }

private:
    /// False inside a group too, where a full disk made the engine roll back by itself.
    bool InTransaction() const { return m_inGroup && IsOpen() && sqlite3_get_autocommit(m_database.get()) == 0; }
    void CheckIdentity(const std::string& path);
    /// Raises when the engine took back the transaction by itself.
    void RefuseAfterLoss() const {
        if (m_inGroup && !InTransaction())
            RaiseLoss();
    }
    [[noreturn]] static void RaiseLoss();
    void Bind(Prepared& prepared, std::string_view sql);
    PreparedPtr Cached(const std::string& key) const;
    PreparedPtr Keep(const std::string& key, jet::Translation translation);

    sqlite::Database m_database;
    jet::Schema m_schema;
    std::unordered_map<std::string, PreparedPtr> m_prepared;
    std::map<std::string, std::shared_ptr<sqlite::Statement>> m_own;
    std::string m_shape;
    std::vector<jet::Literal> m_literals;
    std::map<std::string, std::uint64_t> m_changes;
    bool m_inGroup = false;
    std::uint64_t m_transaction = 0;
    std::int64_t m_groupChanges = 0;
    std::chrono::steady_clock::time_point m_groupStart;
};
