#include "core/rules/CoverFilter.h"

#include "core/base/SqlText.h"

#include <algorithm>

std::string CoverFilter::Clauses() const {
    std::string sql;
    if (byName)
        sql += SqlText(namePart ? " AND (cover_name LIKE '%%%s%%')" : " AND (cover_name = '%s')", name);
    if (byWeight) {
        // An edit left empty is nought.
        std::string weight = SqlText(" AND (cover_weight>=%s) AND (cover_weight<=%s)",
                                     CurrencyText(Currency::FromCount(weightFrom.count)),
                                     CurrencyText(Currency::FromCount(weightTo.count)));
        std::replace(weight.begin(), weight.end(), ',', '.');
        sql += weight;
    }
    if (byMaterial)
        sql += SqlText(" AND (cover_mat = %li)", material);
    if (byType)
        sql += SqlText(" AND (cover_type = %li)", terms.type);
    if (byOrigin)
        sql += SqlText(" AND (cover_org = %li)", terms.origin);
    if (byPayment)
        sql += SqlText(" AND (cover_pay = %li)", terms.payment);
    if (byUsage)
        sql += reusable ? " AND (cover_reusable = TRUE)" : " AND (cover_reusable = FALSE)";
    return sql;
}
