#include "ctl/DatabaseCheck.h"

#include "core/base/DateTime.h"
#include "core/base/SameName.h"
#include "core/store/DataStore.h"
#include "core/store/Engine.h"

#include <string>

namespace {

struct Relation {
    const char* table;
    const char* column;
    const char* parent;
    const char* key;
};

constexpr Relation Relations[] = {
    {"Prod_CoverDT", "prod_id", "Product", "prod_id"},     {"Prod_Cover", "dt_id", "Prod_CoverDT", "dt_id"},
    {"Prod_Cover", "cover_id", "Cover", "cover_id"},       {"CompCover_Item", "ccover_id", "CompCover", "ccover_id"},
    {"CompCover_Item", "cover_id", "Cover", "cover_id"},   {"TmpCover_Item", "cover_id", "Cover", "cover_id"},
    {"Move_Prod", "move_id", "Move", "move_id"},           {"Move_Prod", "prod_id", "Product", "prod_id"},
    {"Move_Cover", "mvprod_id", "Move_Prod", "mvprod_id"}, {"Move_Cover", "move_id", "Move", "move_id"},
    {"Move_Cover", "cover_id", "Cover", "cover_id"},       {"CoverDiscard", "cover_id", "Cover", "cover_id"},
};

struct Coded {
    const char* column;
    CodeList list;
    const char* name;
};

/// Under these names in every table that has them.
constexpr Coded Codes[] = {
    {"cover_mat", CodeList::CoverMaterial, "CoverMaterial"}, {"cover_org", CodeList::CoverOrigin, "CoverOrigin"},
    {"cover_pay", CodeList::CoverPayment, "CoverPayment"},   {"cover_type", CodeList::CoverType, "CoverType"},
    {"cover_stat", CodeList::CoverStat, "CoverStat"},        {"disc_type", CodeList::DiscardType, "DiscardType"},
    {"move_type", CodeList::MoveType, "MoveType"},
};

struct Rule {
    const char* table;
    const char* column;
    /// What is wrong, over the table `t`.
    const char* wrong;
    const char* words;
};

constexpr Rule Rules[] = {
    {"Cover", "cover_weight", "t.cover_weight IS NULL OR t.cover_weight <= 0", "must be greater than 0"},
    {"Prod_Cover", "cp_qtyprod", "t.cp_qtyprod IS NULL OR t.cp_qtyprod <= 0", "must be greater than 0"},
    {"CompCover_Item", "cp_qtyprod", "t.cp_qtyprod IS NULL OR t.cp_qtyprod <= 0", "must be greater than 0"},
    {"Prod_Cover", "cp_qtycover", "t.cp_qtycover IS NULL", "must be a number"},
    {"CompCover_Item", "cp_qtycover", "t.cp_qtycover IS NULL", "must be a number"},
    {"Move_Prod", "mvprod_qty", "t.mvprod_qty IS NULL", "must be a number"},
    {"Move_Cover", "mvcover_qty", "t.mvcover_qty IS NULL", "must be a number"},
    {"CoverDiscard", "disc_qty", "t.disc_qty IS NULL", "must be a number"},
    // A condition on an empty one is neither true nor false, so that such rows are in no list and no figure.
    {"Cover", "cover_reusable", "t.cover_reusable IS NULL", "must be 0 or 1"},
    {"Cover", "deleted", "t.deleted IS NULL", "must be 0 or 1"},
    {"Product", "deleted", "t.deleted IS NULL", "must be 0 or 1"},
    {"Move", "move_export", "t.move_export IS NULL", "must be 0 or 1"},
    {"Product", "prod_source", "t.prod_source NOT IN (0, 1, 2)", "is no known source"},
    {"Move", "move_source", "t.move_source NOT IN (0, 1, 2)", "is no known source"},
    {"Prod_Cover", "cp_usefrom", "t.cp_usealways = 0 AND t.cp_usefrom > t.cp_useto", "is greater than cp_useto"},
    {"CompCover_Item", "cp_usefrom", "t.cp_usealways = 0 AND t.cp_usefrom > t.cp_useto", "is greater than cp_useto"},
    // An import would overwrite the first one only.
    {"Product", "prod_scrid",
     "t.prod_source IN (1, 2) AND EXISTS (SELECT 1 FROM Product AS o WHERE o.prod_source = t.prod_source AND "
     "o.prod_scrid = t.prod_scrid AND o.prod_id < t.prod_id)",
     "is another product's number in the same source"},
    {"Move", "move_num",
     "t.move_source IN (1, 2) AND EXISTS (SELECT 1 FROM Move AS o WHERE o.move_source = t.move_source AND "
     "o.move_num = t.move_num COLLATE NOCASE AND o.move_id < t.move_id)",
     "is another issue's number in the same source"},
    // Of two definitions of a day the one with the later time holds, also when the other one was made after it.
    {"Prod_CoverDT", "dt_from",
     "EXISTS (SELECT 1 FROM Prod_CoverDT AS o WHERE o.prod_id = t.prod_id AND o.dt_id < t.dt_id AND "
     "substr(o.dt_from, 1, 10) = substr(t.dt_from, 1, 10) AND o.dt_from > t.dt_from)",
     "is overruled by an older definition of the same day"},
    {"Move_Cover", "move_id",
     "EXISTS (SELECT 1 FROM Move_Prod AS l WHERE l.mvprod_id = t.mvprod_id AND l.move_id <> t.move_id)",
     "is not the issue of its line"},
};

/// The whole check sees one state: another program's changes wait until it is over.
class ReadTransaction {
public:
    explicit ReadTransaction(sqlite3* database) : m_database(database) { sqlite::Execute(database, "BEGIN"); }
    ~ReadTransaction() { sqlite3_exec(m_database, "ROLLBACK", nullptr, nullptr, nullptr); }
    ReadTransaction(const ReadTransaction&) = delete;
    ReadTransaction& operator=(const ReadTransaction&) = delete;

private:
    sqlite3* m_database;
};

class Checker {
public:
    Checker(CDataStore& store, const std::function<void(const QString&)>& print)
        : m_store(store), m_database(store.Engine().Handle()), m_print(print) {}

