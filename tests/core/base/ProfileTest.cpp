#include "core/base/Profile.h"
#include "core/base/CodePage.h"
#include "tests/support/ProgramFolder.h"

#include <gtest/gtest.h>

#include <QDir>
#include <QFile>
#include <QStringDecoder>
#include <QTemporaryDir>

static QByteArray Utf16LE(const QString& text) {
    QByteArray bytes("\xFF\xFE");
    for (QChar c : text) {
        bytes.append(static_cast<char>(c.cell())).append(static_cast<char>(c.row()));
    }
    return bytes;
}

static QByteArray Utf16BE(const QString& text) {
    QByteArray bytes = Utf16LE(text);
    for (qsizetype i = 0; i < bytes.size(); i += 2) {
        std::swap(bytes[i], bytes[i + 1]);
    }
    return bytes;
}

static QByteArray Cp(const char* text) {
    return EncodeWindows1250(QString::fromUtf8(text));
}

namespace {
class ProfileFile : public testing::Test {
protected:
    QString Path() const { return m_folder.filePath("kuvel.ini"); }
    void Put(const QByteArray& bytes) const { WriteFile(Path(), bytes); }
    QByteArray Bytes() const { return FileBytes(Path()); }
    static std::error_code Write(const QString& path, const QString& section, const CProfile::Entries& entries) {
        return CProfile(path).Write(section, entries);
    }
    QTemporaryDir m_folder;
};
} // namespace

TEST(CodePage, EveryByteReadsAsTheCodePageSaysAndComesBack) {
    for (int i = 0; i < 256; ++i) {
        const QByteArray byte(1, static_cast<char>(i));
        const QString text = DecodeWindows1250(byte);
        EXPECT_EQ(EncodeWindows1250(text), byte) << i;
        QStringDecoder converter("windows-1250");
        ASSERT_TRUE(converter.isValid());
        if (const QString expected = converter(byte); expected != QChar::ReplacementCharacter) {
            EXPECT_EQ(text, expected) << i;
        }
    }
    EXPECT_EQ(EncodeWindows1250(u"漢x\U0001F600y"), "?x?y");
    EXPECT_EQ(EncodeWindows1250(u"c\u030C"), Cp("č"));
}

TEST_F(ProfileFile, ReadsByTheRulesOfPrivateProfiles) {
    // expected: "-" is the default
    const std::tuple<const char*, QByteArray, const char*, const char*, const char*> cases[] = {
        {"blanks around names and value", " [ S ] x\r\n\t k \t= v w \t\r\n", "S", "k", "v w"},
        {"names fold Czech letters", Cp("[Údaje o firmě]\r\nNázev=Žluťásek"), "ÚDAJE O FIRMĚ", "NÁZEV", "Žluťásek"},
        {"an accent is another letter", Cp("[Údaje o firmě]\r\nNázev=x"), "Údaje o firme", "Název", "-"},
        {"first key wins", "[S]\nk=1\nK=2\n", "S", "k", "1"},
        {"first section wins, also without the key", "[S]\na=1\n[S]\nk=2\n", "S", "k", "-"},
        {"key before any section", "k=1\n[S]\n", "S", "k", "-"},
        {"comment", "[S]\n ;k=1\n", "S", ";k", "-"},
        {"semicolon in a value is no comment", Cp("[S]\nk=;Česká republika ;ČR\n"), "S", "k", ";Česká republika ;ČR"},
        {"equals sign in a value", "[S]\nk=a=b\n", "S", "k", "a=b"},
        {"section without its bracket is none", "[T]\n[S\nk=1\n", "S", "k", "-"},
        {"empty value is a value", "[S]\nk=\n", "S", "k", ""},
        {"double quotes", "[S]\nk=\" a \"\n", "S", "k", " a "},
        {"only one pair", "[S]\nk=\"'a'\"\n", "S", "k", "'a'"},
        {"quotes that do not match", "[S]\nk=\"a'\n", "S", "k", "\"a'"},
        {"LF, CR and an open last line", "[S]\na=1\rk=2", "S", "k", "2"},
        {"UTF-8 mark", "\xEF\xBB\xBF[S]\r\nk=\xC4\x8D\r\n", "S", "k", "č"},
        {"UTF-16 little-endian", Utf16LE("[S]\r\nk=ěš\r\n"), "S", "k", "ěš"},
        {"UTF-16 big-endian", Utf16BE("[S]\r\nk=ěš\r\n"), "S", "k", "ěš"},
        {"UTF-16 cut in the middle of a character", Utf16LE("[S]\r\nk=ab").chopped(1), "S", "k", "ab"},
        {"NUL bytes", QByteArray("\0[S]\0\nk=v\0\n", 12), "S", "k", "v"},
        {"only a mark", "\xFF\xFE", "S", "k", "-"},
    };
    for (const auto& [what, bytes, section, key, expected] : cases) {
        Put(bytes);
        EXPECT_EQ(CProfile(Path()).GetString(QString::fromUtf8(section), QString::fromUtf8(key), "-").toStdString(),
                  expected)
            << what;
    }
}

