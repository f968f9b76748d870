#include "core/base/ComError.h"
#include "core/import/Import.h"
#include "tests/support/Faults.h"
#include "tests/support/OtherProgram.h"
#include "tests/support/ProgramFolder.h"
#include "tests/support/ScriptedDoors.h"

#include <gtest/gtest.h>

#include <csignal>
#include <sys/wait.h>
#include <unistd.h>

namespace {

using End = ImportResult::End;
using Answer = IOverwriteDoor::Answer;

/// Answers the questions in turn and writes them down.
class AskedDoor : public IOverwriteDoor {
public:
    Answer Ask(const QString& question) override {
        questions.push_back(question);
        if (onAsk)
            onAsk();
        const Answer answer = answers.empty() ? Answer::No : answers.front();
        if (!answers.empty())
            answers.erase(answers.begin());
        return answer;
    }

    std::vector<Answer> answers;
    std::vector<QString> questions;
    std::function<void()> onAsk;
};

struct MemoryLine {
    int document = 0;
    /// Empty: the document is not to be imported.
    QString number;
    Variant product = 1;
    Variant quantity = 10;
};

/// A system that exists in the test's memory.
struct MemorySource : IImportSource {
    std::vector<SourceProduct> products;
    std::vector<MemoryLine> lines;
    bool connects = true;
    bool hasProducts = true;
    bool hasLines = true;
    bool showsEmpty = false;
    std::function<void(std::size_t)> onLine;

    SourceCode Code() const override { return SourceCode::Wak; }
    QString Name() const override { return QStringLiteral("WAK"); }
    QString Title() const override { return QStringLiteral("Import"); }
    QString ProductPhase() const override { return QStringLiteral("Produkty"); }
    bool ShowsEmptyProductPhase() const override { return showsEmpty; }
    bool Connect(IProgress&) override { return connects; }
    std::unique_ptr<ISourceProducts> OpenProducts() override;
    std::unique_ptr<ISourceLines> OpenLines() override;

    void AddProducts(int count) {
        for (int i = 0; i < count; ++i)
            products.push_back({i + 1, QStringLiteral("P%1").arg(i + 1), QStringLiteral("K"), QStringLiteral("ks")});
    }
};

template <class Base>
class MemoryRows : public Base {
public:
    MemoryRows(MemorySource& source, std::size_t count) : m_source(source), m_count(count) {}
    std::int32_t Count() override { return static_cast<std::int32_t>(m_count); }
    bool AtEnd() override { return m_row == m_count; }
    void MoveNext() override { ++m_row; }

protected:
    MemorySource& m_source;
    std::size_t m_count;
    std::size_t m_row = 0;
};

class MemoryProducts : public MemoryRows<ISourceProducts> {
public:
    using MemoryRows::MemoryRows;
    SourceProduct Product() override { return m_source.products[m_row]; }
};

class MemoryLines : public MemoryRows<ISourceLines> {
public:
    using MemoryRows::MemoryRows;
    SourceDocumentKey Document() override { return {m_source.lines[m_row].document, {}}; }
    std::optional<SourceDocument> Header() override {
        const MemoryLine& line = m_source.lines[m_row];
        if (line.number.isEmpty())
            return std::nullopt;
        return SourceDocument{line.number, true, 2, Date()};
    }
    SourceLine Line() override {
        if (m_source.onLine)
            m_source.onLine(m_row);
        const MemoryLine& line = m_source.lines[m_row];
        return {{line.product, QStringLiteral("???"), QString(), QString()}, line.quantity, Date()};
    }

private:
    static DateTime Date() { return DateTime::FromDay(2012, 5, 1); }
};

std::unique_ptr<ISourceProducts> MemorySource::OpenProducts() {
    return hasProducts ? std::make_unique<MemoryProducts>(*this, products.size()) : nullptr;
}

std::unique_ptr<ISourceLines> MemorySource::OpenLines() {
    return hasLines ? std::make_unique<MemoryLines>(*this, lines.size()) : nullptr;
}

struct ImportFrame : testing::Test, StoreFolder {
    MemorySource source;
    ImportOptions options;
    RecordedProgress progress;
    AskedDoor door;
    ScriptedMessages messages;

    ImportCommand Command() {
        return [this](ImportCounts& counts) { return RunImport(store, source, options, progress, door, counts); };
    }
    ImportResult Run() { return CarryOutImport(Command()); }
    ImportResult Run(ExistingRecords policy) {
        options.existing = policy;
        return Run();
    }

