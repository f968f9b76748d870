#include "core/import/money/MoneyImport.h"

#include "core/base/Messages.h"
#include "core/base/Shared.h"
#include "core/import/SourceValue.h"
#include "core/import/money/MoneyTable.h"

namespace {

/// Indexes of the code list MoveType.
enum class MoveType { DeliveryNote = 0, Invoice = 1, SalesReceipt = 2, IssueSlip = 3 };

const char* const Cards = "SKKMKART.DAT";
const char* const Lines = "SKSEZPOL.DAT";
const char* const StockDocuments = "SKSEZDOK.DAT";
const char* const Invoices = "VFAKTURY.DAT";

bool OpenTable(MoneyTablePtr& table, const QString& folder, const char* name) {
    return OpenMoneyTable(table, FindInFolder(folder, QString::fromLatin1(name)), true);
}

/// An open table, and the fields of its current record.
class CMoneyRecords : public CSourceFields {
public:
    CMoneyRecords(MoneyTablePtr table, const char* name)
        : CSourceFields(QString::fromLatin1(name)), m_table(std::move(table)) {}

    IMoneyTable& Table() const { return *m_table; }
    /// Numbers left empty are nought in Money.
    std::int32_t Number(std::string_view field) const { return Key(field, 0); }
    QString Upper(std::string_view field) const { return UpperCzech(FormatVariant(Text(field))); }
    /// Goes to the record with the same value in the first field of the index. False when there is none.
    bool Seek(const Variant& key) { return m_table->SeekKey(key) == IMoneyTable::Found; }

protected:
    Variant Read(std::string_view field) const override { return m_table->FieldValue(field); }
    std::int64_t Record() const override { return m_table->RecordNumber(); }

private:
    MoneyTablePtr m_table;
};

class CStockCards : public ISourceProducts {
public:
    explicit CStockCards(MoneyTablePtr table) : m_cards(std::move(table), Cards) { m_cards.Table().MoveFirst(); }

    std::int32_t Count() override { return m_cards.Table().RecordCount(); }
    bool AtEnd() override { return m_cards.Table().AtEnd(); }
    void MoveNext() override { m_cards.Table().MoveNext(); }
    SourceProduct Product() override {
        return {m_cards.Number("Cislo"), m_cards.Text("Popis"), m_cards.Text("Katalog"), m_cards.Text("MJ")};
    }

private:
    CMoneyRecords m_cards;
};

class CStockLines : public ISourceLines {
public:
    /// `domestic` are the countries whose issues are no exports; none when the export flag is not to be set.
    CStockLines(MoneyTablePtr lines, MoneyTablePtr stockDocuments, MoneyTablePtr invoices,
                std::optional<QStringList> domestic);

    std::int32_t Count() override { return m_lines.Table().RecordCount(); }
    bool AtEnd() override { return m_lines.Table().AtEnd(); }
    void MoveNext() override { m_lines.Table().MoveNext(); }
    SourceDocumentKey Document() override;
    std::optional<SourceDocument> Header() override;
    SourceLine Line() override;

private:
    /// The type of the stock document that is the current one; none when it is of no kind that is imported.
    std::optional<MoveType> StockType() const;
    /// The header in the current record of a table.
    SourceDocument HeaderOf(CMoneyRecords& records, MoveType type, std::string_view number, std::string_view day,
                            std::string_view country);
    bool IsExport(const QString& country) const;

    CMoneyRecords m_lines;
    CMoneyRecords m_stockDocuments;
    CMoneyRecords m_invoices;
    std::optional<QStringList> m_domestic;
    /// Of the document whose header was read last.
    QString m_number;
    DateTime m_date;
};

CStockLines::CStockLines(MoneyTablePtr lines, MoneyTablePtr stockDocuments, MoneyTablePtr invoices,
                         std::optional<QStringList> domestic)
    : m_lines(std::move(lines), Lines), m_stockDocuments(std::move(stockDocuments), StockDocuments),
      m_invoices(std::move(invoices), Invoices), m_domestic(std::move(domestic)) {
    m_stockDocuments.Table().SetCurrentIndex("CDokladu");
    m_invoices.Table().SetCurrentIndex("Cislo");
    m_lines.Table().SetCurrentIndex("TypDokladu+CDokladu+CisloPoloz");
    m_lines.Table().MoveFirst();
}

SourceDocumentKey CStockLines::Document() {
    m_lines.SetDocument({});
    return {m_lines.Whole("CDokladu", 0), m_lines.Upper("TypDokladu")};
}

std::optional<SourceDocument> CStockLines::Header() {
    const QString kind = Document().kind;
    const Variant key = m_lines.Table().FieldValue("CDokladu");
    if (kind == u"S" && m_stockDocuments.Seek(key)) {
        if (const std::optional<MoveType> type = StockType())
            return HeaderOf(m_stockDocuments, *type, "CisloDokla", "Datum", "A_Stat");
    } else if (kind == u"V" && m_invoices.Seek(key) && !m_invoices.Flag("Storno") && !m_invoices.Flag("FlagDel")) {
        return HeaderOf(m_invoices, MoveType::Invoice, "Doklad", "DatSkPoh", "O_Stat");
    }
    return std::nullopt;
}

std::optional<MoveType> CStockLines::StockType() const {
    const QString kind = m_stockDocuments.Upper("Typ");
    if (kind == u"D")
        return MoveType::DeliveryNote;
    if (kind == u"P")
        return MoveType::SalesReceipt;
    return kind == u"V" ? std::optional(MoveType::IssueSlip) : std::nullopt;
}

SourceDocument CStockLines::HeaderOf(CMoneyRecords& records, MoveType type, std::string_view number,
                                     std::string_view day, std::string_view country) {
    records.SetDocument({});
    m_number = FormatVariant(records.Text(number));
    records.SetDocument(m_number);
    m_date = records.Date(day);
    return {m_number, IsExport(records.Upper(country)), static_cast<std::int32_t>(type), m_date};
}

bool CStockLines::IsExport(const QString& country) const {
    return m_domestic && !m_domestic->contains(country.trimmed());
}

SourceLine CStockLines::Line() {
    m_lines.SetDocument(m_number);
    return {{m_lines.Number("CKmenKarty"), m_lines.Text("Nazev"), m_lines.Text("Katalog"), m_lines.Text("MJ")},
            m_lines.Quantity("PocetMJ"),
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
    if (!OpenTable(cards, m_agendaFolder, Cards))
        return nullptr;
    return std::make_unique<CStockCards>(std::move(cards));
}

std::unique_ptr<ISourceLines> CMoneySource::OpenLines() {
    MoneyTablePtr lines;
    MoneyTablePtr stockDocuments;
    MoneyTablePtr invoices;
    if (!OpenTable(lines, m_yearFolder, Lines) || !OpenTable(stockDocuments, m_yearFolder, StockDocuments) ||
        !OpenTable(invoices, m_yearFolder, Invoices) || lines->RecordCount() <= 0)
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
