#include "core/report/TemplateFile.h"

#include "core/base/AppDir.h"
#include "tests/support/ProgramFolder.h"

#include <gtest/gtest.h>

#include <QDir>
#include <QFile>

namespace {

TEST(TemplateSearch, TakesTheFirst) {
    const std::tuple<Period, QStringList, const char*> cases[] = {
        {{2011, 3}, {"vykaz2011.tpl", "vykaz2011_1.tpl"}, "vykaz2011_1.tpl"},
        {{2011, 3}, {"vykaz2011_1.tpl", "vykaz2011_2.tpl"}, "vykaz2011_2.tpl"},
        {{2011, 3}, {"vykaz2011_2.tpl", "vykaz2011_3.tpl"}, "vykaz2011_3.tpl"},
        {{2011, 3}, {"vykaz2011_4.tpl", "vykaz2011.tpl"}, "vykaz2011.tpl"},
        {{2011, 3}, {"vykaz2011_4.tpl", "vykaz2010.tpl"}, ""},
        {{2009, 4}, {"vykaz2009_1.tpl", "vykaz2009.tpl"}, "vykaz2009_1.tpl"},
        {{2008, 3}, {"vykaz2008_2.tpl", "vykaz2008.tpl"}, "vykaz2008.tpl"},
        {{2008, 3}, {"vykaz2008_3.tpl", "vykaz2008.tpl"}, "vykaz2008_3.tpl"},
    };
    for (const auto& [period, present, found] : cases) {
        ProgramFolder folder;
        for (const QString& name : present)
            WriteFile(folder.Path() + name, "x");
        EXPECT_EQ(*found != '\0' ? folder.File(found) : QString(), FindTemplate(period)) << present[0].toStdString();
    }
}

TEST(OutputNames, TakeTheFirstFreeNumberOfTheDay) {
    // present: after "ctvrtletni_vykaz_o_produkci_obalu"
    const std::pair<QStringList, const char*> cases[] = {
        {{}, "110601.XLS"},
        {{"110601"}, "110602.XLS"},
        {{"110601.xls", "110602.XLS.tmp"}, "110603.XLS"},
        {{"110602.XLS"}, "110601.XLS"},
        {{"110701.XLS", "1106011.XLS"}, "110601.XLS"},
    };
    for (const auto& [present, next] : cases) {
        ProgramFolder folder;
        QDir().mkpath(ReportFolder());
        const QString stem = ReportFolder() + "/ctvrtletni_vykaz_o_produkci_obalu";
        for (const QString& name : present)
            WriteFile(stem + name, "x");
        const OutputName name = NextOutputName(DateTime::FromDay(2012, 11, 6));
        EXPECT_TRUE(name.isFree);
        EXPECT_EQ(stem + next, name.path);
    }
}

TEST(OutputNames, ALinkToNowhereTakesItsNumber) {
    ProgramFolder folder;
    QDir().mkpath(ReportFolder());
    QFile::link(folder.File("gone"), ReportFolder() + "/ctvrtletni_vykaz_o_produkci_obalu110601.XLS");
    EXPECT_TRUE(NextOutputName(DateTime::FromDay(2012, 11, 6)).path.endsWith("110602.XLS"));
}

TEST(CopyToNewFile, KeepsWhatIsThere) {
    ProgramFolder folder;
    WriteFile(folder.File("a"), "new");
    WriteFile(folder.File("b"), "old");
    EXPECT_FALSE(CopyToNewFile(folder.File("a"), folder.File("b")));
    EXPECT_EQ("old", FileBytes(folder.File("b")));
    EXPECT_TRUE(CopyToNewFile(folder.File("a"), folder.File("c")));
    EXPECT_EQ("new", FileBytes(folder.File("c")));
}

TEST(CopyToNewFile, LeavesNoPartOnAFullDisk) {
    ProgramFolder folder;
    WriteFile(folder.File("a"), QByteArray(100000, 'x'));
    {
        const SmallDisk disk(5000);
        EXPECT_FALSE(CopyToNewFile(folder.File("a"), folder.File("b")));
    }
    EXPECT_FALSE(QFile::exists(folder.File("b")));
}

} // namespace
