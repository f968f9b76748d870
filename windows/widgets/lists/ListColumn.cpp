#include "windows/widgets/lists/ListColumn.h"

#include "core/base/ListDecimals.h"
#include "core/rules/Fields.h"
#include "core/store/DataStore.h"

namespace {

constexpr std::int64_t EveryDecimal = 1;

QString ValueText(const Variant& value) {
    const auto* number = std::get_if<Currency>(&value);
    return number != nullptr && number->status == ValueStatus::Valid && FourDecimalsInLists()
               ? FormatCurrency(*number, EveryDecimal, 'D')
               : FormatVariant(value);
}

CellText TextOf(const RecordField& field) {
    const char* const name = field.name;
    switch (field.kind) {
    case RecordField::Kind::Code:
        return [name, codes = field.codes](const CDataStore& store, const CRecordset& record) {
            return store.CodeListText(codes, record.Code(name));
        };
    case RecordField::Kind::RangeEnd:
        return [name](const CDataStore&, const CRecordset& record) {
            return ToBool(record.get_Collect("cp_usealways")) ? QStringLiteral("-")
                                                              : ValueText(record.get_Collect(name));
        };
    default:
        return [name](const CDataStore&, const CRecordset& record) { return ValueText(record.get_Collect(name)); };
    }
}

} // namespace

ListColumn Column(const char* field, const char* sortField) {
    const RecordField& known = *FindField(field);
    return {QString::fromUtf8(known.caption), TextOf(known), sortField != nullptr ? sortField : known.name};
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
