#include "core/import/ImportWriter.h"

#include "core/base/ComError.h"
#include "core/base/SqlText.h"
#include "core/base/TextField.h"

#include <utility>

namespace {

constexpr int CutTextsTold = 10;

} // namespace

CImportWriter::CImportWriter(CDataStore& store, const IImportSource& source, ExistingRecords policy,
                             IOverwriteDoor& door, ImportCounts& counts)
    : m_store(store), m_code(static_cast<std::int32_t>(source.Code())), m_name(source.Name()), m_policy(policy),
      m_door(door), m_kept(counts), m_written(counts), m_lines(store) {}

template <class Question>
bool CImportWriter::MayOverwrite(const Question& question) {
    return m_policy == ExistingRecords::Ask ? AskMayOverwrite(question()) : m_policy == ExistingRecords::Overwrite;
}

bool CImportWriter::AskMayOverwrite(const OverwriteQuestion& question) {
    // Nothing is left uncommitted, or locked, while the user thinks.
    Finish();
    m_group.reset();
    const IOverwriteDoor::Answer answer = m_door.Ask(question);
    BeginGroup();
    switch (answer) {
    case IOverwriteDoor::Answer::YesToAll:
        m_policy = ExistingRecords::Overwrite;
        return true;
    case IOverwriteDoor::Answer::NoToAll:
        m_policy = ExistingRecords::Keep;
        return false;
    case IOverwriteDoor::Answer::Yes:
        return true;
    case IOverwriteDoor::Answer::Stop:
        throw ImportCancelled();
    case IOverwriteDoor::Answer::No:
        break;
    }
    return false;
}

bool CImportWriter::FindProduct(std::int32_t key) {
    m_store.OpenRecordset(m_product,
                          SqlText("SELECT * FROM Product WHERE prod_source = %i AND prod_scrid = %li", m_code, key),
                          CursorType::Keyset, LockType::Optimistic, CommandType::Text);
    return !m_product->get_EOF();
}

Variant CImportWriter::Fitted(const char* column, const Variant& value, const QString& record) {
    const auto* text = std::get_if<QString>(&value);
    if (text == nullptr)
        return value;
    const FittedText fitted = FitText(column, *text);
    if (fitted.wasCut && ++m_written.cutTexts <= CutTextsTold)
        m_written.firstCutTexts.append(record + QStringLiteral(": ") + OneLine(*text));
    return fitted.text;
}

void CImportWriter::StoreProduct(const SourceProduct& product, bool isNew) {
    const QString record = QStringLiteral("produkt %1").arg(product.key);
    if (isNew) {
        m_product->AddNew();
        m_product->put_Collect("prod_source", m_code);
        m_product->put_Collect("prod_scrid", product.key);
    }
    m_product->put_Collect("prod_name", Fitted("prod_name", product.name, record));
    m_product->put_Collect("prod_katalog", Fitted("prod_katalog", product.catalogue, record));
    m_product->put_Collect("prod_unit", Fitted("prod_unit", product.unit, record));
    m_product->put_Collect("deleted", false);
    m_product->Update();
    ++m_written.products;
}

OverwriteQuestion CImportWriter::QuestionAbout(const SourceProduct& product) const {
    const auto value = [this](const char* name, const char* column, const Variant& incoming) {
        return OverwriteQuestion::Value{QString::fromUtf8(name), FormatVariant(m_product->get_Collect(column)),
                                        FitText(column, FormatVariant(incoming)).text};
    };
    return {MessageText("Produkt \"%s, kat.č. %s\" byl již z %s importován. Přejete si jej aktualizovat?",
                        FormatVariant(product.name), FormatVariant(product.catalogue), m_name),
            {value("Název", "prod_name", product.name), value("Katalogové číslo", "prod_katalog", product.catalogue),
             value("Měrná jednotka", "prod_unit", product.unit)}};
}

void CImportWriter::WriteProduct(const SourceProduct& product) {
    BeginRecord();
    const bool exists = FindProduct(product.key);
    // A deleted product comes back to life whatever the policy says.
    if (exists && !ToBool(m_product->get_Collect("deleted")) && !MayOverwrite([&] { return QuestionAbout(product); }))
        return;
    StoreProduct(product, !exists);
}

bool CImportWriter::FindDocument(const QString& number) {
    m_store.OpenRecordset(m_document,
                          SqlText("SELECT * FROM Move WHERE move_source = %i AND move_num = '%s'", m_code, number),
                          CursorType::Keyset, LockType::Optimistic, CommandType::Text);
    return !m_document->get_EOF();
}

