#include "core/rules/records/IssueValues.h"

#include "core/store/Recordset.h"

IssueValues IssueValues::Read(const CRecordset& record) {
    const DateTime date = ToDate(record.get_Collect("move_date"));
    return {FormatVariant(record.get_Collect("move_num")), record.Code("move_type"),
            date.IsValid() ? date : DateTime::FromDay(1900, 1, 1), ToBool(record.get_Collect("move_export"))};
}

void IssueValues::WriteNew(CRecordset& record) const {
    record.put_Collect("move_num", number);
    record.put_Collect("move_type", type);
    record.put_Collect("move_date", date);
}

void IssueValues::Write(CRecordset& record) const {
    WriteNew(record);
    record.put_Collect("move_export", isExport);
}
