#include "tests/support/Faults.h"

#include "core/store/sqlite/Sqlite.h"

#include <gtest/gtest.h>

#include <QFile>
#include <QTemporaryDir>

#include <algorithm>
#include <cstring>
#include <set>

namespace {

constexpr std::int64_t Block = 4096;

struct FaultyFile {
    sqlite3_file base;
    bool isJournal;
    std::int64_t blocks;
    sqlite3_file* Real() { return reinterpret_cast<sqlite3_file*>(this + 1); }
};

/// What the disk does, and its files that are open.
struct Disk {
    enum class Fault { None, Write, Full, Remember };
    Fault fault = Fault::None;
    int failing = 0;
    std::int64_t free = 0;
    int writes = 0;
    bool failed = false;
    std::vector<CFaultyDisk::Files> remembered;
    std::set<FaultyFile*> open;
    sqlite3_vfs* real = nullptr;
    sqlite3_vfs vfs{};
};

Disk s_disk;

QByteArray Contents(bool journal) {
    QByteArray bytes;
    for (FaultyFile* file : s_disk.open) {
        if (file->isJournal != journal)
            continue;
        sqlite3_int64 size = 0;
        file->Real()->pMethods->xFileSize(file->Real(), &size);
        bytes.resize(size);
        file->Real()->pMethods->xRead(file->Real(), bytes.data(), static_cast<int>(size), 0);
    }
    return bytes;
}

/// Before anything is changed on the disk; what to answer instead of doing it.
int Refusal(int result) {
    if (s_disk.fault == Disk::Fault::None)
        return SQLITE_OK;
    if (s_disk.fault == Disk::Fault::Remember)
        s_disk.remembered.push_back({Contents(false), Contents(true)});
    if (++s_disk.writes != s_disk.failing || s_disk.fault != Disk::Fault::Write)
        return SQLITE_OK;
    s_disk.failed = true;
    return result;
}

int WriteTo(sqlite3_file* base, const void* bytes, int count, sqlite3_int64 offset) {
    auto* file = reinterpret_cast<FaultyFile*>(base);
    if (const int refusal = Refusal(SQLITE_IOERR_WRITE); refusal != SQLITE_OK)
        return refusal;
    const std::int64_t blocks = std::max<std::int64_t>(file->blocks, (offset + count + Block - 1) / Block);
    const std::int64_t more = (blocks - file->blocks) * Block;
    if (s_disk.fault == Disk::Fault::Full) {
        if (more > s_disk.free) {
            s_disk.failed = true;
            return SQLITE_FULL;
        }
        s_disk.free -= more;
    }
    file->blocks = blocks;
    return file->Real()->pMethods->xWrite(file->Real(), bytes, count, offset);
}

int Truncate(sqlite3_file* base, sqlite3_int64 size) {
    auto* file = reinterpret_cast<FaultyFile*>(base);
    if (const int refusal = Refusal(SQLITE_IOERR_TRUNCATE); refusal != SQLITE_OK)
        return refusal;
    const std::int64_t blocks = (size + Block - 1) / Block;
    s_disk.free += (file->blocks - blocks) * Block;
    file->blocks = blocks;
    return file->Real()->pMethods->xTruncate(file->Real(), size);
}

/// The power stays on, so that nothing need be waited for.
int Sync(sqlite3_file*, int) {
    return SQLITE_OK;
}

int Close(sqlite3_file* base) {
    auto* file = reinterpret_cast<FaultyFile*>(base);
    s_disk.open.erase(file);
    return file->Real()->pMethods->xClose(file->Real());
}

template <auto Method, class... Arguments>
int Pass(sqlite3_file* base, Arguments... arguments) {
    sqlite3_file* const real = reinterpret_cast<FaultyFile*>(base)->Real();
    return (real->pMethods->*Method)(real, arguments...);
}

using Methods = sqlite3_io_methods;
const Methods s_methods = {1,
                           Close,
                           Pass<&Methods::xRead, void*, int, sqlite3_int64>,
                           WriteTo,
                           Truncate,
                           Sync,
                           Pass<&Methods::xFileSize, sqlite3_int64*>,
                           Pass<&Methods::xLock, int>,
                           Pass<&Methods::xUnlock, int>,
                           Pass<&Methods::xCheckReservedLock, int*>,
                           Pass<&Methods::xFileControl, int, void*>,
                           Pass<&Methods::xSectorSize>,
                           Pass<&Methods::xDeviceCharacteristics>,
                           nullptr,
                           nullptr,
                           nullptr,
                           nullptr,
                           nullptr,
                           nullptr};

int Open(sqlite3_vfs*, const char* name, sqlite3_file* base, int flags, int* outFlags) {
    auto* file = reinterpret_cast<FaultyFile*>(base);
    file->base.pMethods = nullptr;
    const int result = s_disk.real->xOpen(s_disk.real, name, file->Real(), flags, outFlags);
    if (file->Real()->pMethods == nullptr)
        return result;
    file->base.pMethods = &s_methods;
    file->isJournal = (flags & SQLITE_OPEN_MAIN_JOURNAL) != 0;
    sqlite3_int64 size = 0;
    file->Real()->pMethods->xFileSize(file->Real(), &size);
    file->blocks = (size + Block - 1) / Block;
    if ((flags & (SQLITE_OPEN_MAIN_JOURNAL | SQLITE_OPEN_MAIN_DB)) != 0)
        s_disk.open.insert(file);
    return result;
}

void Begin(Disk::Fault fault) {
    s_disk.fault = fault;
    s_disk.writes = 0;
    s_disk.failed = false;
    s_disk.remembered.clear();
}

using Units = std::map<std::string, std::string>;

std::string Everything(sqlite3* database) {
    std::string rows;
    sqlite::Statement tables(database,
                             "SELECT name FROM sqlite_schema WHERE type = 'table' AND name NOT LIKE 'sqlite%' "
                             "AND name NOT LIKE 'Tmp%' ORDER BY 1");
    while (tables.Step()) {
        rows += "\n" + std::string(tables.Text(0)) + ":";
        sqlite::Statement row(database, "SELECT * FROM " + std::string(tables.Text(0)) + " ORDER BY rowid");
        while (row.Step()) {
            rows += " ";
            for (int i = 0; i < sqlite3_column_count(row.Get()); ++i)
                rows += std::string(row.Text(i)) + "|";
        }
    }
    return rows;
}

Units Read(const QString& path, const std::string& sql) {
    const sqlite::Database database = sqlite::Open(QFile::encodeName(path).toStdString());
    sqlite::Execute(database.get(), "PRAGMA cache_size = -16000");
    sqlite::Statement check(database.get(), "PRAGMA integrity_check(1)");
    EXPECT_TRUE(check.Step() && check.Text(0) == "ok") << "damaged";
    if (sql.empty())
        return {{"the file", Everything(database.get())}};
    Units units;
    for (sqlite::Statement statement(database.get(), sql); statement.Step();)
        units[std::string(statement.Text(0))] += std::string(statement.Text(1)) + " ";
    return units;
}

/// Before the operation and after it, on a sound disk.
struct OldAndNew {
    Units before;
    Units after;

