#include "core/base/Shared.h"
#include "core/base/AppDir.h"
#include "tests/support/ProgramFolder.h"
#include "tests/support/ScriptedDoors.h"

#include <gtest/gtest.h>

#include <QDir>
#include <QFile>
#include <QTemporaryDir>

#include <cstdlib>

TEST(SplitList, OnlyThePieceAfterTheLastSeparatorIsUpperCased) {
    const std::pair<QString, QStringList> cases[] = {
        {"", {}},
        {";", {""}},
        {"CZ;", {"CZ"}},
        {"cz ; sk;", {"cz", "sk"}},
        {"cz ; sk", {"cz", "SK"}},
        {";Česká republika ;čr", {"", "Česká republika", "ČR"}},
        {"a;;b", {"a", "", "B"}},
    };
    for (const auto& [text, expected] : cases) {
        QStringList pieces{"before"};
        SplitList(text, u';', pieces);
        EXPECT_EQ(pieces, QStringList("before") + expected) << text.toStdString();
    }
}

TEST(UpperCzech, FoldsTheLettersOfTheCodePage) {
    EXPECT_EQ(UpperCzech("áčďéěíňóřšťúůýž ľĺŕôäöüł"), "ÁČĎÉĚÍŇÓŘŠŤÚŮÝŽ ĽĹŔÔÄÖÜŁ");
    EXPECT_EQ(UpperCzech(u"Straße 5 \u00B5m"_qs), u"STRAßE 5 \u00B5M"_qs);
}

namespace {
class SharedFolders : public testing::Test {
protected:
    QString In(const QString& name) const { return m_folder.filePath(name); }
    void Put(const QString& name, const QByteArray& bytes) const { WriteFile(In(name), bytes); }
    QTemporaryDir m_folder;
};
} // namespace

TEST_F(SharedFolders, ExistsWhateverBlanksAndSeparatorsEndThePath) {
    Put("file", {});
    const QString here = m_folder.path();
    for (const QString& path : {here, here + "//  / ", QString("/"), QString(".")})
        EXPECT_TRUE(DirectoryExists(path)) << path.toStdString();
    for (const QString& path : {QString(), QString(" "), In("none"), In("file")})
        EXPECT_FALSE(DirectoryExists(path)) << path.toStdString();
}

TEST_F(SharedFolders, PathIsMadeStepByStep) {
    EXPECT_TRUE(CreateDirectoryPath(In("a/b//c/ ")));
    EXPECT_TRUE(QDir(In("a/b/c")).exists());
    EXPECT_TRUE(CreateDirectoryPath(In("a/b/c")));

    Put("a/file", {});
    EXPECT_FALSE(CreateDirectoryPath(In("a/file/d")));
    EXPECT_FALSE(CreateDirectoryPath(In("a/file")));

    const QString before = QDir::currentPath();
    ASSERT_TRUE(QDir::setCurrent(m_folder.path()));
    EXPECT_TRUE(CreateDirectoryPath("Vykazy"));
    EXPECT_TRUE(QDir(In("Vykazy")).exists());
    EXPECT_FALSE(CreateDirectoryPath("a/file/d"));
    QDir::setCurrent(before);
}

TEST_F(SharedFolders, ProgramFolderIsAbsoluteAndEndsInOneSeparator) {
    const QString saved = g_strAppDir;
    for (const QString& folder : {m_folder.path(), m_folder.path() + "/", m_folder.path() + "//"}) {
        SetAppDir(folder);
        EXPECT_EQ(g_strAppDir, m_folder.path() + "/");
    }
    EXPECT_EQ(SettingsPath(), In("kuvel.ini"));
    SetAppDir("/");
    EXPECT_EQ(g_strAppDir, "/");
    SetAppDir("data");
    EXPECT_EQ(g_strAppDir, QDir::currentPath() + "/data/");
    g_strAppDir = saved;
}

TEST_F(SharedFolders, ProgramFolderIsTheExecutablesUnlessTheEnvironmentNamesOne) {
    const QByteArray saved = qgetenv("KUVEL_HOME");
    qputenv("KUVEL_HOME", QFile::encodeName(m_folder.path()));
    EXPECT_EQ(DefaultAppDir(), m_folder.path());
    qputenv("KUVEL_HOME", "");
    EXPECT_TRUE(QDir(DefaultAppDir()).exists(QString::fromLocal8Bit(program_invocation_short_name)));
    saved.isNull() ? qunsetenv("KUVEL_HOME") : qputenv("KUVEL_HOME", saved);
}

TEST_F(SharedFolders, LibraryThatCannotRegisterItselfIsNamedWithItsFault) {
    const QString saved = g_strAppDir;
    SetAppDir(m_folder.path());
    Put("broken.dll", "no library");
    const std::pair<QString, QString> cases[] = {
        {"mon2kdbe.dll", "File doesn't exist!\nmon2kdbe.dll"},
        {"", "File doesn't exist!\n"},
        {"broken.dll", "Cannot load librarybroken.dll"},
        {In("broken.dll"), "Cannot load library" + In("broken.dll")},
        {"libm.so.6", "Function DllRegisterServer not found in libm.so.6"},
    };
    for (const auto& [file, message] : cases) {
        ScriptedMessages messages;
        messages.Expect(message, Message::Icon::Error);
        EXPECT_FALSE(RegisterServerDll(file)) << file.toStdString();
    }
    g_strAppDir = saved;
}

TEST_F(SharedFolders, LibraryOfTheProgramFolderRegistersItself) {
    Put("lib.c", "#include <stdio.h>\nint DllRegisterServer(void) { fclose(fopen(MARK, \"w\")); return 0; }\n");
    const QString build =
        QString("cc -shared -fPIC -DMARK='\"%1\"' -o '%2' '%3'").arg(In("called"), In("mon2kdbe.dll"), In("lib.c"));
    if (std::system(QFile::encodeName(build).constData()) != 0) {
        GTEST_SKIP() << "no C compiler at hand";
    }
    const QString saved = g_strAppDir;
    SetAppDir(m_folder.path());
    const ScriptedMessages none;
    EXPECT_TRUE(RegisterServerDll("mon2kdbe.dll"));
    g_strAppDir = saved;
    EXPECT_TRUE(QFile::exists(In("called")));
}

TEST(ProgramVersion, HasThreeNumbers) {
    EXPECT_EQ(FormatVersion(), QString(KUVEL_VERSION));
}
