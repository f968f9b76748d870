#pragma once

#include "core/base/ComError.h"
#include "core/import/Import.h"
#include "tests/support/ProgramFolder.h"
#include "tests/support/ScriptedDoors.h"

#include <gtest/gtest.h>

/// Answers the questions in turn and writes them down.
class AskedDoor : public IOverwriteDoor {
public:
    Answer Ask(const OverwriteQuestion& question) override {
        questions.push_back(question.text);
        values.clear();
        for (const OverwriteQuestion::Value& value : question.values)
            values += QStringLiteral("%1: %2 > %3\n").arg(value.name, value.stored, value.incoming);
        if (onAsk)
            onAsk();
        const Answer answer = answers.empty() ? Answer::No : answers.front();
        if (!answers.empty())
            answers.erase(answers.begin());
        return answer;
    }

    std::vector<Answer> answers;
    std::vector<QString> questions;
    /// What the last question showed: "Název: old > new", a line each.
    QString values;
    std::function<void()> onAsk;
};

struct MemoryLine {
    int document = 0;
    /// Empty: the document is not to be imported.
    QString number;
    std::int32_t product = 1;
    Currency quantity = Currency::FromWhole(10);
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

inline std::unique_ptr<ISourceProducts> MemorySource::OpenProducts() {
    return hasProducts ? std::make_unique<MemoryProducts>(*this, products.size()) : nullptr;
}

inline std::unique_ptr<ISourceLines> MemorySource::OpenLines() {
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

/// "done 2+1": how the import ended, products and documents.
inline std::string Counted(const ImportResult& result) {
    constexpr const char* Ends[] = {"nothing", "done", "failed", "cancelled"};
    return std::string(Ends[static_cast<int>(result.end)]) + " " + std::to_string(result.counts.products) + "+" +
           std::to_string(result.counts.documents);
}
