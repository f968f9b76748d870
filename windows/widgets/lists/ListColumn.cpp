#include "windows/widgets/lists/ListColumn.h"

#include "core/store/DataStore.h"

CellText Field(const char* column) {
    return [column](const CDataStore&, const CRecordset& record) { return FormatVariant(record.get_Collect(column)); };
}

CellText Code(const char* column, CodeList list) {
    return [column, list](const CDataStore& store, const CRecordset& record) {
        return store.CodeListText(list, record.Code(column));
    };
}

CellText UsedQuantity(const char* column) {
    return [column](const CDataStore&, const CRecordset& record) {
        return ToBool(record.get_Collect("cp_usealways")) ? QStringLiteral("-")
                                                          : FormatVariant(record.get_Collect(column));
    };
}
