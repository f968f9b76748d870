#include "core/report/RangeFault.h"

#include "core/base/SqlText.h"
#include "core/store/DataStore.h"

namespace {

constexpr const char* IssuedQuery =
    "SELECT Move.move_num, Move.move_date, Cover.cover_name, Move_Cover.mvcover_qty*Cover.cover_weight AS totWeight "
    "FROM (Move INNER JOIN Move_Cover ON Move.move_id = Move_Cover.move_id) INNER JOIN Cover ON Move_Cover.cover_id = "
    "Cover.cover_id WHERE DATEDIFF(\"d\", #%i/%i/%i#, move_date)>=0 AND DATEDIFF(\"d\", move_date, #%i/%i/%i#)>=0";

constexpr const char* DiscardedQuery =
    "SELECT CoverDiscard.disc_date, Cover.cover_name, CoverDiscard.disc_qty*Cover.cover_weight AS totWeight FROM "
    "CoverDiscard INNER JOIN Cover ON CoverDiscard.cover_id = Cover.cover_id WHERE DATEDIFF(\"d\", #%i/%i/%i#, "
    "disc_date)>=0 AND DATEDIFF(\"d\", disc_date, #%i/%i/%i#)>=0";

/// Stands at the first row out of range; false when there is none.
bool Find(CRecordset& rows) {
    for (; !rows.get_EOF(); rows.MoveNext()) {
        const Variant weight = rows.get_Collect("totWeight");
        if (!IsNull(weight) && !ToCurrency(weight).IsValid())
            return true;
    }
    return false;
}

QString Text(const CRecordset& row, const char* column) {
    return FormatVariant(row.get_Collect(column));
}

QString FaultyRow(CDataStore& store, DateTime from, DateTime to) {
    const auto days = [&](const char* query) {
        return store.Query(SqlText(query, from.Month(), from.Day(), from.Year(), to.Month(), to.Day(), to.Year()));
    };
    const RecordsetPtr issued = days(IssuedQuery);
    if (Find(*issued))
        return MessageText("výdej \"%s\" z %s, obal \"%s\"", Text(*issued, "move_num"), Text(*issued, "move_date"),
                           Text(*issued, "cover_name"));
    const RecordsetPtr discarded = days(DiscardedQuery);
    if (Find(*discarded))
        return MessageText("obal \"%s\" vyřazený %s", Text(*discarded, "cover_name"), Text(*discarded, "disc_date"));
    return {};
}

} // namespace

ComError NameFaultyRow(CDataStore& store, const ComError& error, DateTime from, DateTime to) {
    try {
        const QString row = FaultyRow(store, from, to);
        if (!row.isEmpty())
            return {error.Operation(), error.Text(), error.Code(), MessageText("%s\n\n%s", error.Description(), row)};
    } catch (const ComError&) {
        // The first error is what the user has to know.
    }
    return error;
}
