#include "core/rules/records/CoverTerms.h"

#include "core/store/Recordset.h"

CoverTerms CoverTerms::Read(const CRecordset& record) {
    return {record.Code("cover_type"), record.Code("cover_org"), record.Code("cover_pay")};
}

void CoverTerms::Write(CRecordset& record) const {
    record.put_Collect("cover_type", type);
    record.put_Collect("cover_org", origin);
    record.put_Collect("cover_pay", payment);
}
