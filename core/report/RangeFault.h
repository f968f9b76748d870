#pragma once

#include "core/base/ComError.h"
#include "core/report/Quarter.h"

class CDataStore;

/// The error of a sum over these days, with the first row named whose weight no currency can hold: by its document or
/// discard, and its cover. The error as it was when there is no such row.
ComError NameFaultyRow(CDataStore& store, const ComError& error, DateTime from, DateTime to);
