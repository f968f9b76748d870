#include "core/import/money/MoneyImport.h"

#include "core/base/Messages.h"
#include "core/base/Shared.h"
#include "core/import/money/MoneyTable.h"

namespace {

/// Indexes of the code list MoveType.
enum class MoveType { DeliveryNote = 0, Invoice = 1, SalesReceipt = 2, IssueSlip = 3 };

QString TextOf(IMoneyTable& table, std::string_view column) {
    return FormatVariant(table.FieldValue(column));
}

bool OpenTable(MoneyTablePtr& table, const QString& folder, const char* name) {
    return OpenMoneyTable(table, FindInFolder(folder, QString::fromLatin1(name)), true);
}

class CStockCards : public ISourceProducts {
public:
    explicit CStockCards(MoneyTablePtr table) : m_table(std::move(table)) { m_table->MoveFirst(); }

    std::int32_t Count() override { return m_table->RecordCount(); }
    bool AtEnd() override { return m_table->AtEnd(); }
    void MoveNext() override { m_table->MoveNext(); }
    SourceProduct Product() override {
        return {m_table->FieldValue("Cislo"), m_table->FieldValue("Popis"), m_table->FieldValue("Katalog"),
                m_table->FieldValue("MJ")};
    }

private:
    MoneyTablePtr m_table;
};

class CStockLines : public ISourceLines {
public:
    /// `domestic` are the countries whose issues are no exports; none when the export flag is not to be set.
    CStockLines(MoneyTablePtr lines, MoneyTablePtr stockDocuments, MoneyTablePtr invoices,
                std::optional<QStringList> domestic);

    std::int32_t Count() override { return m_lines->RecordCount(); }
    bool AtEnd() override { return m_lines->AtEnd(); }
    void MoveNext() override { m_lines->MoveNext(); }
    SourceDocumentKey Document() override;
    std::optional<SourceDocument> Header() override;
    SourceLine Line() override;

private:
    std::optional<SourceDocument> StockDocument();
    std::optional<SourceDocument> Invoice();
    Variant IsExport(const QString& country) const;

    MoneyTablePtr m_lines;
    MoneyTablePtr m_stockDocuments;
    MoneyTablePtr m_invoices;
    std::optional<QStringList> m_domestic;
    Variant m_date;
};

CStockLines::CStockLines(MoneyTablePtr lines, MoneyTablePtr stockDocuments, MoneyTablePtr invoices,
                         std::optional<QStringList> domestic)
    : m_lines(std::move(lines)), m_stockDocuments(std::move(stockDocuments)), m_invoices(std::move(invoices)),
      m_domestic(std::move(domestic)) {
    m_stockDocuments->SetCurrentIndex("CDokladu");
    m_invoices->SetCurrentIndex("Cislo");
    m_lines->SetCurrentIndex("TypDokladu+CDokladu+CisloPoloz");
    m_lines->MoveFirst();
}

SourceDocumentKey CStockLines::Document() {
    return {ToLong(m_lines->FieldValue("CDokladu")), UpperCzech(TextOf(*m_lines, "TypDokladu"))};
}

std::optional<SourceDocument> CStockLines::Header() {
    const QString kind = Document().kind;
    std::optional<SourceDocument> document;
    if (kind == u"S")
        document = StockDocument();
    else if (kind == u"V")
        document = Invoice();
    if (document)
        m_date = document->date;
    return document;
}

std::optional<SourceDocument> CStockLines::StockDocument() {
    IMoneyTable& table = *m_stockDocuments;
    if (table.SeekKey(m_lines->FieldValue("CDokladu")) != IMoneyTable::Found)
        return std::nullopt;
    const QString kind = UpperCzech(TextOf(table, "Typ"));
    MoveType type = MoveType::IssueSlip;
    if (kind == u"D")
        type = MoveType::DeliveryNote;
    else if (kind == u"P")
        type = MoveType::SalesReceipt;
    else if (kind != u"V")
        return std::nullopt;
    return SourceDocument{table.FieldValue("CisloDokla"), IsExport(TextOf(table, "A_Stat")),
                          static_cast<std::int32_t>(type), table.FieldValue("Datum")};
}

std::optional<SourceDocument> CStockLines::Invoice() {
    IMoneyTable& table = *m_invoices;
    if (table.SeekKey(m_lines->FieldValue("CDokladu")) != IMoneyTable::Found || ToBool(table.FieldValue("Storno")) ||
        ToBool(table.FieldValue("FlagDel")))
        return std::nullopt;
    return SourceDocument{table.FieldValue("Doklad"), IsExport(TextOf(table, "O_Stat")),
                          static_cast<std::int32_t>(MoveType::Invoice), table.FieldValue("DatSkPoh")};
}

Variant CStockLines::IsExport(const QString& country) const {
    constexpr std::int16_t True = -1;
    constexpr std::int16_t False = 0;
    return m_domestic && !m_domestic->contains(UpperCzech(country.trimmed())) ? True : False;
}

SourceLine CStockLines::Line() {
    return {{m_lines->FieldValue("CKmenKarty"), m_lines->FieldValue("Nazev"), m_lines->FieldValue("Katalog"),
             m_lines->FieldValue("MJ")},
            m_lines->FieldValue("PocetMJ"),
            m_date};
}

} // namespace

CMoneySource::CMoneySource(const MoneyYear& year, MoneyOptions& options)
    : m_agendaFolder(year.agendaFolder), m_yearFolder(year.yearFolder), m_options(options) {}

bool CMoneySource::Connect(IProgress& progress) {
    m_progress = &progress;
    return true;
}

std::unique_ptr<ISourceProducts> CMoneySource::OpenProducts() {
    MoneyTablePtr cards;
    if (!OpenTable(cards, m_agendaFolder, "SKKMKART.DAT"))
        return nullptr;
    return std::make_unique<CStockCards>(std::move(cards));
}

std::unique_ptr<ISourceLines> CMoneySource::OpenLines() {
    MoneyTablePtr lines;
    MoneyTablePtr stockDocuments;
    MoneyTablePtr invoices;
    if (!OpenTable(lines, m_yearFolder, "SKSEZPOL.DAT") || !OpenTable(stockDocuments, m_yearFolder, "SKSEZDOK.DAT") ||
        !OpenTable(invoices, m_yearFolder, "VFAKTURY.DAT") || lines->RecordCount() <= 0)
        return nullptr;
    for (const MoneyTablePtr& table : {std::cref(lines), std::cref(stockDocuments), std::cref(invoices)})
        table->SetAlive([this] {
            if (m_progress != nullptr && m_progress->CancelRequested())
                throw ImportCancelled();
        });
    m_options.domestic = UpperCzech(m_options.domestic);
    QStringList domestic;
    SplitList(m_options.domestic, u';', domestic);
    return std::make_unique<CStockLines>(std::move(lines), std::move(stockDocuments), std::move(invoices),
                                         m_options.setExport ? std::optional(domestic) : std::nullopt);
}

bool MoneyComponentReady() {
    if (MoneyComponentAvailable())
        return true;
    ShowMessage(QStringLiteral("Nemohu najít komponentu Money (mon2kdbe.dll)!"), Message::Icon::Error);
    return false;
}
