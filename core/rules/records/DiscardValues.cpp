#include "core/rules/records/DiscardValues.h"

#include "core/store/Recordset.h"

DiscardValues DiscardValues::Read(const CRecordset& record) {
    const std::int32_t way = record.Code("disc_type");
    return {record.Long("cover_id"), ToDate(record.get_Collect("disc_date")), way >= 0 && way < Ways ? way : Recycled,
            Currency::FromCount(ToCurrency(record.get_Collect("disc_qty")).count)};
}

void DiscardValues::Write(CRecordset& record) const {
    record.put_Collect("cover_id", coverId);
    record.put_Collect("disc_date", date.StartOfDay());
    record.put_Collect("disc_type", way);
    record.put_Collect("disc_qty", quantity);
}
