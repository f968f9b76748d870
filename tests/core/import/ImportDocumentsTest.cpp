#include "tests/core/import/MemoryImport.h"

namespace {

using End = ImportResult::End;
using Answer = IOverwriteDoor::Answer;

TEST_F(ImportFrame, WritesLinesWithTheirPackaging) {
    AddPackagedProduct(1);
    AddPackagedProduct(2);
    Sql("UPDATE Product SET deleted = 1 WHERE prod_id = 2");
    source.lines = {{7, "D7", 1, Currency::FromWhole(25)},
                    {7, "D7", 2, Currency::FromCount(99999)},
                    {8, {}},
                    {8, "not asked"},
                    {9, "D9", 3, Currency::FromCount(15000)},
                    {7, "D7"}};
    options.products = false;
    // The last line is a document of its own: what is not consecutive is not one document, and D7 exists by then.
    EXPECT_EQ("done 1+2", Counted(Run(ExistingRecords::Keep)));
    EXPECT_EQ("1|D7|2012-05-01 00:00:00|2|1|2 2|D9|2012-05-01 00:00:00|2|1|2", AskAll("SELECT * FROM Move"));
    EXPECT_EQ("1|1|1|250000 2|1|2|99999 3|2|3|15000", AskAll("SELECT * FROM Move_Prod"));
    EXPECT_EQ(
        "1|1|5|20000|1|1|1 2|1|5|0|1|1|1",
        AskAll("SELECT mvprod_id, move_id, cover_id, mvcover_qty, cover_type, cover_org, cover_pay FROM Move_Cover"));
    // A product is used as it is; one that is missing is made and counted.
    EXPECT_EQ("1|old|0 2|old|1 3|???|0", AskAll("SELECT prod_id, prod_name, deleted FROM Product"));
}

TEST_F(ImportFrame, AnOverwrittenDocumentKeepsItsKeyAndNothingElse) {
    AddPackagedProduct(1);
    Sql("INSERT INTO Move VALUES (40, 'D1', '2011-01-01', 0, 0, 2), (41, 'D2', '2011-01-01', 0, 0, 2),"
        "(42, 'D1', '2011-01-01', 0, 0, 1), (43, 'D1', '2011-01-01', 0, 0, NULL);"
        "INSERT INTO Move_Prod SELECT move_id + 100, move_id, 1, 1 FROM Move;"
        "INSERT INTO Move_Cover SELECT move_id + 200, move_id + 100, move_id, 5, 1, 1, 1, 1 FROM Move");
    source.lines = {{1, "D1"}};
    EXPECT_EQ("done 0+1", Counted(Run(ExistingRecords::Overwrite)));
    EXPECT_EQ("40|D1|2012-05-01 00:00:00|2|1|2", AskAll("SELECT * FROM Move WHERE move_id = 40"));
    EXPECT_EQ("41|141|241 42|142|242 43|143|243 40|144|244",
              AskAll("SELECT Move.move_id, Move_Prod.mvprod_id, mvcover_id FROM Move JOIN Move_Prod USING (move_id) "
                     "JOIN Move_Cover USING (mvprod_id) ORDER BY mvcover_id"));
}

/// The documents with their lines: "D1:10,20 D2:".
const char* const Documents = "SELECT move_num || ':' || ifnull((SELECT group_concat(mvprod_qty / 10000) FROM "
                              "Move_Prod AS p WHERE p.move_id = m.move_id), '') FROM Move AS m ORDER BY move_num";

/// Two documents of three lines; the quantities are 1 to 6.
std::vector<MemoryLine> TwoDocuments() {
    std::vector<MemoryLine> lines;
    for (int i = 0; i < 6; ++i)
        lines.push_back({1 + i / 3, QStringLiteral("D%1").arg(1 + i / 3), 1, Currency::FromWhole(i + 1)});
    return lines;
}

TEST_F(ImportFrame, CancelLeavesTheDocumentThatItFallsInWhole) {
    // documents: what is there after a cancel at this row of the lines
    const std::tuple<int, const char*, const char*> cases[] = {
        {1, "", "cancelled 2+0"},
        {2, "D1:1,2,3", "cancelled 3+1"},
        {4, "D1:1,2,3", "cancelled 3+1"},
        {6, "D1:1,2,3 D2:4,5,6", "cancelled 3+2"},
    };
    source.AddProducts(2);
    for (MemoryLine& line : source.lines = TwoDocuments())
        line.product = 3;
    for (const auto& [row, documents, counted] : cases) {
        Sql("DELETE FROM Move; DELETE FROM Move_Prod; DELETE FROM Product");
        progress.asked = 0;
        progress.cancelAt = 2 + row;
        EXPECT_EQ(counted, Counted(Run(ExistingRecords::Keep))) << row;
        EXPECT_EQ(documents, AskAll(Documents)) << row;
        // What was left out comes with the next import, also with one that keeps what is there.
        progress.cancelAt = 0;
        EXPECT_EQ(End::Done, Run(ExistingRecords::Keep).end) << row;
        EXPECT_EQ("D1:1,2,3 D2:4,5,6", AskAll(Documents)) << row;
    }
}

TEST_F(ImportFrame, AnErrorLeavesTheDocumentThatItFallsInAsItWas) {
    const auto breakAt = [this](std::size_t row) {
        source.onLine = [row](std::size_t at) {
            if (at == row)
                throw ComError("line", {}, ResultCode::Fail, QStringLiteral("spadlo"));
        };
    };
    const auto refuse = [this](const char* when) {
        Sql(std::string("CREATE TRIGGER t BEFORE INSERT ON ") + when + " BEGIN SELECT raise(ABORT, 'no'); END");
    };
    // of no, and of an old, D2: counted and documents
    const std::tuple<const char*, std::function<void()>, const char*> cases[] = {
        // Quotes are not doubled, as everywhere.
        {"a quote in the number", [&] { source.lines[3].number = QStringLiteral("O'Neil"); }, "failed 1+1"},
        {"the source breaks in the first line", [&] { breakAt(3); }, "failed 1+1"},
        {"the source breaks in the last line", [&] { breakAt(5); }, "failed 1+1"},
        {"a line that cannot be written", [&] { refuse("Move_Prod WHEN new.mvprod_qty = 60000"); }, "failed 1+1"},
        {"packaging that cannot be written",
         [&] {
             AddPackagedProduct(2);
             source.lines[5].product = 2;
             refuse("Move_Cover");
         },
         "failed 1+1"},
        {"a product that cannot be made",
         [&] {
             source.lines[4].product = 7;
             source.lines[5].product = 8;
             refuse("Product WHEN new.prod_scrid = 8");
         },
         "failed 1+1"},
    };
    for (const bool hasOld : {false, true}) {
        for (const auto& [name, change, counted] : cases) {
            SCOPED_TRACE(std::string(name) + (hasOld ? ", overwriting" : ""));
            Sql("DROP TRIGGER IF EXISTS t; DELETE FROM Move; DELETE FROM Move_Prod; DELETE FROM Move_Cover;"
                "DELETE FROM Prod_Cover; DELETE FROM Prod_CoverDT; DELETE FROM Product");
            if (hasOld)
                Sql("INSERT INTO Move VALUES (40, 'D2', '2011-01-01', 0, 0, 2);"
                    "INSERT INTO Move_Prod VALUES (140, 40, 99, 90000);"
                    "INSERT INTO Move_Cover VALUES (240, 140, 40, 5, 1, 1, 1, 1)");
            source = MemorySource();
            source.lines = TwoDocuments();
            change();
            options.existing = ExistingRecords::Overwrite;
            ScriptedMessages shown;
            shown.AcceptAny();
            EXPECT_EQ(counted, Counted(RunImportCommand(Command())));
            EXPECT_EQ(hasOld ? "D1:1,2,3 D2:9" : "D1:1,2,3", AskAll(Documents));
            EXPECT_EQ(hasOld ? "140" : "", AskAll("SELECT mvprod_id FROM Move_Cover"));
            EXPECT_EQ("0", Ask("SELECT count(*) FROM Product WHERE prod_scrid > 2"));
            ASSERT_EQ(2u, shown.Shown().size());
            EXPECT_TRUE(shown.Shown()[0].text.startsWith(QStringLiteral("Došlo k chybě COM č.0x")));
            EXPECT_EQ("Během importu došlo k chybě!\n\nNaimportováno:\n   Produktů ~ 1\n   Dokladů ~ 1",
                      shown.Shown()[1].text.toStdString());
        }
    }
}

TEST_F(ImportFrame, TextsTooLongForTheirColumnAreCutAndTold) {
    const QString longName = QString(49, u'ž') + QStringLiteral("\n cdef");
    source.products = {{1, longName, QString(21, u'K'), QStringLiteral(" kg\r\n")},
                       {2, QStringLiteral("x"), Variant(), QString(11, u'j')}};
    source.lines = {{1, QString(21, u'D')}, {2, QStringLiteral("short")}};
    messages.Expect(QStringLiteral("Import dokončen úspěšně!\n\nNaimportováno:\n   Produktů ~ 2\n   Dokladů ~ 2"),
                    Message::Icon::Information);
    messages.Expect(QStringLiteral("Příliš dlouhé texty byly zkráceny: 4\n\nprodukt 1: ") + QString(49, u'ž') +
                        QStringLiteral("  cdef\nprodukt 1: ") + QString(21, u'K') + QStringLiteral("\nprodukt 2: ") +
                        QString(11, u'j') + QStringLiteral("\ndoklad: ") + QString(21, u'D'),
                    Message::Icon::Warning);
    RunImportCommand(Command());
    EXPECT_EQ((QString(49, u'ž') + u'|' + QString(20, u'K') + QStringLiteral("|kg x|null|") + QString(10, u'j'))
                  .toStdString(),
              AskAll("SELECT prod_name, prod_katalog, prod_unit FROM Product ORDER BY prod_scrid"));
    EXPECT_EQ(std::string(20, 'D') + " short", AskAll("SELECT move_num FROM Move ORDER BY move_id"));

    // The cut document is found again, and is never another one.
    EXPECT_EQ("done 0+0", Counted(Run(ExistingRecords::Keep)));
    source.lines = {{1, QString(20, u'D') + u'1'}, {2, QString(20, u'D') + u'2'}};
    messages.Expect(QStringLiteral("Došlo k chybě COM č.0x8002000A\n\nČíslo dokladu \"%1\" je příliš dlouhé a zkrácené "
                                   "by bylo stejné jako \"%2\".")
                        .arg(source.lines[1].number, source.lines[0].number),
                    Message::Icon::Error);
    EXPECT_EQ("failed 0+0", Counted(Run(ExistingRecords::Keep)));
    // Only ten are named.
    source.lines.clear();
    source.products.assign(3, {1, QString(51, u'a'), QString(21, u'b'), QString(11, u'c')});
    source.products.resize(4, {2, QString(51, u'a'), QString(21, u'b'), QString(11, u'c')});
    const QString notice = Run(ExistingRecords::Overwrite).CutNotice();
    EXPECT_TRUE(notice.startsWith(QStringLiteral("Příliš dlouhé texty byly zkráceny: 12\n\n"))) << notice.toStdString();
    EXPECT_EQ(10, notice.count(QStringLiteral("produkt")));
    EXPECT_TRUE(notice.endsWith(u'…'));
}

} // namespace