    explicit OldAndNew(const FaultyOperation& operation) {
        const auto subject = operation.make();
        const QString path = subject->Folder().File("Kuvel.mdb");
        before = Read(path, operation.units);
        const std::int64_t told = subject->Run([] {});
        after = Read(path, operation.units);
        EXPECT_NE(before, after) << "the operation does nothing";
        EXPECT_EQ(0u, subject->Messages());
        ExpectWhole(after, told);
    }

    /// The number of new units.
    void ExpectWhole(Units found, std::int64_t told) const {
        std::set<std::string> names;
        for (const Units* units : {&before, &after, const_cast<const Units*>(&found)})
            for (const auto& [name, content] : *units)
                names.insert(name);
        const auto of = [](const Units& units, const std::string& name) {
            const auto unit = units.find(name);
            return unit == units.end() ? std::string("none") : unit->second;
        };
        std::int64_t isNew = 0;
        for (const std::string& name : names) {
            const std::string is = of(found, name);
            const bool asBefore = is == of(before, name);
            const bool asAfter = is == of(after, name);
            isNew += asAfter && !asBefore ? 1 : 0;
            EXPECT_TRUE(asBefore || asAfter) << name << " is neither old nor new: " << is.substr(0, 500);
        }
        EXPECT_TRUE(told < 0 || told == isNew) << told << " said to be written, " << isNew << " are";
    }
};

/// One run with this fault; false when the operation did not come to it.
bool RunWith(const FaultyOperation& operation, const OldAndNew& expected, CFaultyDisk& disk,
             const std::function<void()>& arm) {
    const auto subject = operation.make();
    const std::int64_t told = subject->Run(arm);
    const bool failed = disk.HasFailed();
    disk.Heal();
    EXPECT_EQ(failed ? 1u : 0u, subject->Messages()) << "messages";
    expected.ExpectWhole(Read(subject->Folder().File("Kuvel.mdb"), operation.units), told);
    return failed;
}

} // namespace

