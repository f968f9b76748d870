#pragma once

#include <cstdint>

class CDataStore;
class IProgressDoor;

enum class BulkResult { Done, Cancelled, Failed };

/// Computes the packaging of every issue line anew, under a progress window with a Cancel button that is asked and
/// moved at most about 200 times. A cancel ("Aktualizace byla přerušena!") and a database error are shown here; the
/// lines done before keep their new rows, each line whole. `lines` is set to the number of lines whose new packaging is
/// in the file.
BulkResult RecomputeAllIssues(CDataStore& store, IProgressDoor& progress, std::int64_t& lines);
/// The same of one product's lines.
BulkResult RecomputeIssuesOfProduct(CDataStore& store, std::int32_t prodId, IProgressDoor& progress,
                                    std::int64_t& lines);

/// The question before it, with what it would change; true for Yes.
bool AskRecomputeAllIssues(CDataStore& store);
