#include "core/import/ImportWriter.h"

#include "core/base/ComError.h"
#include "core/base/SqlText.h"

#include <limits>

namespace {

[[noreturn]] void RaiseKey(const Variant& value) {
    throw ComError(
        "import", FormatVariant(value).toStdString(), ResultCode::Overflow,
        QStringLiteral("Číslo záznamu \"%1\" není celé číslo v povoleném rozsahu.").arg(FormatVariant(value)));
}

/// A key must not be bent into another record's.
std::int32_t KeyOf(const Variant& value) {
    const Currency exact = ToCurrency(value);
    constexpr std::int64_t Low = std::numeric_limits<std::int32_t>::min();
    constexpr std::int64_t High = std::numeric_limits<std::int32_t>::max();
    if (exact.status == ValueStatus::Invalid || exact.count % Currency::One != 0 || exact.count / Currency::One < Low ||
        exact.count / Currency::One > High)
        RaiseKey(value);
    return static_cast<std::int32_t>(exact.count / Currency::One);
}

/// For a text column: numbers of the source in the way they are shown.
Variant TextOf(const Variant& value) {
    return IsNull(value) ? value : Variant(FormatVariant(value));
}

} // namespace

CImportWriter::CImportWriter(CDataStore& store, const IImportSource& source, ExistingRecords policy,
                             IOverwriteDoor& door, ImportCounts& counts)
    : m_store(store), m_code(static_cast<std::int32_t>(source.Code())), m_name(source.Name()), m_policy(policy),
      m_door(door), m_kept(counts), m_written(counts), m_lines(store) {}

template <class Question>
bool CImportWriter::MayOverwrite(const Question& question) {
    return m_policy == ExistingRecords::Ask ? AskMayOverwrite(question()) : m_policy == ExistingRecords::Overwrite;
}

bool CImportWriter::AskMayOverwrite(const QString& question) {
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

void CImportWriter::StoreProduct(const SourceProduct& product, bool isNew) {
    if (isNew) {
        m_product->AddNew();
        m_product->put_Collect("prod_source", m_code);
        m_product->put_Collect("prod_scrid", KeyOf(product.key));
    }
    m_product->put_Collect("prod_name", TextOf(product.name));
    m_product->put_Collect("prod_katalog", TextOf(product.catalogue));
    m_product->put_Collect("prod_unit", TextOf(product.unit));
    m_product->put_Collect("deleted", false);
    m_product->Update();
    ++m_written.products;
}

void CImportWriter::WriteProduct(const SourceProduct& product) {
    BeginRecord();
    const bool exists = FindProduct(KeyOf(product.key));
    const auto question = [&] {
        return MessageText("Produkt \"%s, kat.č. %s\" byl již z %s importován. Přejete si jej aktualizovat?",
                           FormatVariant(product.name), FormatVariant(product.catalogue), m_name);
    };
    // A deleted product comes back to life whatever the policy says.
    if (exists && !ToBool(m_product->get_Collect("deleted")) && !MayOverwrite(question))
        return;
    StoreProduct(product, !exists);
}

bool CImportWriter::WriteDocument(const SourceDocument& document) {
    BeginRecord();
    const QString number = FormatVariant(document.number);
    m_store.OpenRecordset(m_document,
                          SqlText("SELECT * FROM Move WHERE move_source = %i AND move_num = '%s'", m_code, number),
                          CursorType::Keyset, LockType::Optimistic, CommandType::Text);
    // Both imports ask in these words.
    const auto question = [&] {
        return MessageText("Doklad \"%s\" byl již z Money importován. Přejete si jej aktualizovat?", number);
    };
    if (!m_document->get_EOF()) {
        if (!MayOverwrite(question))
            return false;
        const std::int32_t moveId = m_document->Long("move_id");
        m_store.ExecuteSQL(SqlText("DELETE FROM Move_Cover WHERE move_id = %li", moveId));
        m_store.ExecuteSQL(SqlText("DELETE FROM Move_Prod WHERE move_id = %li", moveId));
    } else {
        m_document->AddNew();
        m_document->put_Collect("move_source", m_code);
        m_document->put_Collect("move_num", number);
    }
    m_document->put_Collect("move_export", document.isExport);
    m_document->put_Collect("move_type", document.type);
    m_document->put_Collect("move_date", document.date);
    m_document->Update();
    m_moveId = m_document->get_Collect("move_id");
    ++m_written.documents;
    return true;
}

void CImportWriter::WriteLine(const SourceLine& line) {
    if (!FindProduct(KeyOf(line.product.key)))
        StoreProduct(line.product, true);
    m_lines.Add(m_moveId, m_product->Long("prod_id"), ToCurrency(line.quantity), ToDate(line.date));
}

void CImportWriter::BeginGroup() {
    m_group.emplace(m_store, [this] { m_kept = m_written; });
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
    if (m_group)
        m_group->Keep();
}
