#include "tests/core/import/MemoryImport.h"

namespace {

using End = ImportResult::End;
using Answer = IOverwriteDoor::Answer;

TEST_F(ImportFrame, PacesTheProgressWindow) {
    const std::tuple<int, std::vector<QString>, std::size_t> cases[] = {
        {1, {"phase Produkty", "position 0", "detail 1 z 1", "position 200"}, 6},
        {3, {"detail 1 z 3", "position 66", "detail 2 z 3", "position 133", "detail 3 z 3", "position 200"}, 10},
        {150, {"detail 1 z 150", "position 1", "detail 150 z 150", "position 200"}, 304},
        {199, {"detail 199 z 199", "position 200"}, 402},
        {399, {"detail 399 z 399", "position 200"}, 802},
        {1000, {"detail 1 z 1000", "position 0", "detail 6 z 1000", "position 1", "detail 996 z 1000"}, 404},
    };
    for (const auto& [rows, some, lines] : cases) {
        progress.lines.clear();
        source.products.clear();
        source.AddProducts(rows);
        options.documents = false;
        EXPECT_EQ(End::Done, Run(ExistingRecords::Overwrite).end);
        ASSERT_GE(progress.lines.size(), 2u);
        EXPECT_EQ("title Import (cancel)", progress.lines[0].toStdString());
        EXPECT_EQ("range 0 200", progress.lines[1].toStdString());
        EXPECT_EQ("closed", progress.lines.back().toStdString());
        EXPECT_EQ(lines + 1, progress.lines.size()) << rows;
        auto from = progress.lines.begin();
        for (const QString& line : some) {
            from = std::find(from, progress.lines.end(), line);
            EXPECT_NE(progress.lines.end(), from) << rows << " " << line.toStdString();
        }
    }
}

TEST_F(ImportFrame, WhatIsNotThereEndsThePhaseOrTheImport) {
    const std::tuple<const char*, std::function<void()>, const char*, const char*> cases[] = {
        {"nothing chosen", [&] { options.products = options.documents = false; }, "nothing 0+0", ""},
        {"no connection", [&] { source.connects = false; }, "nothing 0+0", ""},
        {"no products to open", [&] { source.hasProducts = false; }, "nothing 0+0", ""},
        {"no documents to open", [&] { source.hasLines = false; }, "done 0+0", ""},
        {"empty", [] {}, "done 0+0", "Importuji skladové pohyby"},
        {"empty, shown", [&] { source.showsEmpty = true; }, "done 0+0", "Produkty Importuji skladové pohyby"},
        {"only products", [&] { source.showsEmpty = true, options.documents = false; }, "done 0+0", "Produkty"},
        {"only documents", [&] { source.hasProducts = false, options.products = false; }, "done 0+0",
         "Importuji skladové pohyby"},
    };
    for (const auto& [name, change, counted, phases] : cases) {
        source = MemorySource();
        options = ImportOptions();
        progress.lines.clear();
        change();
        EXPECT_EQ(counted, Counted(Run())) << name;
        QStringList shown;
        for (const QString& line : progress.lines)
            if (line.startsWith(QStringLiteral("phase ")))
                shown.append(line.mid(6));
        EXPECT_EQ(phases, shown.join(u' ').toStdString()) << name;
    }
}

TEST_F(ImportFrame, DecidesAboutEachProductOfAnEarlierImport) {
    // expected: of an existing, a deleted, a new and another existing product
    const std::tuple<ExistingRecords, std::vector<Answer>, const char*, std::size_t> cases[] = {
        {ExistingRecords::Overwrite, {}, "P1 P2 P3 P4", 0},
        {ExistingRecords::Keep, {}, "old P2 P3 old", 0},
        {ExistingRecords::Ask, {Answer::Yes, Answer::No}, "P1 P2 P3 old", 2},
        {ExistingRecords::Ask, {Answer::No, Answer::Yes}, "old P2 P3 P4", 2},
        {ExistingRecords::Ask, {Answer::YesToAll}, "P1 P2 P3 P4", 1},
        {ExistingRecords::Ask, {Answer::NoToAll}, "old P2 P3 old", 1},
    };
    source.AddProducts(4);
    for (const auto& [policy, answers, expected, questions] : cases) {
        Sql("DELETE FROM Product; INSERT INTO Product VALUES (1, 'old', 'o', 'o', 2, 1, 0),"
            "(2, 'old', 'o', 'o', 2, 2, 1), (4, 'old', 'o', 'o', 2, 4, 0),"
            // The same number of another source, and one made by hand, are other products.
            "(8, 'other', 'o', 'o', 1, 1, 0), (9, 'hand', 'o', 'o', NULL, NULL, 0)");
        door.answers = answers;
        door.questions.clear();
        const ImportResult result = Run(policy);
        std::string written = AskAll("SELECT prod_name FROM Product WHERE prod_source = 2 ORDER BY prod_scrid");
        EXPECT_EQ(expected, written);
        EXPECT_EQ(std::count(written.begin(), written.end(), 'P'), result.counts.products);
        EXPECT_EQ(questions, door.questions.size());
        EXPECT_EQ("0", Ask("SELECT sum(deleted) FROM Product"));
        EXPECT_EQ("other hand", AskAll("SELECT prod_name FROM Product WHERE prod_id > 4 AND prod_source IS NOT 2"));
    }
    EXPECT_EQ("Produkt \"P1, kat.č. K\" byl již z WAK importován. Přejete si jej aktualizovat?",
              door.questions.front().toStdString());
}

TEST_F(ImportFrame, AnAnswerToAllHoldsForItsPhaseOnly) {
    source.AddProducts(3);
    source.lines = {{1, "D1"}, {2, "D2"}};
    EXPECT_EQ("done 3+2", Counted(Run()));
    door.answers = {Answer::YesToAll, Answer::NoToAll};
    EXPECT_EQ("done 3+0", Counted(Run(ExistingRecords::Ask)));
    ASSERT_EQ(2u, door.questions.size());
    EXPECT_EQ("Doklad \"D1\" byl již z Money importován. Přejete si jej aktualizovat?",
              door.questions.back().toStdString());
    EXPECT_EQ(ExistingRecords::Ask, options.existing);
}

TEST_F(ImportFrame, AQuestionShowsWhatIsThereAndWhatWouldBe) {
    Sql("INSERT INTO Product VALUES (1, 'old', NULL, 'kg', 2, 1, 0);"
        "INSERT INTO Move VALUES (40, 'D1', '2011-01-31', 0, 0, 2);"
        "INSERT INTO Move_Prod VALUES (NULL, 40, 1, 1), (NULL, 40, 1, 1)");
    source.products = {{1, QString(60, u'n'), QStringLiteral("K"), QStringLiteral(" kg ")}};
    source.lines = {{1, "D1"}};
    door.answers = {Answer::Yes, Answer::No};
    door.onAsk = [&] {
        EXPECT_EQ(door.questions.size() == 1
                      ? "Název: old > " + std::string(50, 'n') + "\nKatalogové číslo:  > K\nMěrná jednotka: kg > kg\n"
                      : "Datum: 31.01.2011 > 01.05.2012\nTyp: dodací list > prodejka\nVývoz: ne > ano\n"
                        "Počet položek: 2 > nahradí se\n",
                  door.values.toStdString());
    };
    EXPECT_EQ("done 1+0", Counted(Run(ExistingRecords::Ask)));
    EXPECT_EQ(2u, door.questions.size());
}

TEST_F(ImportFrame, StopInAQuestionEndsTheImportAsACancelDoes) {
    Sql("INSERT INTO Product VALUES (2, 'old', 'o', 'o', 2, 2, 0);"
        "INSERT INTO Move VALUES (40, 'D2', '2011-01-01', 0, 0, 2)");
    source.AddProducts(3);
    source.lines = {{1, "D1"}, {1, "D1"}, {2, "D2"}, {3, "D3"}};
    door.answers = {Answer::Stop};
    EXPECT_EQ("cancelled 1+0", Counted(Run(ExistingRecords::Ask)));
    EXPECT_EQ("P1 old", AskAll("SELECT prod_name FROM Product ORDER BY prod_scrid"));
    options.products = false;
    door.answers = {Answer::Stop};
    EXPECT_EQ("cancelled 0+1", Counted(Run(ExistingRecords::Ask)));
    EXPECT_EQ("D1|2 D2|0", AskAll("SELECT move_num, (SELECT count(*) FROM Move_Prod AS p WHERE p.move_id = m.move_id) "
                                  "FROM Move AS m ORDER BY move_num"));
}

TEST_F(ImportFrame, NothingIsLockedWhileAQuestionIsShown) {
    source.AddProducts(2);
    AddPackagedProduct(2);
    door.onAsk = [&] {
        EXPECT_EQ("1", Ask("SELECT count(*) FROM Product WHERE prod_scrid = 1"));
        Sql("UPDATE Product SET prod_katalog = 'elsewhere' WHERE prod_scrid = 1");
    };
    door.answers = {Answer::Yes};
    EXPECT_EQ("done 2+0", Counted(Run(ExistingRecords::Ask)));
    EXPECT_EQ("P1|elsewhere P2|K", AskAll("SELECT prod_name, prod_katalog FROM Product ORDER BY prod_scrid"));
}

TEST_F(ImportFrame, TheCommandShowsItsSummary) {
    messages.Expect(QStringLiteral("Import dokončen úspěšně!\n\nNaimportováno:\n   Produktů ~ 0\n   Dokladů ~ 0"),
                    Message::Icon::Information);
    const ImportResult nothing = RunImportCommand(ImportFromEkonom);
    EXPECT_FALSE(nothing.ProductsChanged() || nothing.MovesChanged());
    // Nothing is said when nothing is wanted.
    EXPECT_TRUE(RunImportCommand([](ImportCounts&) { return false; }).IsSilent());
}

} // namespace
