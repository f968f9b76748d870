#include "core/rules/MoveFilter.h"

#include "core/base/SqlText.h"

std::string MoveFilter::Clauses() const {
    std::string sql;
    const auto add = [&](const std::string& clause) { sql += (sql.empty() ? " WHERE" : " AND") + clause; };
    if (byNum)
        add(SqlText(numPart ? " (move_num LIKE '%%%s%%')" : " (move_num = '%s')", num));
    if (byDate)
        add(" " + SqlBetween("move_date", dateFrom, dateTo));
    if (byExport)
        add(exported ? " (move_export = TRUE)" : " (move_export = FALSE)");
    return sql;
}
