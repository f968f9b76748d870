#pragma once

#include <QString>

#include <cstdint>
#include <vector>

class CDataStore;

/// What stands below the question before a deletion: the records, by count and name, with what they are used in or what
/// goes with them. "1 obal: Páska lepicí, použit v 9 složených obalech, 367 baleních, 3 991 výdejích". All raise
/// ComError.
QString CoversToBeDeleted(CDataStore& store, const std::vector<std::int32_t>& ids);
QString CompositesToBeDeleted(CDataStore& store, const std::vector<std::int32_t>& ids);
QString ProductsToBeDeleted(CDataStore& store, const std::vector<std::int32_t>& ids);
QString IssuesToBeDeleted(CDataStore& store, const std::vector<std::int32_t>& ids);

/// Of a row that stands under another: whose it is, and what goes with it.
QString DiscardToBeDeleted(CDataStore& store, std::int32_t discId);
QString DefinitionToBeDeleted(CDataStore& store, std::int32_t dtId);
QString PackagingToBeDeleted(CDataStore& store, std::int32_t cpId);
QString ItemToBeDeleted(CDataStore& store, std::int32_t mvprodId);
QString IssuedCoverToBeDeleted(CDataStore& store, std::int32_t mvcoverId);
