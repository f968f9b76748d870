#include "windows/widgets/lists/ListColumn.h"

#include "core/base/ListDecimals.h"
#include "core/rules/Fields.h"
#include "core/store/DataStore.h"

namespace {

constexpr std::int64_t EveryDecimal = 1;

ListCell CellOf(const Variant& value) {
    QString text = FormatVariant(value);
    const auto* quantity = std::get_if<Currency>(&value);
    // A product that the statement computes may be out of a currency's range.
    if (quantity != nullptr && quantity->status == ValueStatus::Invalid)
        return {QStringLiteral("mimo rozsah"), ListCell::Kind::Number};
    if (quantity != nullptr) {
        const QString exact = FormatCurrency(*quantity, EveryDecimal, 'D');
        return {FourDecimalsInLists() ? exact : std::move(text), ListCell::Kind::Number, exact};
    }
    if (std::holds_alternative<std::int32_t>(value))
        return {std::move(text), ListCell::Kind::Number};
    if (std::holds_alternative<QString>(value) || IsNull(value))
        return {std::move(text)};
    return {std::move(text), ListCell::Kind::Other};
}

CellText CellOf(const RecordField& field) {
    const char* const name = field.name;
    switch (field.kind) {
    case RecordField::Kind::Code:
        return [name, codes = field.codes](const CDataStore& store, const CRecordset& record) {
            return ListCell(store.CodeListText(codes, record.Code(name)), ListCell::Kind::Other);
        };
    case RecordField::Kind::RangeEnd:
        return [name](const CDataStore&, const CRecordset& record) {
            return ToBool(record.get_Collect("cp_usealways")) ? ListCell(QStringLiteral("-"), ListCell::Kind::Number)
                                                              : CellOf(record.get_Collect(name));
        };
    default:
        return [name](const CDataStore&, const CRecordset& record) { return CellOf(record.get_Collect(name)); };
    }
}

} // namespace

ListColumn Column(const char* field, const char* sortField) {
    const RecordField& known = *FindField(field);
    return {QString::fromUtf8(known.caption), CellOf(known), sortField != nullptr ? sortField : known.name};
}

std::vector<ListColumn> Columns(std::initializer_list<const char*> fields) {
    std::vector<ListColumn> columns;
    for (const char* field : fields)
        columns.push_back(Column(field));
    return columns;
}

ListSpec PickerList(const char* objectName, const char* keyField, std::vector<ListColumn> columns) {
    ListSpec spec;
    spec.objectName = QString::fromLatin1(objectName);
    spec.columns = std::move(columns);
    spec.keyField = keyField;
    spec.clickableHeader = false;
    spec.fallback = ListSpec::Fallback::None;
    return spec;
}
