#include "core/rules/PackagingRule.h"

#include "core/base/SqlText.h"
#include "core/store/DataStore.h"

PackagingRule ReadRule(const CRecordset& record) {
    PackagingRule rule;
    rule.coverId = record.Long("cover_id");
    rule.covers = ToCurrency(record.get_Collect("cp_qtycover"));
    rule.products = ToCurrency(record.get_Collect("cp_qtyprod"));
    rule.useAlways = ToBool(record.get_Collect("cp_usealways"));
    if (!rule.useAlways) {
        rule.useFrom = ToCurrency(record.get_Collect("cp_usefrom"));
        rule.useTo = ToCurrency(record.get_Collect("cp_useto"));
    }
    rule.type = record.Code("cover_type");
    rule.origin = record.Code("cover_org");
    rule.payment = record.Code("cover_pay");
    return rule;
}

void WriteRule(const PackagingRule& rule, CRecordset& record) {
    record.put_Collect("cp_qtycover", rule.covers);
    record.put_Collect("cp_qtyprod", rule.products);
    record.put_Collect("cp_usealways", rule.useAlways);
    if (!rule.useAlways) {
        record.put_Collect("cp_usefrom", rule.useFrom);
        record.put_Collect("cp_useto", rule.useTo);
    }
    record.put_Collect("cover_type", rule.type);
    record.put_Collect("cover_org", rule.origin);
    record.put_Collect("cover_pay", rule.payment);
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
