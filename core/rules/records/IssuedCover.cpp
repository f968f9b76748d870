#include "core/rules/records/IssuedCover.h"

#include "core/store/Recordset.h"

IssuedCover IssuedCover::Read(const CRecordset& record) {
    const Currency quantity = ToCurrency(record.get_Collect("mvcover_qty"));
    return {record.Long("cover_id"), quantity.IsValid() ? quantity : Currency::FromWhole(1), CoverTerms::Read(record)};
}

void IssuedCover::Write(CRecordset& record) const {
    record.put_Collect("cover_id", coverId);
    terms.Write(record);
    WriteQuantity(record);
}

void IssuedCover::WriteQuantity(CRecordset& record) const {
    record.put_Collect("mvcover_qty", quantity);
}