QString CImportWriter::NumberOf(const SourceDocument& document) {
    const FittedText fitted = FitText("move_num", document.number);
    if (!fitted.wasCut)
        return fitted.text;
    const QString& owner = m_cutNumbers.try_emplace(fitted.text, document.number).first->second;
    if (owner != document.number)
        throw ComError("import", {}, ResultCode::Overflow,
                       QStringLiteral("Číslo dokladu \"%1\" je příliš dlouhé a zkrácené by bylo stejné jako \"%2\".")
                           .arg(document.number, owner));
    return fitted.text;
}

OverwriteQuestion CImportWriter::QuestionAbout(const SourceDocument& document) {
    const auto type = [this](int index) { return m_store.CodeListText(CodeList::MoveType, index); };
    const auto stored = [this](const char* column) { return m_document->get_Collect(column); };
    RecordsetPtr lines;
    m_store.OpenRecordset(lines, SqlText("SELECT * FROM Move_Prod WHERE move_id = %li", m_document->Long("move_id")),
                          CursorType::Keyset, LockType::Optimistic, CommandType::Text);
    // Both imports ask in these words. The new lines are not read yet.
    return {
        MessageText("Doklad \"%s\" byl již z Money importován. Přejete si jej aktualizovat?", document.number),
        {{QStringLiteral("Datum"), FormatVariant(stored("move_date")), FormatVariant(document.date)},
         {QStringLiteral("Typ"), type(static_cast<int>(m_document->Long("move_type"))), type(document.type)},
         {QStringLiteral("Vývoz"), FormatVariant(stored("move_export")), FormatVariant(document.isExport)},
         {QStringLiteral("Počet položek"), QString::number(lines->get_RecordCount()), QStringLiteral("nahradí se")}}};
}

bool CImportWriter::FindDocument(const SourceDocument& document) {
    const QString number = NumberOf(document);
    // A document of an import that neither trimmed nor cut is found by the number as it was.
    return FindDocument(document.number) || (number != document.number && FindDocument(number));
}

bool CImportWriter::MayWrite(const SourceDocument& document) {
    BeginRecord();
    return !FindDocument(document) || MayOverwrite([&] { return QuestionAbout(document); });
}

void CImportWriter::WriteDocument(SourceDocument document, std::vector<SourceLine> lines) {
    m_inDocument = true;
    StoreDocument(document, lines);
    m_inDocument = false;
    m_uncommitted.push_back({std::move(document), std::move(lines)});
    m_group->RecordDone();
}

void CImportWriter::StoreDocument(const SourceDocument& document, const std::vector<SourceLine>& lines) {
    StoreLines(StoreHeader(document), lines);
    ++m_written.documents;
}

Variant CImportWriter::StoreHeader(const SourceDocument& document) {
    if (!m_document->get_EOF()) {
        const std::int32_t moveId = m_document->Long("move_id");
        m_store.ExecuteSQL(SqlText("DELETE FROM Move_Cover WHERE move_id = %li", moveId));
        m_store.ExecuteSQL(SqlText("DELETE FROM Move_Prod WHERE move_id = %li", moveId));
    } else {
        m_document->AddNew();
        m_document->put_Collect("move_source", m_code);
        m_document->put_Collect("move_num", Fitted("move_num", document.number, QStringLiteral("doklad")));
    }
    m_document->put_Collect("move_export", document.isExport);
    m_document->put_Collect("move_type", document.type);
    m_document->put_Collect("move_date", document.date);
    m_document->Update();
    return m_document->get_Collect("move_id");
}

void CImportWriter::StoreLines(const Variant& moveId, const std::vector<SourceLine>& lines) {
    for (const SourceLine& line : lines) {
        if (!FindProduct(line.product.key))
            StoreProduct(line.product, true);
        m_lines.Add(moveId, m_product->Long("prod_id"), line.quantity, line.date);
    }
}

void CImportWriter::RewriteWholeDocuments() {
    m_group.reset();
    m_written = m_kept;
    BeginGroup();
    for (const Document& document : std::exchange(m_uncommitted, {})) {
        FindDocument(document.header);
        StoreDocument(document.header, document.lines);
    }
    Finish();
}

void CImportWriter::BeginGroup() {
    m_group.emplace(m_store, [this] {
        m_kept = m_written;
        m_uncommitted.clear();
    });
}

void CImportWriter::BeginRecord() {
    if (m_group)
        m_group->RecordDone();
    else
        BeginGroup();
}

void CImportWriter::Finish() {
    if (m_group)
        m_group->Finish();
}

void CImportWriter::Keep() noexcept {
    if (!m_group)
        return;
    if (!m_inDocument) {
        m_group->Keep();
        return;
    }
    try {
        if (m_group->StillStands())
            RewriteWholeDocuments();
    } catch (const ComError&) {
        // Taken back with the group. The error that ended the phase is the one to be told.
        m_group.reset();
    }
}
