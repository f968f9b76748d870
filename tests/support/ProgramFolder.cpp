#include "tests/support/ProgramFolder.h"

#include "core/base/AppDir.h"

#include <gtest/gtest.h>
#include <sqlite3.h>

#include <QDir>
#include <QFile>

#include <csignal>

ProgramFolder::ProgramFolder()
    : m_before(g_strAppDir), m_clock(ClockDoor(), [] { return DateTime::FromDay(2012, 7, 2, 10, 15, 30); }) {
    SetAppDir(m_folder.path());
}

ProgramFolder::~ProgramFolder() {
    g_strAppDir = m_before;
}

QString ProgramFolder::Path() const {
    return m_folder.path() + QLatin1Char('/');
}

void ProgramFolder::AddDatabase() const {
    const QString target = Path() + QStringLiteral("Kuvel.mdb");
    ASSERT_TRUE(QFile::copy(QStringLiteral(KUVEL_BIN_DIR "/database/Kuvel.mdb"), target));
    QFile::setPermissions(target, QFile::ReadOwner | QFile::WriteOwner);
}

void ProgramFolder::AddTemplates() const {
    const QDir templates(QStringLiteral(KUVEL_BIN_DIR "/templates"));
    for (const QString& name : templates.entryList({QStringLiteral("*.tpl")}))
        ASSERT_TRUE(QFile::copy(templates.filePath(name), Path() + name));
}

StoreFolder::StoreFolder() {
    folder.AddDatabase();
    EXPECT_TRUE(store.OpenDatabase());
}

static int AppendRow(void* text, int columns, char** values, char**) {
    auto& all = *static_cast<std::string*>(text);
    all += all.empty() ? "" : " ";
    for (int i = 0; i < columns; ++i)
        all += std::string(i == 0 ? "" : "|") + (values[i] != nullptr ? values[i] : "null");
    return 0;
}

std::string ProgramFolder::AskAll(const std::string& sql) const {
    sqlite3* database = nullptr;
    std::string rows;
    EXPECT_EQ(SQLITE_OK, sqlite3_open_v2(QFile::encodeName(File("Kuvel.mdb")).constData(), &database,
                                         SQLITE_OPEN_READWRITE, nullptr));
    char* error = nullptr;
    EXPECT_EQ(SQLITE_OK, sqlite3_exec(database, sql.c_str(), AppendRow, &rows, &error))
        << sql << ": " << (error != nullptr ? error : "");
    sqlite3_free(error);
    sqlite3_close(database);
    return rows;
}

std::string ProgramFolder::Ask(const std::string& sql) const {
    const std::string rows = AskAll(sql);
    return rows.empty() ? "none" : rows.substr(0, rows.find_first_of("| "));
}

SmallDisk::SmallDisk(rlim_t bytes) : m_handler(std::signal(SIGXFSZ, SIG_IGN)) {
    getrlimit(RLIMIT_FSIZE, &m_before);
    const rlimit small{bytes, m_before.rlim_max};
    setrlimit(RLIMIT_FSIZE, &small);
}

SmallDisk::~SmallDisk() {
    setrlimit(RLIMIT_FSIZE, &m_before);
    std::signal(SIGXFSZ, m_handler);
}

QByteArray FileBytes(const QString& path) {
    QFile file(path);
    EXPECT_TRUE(file.open(QIODevice::ReadOnly)) << path.toStdString();
    return file.readAll();
}

void WriteFile(const QString& path, const QByteArray& bytes) {
    QFile file(path);
    ASSERT_TRUE(file.open(QIODevice::WriteOnly)) << path.toStdString();
    ASSERT_EQ(bytes.size(), file.write(bytes));
}