    std::int64_t Run() {
        const ReadTransaction transaction(m_database);
        CheckFile();
        for (const jet::Table& table : m_store.Engine().Tables().Tables())
            for (const jet::Column& column : table.columns)
                CheckColumn(table, column);
        for (const Relation& relation : Relations)
            CheckRelation(relation);
        for (const Rule& rule : Rules)
            Find(rule.table, rule.column, rule.wrong, rule.words);
        NoteDoubleDefinitions();
        return m_findings;
    }

private:
    void Report(const QString& line) {
        ++m_findings;
        m_print(line);
    }

    static QString Text(std::string_view text) {
        return QString::fromUtf8(text.data(), static_cast<qsizetype>(text.size()));
    }

    /// The value as it is stored, an amount as a decimal number.
    QString Shown(const sqlite::Statement& row, int index, const std::string& table, const std::string& column) const {
        if (row.IsNull(index))
            return QStringLiteral("(empty)");
        const int stored = sqlite3_column_type(row.Get(), index);
        if (stored == SQLITE_TEXT)
            return u'\'' + Text(row.Text(index)).left(40).replace(u'\n', u' ').replace(QChar::Null, u'\uFFFD') + u'\'';
        if (stored == SQLITE_BLOB)
            return QStringLiteral("(bytes)");
        const jet::Column* known = m_store.Engine().Tables().FindTable(table)->FindColumn(column);
        if (stored == SQLITE_INTEGER && known->type == jet::ValueType::Currency)
            return FormatCurrency(Currency::FromCount(row.Integer(index)), 1, 'D').replace(u',', u'.');
        return Text(row.Text(index));
    }

    void Finding(const std::string& table, const sqlite::Statement& row, const std::string& column,
                 const QString& words) {
        Report(QStringLiteral("%1 %2%3: %4 %5 %6")
                   .arg(QString::fromStdString(table), QString::number(row.Integer(0)),
                        OwnerName(table, row.Integer(0)), QString::fromStdString(column), Shown(row, 1, table, column),
                        words));
    }

    /// The items of a composite have no key that a user could look for.
    QString OwnerName(const std::string& table, std::int64_t row) const {
        if (table != "CompCover_Item")
            return {};
        sqlite::Statement name(m_database, "SELECT c.ccover_name FROM CompCover_Item AS i JOIN CompCover AS c ON "
                                           "c.ccover_id = i.ccover_id WHERE i.rowid = " +
                                               std::to_string(row));
        return name.Step() ? QStringLiteral(" of '%1'").arg(Text(name.Text(0))) : QString();
    }

