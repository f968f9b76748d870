#include "ctl/sample/SampleCompany.h"
#include "core/base/Progress.h"
#include "core/report/FigureList.h"
#include "core/rules/BulkRecompute.h"
#include "tests/core/report/SecondWay.h"
#include "tests/support/ProgramFolder.h"

#include <gtest/gtest.h>

#include <QFile>

namespace {

struct Company : StoreFolder {
    Company() { FillSampleCompany(store); }
    std::string Path() const { return QFile::encodeName(folder.File("Kuvel.mdb")).toStdString(); }
};

TEST(SampleCompany, HasEveryKindOfRecord) {
    const std::pair<const char*, const char*> rows[] = {
        {"SELECT count(*) FROM Move_Prod", "9000"},
        {"SELECT count(DISTINCT strftime('%Y', move_date) || move_type) FROM Move", "16"},
        {"SELECT count(*) > 200 FROM Move WHERE move_export = 1", "1"},
        {"SELECT count(DISTINCT disc_type || strftime('%Y', disc_date)) FROM CoverDiscard", "12"},
        {"SELECT count(*) > 10 FROM Move_Cover JOIN Cover USING (cover_id) WHERE deleted = 1", "1"},
        {"SELECT count(*) > 10 FROM Move_Cover JOIN Move_Prod USING (mvprod_id) JOIN Product USING (prod_id) WHERE "
         "deleted = 1",
         "1"},
        // What the dialogs would let a user enter.
        {"SELECT max(length(cover_name)) <= 50 AND count(DISTINCT cover_name) = count(*) FROM Cover", "1"},
        {"SELECT max(length(prod_name)) <= 50 AND count(DISTINCT prod_name) = count(*) FROM Product", "1"},
        {"SELECT count(DISTINCT move_num) = count(*) FROM Move", "1"},
    };
    const Company company;
    for (const auto& [sql, expected] : rows)
        EXPECT_EQ(expected, company.Ask(sql)) << sql;
}

TEST(SampleCompany, IsTheSameEachTime) {
    std::string before;
    for (int i = 0; i < 2; ++i) {
        const Company company;
        std::string contents;
        for (const char* table : {"Cover", "CompCover", "CompCover_Item", "Product", "Prod_CoverDT", "Prod_Cover",
                                  "Move", "Move_Prod", "Move_Cover", "CoverDiscard", "sqlite_sequence"})
            contents += company.AskAll((std::string("SELECT * FROM ") + table + " ORDER BY rowid").c_str());
        EXPECT_LT(1'000'000u, contents.size());
        EXPECT_TRUE(i == 0 || contents == before);
        before = contents;
    }
}

TEST(SampleCompany, HasThePackagingOfItsDefinitions) {
    Company company;
    const auto compare = [&](const char* when) {
        const CSecondWay second(company.Path());
        const CSecondWay::Packaging expected = second.PackagingByDefinition();
        EXPECT_LT(25000u, expected.size());
        EXPECT_TRUE(expected == second.PackagingStored()) << when;
    };
    compare("as built");
    std::int64_t lines = 0;
    EXPECT_EQ(BulkResult::Done, RecomputeAllIssues(company.store, SilentProgress(), lines));
    EXPECT_EQ(9000, lines);
    compare("recomputed");
}

TEST(SampleCompany, HasItsFiguresBySecondWay) {
    const std::tuple<int, int, long long, long long, const char*, std::size_t> cases[] = {
        {2012, 2, 20120401, 20120630, "2.19", 180},
        {2012, 2, 20120401, 20120630, "1.4", 170},
        {2010, 4, 20101001, 20101231, "2.0", 130}};
    Company company;
    const CSecondWay second(company.Path());
    const std::unique_ptr<IProgress> progress = SilentProgress().Open({}, false);
    for (const auto& [year, quarter, from, to, version, cells] : cases) {
        SCOPED_TRACE(std::to_string(year) + "/" + std::to_string(quarter) + " " + version);
        std::map<std::string, long long> listed;
        for (const FigureCell& figure :
             ListFigures(company.store, *progress, year, quarter, QString::fromLatin1(version)))
            listed[(figure.sheet + u',' + figure.cell).toStdString()] = figure.tonnes.count;
        EXPECT_EQ(second.Figures(from, to, *version == '2'), listed);
        EXPECT_LE(cells, listed.size());
    }
}

} // namespace
