#include "core/rules/records/CoverValues.h"

#include "core/store/Recordset.h"

CoverValues CoverValues::Read(const CRecordset& record) {
    CoverValues values;
    values.name = FormatVariant(record.get_Collect("cover_name"));
    values.note = FormatVariant(record.get_Collect("cover_note"));
    values.reusable = ToBool(record.get_Collect("cover_reusable"));
    values.weight = ToCurrency(record.get_Collect("cover_weight"));
    values.material = record.Code("cover_mat");
    values.terms = CoverTerms::Read(record);
    values.stat = record.Code("cover_stat");
    return values;
}

void CoverValues::Write(CRecordset& record) const {
    record.put_Collect("cover_name", name);
    record.put_Collect("cover_weight", weight);
    record.put_Collect("cover_reusable", reusable);
    record.put_Collect("cover_mat", material);
    terms.Write(record);
    record.put_Collect("cover_stat", stat);
    record.put_Collect("cover_note", note);
}
