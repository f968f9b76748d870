#include "core/rules/CompCoverFilter.h"

#include "core/base/SqlText.h"

std::string CompCoverFilter::Clauses() const {
    std::string sql;
    if (byName)
        sql += " WHERE" + SqlText(namePart ? " (ccover_name LIKE '%%%s%%')" : " (ccover_name = '%s')", name);
    if (byNote)
        sql += (sql.empty() ? " WHERE" : " AND") +
               SqlText(notePart ? " (ccover_note LIKE '%%%s%%')" : " (ccover_note = '%s')", note);
    return sql;
}
