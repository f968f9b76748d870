#include "core/rules/ScratchItems.h"

#include "core/base/SqlText.h"
#include "core/rules/records/PackagingRule.h"
#include "core/store/Edit.h"

void ScratchItems::Load(CDataStore& store, std::int32_t compositeId) {
    InOneEdit(store, [&] {
        store.ExecuteSQL("DELETE FROM TmpCover_Item");
        const RecordsetPtr items =
            store.Query(SqlText("SELECT * FROM CompCover_Item WHERE ccover_id = %li", compositeId));
        const RecordsetPtr scratch = store.Table("TmpCover_Item");
        for (; !items->get_EOF(); items->MoveNext()) {
            scratch->AddNew();
            CopyRule(*items, *scratch);
            scratch->Update();
        }
    });
}

void ScratchItems::Store(CDataStore& store, std::int32_t compositeId) {
    const RecordsetPtr scratch = store.Query("SELECT * FROM TmpCover_Item");
    const RecordsetPtr items = store.Table("CompCover_Item");
    for (; !scratch->get_EOF(); scratch->MoveNext()) {
        items->AddNew();
        items->put_Collect("ccover_id", compositeId);
        CopyRule(*scratch, *items);
        items->Update();
    }
}
