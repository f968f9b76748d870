#include "core/base/Progress.h"
#include "core/base/SqlText.h"
#include "core/report/FigureList.h"
#include "core/report/ReportRun.h"
#include "core/report/TemplateFile.h"
#include "core/report/office/OfficeSpreadsheet.h"
#include "tests/support/ProgramFolder.h"
#include "tests/support/ScriptedDoors.h"
#include "tests/support/XlsFile.h"

#include <gtest/gtest.h>

#include <QDir>
#include <QTemporaryDir>

#include <map>

namespace {

/// Packaging of every material, type, origin and payment, home and abroad, one-way and reusable, pallets and discards.
/// Each row has its own weight.
constexpr const char* Company =
    "CREATE TEMP TABLE n AS WITH RECURSIVE n(i) AS (VALUES (0) UNION ALL SELECT i + 1 FROM n WHERE i < 29) SELECT i "
    "FROM n;"
    "INSERT INTO Cover (cover_mat, cover_type, cover_weight, cover_reusable, cover_stat) "
    "SELECT m.i, t.i, 10000 * (1 + m.i) + 1111 * t.i + r.i, r.i, m.i %% 4 FROM n m, n t, n r WHERE t.i < 4 AND r.i < 2;"
    "INSERT INTO Move (move_id, move_date, move_export) VALUES (1, '%s', 0), (2, '%s', 1);"
    "INSERT INTO Move_Cover (move_id, cover_id, mvcover_qty, cover_type, cover_org, cover_pay) "
    "SELECT 1 + e.i, cover_id, 1000000 * (1 + cover_id) + o.i, cover_type, o.i, p.i FROM Cover, n o, n p, n e "
    "WHERE o.i < 3 AND p.i < 3 AND e.i < 2;"
    "INSERT INTO CoverDiscard (cover_id, disc_date, disc_qty, disc_type) "
    "SELECT cover_id, '%s', 70000 * cover_id, d.i FROM Cover, n d WHERE d.i < 3";

/// Whether one of the workbook's formats of cells shrinks its text to fit.
bool HasShrinkingFormat(const QByteArray& workbook) {
    const QByteArray head("\xE0\x00\x14\x00", 4);
    for (qsizetype at = workbook.indexOf(head); at >= 0; at = workbook.indexOf(head, at + 1))
        if ((workbook[at + head.size() + 8] & 0x10) != 0)
            return true;
    return false;
}

bool Same(const CXlsFile::CCell& a, const CXlsFile::CCell& b) {
    return a.kind == b.kind && a.text == b.text && a.number == b.number;
}

struct FormCase {
    Period period;
    const char *version, *day;
    int figures;
};

void ExpectWholeReport(const FormCase& form) {
    StoreFolder folder;
    folder.folder.AddTemplates();
    const QTemporaryDir cache; // of the office
    qputenv("XDG_CACHE_HOME", cache.path().toLocal8Bit());
    folder.Sql(FormatText(Company, {form.day, form.day, form.day}));
    ScriptedMessages messages;
    const ReportRequest request{
        form.period,
        false,
        {"Jiří Dvořák", "CZ00123456", "00123456", "", "1/2", "=1+1", "obaly@example.cz", "'Žďár", "007", "a@b.cz"}};
    const QString path = RunReport(folder.store, SilentProgress(), LibreOfficeFactory(), request);
    ASSERT_FALSE(path.isEmpty());
    // Amounts have a comma in an office of any language, and a long name shrinks in its cell.
    const QByteArray bytes = FileBytes(path);
    EXPECT_TRUE(bytes.contains("[$-405]#,##0.0000"));
    EXPECT_TRUE(HasShrinkingFormat(bytes));
    EXPECT_EQ(1, QDir(ReportFolder()).entryList(QDir::AllEntries | QDir::Hidden | QDir::NoDotAndDotDot).size());

    const std::vector<FigureCell> list = ListFigures(folder.store, *SilentProgress().Open({}, false), form.period.year,
                                                     form.period.quarter, QString::fromUtf8(form.version));
    EXPECT_EQ(form.figures, static_cast<int>(list.size()));
    std::map<std::pair<std::string, std::string>, double> figures;
    for (const FigureCell& cell : list)
        figures[{cell.sheet.toStdString(), cell.cell.toStdString()}] = static_cast<double>(cell.tonnes.count) / 10000;

    const CXlsFile report(path.toStdString());
    const CXlsFile before(FindTemplate(form.period).toStdString());
    ASSERT_EQ(before.SheetNames(), report.SheetNames());
    for (const std::string& sheet : report.SheetNames()) {
        if (sheet == "Úvod")
            continue;
        for (int row = 1; row <= 60; ++row) {
            for (char column = 'A'; column <= 'Z'; ++column) {
                const std::string address = column + std::to_string(row);
                const CXlsFile::CCell cell = report.Cell(sheet, address);
                const auto figure = figures.find({sheet, address});
                if (figure == figures.end()) {
                    EXPECT_TRUE(Same(before.Cell(sheet, address), cell)) << sheet << ' ' << address;
                } else {
                    EXPECT_EQ(CXlsFile::CCell::EKind::Number, cell.kind) << sheet << ' ' << address;
                    EXPECT_EQ(figure->second, cell.number) << sheet << ' ' << address;
                    figures.erase(figure);
                }
            }
        }
    }
    EXPECT_TRUE(figures.empty()) << figures.begin()->first.first << ' ' << figures.begin()->first.second;
    EXPECT_EQ("=1+1", report.Text("Úvod", "D7"));
    EXPECT_EQ("'Žďár", report.Text("Úvod", "D9"));
    EXPECT_EQ("opravný", report.Text("Úvod", "D5"));
    EXPECT_EQ(form.period.quarter, report.Cell("Úvod", "D4").number);
}

TEST(WholeReport, OfTheOldFormHoldsItsFiguresAndTheRestOfItsTemplate) {
    ExpectWholeReport({{2003, 2}, "1.4", "2003-06-30", 1879});
}

TEST(WholeReport, OfTheNewFormHoldsItsFiguresAndTheRestOfItsTemplate) {
    ExpectWholeReport({{2012, 3}, "2.19", "2012-07-01", 2446});
}

} // namespace
