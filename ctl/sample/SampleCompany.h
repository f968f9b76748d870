#pragma once

#include "core/report/CompanyData.h"

class CDataStore;

/// Fills the open, empty database with the sample company: the records of a family-run wholesaler for the years 2009
/// to 2012, the same on every machine and in every run. Raises ComError; what was written before stays.
void FillSampleCompany(CDataStore& store);

/// What its reports say about the company. No such company exists: its number fails the check digit.
CompanyData SampleCompanyData();
