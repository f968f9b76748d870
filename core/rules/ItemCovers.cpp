#include "core/rules/ItemCovers.h"

#include "core/base/Messages.h"
#include "core/base/SqlText.h"

namespace {

/// The definition in force on the date, 0 for none.
std::int32_t DefinitionInForce(CDataStore& store, RecordsetPtr& definitions, std::int32_t prodId,
                               const DateTime& issueDate) {
    store.OpenRecordset(definitions, SqlText("SELECT * FROM Prod_CoverDT WHERE prod_id = %li ORDER BY dt_from", prodId),
                        CursorType::Keyset, LockType::Optimistic, CommandType::Text);
    std::int32_t chosen = 0;
    for (; !definitions->get_EOF(); definitions->MoveNext()) {
        const DateTime from = ToDate(definitions->get_Collect("dt_from"));
        if (!from.IsValid())
            continue;
        if (issueDate < from)
            break;
        chosen = definitions->Long("dt_id");
    }
    return chosen;
}

bool Applies(const CRecordset& row, Currency quantity) {
    if (ToBool(row.get_Collect("cp_usealways")))
        return true;
    return ToCurrency(row.get_Collect("cp_usefrom")).count <= quantity.count &&
           quantity.count <= ToCurrency(row.get_Collect("cp_useto")).count;
}

/// Only whole product packages count; what remains of the quantity carries no packaging.
Currency Pieces(const CRecordset& row, Currency quantity) {
    Currency factor = Currency::FromWhole(1);
    const Currency perPackage = ToCurrency(row.get_Collect("cp_qtyprod"));
    if (perPackage.count >= 0)
        factor = Currency::FromCount(CurrencyDiv(quantity, perPackage).count / Currency::One * Currency::One);
    return CurrencyMul(factor, ToCurrency(row.get_Collect("cp_qtycover")));
}

} // namespace

int AddItemCovers(CDataStore& store, const RecordsetPtr& target, const Variant& mvprodId, const Variant& moveId,
                  std::int32_t prodId, Currency quantity, const DateTime& issueDate, RecordsetPtr& rows) {
    if (!issueDate.IsValid())
        return -1;
    const std::int32_t definition = DefinitionInForce(store, rows, prodId, issueDate);
    if (definition == 0)
        return 0;
    store.OpenRecordset(rows, SqlText("SELECT * FROM  Prod_Cover WHERE dt_id = %li", definition), CursorType::Keyset,
                        LockType::Optimistic, CommandType::Text);
    int count = 0;
    for (; !rows->get_EOF(); rows->MoveNext()) {
        if (!Applies(*rows, quantity))
            continue;
        target->AddNew();
        target->put_Collect("mvprod_id", mvprodId);
        target->put_Collect("move_id", moveId);
        target->put_Collect("cover_id", rows->get_Collect("cover_id"));
        target->put_Collect("mvcover_qty", Pieces(*rows, quantity));
        target->put_Collect("cover_type", rows->get_Collect("cover_type"));
        target->put_Collect("cover_org", rows->get_Collect("cover_org"));
        target->put_Collect("cover_pay", rows->get_Collect("cover_pay"));
        target->Update();
        ++count;
    }
    return count;
}

int ComputeItemCovers(CDataStore& store, const RecordsetPtr& target, const Variant& mvprodId, const Variant& moveId,
                      std::int32_t prodId, Currency quantity, const DateTime& issueDate) {
    try {
        RecordsetPtr rows;
        return AddItemCovers(store, target, mvprodId, moveId, prodId, quantity, issueDate, rows);
    } catch (const ComError& error) {
        ShowComError(error);
        return -1;
    }
}
