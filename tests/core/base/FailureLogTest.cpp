#include "core/base/FailureLog.h"
#include "core/base/ComError.h"
#include "tests/support/ChildProcess.h"
#include "tests/support/ProgramFolder.h"

#include <gtest/gtest.h>

#include <QRegularExpression>

#include <cstdlib>

TEST(FailureLog, HidesEachLiteral) {
    const std::pair<const char*, const char*> rows[] = {
        {"", ""},
        {"SELECT a1 FROM Cover2", "SELECT a1 FROM Cover2"},
        {"x='Láhev' AND y=\"a'b\"", "x=? AND y=?"},
        {"x='a''b',1", "x=??,?"},
        {"x='never closed 5", "x=?"},
        {"x='", "x=?"},
        {"d>=#1/2/2012# AND n=-5.25 OR n IN (1,2)", "d>=? AND n=-? OR n IN (?,?)"},
        {"VALUES (1.5e3,?1)", "VALUES (?,?1)"},
        {"/home/2012/Vykazy/vykaz2012_2.xls", "/home/2012/Vykazy/vykaz2012_2.xls"},
    };
    for (const auto& [text, masked] : rows)
        EXPECT_EQ(masked, WithoutLiterals(text)) << text;
}

TEST(FailureLog, NamesOperationAndStatementButNoContent) {
    const char* const statement = "UPDATE cover SET cover_name='Tajná láhev', cover_weight=12345 WHERE nothing=67890";
    for (const bool asked : {true, false}) {
        const StoreFolder folder;
        const QString path = folder.folder.File("failures.log");
        EXPECT_EQ("raised", InChild([&]() -> std::string {
                      asked ? setenv("KUVEL_LOG", qUtf8Printable(path), 1) : unsetenv("KUVEL_LOG");
                      StartFailureLog();
                      CDataStore store;
                      store.OpenDatabase();
                      try {
                          store.ExecuteSQL(statement);
                      } catch (const ComError& error) {
                          return error.Text() == statement ? "raised" : error.Text();
                      }
                      return "not raised";
                  }));
        const QString log = asked ? QString::fromUtf8(FileBytes(path)) : QString();
        EXPECT_EQ(asked, QFile::exists(path));
        EXPECT_EQ(asked, log.contains("UPDATE cover SET cover_name=?, cover_weight=? WHERE nothing=?\n"))
            << log.toStdString();
        EXPECT_FALSE(log.contains(QRegularExpression("Tajná|12345|67890"))) << log.toStdString();
    }
}
