#include "core/rules/records/PackagingRule.h"

#include "core/base/SqlText.h"
#include "core/store/DataStore.h"

PackagingRule PackagingRule::Read(const CRecordset& record) {
    PackagingRule rule;
    rule.coverId = record.Long("cover_id");
    rule.covers = ToCurrency(record.get_Collect("cp_qtycover"));
    rule.products = ToCurrency(record.get_Collect("cp_qtyprod"));
    rule.useAlways = ToBool(record.get_Collect("cp_usealways"));
    if (!rule.useAlways) {
        rule.useFrom = ToCurrency(record.get_Collect("cp_usefrom"));
        rule.useTo = ToCurrency(record.get_Collect("cp_useto"));
    }
    rule.terms = CoverTerms::Read(record);
    return rule;
}

void PackagingRule::Write(CRecordset& record) const {
    record.put_Collect("cp_qtycover", covers);
    record.put_Collect("cp_qtyprod", products);
    record.put_Collect("cp_usealways", useAlways);
    if (!useAlways) {
        record.put_Collect("cp_usefrom", useFrom);
        record.put_Collect("cp_useto", useTo);
    }
    terms.Write(record);
}

void CopyRule(const CRecordset& from, CRecordset& to) {
    for (const char* column : {"cover_id", "cp_qtycover", "cp_qtyprod", "cp_usealways", "cp_usefrom", "cp_useto",
                               "cover_type", "cover_org", "cover_pay"})
        to.put_Collect(column, from.get_Collect(column));
}

Currency PieceWeight(CDataStore& store, std::int32_t coverId) {
    const RecordsetPtr cover = store.Query(SqlText("SELECT cover_weight FROM Cover WHERE cover_id = %li", coverId));
    if (cover->get_EOF())
        return {};
    return Currency::FromCount(ToCurrency(cover->get_Collect("cover_weight")).count);
}
