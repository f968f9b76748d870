#include "store/Shared.h"
#include "store/AppDir.h"
#include "store/Messages.h"

#include <gtest/gtest.h>

#include <QDir>
#include <QFile>
#include <QTemporaryDir>

#include <cstdlib>
#include <vector>

TEST(SplitList, OnlyThePieceAfterTheLastSeparatorIsUpperCased) {
    const struct {
        QString text;
        QStringList pieces;
    } cases[] = {
        {"", {}},
        {";", {""}},
        {"CZ;", {"CZ"}},
        {" cz ", {"CZ"}},
        {"cz ; sk;", {"cz", "sk"}},
        {"cz ; sk", {"cz", "SK"}},
        {";Česká republika ;čr", {"", "Česká republika", "ČR"}},
        {"a;;b", {"a", "", "B"}},
        {"a; ", {"a", ""}},
        {"\t\r\n", {""}},
    };
    for (const auto& c : cases) {
        QStringList pieces{"before"};
        SplitList(c.text, u';', pieces);
        EXPECT_EQ(pieces, QStringList("before") + c.pieces) << c.text.toStdString();
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
    void Put(const QString& name, const QByteArray& bytes) const {
        QFile file(In(name));
        ASSERT_TRUE(file.open(QIODevice::WriteOnly) && file.write(bytes) == bytes.size());
    }
    QTemporaryDir m_folder;
};
} // namespace

TEST_F(SharedFolders, ExistsWhateverBlanksAndSeparatorsEndThePath) {
    Put("file", {});
    const QString here = m_folder.path();
    const struct {
        QString path;
        bool exists;
    } cases[] = {{here, true},        {here + "/", true}, {here + "//  / ", true},
                 {"/", true},         {" ", false},       {In("none"), false},
                 {In("file"), false}, {"", false},        {".", true}};
    for (const auto& c : cases) {
        EXPECT_EQ(DirectoryExists(c.path), c.exists) << c.path.toStdString();
    }
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

namespace {
class RecordingDoor : public IMessageDoor {
public:
    Message::Answer Show(const Message& message) override {
        shown.push_back(message);
        return Message::Answer::Ok;
    }
    std::vector<Message> shown;
};
} // namespace

TEST_F(SharedFolders, LibraryThatCannotRegisterItselfIsNamedWithItsFault) {
    const QString saved = g_strAppDir;
    SetAppDir(m_folder.path());
    Put("broken.dll", "no library");
    ASSERT_TRUE(QDir(m_folder.path()).mkdir("folder.dll"));
    const struct {
        QString file;
        QString message;
    } cases[] = {
        {"mon2kdbe.dll", "File doesn't exist!\nmon2kdbe.dll"},
        {"folder.dll", "File doesn't exist!\nfolder.dll"},
        {"", "File doesn't exist!\n"},
        {"broken.dll", "Cannot load librarybroken.dll"},
        {In("broken.dll"), "Cannot load library" + In("broken.dll")},
        {"libm.so.6", "Function DllRegisterServer not found in libm.so.6"},
    };
    for (const auto& c : cases) {
        RecordingDoor door;
        IMessageDoor* before = SetMessageDoor(&door);
        EXPECT_FALSE(RegisterServerDll(c.file)) << c.file.toStdString();
        SetMessageDoor(before);
        ASSERT_EQ(door.shown.size(), 1U) << c.file.toStdString();
        EXPECT_EQ(door.shown[0].text, c.message);
        EXPECT_EQ(door.shown[0].icon, Message::Icon::Error);
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
    RecordingDoor door;
    IMessageDoor* before = SetMessageDoor(&door);
    EXPECT_TRUE(RegisterServerDll("mon2kdbe.dll"));
    SetMessageDoor(before);
    g_strAppDir = saved;
    EXPECT_TRUE(door.shown.empty());
    EXPECT_TRUE(QFile::exists(In("called")));
}

TEST(ProgramVersion, HasThreeNumbers) {
    EXPECT_EQ(FormatVersion(), QString(KUVEL_VERSION));
}
