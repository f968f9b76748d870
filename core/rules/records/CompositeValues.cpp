#include "core/rules/records/CompositeValues.h"

#include "core/store/Recordset.h"

CompositeValues CompositeValues::Read(const CRecordset& record) {
    return {FormatVariant(record.get_Collect("ccover_name")), FormatVariant(record.get_Collect("ccover_note"))};
}

void CompositeValues::Write(CRecordset& record) const {
    record.put_Collect("ccover_name", name);
    record.put_Collect("ccover_note", note);
}
