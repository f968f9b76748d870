#include "core/import/money/DbfTable.h"
#include "tests/support/DbfBytes.h"
#include "tests/support/OtherProgram.h"
#include "tests/support/SampleRows.h"

#include <gtest/gtest.h>

#include <functional>

namespace {

struct Folder {
    QTemporaryDir folder;

    QString Path(const char* name) const { return folder.filePath(QString::fromUtf8(name)); }
    QString Write(const QByteArray& bytes, const char* name = "T.DAT") const {
        WriteFile(Path(name), bytes);
        return Path(name);
    }
};

std::string Field(IMoneyTable& table, std::string_view column) {
    return ShownOrCode([&] { return table.FieldValue(column); });
}

TEST(DbfTable, ReadsEachTypeExactly) {
    const char* const bad = "80020005";
    const std::tuple<char, int, QByteArray, std::string> cases[] = {
        {'N', 11, "-2147483648", "-2147483648"},
        {'N', 10, "2147483648", "'2147483648'"},
        {'N', 13, "8594001234567", "'8594001234567'"},
        {'N', 10, "", "null"},
        {'N', 10, "**********", bad},
        {'N', 10, "1 2", bad},
        {'N', 10, "-", bad},
        {'N', 10, "12x", bad},
        {'N', 10, ".", bad},
        {'N', 20, "922337203685477.5808", bad},
        {'N', 10, ".5", "0,5000"},
        {'N', 12, "1.00005", "1,0001"},
        {'N', 12, "-1.00004", "-1,0000"},
        {'N', 20, "922337203685477.5807", "922337203685477,5807"},
        {'N', 21, "922337203685477.58075", bad},
        {'F', 20, "+1.2345", "1,2345"},
        {'F', 20, "1.5E+03", "1500.00"},
        {'F', 20, "1.5E+300", bad},
        {'D', 8, "20120701", "#2012-07-01 00:00:00#"},
        {'D', 8, "1.7.2012", bad},
        {'D', 8, "20120230", bad},
        {'D', 8, "", "#null#"},
        {'D', 8, "00000000", "#null#"},
        {'L', 1, "y", "ano"},
        {'L', 1, "n", "ne"},
        {'L', 1, "?", "null"},
        {'L', 1, "x", bad},
        {'C', 8, " a  ", "' a'"},
        {'C', 8, QByteArray("a\0\0", 3), "'a'"},
        {'C', 8, "\x8elu\x9d", "'Žluť'"},
        {'I', 4, QByteArray("\xfe\xff\xff\xff", 4), "-2"},
        {'Y', 8, QByteArray("\xff\xff\xff\xff\xff\xff\xff\xff", 8), "-0,0001"},
        {'B', 8, QByteArray("\0\0\0\0\0\0\xf8\x3f", 8), "1.50"},
        {'B', 8, QByteArray("\0\0\0\0\0\0\xf8\x7f", 8), bad},
        {'T', 8, QByteArray("\x2e\x7a\x25\0\x80\xee\x36\0", 8), "#2012-07-01 01:00:00#"},
        {'M', 10, "", "null"},
        {'M', 10, "12", bad},
        {'M', 10, "x", bad},
        {'I', 3, QByteArray("\0\0\0", 3), bad},
        {'?', 3, "abc", bad},
    };
    const Folder folder;
    for (const auto& [type, width, content, expected] : cases) {
        CDbfTable table;
        ASSERT_TRUE(table.Open(folder.Write(DbfBytes{{{"X", type, width}}, {{content}}, {}}.Make())));
        EXPECT_EQ(expected, Field(table, "x")) << type << " " << content.constData();
    }
}

DbfBytes Sample() {
    return {{{"Cislo", 'N', 6}, {"nazev", 'C', 10}}, {{"3", "c"}, {"1", "a"}, {"2", "b"}}, {}};
}

TEST(DbfTable, RefusesWhatIsNoWholeTable) {
    const auto set = [](int at, char value) {
        return [at, value](QByteArray bytes) {
            bytes[at] = value;
            return bytes;
        };
    };
    const std::pair<const char*, std::function<QByteArray(QByteArray)>> cases[] = {
        {"empty", [](QByteArray) { return QByteArray(); }},
        {"shorter than a header", [](QByteArray bytes) { return bytes.left(31); }},
        {"ends in the fields", [](QByteArray bytes) { return bytes.left(60); }},
        {"ends in the last record", [](QByteArray bytes) { return bytes.left(bytes.size() - 2); }},
        {"a record less than counted", [](QByteArray bytes) { return bytes.left(bytes.size() - 18) + '\x1A'; }},
        {"counts more records than a table has", set(7, '\x80')},
        {"fields longer than the record", set(32 + 16, 7)},
        {"counts a record less than there are", set(4, 2)},
        {"is of no kind known", set(0, 0x04)},
        {"is a text", [](QByteArray) { return QByteArray(500, 'x'); }},
        {"is encrypted", set(15, 1)},
        {"header as long as no field", set(8, 32)},
        {"header ends behind the file", set(9, '\x7F')},
        {"record of no length", set(10, 0)},
        {"fields shorter than the record", set(32 + 16, 5)},
        {"field of no width", set(32 + 16, 0)},
        {"ends inside the records", set(32 + 65 + 17, '\x1A')},
    };
    const Folder folder;
    for (const auto& [fault, change] : cases) {
        CDbfTable table;
        EXPECT_FALSE(table.Open(folder.Write(change(Sample().Make())))) << fault;
        EXPECT_EQ(ResultCode::ObjectClosed, CodeOf([&] { table.RecordCount(); })) << fault;
    }
    CDbfTable table;
    EXPECT_FALSE(table.Open(folder.Path("missing.DAT")));
    EXPECT_FALSE(table.Open(folder.folder.path()));
}

TEST(DbfTable, ReadsTheKindsThatProgramsWrite) {
    const auto kind = [](unsigned char value) {
        DbfBytes bytes = Sample();
        bytes.kind = value;
        return bytes.Make();
    };
    DbfBytes unended = Sample();
    unended.endMark = false;
    const std::pair<const char*, QByteArray> cases[] = {
        {"dBase III", kind(0x03)},
        {"dBase IV with memo", kind(0x8B)},
        {"Visual FoxPro", kind(0x30)},
        {"without end mark", unended.Make()},
        {"padded", Sample().Make() + QByteArray(500, '\0')},
    };
    const Folder folder;
    for (const auto& [name, content] : cases) {
        CDbfTable table;
        ASSERT_TRUE(table.Open(folder.Write(content))) << name;
        EXPECT_EQ(3, table.RecordCount()) << name;
        EXPECT_EQ("3", Field(table, "CISLO")) << name;
        EXPECT_EQ("'c'", Field(table, "Nazev")) << name;
    }
}

TEST(DbfTable, OpensTheFileOfTheTrueName) {
    const Folder folder;
    DbfBytes other = Sample();
    other.rows = {{"99", "wrong"}};
    folder.Write(other.Make(), "SKKMKART.dbf");
    folder.Write(other.Make(), "SKKMKART.DBF");
    for (const char* name : {"SKKMKART.DAT", "SKKMKART", "skkmkart.dat", "Číselník.DAT"}) {
        CDbfTable table;
        ASSERT_TRUE(table.Open(folder.Write(Sample().Make(), name))) << name;
        EXPECT_EQ("3", Field(table, "Cislo")) << name;
    }
}

TEST(DbfTable, RespectsTheCodePageMark) {
    // expected: nothing for a mark that is not known
    const std::tuple<unsigned char, QByteArray, QByteArray, std::string> cases[] = {
        {0, {}, "\xe8", "'č'"},
        {0x57, {}, "\xe8", "'č'"},
        {0xC8, {}, "\xe8", "'č'"},
        {0x64, {}, "\x9f", "'č'"},
        {0x03, {}, "\xe8", "'è'"},
        {0x68, {}, "\x87\xa8\xa9\x91", "'čšřž'"},
        {0x68, {}, "\x80\x81\x9b\xff", "'ČüŠ\u00a0'"},
        {0x6A, {}, "\x80", "'Α'"},
        {0x96, {}, "\x80", "'А'"},
        {0x97, {}, "\x8b", "'č'"},
        {0x65, {}, "\x80", "'А'"},
        {0xC9, {}, "\xe8", "'и'"},
        {0, "852\n", "\x9f", "'č'"},
        {0, "cp895", "\x87", "'č'"},
        {0, "UTF-8", "č", "'č'"},
        {0, "ANSI 1250", "\xe8", "'č'"},
        {0xEE, {}, "\xe8", ""},
        {0, "nonsense", "\xe8", ""},
    };
    for (const auto& [mark, markFile, content, expected] : cases) {
        const Folder folder;
        DbfBytes bytes{{{"X", 'C', 4}}, {{content}}, {}};
        bytes.codePageMark = mark;
        if (!markFile.isEmpty())
            folder.Write(markFile, "T.cpg");
        CDbfTable table;
        const QString path = folder.Write(bytes.Make());
        if (expected.empty()) {
            EXPECT_EQ(ResultCode::Fail, CodeOf([&] { table.Open(path); })) << int(mark) << markFile.constData();
            continue;
        }
        ASSERT_TRUE(table.Open(path)) << int(mark);
        EXPECT_EQ(expected, Field(table, "X")) << int(mark) << markFile.constData();
    }
}

TEST(DbfTable, ReadsTheTextsOfMemoFields) {
    constexpr int Block = 512;
    const QByteArray head3 = QByteArray(Block, '\0');
    const QByteArray head4 = QByteArray(20, '\0') + QByteArray("\x00\x02", 2) + QByteArray(Block - 22, '\0');
    const QByteArray headFox = QByteArray(6, '\0') + QByteArray("\x00\x40", 2) + QByteArray(Block - 8, '\0');
    const QByteArray mark4("\xFF\xFF\x08\x00", 4);
    const QByteArray text3 = "\xe8"
                             "aj\x8D\nsypan\xfd\x1A\x1A";
    const QByteArray text4 = mark4 + QByteArray("\x0B\0\0\0", 4) +
                             "\xe8"
                             "ajxxx";
    const QByteArray textFox = QByteArray("\0\0\0\x01\0\0\0\x03", 8) + "\xe8"
                                                                       "ajxxx";
    const struct {
        const char* name;
        unsigned char kind;
        const char* file;
        QByteArray memo;
        QByteArray pointer;
        std::string read;
    } cases[] = {
        {"dBase III", 0x83, "T.DBT", head3 + text3, "1", "'čaj sypaný'"},
        {"dBase IV", 0x8B, "t.dbt", head4 + text4, "1", "'čaj'"},
        {"FoxPro", 0xF5, "T.FPT", headFox + textFox, "8", "'čaj'"},
        {"Visual FoxPro", 0x30, "T.fpt", headFox + textFox, QByteArray("\x08\0\0\0", 4), "'čaj'"},
        {"no text", 0x83, "T.DBT", head3 + text3, "", "null"},
        {"no file", 0x83, "X.DBT", head3 + text3, "1", "80020005"},
        {"no end", 0x83, "T.DBT", head3 + "abc", "1", "80020005"},
        {"behind the file", 0x83, "T.DBT", head3 + text3, "7", "80020005"},
        {"longer than the file", 0x8B, "T.DBT", head4 + mark4 + QByteArray("\xFF\0\0\0", 4) + "abc", "1", "80020005"},
        {"a picture", 0xF5, "T.FPT", headFox + QByteArray(16, '\0'), "8", "80020005"},
        {"a file that is none", 0x83, "T.DBT", "abc", "1", "80020005"},
    };
    for (const auto& [name, kind, file, memo, pointer, read] : cases) {
        const Folder folder;
        folder.Write(memo, file);
        DbfBytes bytes{{{"X", 'M', pointer.size() == 4 ? 4 : 10}}, {{pointer}}, {}};
        bytes.kind = kind;
        CDbfTable table;
        ASSERT_TRUE(table.Open(folder.Write(bytes.Make()))) << name;
        EXPECT_EQ(read, Field(table, "X")) << name;
    }
}

/// Steps through the table: "1 2 3".
std::string Walk(IMoneyTable& table, std::string_view column) {
    std::string values;
    for (table.MoveFirst(); !table.AtEnd(); table.MoveNext())
        values += (values.empty() ? "" : " ") + FormatVariant(table.FieldValue(column)).toStdString();
    return values;
}

TEST(DbfTable, SkipsDeletedRecords) {
    const std::tuple<std::set<std::size_t>, std::string, std::string> cases[] = {
        {{}, "3 1 2", "1 2 3"}, {{0}, "1 2", "1 2"}, {{1}, "3 2", "2 3"}, {{0, 2}, "1", "1"}, {{0, 1, 2}, "", ""}};
    const Folder folder;
    for (const auto& [deleted, left, ordered] : cases) {
        DbfBytes bytes = Sample();
        bytes.deleted = deleted;
        CDbfTable table;
        ASSERT_TRUE(table.Open(folder.Write(bytes.Make())));
        EXPECT_EQ(3 - static_cast<int>(deleted.size()), table.RecordCount());
        EXPECT_EQ(left, Walk(table, "Cislo"));
        table.SetCurrentIndex("Cislo");
        EXPECT_EQ(ordered, Walk(table, "Cislo"));
        EXPECT_EQ(deleted.contains(0), table.SeekKey(3) != IMoneyTable::Found);
    }
}

TEST(DbfTable, OrdersByTheIndexAndFindsKeys) {
    const Folder folder;
    DbfBytes bytes{{{"Kind", 'C', 3}, {"Doc", 'N', 8}, {"Line", 'N', 6, 1}, {"Day", 'D', 8}, {"Nr", 'N', 2}}, {}, {}};
    const char* rows[][4] = {{"V", "10", "1.0", "20120101"}, {"S", "9", "2.5", "20111231"},
                             {"S", "-1", "0", ""},           {"S", "9", "-3.0", "20120101"},
                             {"S", "10", "1", "20120101"},   {"Sa", "1", "1", "20120101"},
                             {"", "5", "", "20120102"},      {"S", "9", "2.5", "20120103"}};
    for (std::size_t i = 0; i < std::size(rows); ++i)
        bytes.rows.push_back({rows[i][0], rows[i][1], rows[i][2], rows[i][3], QByteArray::number(int(i))});
    CDbfTable table;
    ASSERT_TRUE(table.Open(folder.Write(bytes.Make())));
    table.SetCurrentIndex("KIND+Doc+Line");
    EXPECT_EQ("6 2 3 1 7 4 5 0", Walk(table, "Nr"));
    table.SetCurrentIndex("Day");
    EXPECT_EQ("2 1 0 3 4 5 6 7", Walk(table, "Nr"));

    table.SetCurrentIndex("Kind+Doc+Line");
    const Variant s = QStringLiteral("S");
    // The last field is the row found, or null, and the current record stays.
    const std::pair<std::vector<Variant>, const char*> seeks[] = {
        {{s}, "2"},
        {{s, 9, Currency::FromCount(25000)}, "1"},
        {{s, QStringLiteral("10")}, "4"},
        {{QStringLiteral("Sa")}, "5"},
        {{QStringLiteral("")}, "6"},
        {{QStringLiteral("V"), 10, 1}, "0"},
        {{QStringLiteral("s")}, nullptr},
        {{s, 11}, nullptr},
        {{QStringLiteral("Sabc")}, nullptr},
    };
    for (const auto& [keys, row] : seeks) {
        table.MoveFirst();
        table.MoveNext();
        EXPECT_EQ(row != nullptr, table.SeekKeys(keys) == IMoneyTable::Found);
        EXPECT_EQ(row != nullptr ? row : "2", FormatVariant(table.FieldValue("Nr")).toStdString());
    }
    EXPECT_EQ(ResultCode::TypeMismatch, CodeOf([&] { table.SeekKeys({}); }));
    EXPECT_EQ(ResultCode::TypeMismatch, CodeOf([&] { table.SeekKeys({s, 1, 1, 1}); }));
    EXPECT_EQ(ResultCode::NoSuchField, CodeOf([&] { table.SetCurrentIndex("Kind+Nothing"); }));
}

TEST(DbfTable, AnIndexInTheMakingCanBeGivenUp) {
    const Folder folder;
    DbfBytes bytes{{{"N", 'N', 6}}, {}, {}};
    for (int i = 25'000; i > 0; --i)
        bytes.rows.push_back({QByteArray::number(i)});
    CDbfTable table;
    ASSERT_TRUE(table.Open(folder.Write(bytes.Make())));
    int calls = 0;
    table.SetAlive([&calls] {
        if (++calls == 2)
            throw std::runtime_error("cancel");
    });
    EXPECT_THROW(table.SetCurrentIndex("N"), std::runtime_error);
    EXPECT_EQ(ResultCode::NoSuchField, CodeOf([&] { table.SeekKey(7); }));
    table.SetCurrentIndex("N");
    EXPECT_EQ(IMoneyTable::Found, table.SeekKey(7));
    EXPECT_EQ("7", Field(table, "N"));
}

TEST(DbfTable, MisuseRaises) {
    const Folder folder;
    CDbfTable table;
    const auto everyCallRaises = [&table] {
        const std::function<void()> calls[] = {[&] { table.RecordCount(); },
                                               [&] { table.AtEnd(); },
                                               [&] { table.MoveFirst(); },
                                               [&] { table.MoveNext(); },
                                               [&] { table.FieldValue("Cislo"); },
                                               [&] { table.SeekKey(1); },
                                               [&] { table.SetCurrentIndex("Cislo"); }};
        for (const auto& call : calls)
            EXPECT_EQ(ResultCode::ObjectClosed, CodeOf(call));
    };
    everyCallRaises();
    ASSERT_TRUE(table.Open(folder.Write(Sample().Make())));
    EXPECT_EQ(ResultCode::NoSuchField, CodeOf([&] { table.SeekKey(1); }));
    EXPECT_EQ(ResultCode::NoSuchField, CodeOf([&] { table.FieldValue("Nothing"); }));
    table.SetCurrentIndex("Cislo");
    for (int i = 0; i < 5; ++i)
        table.MoveNext();
    EXPECT_TRUE(table.AtEnd());
    EXPECT_EQ(ResultCode::AtEnd, CodeOf([&] { table.FieldValue("Cislo"); }));
    // Opening anew forgets the index.
    ASSERT_TRUE(table.Open(folder.Path("T.DAT")));
    EXPECT_EQ("3 1 2", Walk(table, "Cislo"));
    table.Close();
    table.Close();
    everyCallRaises();
}

} // namespace
