#include "report/TemplateFile.h"

#include "store/AppDir.h"
#include "tests/support/ProgramFolder.h"

#include <gtest/gtest.h>

#include <QDir>
#include <QFile>

#include <sys/resource.h>

#include <csignal>

namespace {

struct SearchCase {
    Period period;
    QStringList present;
    const char* found;
};

class TemplateSearch : public testing::TestWithParam<SearchCase> {};

TEST_P(TemplateSearch, TakesTheFirst) {
    ProgramFolder folder;
    for (const QString& name : GetParam().present)
        WriteFile(folder.Path() + name, "x");
    const QString found = FindTemplate(GetParam().period);
    EXPECT_EQ(GetParam().found, found.mid(found.isEmpty() ? 0 : folder.Path().size()).toStdString());
}

INSTANTIATE_TEST_SUITE_P(
    Report, TemplateSearch,
    testing::Values(SearchCase{{2011, 3}, {"vykaz2011.tpl", "vykaz2011_1.tpl"}, "vykaz2011_1.tpl"},
                    SearchCase{{2011, 3}, {"vykaz2011_1.tpl", "vykaz2011_2.tpl"}, "vykaz2011_2.tpl"},
                    SearchCase{{2011, 3}, {"vykaz2011_2.tpl", "vykaz2011_3.tpl"}, "vykaz2011_3.tpl"},
                    SearchCase{{2011, 3}, {"vykaz2011_4.tpl", "vykaz2011.tpl"}, "vykaz2011.tpl"},
                    SearchCase{{2011, 3}, {"vykaz2011_4.tpl", "vykaz2010.tpl"}, ""},
                    SearchCase{{2009, 4}, {"vykaz2009_1.tpl", "vykaz2009.tpl"}, "vykaz2009_1.tpl"},
                    SearchCase{{2008, 3}, {"vykaz2008_1.tpl"}, ""},
                    SearchCase{{2008, 3}, {"vykaz2008_2.tpl", "vykaz2008.tpl"}, "vykaz2008.tpl"},
                    SearchCase{{2008, 3}, {"vykaz2008_3.tpl", "vykaz2008.tpl"}, "vykaz2008_3.tpl"}));

struct NameCase {
    QStringList present; // after "ctvrtletni_vykaz_o_produkci_obalu"
    const char* next;
};

class OutputNames : public testing::TestWithParam<NameCase> {};

TEST_P(OutputNames, TakeTheFirstFreeNumberOfTheDay) {
    ProgramFolder folder;
    QDir().mkpath(ReportFolder());
    const QString stem = ReportFolder() + QStringLiteral("/ctvrtletni_vykaz_o_produkci_obalu");
    for (const QString& name : GetParam().present)
        WriteFile(stem + name, "x");
    const OutputName name = NextOutputName(DateTime::FromDay(2012, 11, 6));
    EXPECT_TRUE(name.isFree);
    EXPECT_EQ(stem.toStdString() + GetParam().next, name.path.toStdString());
}

INSTANTIATE_TEST_SUITE_P(Report, OutputNames,
                         testing::Values(NameCase{{}, "110601.XLS"}, NameCase{{"110601.XLS"}, "110602.XLS"},
                                         NameCase{{"110601.bak"}, "110602.XLS"}, NameCase{{"110601"}, "110602.XLS"},
                                         NameCase{{"110601.xls", "110602.XLS.tmp"}, "110603.XLS"},
                                         NameCase{{"110602.XLS"}, "110601.XLS"},
                                         NameCase{{"110701.XLS", "1106011.XLS"}, "110601.XLS"}));

TEST(OutputNames, ALinkToNowhereTakesItsNumber) {
    ProgramFolder folder;
    QDir().mkpath(ReportFolder());
    ASSERT_TRUE(QFile::link(folder.File("gone"),
                            ReportFolder() + QStringLiteral("/ctvrtletni_vykaz_o_produkci_obalu110601.XLS")));
    EXPECT_TRUE(NextOutputName(DateTime::FromDay(2012, 11, 6)).path.endsWith(QStringLiteral("110602.XLS")));
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

/// While it lives, no file of this process grows past `bytes`, as on a disk that is nearly full.
class SmallDisk {
public:
    explicit SmallDisk(rlim_t bytes) : m_handler(std::signal(SIGXFSZ, SIG_IGN)) {
        getrlimit(RLIMIT_FSIZE, &m_before);
        const rlimit small{bytes, m_before.rlim_max};
        setrlimit(RLIMIT_FSIZE, &small);
    }
    ~SmallDisk() {
        setrlimit(RLIMIT_FSIZE, &m_before);
        std::signal(SIGXFSZ, m_handler);
    }

private:
    rlimit m_before{};
    void (*m_handler)(int);
};

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
