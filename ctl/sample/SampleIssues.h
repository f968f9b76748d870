#pragma once

#include "ctl/sample/SampleProducts.h"
#include "ctl/sample/Sequence.h"

class CDataStore;
class CCommitGroup;

/// 3,000 issues of 2009 to 2012 with 9,000 lines, in the order of their days, each line with the packaging that the
/// rules give it. Raises ComError.
void AddSampleIssues(CDataStore& store, CCommitGroup& group, const SampleProducts& products, CSequence& sequence);

/// Reusable covers taken out of use in every quarter of these years, in all three ways. Raises ComError.
void AddSampleDiscards(CDataStore& store, const CCoverIds& covers, CSequence& sequence);
