#include "core/rules/records/ProductValues.h"

#include "core/store/Recordset.h"

ProductValues ProductValues::Read(const CRecordset& record) {
    return {FormatVariant(record.get_Collect("prod_name")), FormatVariant(record.get_Collect("prod_katalog")),
            FormatVariant(record.get_Collect("prod_unit"))};
}

void ProductValues::Write(CRecordset& record) const {
    record.put_Collect("prod_name", name);
    record.put_Collect("prod_katalog", catalogue);
    record.put_Collect("prod_unit", unit);
}