TEST_F(ProfileFile, MissingFileGivesDefaultsAndIsNotCreatedByReading) {
    EXPECT_EQ(CProfile(Path()).GetString("S", "k", " d "), " d ");
    EXPECT_EQ(CProfile(Path()).GetInt("S", "k", 7), 7);
    EXPECT_FALSE(QFile::exists(Path()));
    EXPECT_EQ(CProfile(m_folder.path()).GetString("S", "k", "d"), "d") << "a folder in the file's place";
}

TEST_F(ProfileFile, ValueIsCutAfterItsQuotesAreTaken) {
    Put("[S]\nk=\"abcd\"\n");
    EXPECT_EQ(CProfile(Path()).GetString("S", "k", {}, 3), "abc");
    EXPECT_EQ(CProfile(Path()).GetString("S", "k", {}, 4), "abcd");
    EXPECT_EQ(CProfile(Path()).GetString("S", "k", {}, -1), "");
    EXPECT_EQ(CProfile(Path()).GetString("S", "missing", "default", 3), "def");
    Put("\xEF\xBB\xBF[S]\nk=a\xF0\x9F\x98\x80\n");
    EXPECT_EQ(CProfile(Path()).GetString("S", "k", {}, 2), "a") << "no half of a surrogate pair";
}

TEST_F(ProfileFile, NumbersReadTheirLeadingDigits) {
    const std::pair<const char*, int> cases[] = {
        {"-3", -3},   {"+4", 4},   {"5x", 5},  {"1.9", 1},  {"x", 0},          {"", 0},
        {"\"6\"", 6}, {"' 7'", 7}, {"--1", 0}, {"0x1F", 0}, {"4294967297", 1}, {"-2147483648", -2147483647 - 1}};
    for (const auto& [value, expected] : cases) {
        Put(QByteArray("[S]\nk=") + value + "\n");
        EXPECT_EQ(CProfile(Path()).GetInt("S", "k", 99), expected) << value;
    }
    EXPECT_EQ(CProfile(Path()).GetInt("S", "missing", 99), 99);
}

