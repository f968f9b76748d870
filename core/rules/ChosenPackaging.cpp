#include "core/rules/ChosenPackaging.h"

#include "core/base/SqlText.h"
#include "core/store/DataStore.h"

void AddPackagingRows(CDataStore& store, const RecordsetPtr& target, std::int32_t dtId, const ChosenPackaging& chosen) {
    if (chosen.compositeId == ChosenPackaging::NoComposite) {
        target->AddNew();
        target->put_Collect("cover_id", chosen.rule.coverId);
        target->put_Collect("dt_id", dtId);
        chosen.rule.Write(*target);
        target->Update();
        return;
    }
    const RecordsetPtr items =
        store.Query(SqlText("SELECT * FROM CompCover_Item WHERE ccover_id = %li", chosen.compositeId));
    for (; !items->get_EOF(); items->MoveNext()) {
        target->AddNew();
        target->put_Collect("dt_id", dtId);
        CopyRule(*items, *target);
        target->Update();
    }
}

RecordsetPtr DefinitionsOfDay(CDataStore& store, std::int32_t prodId, const DateTime& day) {
    return store.Query(SqlText("SELECT * FROM Prod_CoverDT WHERE (prod_id = %li) AND DATEDIFF(\"d\", %s, dt_from)=0",
                               prodId, SqlDay(day)));
}

void AddDefinition(CRecordset& definitions, std::int32_t prodId, const DateTime& from) {
    definitions.AddNew();
    definitions.put_Collect("prod_id", prodId);
    definitions.put_Collect("dt_from", from);
    definitions.Update();
}

void TakePackagingBefore(CDataStore& store, std::int32_t prodId, std::int32_t dtId, const DateTime& from) {
    constexpr std::int32_t None = 0;
    std::int32_t before = None;
    const RecordsetPtr dates =
        store.Query(SqlText("SELECT * FROM Prod_CoverDT WHERE prod_id=%li ORDER BY dt_from", prodId));
    for (; !dates->get_EOF(); dates->MoveNext())
        if (dates->Long("dt_id") != dtId && ToDate(dates->get_Collect("dt_from")) < from)
            before = dates->Long("dt_id");
    if (before == None)
        return;
    const RecordsetPtr rows = store.Query(SqlText("SELECT * FROM Prod_Cover WHERE (dt_id = %li)", before));
    const RecordsetPtr target = store.Table("Prod_Cover");
    for (; !rows->get_EOF(); rows->MoveNext()) {
        target->AddNew();
        target->put_Collect("dt_id", dtId);
        CopyRule(*rows, *target);
        target->Update();
    }
}
