#pragma once

#include "core/store/DataStore.h"

/// Adds the packaging that leaves with one issue line: the rows of the product's definition in force on the issue date
/// (the last one whose day and time are not after it) that apply to the quantity, each with the whole number of product
/// packages times the pieces per package. Never deletes: the caller removes the line's old rows first.
///
/// `target` is the table "Move_Cover" opened for appending, reused across calls; `mvprodId` and `moveId` are written as
/// they are. The quantity is in products, in ten-thousandths. `scratch` is reused across calls. Answers the number of
/// rows added; −1 when the date is not valid. Raises ComError; rows added before it stay.
int AddItemCovers(CDataStore& store, const RecordsetPtr& target, const Variant& mvprodId, const Variant& moveId,
                  std::int32_t prodId, Currency quantity, const DateTime& issueDate, RecordsetPtr& scratch);

/// The same; a database error is shown and answered with −1.
int ComputeItemCovers(CDataStore& store, const RecordsetPtr& target, const Variant& mvprodId, const Variant& moveId,
                      std::int32_t prodId, Currency quantity, const DateTime& issueDate);