    /// A product of the source with a definition in force, ten to a carton.
    void AddPackagedProduct(int key) {
        const std::string id = std::to_string(key);
        Sql(("INSERT INTO Product VALUES (" + id + ", 'old', 'old', 'old', 2, " + id + ", 0);" +
             "INSERT INTO Prod_CoverDT VALUES (" + id + ", " + id + ", '2012-01-01');" +
             "INSERT INTO Prod_Cover VALUES (NULL, " + id + ", 5, 10000, 100000, 1, 0, 0, 1, 1, 1)")
                .c_str());
    }
};

std::string Counted(const ImportResult& result) {
    constexpr const char* Ends[] = {"nothing", "done", "failed", "cancelled"};
    return std::string(Ends[static_cast<int>(result.end)]) + " " + std::to_string(result.counts.products) + "+" +
           std::to_string(result.counts.documents);
}

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

TEST_F(ImportFrame, WritesLinesWithTheirPackaging) {
    AddPackagedProduct(1);
    AddPackagedProduct(2);
    Sql("UPDATE Product SET deleted = 1 WHERE prod_id = 2");
    source.lines = {{7, "D7", 1, 25},       {7, "D7", 2, Currency::FromCount(99999)}, {8, {}, 1, 1},
                    {8, "not asked", 1, 1}, {9, "D9", 3, QStringLiteral("1,5")},      {7, "D7", 1, Variant()}};
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
    source.lines = {{1, "D1", 1, 10}};
    EXPECT_EQ("done 0+1", Counted(Run(ExistingRecords::Overwrite)));
    EXPECT_EQ("40|D1|2012-05-01 00:00:00|2|1|2", AskAll("SELECT * FROM Move WHERE move_id = 40"));
    EXPECT_EQ("41|141|241 42|142|242 43|143|243 40|144|244",
              AskAll("SELECT Move.move_id, Move_Prod.mvprod_id, mvcover_id FROM Move JOIN Move_Prod USING (move_id) "
                     "JOIN Move_Cover USING (mvprod_id) ORDER BY mvcover_id"));
}

TEST_F(ImportFrame, AKeyIsNeverBentIntoAnotherOne) {
    const std::pair<Variant, const char*> cases[] = {{QStringLiteral(" 12 "), "12"},
                                                     {Currency::FromWhole(13), "13"},
                                                     {Variant(), "0"},
                                                     {-5, "-5"},
                                                     {QStringLiteral("2147483648"), nullptr},
                                                     {QStringLiteral("x"), nullptr},
                                                     {1.5, nullptr},
                                                     {DateTime::FromDay(2012, 1, 1), nullptr}};
    for (const auto& [key, stored] : cases) {
        Sql("DELETE FROM Product");
        source.products = {{key, QStringLiteral("P"), {}, {}}};
        if (stored == nullptr)
            messages.AcceptAny();
        EXPECT_EQ(stored != nullptr ? End::Done : End::Failed, Run().end);
        EXPECT_EQ(stored != nullptr ? stored : "none", Ask("SELECT prod_scrid FROM Product"));
    }
}

TEST_F(ImportFrame, CancelKeepsWhatWasWritten) {
    source.AddProducts(2);
    source.lines = {{1, "D1"}, {1, "D1"}, {2, "D2"}, {2, "D2"}, {2, "D2"}};
    progress.cancelAt = 2 + 5;
    messages.Expect(QStringLiteral("Import byl přerušen!\n\nNaimportováno:\n   Produktů ~ 2\n   Dokladů ~ 2"),
                    Message::Icon::Information);
    const ImportResult result = RunImportCommand(Command());
    EXPECT_TRUE(result.ProductsChanged() && result.MovesChanged());
    EXPECT_EQ("4", Ask("SELECT count(*) FROM Move_Prod"));
    // Cancelled before the first record: nothing.
    progress.asked = 0;
    progress.cancelAt = 1;
    EXPECT_EQ("cancelled 0+0", Counted(Run(ExistingRecords::Overwrite)));
}

TEST_F(ImportFrame, AnErrorKeepsWhatWasWritten) {
    const std::tuple<const char*, std::function<void()>, const char*, const char*> cases[] = {
        // Quotes are not doubled, as everywhere.
        {"a quote in the number", [&] { source.lines[3].number = QStringLiteral("O'Neil"); }, "failed 1+1", "3"},
        {"a line that cannot be written",
         [&] {
             Sql("CREATE TRIGGER t BEFORE INSERT ON Move_Prod WHEN new.mvprod_qty = 770000 "
                 "BEGIN SELECT raise(ABORT, 'full'); END");
         },
         "failed 1+2", "4"},
        {"the source breaks",
         [&] {
             source.onLine = [](std::size_t row) {
                 if (row == 4)
                     throw ComError("line", {}, ResultCode::Fail, QStringLiteral("spadlo"));
             };
         },
         "failed 1+2", "4"},
    };
    for (const auto& [name, change, counted, lines] : cases) {
        Sql("DELETE FROM Move; DELETE FROM Move_Prod; DELETE FROM Product");
        source = MemorySource();
        source.lines = {{1, "D1"}, {1, "D1"}, {1, "D1"}, {2, "D2"}, {2, "D2", 1, 77}, {2, "D2"}};
        change();
        ScriptedMessages shown;
        shown.AcceptAny();
        const ImportResult result = RunImportCommand(Command());
        EXPECT_EQ(counted, Counted(result)) << name;
        EXPECT_EQ(lines, Ask("SELECT count(*) FROM Move_Prod")) << name;
        ASSERT_EQ(2u, shown.Shown().size()) << name;
        EXPECT_TRUE(shown.Shown()[0].text.startsWith(QStringLiteral("Došlo k chybě COM č.0x"))) << name;
        EXPECT_EQ(QStringLiteral("Během importu došlo k chybě!\n\nNaimportováno:\n   Produktů ~ 1\n   Dokladů ~ %1")
                      .arg(result.counts.documents),
                  shown.Shown()[1].text)
            << name;
    }
}

/// Forty documents of three lines, half of them imported before, on a disk that fails.
struct ImportOnFaultyDisk : IFaultSubject {
    struct World : ImportFrame {
        void TestBody() override {}
    } world;

