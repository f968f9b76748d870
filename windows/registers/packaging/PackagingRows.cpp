#include "windows/registers/packaging/PackagingRows.h"

ListSpec PackagingRows(const char* objectName, const char* keyField) {
    ListSpec spec;
    spec.objectName = QString::fromLatin1(objectName);
    // The codes are those of the row, where the cover has its own too.
    spec.columns = {Column("cover_name"),
                    Column("totWeight", "cp_qtycover*cover_weight"),
                    Column("cp_qtyprod"),
                    Column("cp_usefrom"),
                    Column("cp_useto"),
                    Column("cover_type", "Prod_Cover.cover_type"),
                    Column("cover_org", "Prod_Cover.cover_org"),
                    Column("cover_pay", "Prod_Cover.cover_pay")};
    spec.keyField = keyField;
    spec.defaultSort = "cover_name";
    return spec;
}