TEST_F(ProfileFile, WritingTouchesNothingButItsLine) {
    const std::tuple<const char*, QByteArray, QByteArray> cases[] = {
        {"new file", "", "[S]\r\nk=v\r\n"},
        {"replaced, with comments, blanks and double keys",
         "; c\r\n\r\n[S]\r\n K = \"old\"  \r\nk=2\r\n;k=3\r\n[S]\r\nk=4",
         "; c\r\n\r\n[S]\r\n K = v\r\nk=2\r\n;k=3\r\n[S]\r\nk=4"},
        {"LF stays LF", "[S]\nk=1\n", "[S]\nk=v\n"},
        {"new key before the blank lines of its section", "[S]\na=1\n; c\n\n\n[T]\nk=2\n",
         "[S]\na=1\n; c\nk=v\n\n\n[T]\nk=2\n"},
        {"new key after an open line", "[S]\r\na=1", "[S]\r\na=1\r\nk=v\r\n"},
        {"a line without equals is not the key", "[S]\nk\n", "[S]\nk\nk=v\n"},
        {"new section in a file of one open line", "x", "x\r\n[S]\r\nk=v\r\n"},
        {"bytes that the code page lacks", "\x81\x98=\xFF\n[S]\nk=1\n", "\x81\x98=\xFF\n[S]\nk=v\n"},
        {"broken UTF-8 beside", "\xEF\xBB\xBF\xFF\xC3\n[S]\nk=1\n", "\xEF\xBB\xBF\xFF\xC3\n[S]\nk=v\n"},
        {"UTF-16 little-endian", Utf16LE("[S]\na=ř\n"), Utf16LE("[S]\na=ř\nk=v\n")},
        {"UTF-16 big-endian", Utf16BE("[S]\r\nk=ř\r\n"), Utf16BE("[S]\r\nk=v\r\n")},
        {"half a character at the end", Utf16LE("[S]") + "a", Utf16LE("[S]a\r\nk=v\r\n")},
    };
    for (const auto& [what, before, after] : cases) {
        Put(before);
        EXPECT_FALSE(Write(Path(), "S", {{"k", "v"}})) << what;
        EXPECT_EQ(Bytes(), after) << what;
        EXPECT_FALSE(Write(Path(), "S", {{"k", "v"}})) << what;
        EXPECT_EQ(Bytes(), after) << what << ", written again";
    }
}

TEST_F(ProfileFile, WrittenValueReadsBack) {
    const std::pair<QString, QString> cases[] = {
        {"Příliš žluťoučký kůň", "Příliš žluťoučký kůň"},
        {QString(), ""},
        {" a ", " a "},
        {"'a'", "'a'"},
        {"\" 'a' \"", "\" 'a' \""},
        {"\"", "\""},
        {u"\u00A0a"_qs, u"\u00A0a"_qs},
        {";[x]=y", ";[x]=y"},
        {" a\n[T]\nb=1", " a"},
        {u"a\0b"_qs, "a"},
        {"Ω 漢", "? ?"},
    };
    for (const auto& [value, read] : cases) {
        Put("[S]\r\nk=old\r\n");
        EXPECT_FALSE(Write(Path(), "S", {{"k", value}}));
        EXPECT_EQ(CProfile(Path()).GetString("S", "k", "-"), read);
        EXPECT_EQ(Bytes().count('\n'), 2) << "one line a value: " << value.toStdString();
    }
}

TEST_F(ProfileFile, NamesThatWouldBreakTheFileAreRefused) {
    const QByteArray before = "[S]\r\nk=1\r\n";
    const std::pair<QString, QString> cases[] = {{"", "k"},   {"S]", "k"}, {"S\n[T", "k"}, {"S", ""},     {"S", " "},
                                                 {"S", ";k"}, {"S", "[k"}, {"S", "a=b"},   {"S", "a\rb"}, {"S", "漢"}};
    Put(before);
    for (const auto& [section, key] : cases) {
        EXPECT_EQ(std::errc::invalid_argument, Write(Path(), section, {{"k", "2"}, {key, "v"}}));
        EXPECT_EQ(Bytes(), before);
    }
}

TEST_F(ProfileFile, FailedWriteTellsWhyAndLeavesTheFile) {
    EXPECT_EQ(std::errc::no_such_file_or_directory, Write(m_folder.filePath("none/kuvel.ini"), "S", {{"k", "v"}}));
    EXPECT_EQ(std::errc::is_a_directory, Write(m_folder.path(), "S", {{"k", "v"}}));

    // A disk that is full halfway.
    const QByteArray before = "[S]\r\nk=1\r\n;" + QByteArray(100'000, 'x');
    Put(before);
    std::error_code error;
    {
        const SmallDisk disk(50'000);
        error = Write(Path(), "S", {{"k", "2"}});
    }
    EXPECT_EQ(std::errc::file_too_large, error);
    EXPECT_EQ(Bytes(), before);
    EXPECT_EQ(QDir(m_folder.path()).entryList(QDir::Files | QDir::Hidden), QStringList("kuvel.ini"));
}
