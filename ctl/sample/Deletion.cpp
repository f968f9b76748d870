#include "ctl/sample/Deletion.h"

#include "core/store/DataStore.h"

void DeleteSelection(CDataStore& store, const std::vector<std::int32_t>& keys,
                     std::initializer_list<std::string_view> statements) {
    store.ExecuteSQL("DELETE FROM TmpID");
    const RecordsetPtr selection = store.Table("TmpID");
    for (const std::int32_t key : keys) {
        selection->AddNew();
        selection->put_Collect("id", key);
        selection->Update();
    }
    for (const std::string_view statement : statements)
        store.ExecuteSQL(statement);
    store.ExecuteSQL("DELETE FROM TmpID");
}
