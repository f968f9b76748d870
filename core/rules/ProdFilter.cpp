#include "core/rules/ProdFilter.h"

#include "core/base/SqlText.h"

std::string ProdFilter::Clauses() const {
    constexpr const char* Packaged = "(SELECT Prod_CoverDT.prod_id FROM Prod_CoverDT INNER JOIN Prod_Cover ON "
                                     "Prod_CoverDT.dt_id = Prod_Cover.dt_id)";
    std::string sql;
    if (byName)
        sql += SqlText(namePart ? " AND (prod_name LIKE '%%%s%%')" : " AND (prod_name = '%s')", name);
    if (byKatalog)
        sql += SqlText(katalogPart ? " AND (prod_katalog LIKE '%%%s%%')" : " AND (prod_katalog = '%s')", katalog);
    if (byUnit)
        sql += SqlText(" AND prod_unit = '%s'", unit);
    if (coverCriterion == Without)
        sql += SqlText(" AND prod_id NOT IN %s", Packaged);
    else if (coverCriterion == With)
        sql += SqlText(" AND prod_id IN %s", Packaged);
    return sql;
}