CFaultyDisk::CFaultyDisk() {
    s_disk = {};
    s_disk.real = sqlite3_vfs_find(nullptr);
    s_disk.vfs = *s_disk.real;
    s_disk.vfs.zName = "faulty";
    s_disk.vfs.pNext = nullptr;
    s_disk.vfs.szOsFile = static_cast<int>(sizeof(FaultyFile)) + s_disk.real->szOsFile;
    s_disk.vfs.xOpen = Open;
    sqlite3_vfs_register(&s_disk.vfs, 1);
}

CFaultyDisk::~CFaultyDisk() {
    sqlite3_vfs_unregister(&s_disk.vfs);
    sqlite3_vfs_register(s_disk.real, 1);
}

void CFaultyDisk::FailWrite(int n) {
    Begin(Disk::Fault::Write);
    s_disk.failing = n;
}

void CFaultyDisk::FillUpTo(std::int64_t free) {
    Begin(Disk::Fault::Full);
    s_disk.free = free;
}

void CFaultyDisk::Remember() {
    Begin(Disk::Fault::Remember);
}

void CFaultyDisk::Heal() {
    s_disk.fault = Disk::Fault::None;
}

int CFaultyDisk::Writes() const {
    return s_disk.writes;
}

bool CFaultyDisk::HasFailed() const {
    return s_disk.failed;
}

const std::vector<CFaultyDisk::Files>& CFaultyDisk::Remembered() const {
    return s_disk.remembered;
}

std::vector<std::int64_t> DiskSizes(std::int64_t upTo, std::int64_t step) {
    std::vector<std::int64_t> sizes;
    for (std::int64_t size = 0; size <= upTo; size += step)
        sizes.push_back(size);
    return sizes;
}

void ExpectWholeOnAFullDisk(const FaultyOperation& operation, const std::vector<std::int64_t>& sizes) {
    SCOPED_TRACE(operation.name);
    CFaultyDisk disk;
    const OldAndNew expected(operation);
    for (const std::int64_t size : sizes) {
        SCOPED_TRACE(std::to_string(size) + " bytes free");
        if (!RunWith(operation, expected, disk, [&] { disk.FillUpTo(size); }))
            break;
    }
}

void ExpectWholeAfterEachFailedWrite(const FaultyOperation& operation) {
    SCOPED_TRACE(operation.name);
    CFaultyDisk disk;
    const OldAndNew expected(operation);
    int n = 1;
    for (bool failed = true; failed && !testing::Test::HasFatalFailure(); ++n) {
        SCOPED_TRACE("write " + std::to_string(n));
        failed = RunWith(operation, expected, disk, [&] { disk.FailWrite(n); });
    }
    EXPECT_GT(n, 4) << "hardly a write was reached";
}

void ExpectWholeAfterAKillAtEachWrite(const FaultyOperation& operation) {
    SCOPED_TRACE(operation.name);
    CFaultyDisk disk;
    const OldAndNew expected(operation);
    const auto subject = operation.make();
    subject->Run([&] { disk.Remember(); });
    disk.Heal();
    const QTemporaryDir killed;
    const QString path = killed.filePath(QStringLiteral("Kuvel.mdb"));
    int n = 0;
    for (const CFaultyDisk::Files& files : disk.Remembered()) {
        SCOPED_TRACE("killed at write " + std::to_string(++n));
        WriteFile(path, files.database);
        WriteFile(path + QStringLiteral("-journal"), files.journal);
        expected.ExpectWhole(Read(path, operation.units), -1);
    }
    EXPECT_GT(n, 3);
}
