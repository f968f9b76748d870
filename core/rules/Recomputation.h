#pragma once

#include "core/store/DataStore.h"

class IProgress;

/// All issue lines, or one product's: their keys only, until a line is visited. Raise ComError.
RecordsetPtr AllLines(CDataStore& store);
RecordsetPtr LinesOfProduct(CDataStore& store, std::int32_t prodId);

/// Computes the packaging of these lines anew, each read when its turn comes: another program may have changed it, and
/// one that has gone is passed over. `goOn` is asked before each line with its place, counted from 0; false ends the
/// run. `lines` is set to the number of lines whose new packaging is in the file, also when ComError is raised. False
/// when the run was ended.
bool RecomputeLines(CDataStore& store, CRecordset& issueLines, const std::function<bool(std::int64_t)>& goOn,
                    std::int64_t& lines);

/// Computes the packaging of a product's issue lines anew as one edit, or within one. It cannot be cancelled. Raises
/// ComError; the lines done before it stay.
void RecomputeProduct(CDataStore& store, std::int32_t prodId, IProgress& progress);

/// Deletes and computes anew the packaging of every issue line of one product; changes made by hand are lost. Answers
/// the number of lines; −1 after a database error was shown, with the lines done before it kept.
int RecomputeProductCovers(CDataStore& store, std::int32_t prodId);