    /// Every row that meets `wrong`.
    void Find(const std::string& table, const std::string& column, const std::string& wrong, const QString& words) {
        sqlite::Statement rows(m_database, "SELECT t.rowid, t." + column + " FROM " + table + " AS t WHERE " + wrong);
        while (rows.Step())
            Finding(table, rows, column, words);
    }
    void Find(const std::string& table, const std::string& column, const std::string& wrong, const char* words) {
        Find(table, column, wrong, QString::fromUtf8(words));
    }

    void CheckFile() {
        sqlite::Statement lines(m_database, "PRAGMA integrity_check");
        while (lines.Step())
            if (lines.Text(0) != "ok")
                Report(QStringLiteral("file: ") + Text(lines.Text(0)).replace(u'\n', u' '));
    }

    void CheckColumn(const jet::Table& table, const jet::Column& column) {
        const std::string value = "t." + column.name;
        const auto storedAs = [&](const std::string& type) {
            return "typeof(" + value + ") NOT IN ('" + type + "', 'null')";
        };
        switch (column.type) {
        case jet::ValueType::Long:
            Find(table.name, column.name,
                 storedAs("integer") + " OR " + value + " NOT BETWEEN -2147483648 AND 2147483647",
                 "must be a whole number of 32 bits");
            break;
        case jet::ValueType::Currency:
            Find(table.name, column.name, storedAs("integer"), "must be an amount of ten-thousandths");
            break;
        case jet::ValueType::Boolean:
            Find(table.name, column.name, value + " NOT IN (0, 1)", "must be 0 or 1");
            break;
        case jet::ValueType::Text:
            Find(table.name, column.name, storedAs("text"), "must be a text");
            Find(table.name, column.name,
                 "typeof(" + value + ") = 'text' AND instr(CAST(" + value + " AS BLOB), x'00') > 0", "holds a NUL");
            break;
        case jet::ValueType::Date:
            CheckDates(table.name, column.name);
            break;
        }
        for (const Coded& coded : Codes)
            if (SameName(column.name, coded.column))
                CheckCodes(table, coded);
    }

    void CheckCodes(const jet::Table& table, const Coded& coded) {
        const std::string column = std::string("t.") + coded.column;
        Find(table.name, coded.column,
             column + " IS NULL OR (typeof(" + column + ") = 'integer' AND " + column + " NOT BETWEEN 0 AND " +
                 std::to_string(m_store.Codes(coded.list).size() - 1) + ")",
             QStringLiteral("is not in the list ") + QString::fromLatin1(coded.name));
    }

    void CheckDates(const std::string& table, const std::string& column) {
        sqlite::Statement rows(m_database, "SELECT t.rowid, t." + column + " FROM " + table + " AS t");
        while (rows.Step())
            if (sqlite3_column_type(rows.Get(), 1) != SQLITE_TEXT || !DateTime::FromStored(rows.Text(1)).IsValid())
                Finding(table, rows, column, QStringLiteral("is not a date"));
    }

    void CheckRelation(const Relation& relation) {
        const std::string value = std::string("t.") + relation.column;
        Find(relation.table, relation.column,
             "NOT EXISTS (SELECT 1 FROM " + std::string(relation.parent) + " AS p WHERE p." + relation.key + " = " +
                 value + ")",
             QStringLiteral("is not in ") + QString::fromLatin1(relation.parent));
    }

    /// The program makes them when a definition's date is changed, and then uses the last one.
    void NoteDoubleDefinitions() {
        sqlite::Statement rows(m_database, "SELECT prod_id, substr(dt_from, 1, 10), count(*) FROM Prod_CoverDT "
                                           "GROUP BY 1, 2 HAVING count(*) > 1");
        while (rows.Step())
            m_print(QStringLiteral("note: product %1 has %2 packaging definitions from %3")
                        .arg(QString::number(rows.Integer(0)), QString::number(rows.Integer(2)), Text(rows.Text(1))));
    }

    CDataStore& m_store;
    sqlite3* m_database;
    const std::function<void(const QString&)>& m_print;
    std::int64_t m_findings = 0;
};

} // namespace

std::int64_t CheckDatabase(CDataStore& store, const std::function<void(const QString&)>& print) {
    return Checker(store, print).Run();
}