    ImportOnFaultyDisk() {
        world.AddPackagedProduct(1);
        world.options.existing = ExistingRecords::Overwrite;
        Fill(20, 5);
        world.Run();
        Fill(40, 20);
        world.messages.AcceptAny();
    }
    void Fill(int documents, int quantity) {
        world.source.lines.clear();
        for (int i = 0; i < 3 * documents; ++i)
            world.source.lines.push_back({i / 3, QStringLiteral("D%1").arg(i / 3), 1, quantity});
    }
    const ProgramFolder& Folder() const override { return world.folder; }
    std::int64_t Run(const std::function<void()>& arm) override {
        arm();
        return RunImportCommand(world.Command()).counts.documents;
    }
    std::size_t Messages() const override {
        return world.messages.Shown().size() - 1; // the summary
    }
};

TEST(ImportFaults, LeaveEachDocumentOldOrNew) {
    ExpectWholeAfterAnyFault({"import", [] { return std::make_unique<ImportOnFaultyDisk>(); },
                              "SELECT move_num, (SELECT group_concat(mvprod_qty) FROM Move_Prod AS p WHERE p.move_id = "
                              "m.move_id) || ' ' || (SELECT group_concat(mvcover_qty) FROM Move_Cover AS c WHERE "
                              "c.move_id = m.move_id) FROM Move AS m"});
}

TEST_F(ImportFrame, CountsOnlyWhatIsKept) {
    AddPackagedProduct(1);
    AddPackagedProduct(2);
    constexpr int Documents = 40;
    constexpr int LinesOfOne = 150;
    for (int i = 0; i < Documents * LinesOfOne; ++i)
        source.lines.push_back({i / LinesOfOne, QStringLiteral("D%1").arg(i / LinesOfOne), 1 + i % 3, 20});
    ShortPatience patience;
    ASSERT_TRUE(store.OpenDatabase()); // with that patience
    messages.AcceptAny();
    const auto expectKept = [&](const ImportResult& result) {
        EXPECT_EQ(End::Failed, result.end);
        EXPECT_LT(result.counts.documents, Documents);
        EXPECT_EQ(std::to_string(result.counts.products) + "|" + std::to_string(result.counts.documents) + "|" +
                      std::to_string(LinesOfOne * result.counts.documents),
                  AskAll("SELECT (SELECT count(*) FROM Product) - 2, (SELECT count(*) FROM Move), count(*) FROM "
                         "Move_Prod"));
        EXPECT_EQ("0", Ask("SELECT count(*) FROM Move_Prod WHERE move_id NOT IN (SELECT move_id FROM Move)"));
        EXPECT_FALSE(store.Engine().InGroup());
    };
    const auto pages = [&] { return std::stoi(Ask("PRAGMA page_count")); };
    const auto empty = [&] {
        Sql("DELETE FROM Move; DELETE FROM Move_Prod; DELETE FROM Move_Cover; DELETE FROM Product WHERE prod_id > 2;"
            "VACUUM");
        return pages();
    };
    const auto limit = [&](int most) {
        sqlite::Execute(store.Engine().Handle(), ("PRAGMA max_page_count = " + std::to_string(most)).c_str());
    };
    const int before = empty();
    EXPECT_EQ(End::Done, Run(ExistingRecords::Keep).end);
    const int needed = pages() - before;
    int some = 0;
    // The disk is full at one of the rows of a line, its packaging or a header; the engine then rolls back by itself.
    for (const int lacking : {needed - 1, needed / 2, needed / 3, 4, 3, 2, 1}) {
        SCOPED_TRACE(lacking);
        limit(empty() + needed - lacking);
        const ImportResult result = Run(ExistingRecords::Keep);
        expectKept(result);
        some += result.counts.documents;
        limit(1'000'000);
    }
    EXPECT_GT(some, 0) << "no import came to its first commit";

    // A commit that another program does not let through.
    empty();
    OtherProgram other(folder);
    sqlite::Statement reading(other.Handle(), "SELECT * FROM Product");
    source.onLine = [&](std::size_t row) {
        if (row == 5900) {
            EXPECT_TRUE(reading.Step());
        }
    };
    const std::size_t shown = messages.Shown().size();
    const ImportResult result = Run(ExistingRecords::Keep);
    reading.Reset();
    expectKept(result);
    EXPECT_GT(result.counts.documents, 0);
    EXPECT_EQ(shown + 1, messages.Shown().size());
}

TEST_F(ImportFrame, TheCommandShowsItsSummary) {
    messages.Expect(QStringLiteral("Import dokončen úspěšně!\n\nNaimportováno:\n   Produktů ~ 0\n   Dokladů ~ 0"),
                    Message::Icon::Information);
    const ImportResult nothing = RunImportCommand(ImportFromEkonom);
    EXPECT_FALSE(nothing.ProductsChanged() || nothing.MovesChanged());
    // Nothing is said when nothing is wanted.
    EXPECT_TRUE(RunImportCommand([](ImportCounts&) { return false; }).IsSilent());
}

TEST_F(ImportFrame, KilledAnywhereItIsCompletedByTheNext) {
    AddPackagedProduct(1);
    constexpr int Documents = 40;
    constexpr int LinesOfOne = 150;
    for (int i = 0; i < Documents * LinesOfOne; ++i)
        source.lines.push_back({i / LinesOfOne, QStringLiteral("D%1").arg(i / LinesOfOne), 1, i});
    options.products = false;
    store.CloseDatabase();
    int partly = 0;
    for (const std::size_t killAt : {std::size_t{100}, std::size_t{3777}, std::size_t{5900}}) {
        Sql("DELETE FROM Move; DELETE FROM Move_Prod; DELETE FROM Move_Cover");
        const pid_t child = fork();
        if (child == 0) {
            source.onLine = [killAt](std::size_t row) {
                if (row == killAt)
                    std::raise(SIGKILL);
            };
            CDataStore own;
            own.OpenDatabase();
            ImportCounts counts;
            RunImport(own, source, options, SilentProgress(), door, counts);
            _exit(0);
        }
        int status = 0;
        ASSERT_EQ(child, waitpid(child, &status, 0));
        ASSERT_TRUE(WIFSIGNALED(status) && WTERMSIG(status) == SIGKILL);

        ASSERT_TRUE(store.OpenDatabase(true));
        const int left = std::stoi(Ask("SELECT count(*) FROM Move"));
        partly += left > 0 && left < Documents;
        // Whole documents, each line with its packaging; so even an import that keeps what exists completes it.
        EXPECT_EQ(std::to_string(left * LinesOfOne), Ask("SELECT count(*) FROM Move_Prod")) << killAt;
        EXPECT_EQ(std::to_string(left * LinesOfOne), Ask("SELECT count(*) FROM Move_Cover")) << killAt;
        EXPECT_EQ(End::Done, Run(ExistingRecords::Keep).end);
        EXPECT_EQ("40|6000|6000", AskAll("SELECT (SELECT count(*) FROM Move), (SELECT count(*) FROM Move_Prod), "
                                         "(SELECT count(*) FROM Move_Cover)"))
            << killAt;
        EXPECT_EQ("40", Ask("SELECT count(DISTINCT move_num) FROM Move")) << killAt;
        store.CloseDatabase();
    }
    EXPECT_GT(partly, 0) << "no kill fell between two commits";
}

} // namespace
