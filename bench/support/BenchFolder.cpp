#include "bench/support/BenchFolder.h"

#include "core/base/AppDir.h"

#include <sqlite3.h>

#include <QFile>

#include <cstdio>
#include <cstdlib>

BenchFolder::BenchFolder() {
    SetAppDir(m_folder.path());
    QFile::copy(QStringLiteral(KUVEL_BIN_DIR "/database/Kuvel.mdb"), QFile::decodeName(Database().c_str()));
    QFile::setPermissions(QFile::decodeName(Database().c_str()), QFile::ReadOwner | QFile::WriteOwner);
}

std::string BenchFolder::Database() const {
    return m_folder.path().toStdString() + "/Kuvel.mdb";
}

void BenchFolder::Sql(const std::string& sql) const {
    sqlite3* database = nullptr;
    char* error = nullptr;
    sqlite3_open(Database().c_str(), &database);
    const std::string fast =
        "PRAGMA synchronous = OFF; PRAGMA journal_mode = OFF; PRAGMA cache_size = -200000; BEGIN;" + sql + "; COMMIT";
    if (sqlite3_exec(database, fast.c_str(), nullptr, nullptr, &error) != SQLITE_OK) {
        std::fprintf(stderr, "%s\n", error);
        std::abort();
    }
    sqlite3_close(database);
}

void BenchFolder::Keep() const {
    const QString kept = m_folder.filePath(QStringLiteral("kept.mdb"));
    QFile::remove(kept);
    QFile::copy(QFile::decodeName(Database().c_str()), kept);
}

void BenchFolder::Restore() const {
    const QString database = QFile::decodeName(Database().c_str());
    QFile::remove(database);
    QFile::copy(m_folder.filePath(QStringLiteral("kept.mdb")), database);
}

void FillIssues(const BenchFolder& folder, int count) {
    const std::string n = std::to_string(count);
    folder.Sql(
        "WITH RECURSIVE n(i) AS (VALUES (1) UNION ALL SELECT i + 1 FROM n WHERE i < 100) "
        "INSERT INTO Cover SELECT i, 'Obal ' || i, i % 30, 100 + i * 37 % 5000, i % 4, i % 3, i % 3, i % 5 = 0, "
        "CASE WHEN i % 10 = 0 THEN i / 10 % 4 ELSE 0 END, '', 0 FROM n;"
        "WITH RECURSIVE n(i) AS (VALUES (1) UNION ALL SELECT i + 1 FROM n WHERE i < 2000) "
        "INSERT INTO Product SELECT i, 'Produkt ' || i, 'K' || i, 'ks', NULL, NULL, 0 FROM n;"
        "WITH RECURSIVE n(i) AS (VALUES (1) UNION ALL SELECT i + 1 FROM n WHERE i < 4000) "
        "INSERT INTO Prod_CoverDT SELECT i, (i + 1) / 2, CASE WHEN i % 2 = 1 THEN '2000-01-01 00:00:00' ELSE "
        "'2008-01-01 00:00:00' END FROM n;"
        "WITH RECURSIVE n(i) AS (VALUES (1) UNION ALL SELECT i + 1 FROM n WHERE i < 16000) "
        "INSERT INTO Prod_Cover SELECT i, (i + 3) / 4, 1 + i * 7 % 100, 10000, 10000 * (1 + i % 12), 1, 0, 0, "
        "i % 4, i % 3, i % 3 FROM n;"
        "WITH RECURSIVE n(i) AS (VALUES (1) UNION ALL SELECT i + 1 FROM n WHERE i < " +
        n +
        ") "
        "INSERT INTO Move SELECT i, 'D' || substr('0000000' || (i * 7919 % 10000019), -8), date('2003-01-01', '+' || "
        "(i % 3653) || ' days') || ' 00:00:00', "
        "i % 4, i % 6 = 0, NULL FROM n;"
        "INSERT INTO Move_Prod SELECT move_id, move_id, 1 + move_id * 31 % 2000, 10000 * (1 + move_id % 500) FROM Move;"
        "WITH r(k) AS (VALUES (0), (1), (2), (3)) "
        "INSERT INTO Move_Cover (mvprod_id, move_id, cover_id, mvcover_qty, cover_type, cover_org, cover_pay) "
        "SELECT mvprod_id, move_id, 1 + (mvprod_id * 13 + k * 29) % 100, 10000 * (1 + mvprod_id % 40), "
        "(mvprod_id + k) % 4, (mvprod_id / 3 + k) % 3, (mvprod_id / 7 + k) % 3 FROM Move_Prod, r ORDER BY mvprod_id");
}
