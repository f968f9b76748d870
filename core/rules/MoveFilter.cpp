#include "core/rules/MoveFilter.h"

#include "core/base/SqlText.h"

std::string MoveFilter::Clauses() const {
    std::string sql;
    const auto add = [&](const std::string& clause) { sql += (sql.empty() ? " WHERE" : " AND") + clause; };
    if (byNum)
        add(SqlText(numPart ? " (move_num LIKE '%%%s%%')" : " (move_num = '%s')", num));
    if (byDate)
        add(SqlText(" DATEDIFF(\"d\", #%i/%i/%i#, move_date)>=0 AND DATEDIFF(\"d\", move_date, #%i/%i/%i#)>=0",
                    dateFrom.Month(), dateFrom.Day(), dateFrom.Year(), dateTo.Month(), dateTo.Day(), dateTo.Year()));
    if (byExport)
        add(exported ? " (move_export = TRUE)" : " (move_export = FALSE)");
    return sql;
}
