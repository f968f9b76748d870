#pragma once

#include "core/base/DateTime.h"
#include "core/rules/records/PackagingRule.h"
#include "core/store/Recordset.h"

/// What the user chose to pack products in: a cover with the values of its use, or a composite cover.
struct ChosenPackaging {
    static constexpr std::int32_t NoComposite = -1;

    std::int32_t compositeId = NoComposite;
    /// Counts only without a composite.
    PackagingRule rule;
};

/// Adds the packaging rows to a definition: one for a cover, copies of all its items for a composite, which leaves no
/// trace of itself. `target` is the table "Prod_Cover", reused across calls. Raises ComError; rows added before stay.
void AddPackagingRows(CDataStore& store, const RecordsetPtr& target, std::int32_t dtId, const ChosenPackaging& chosen);

/// The product's definitions that begin on the day, whatever their time.
RecordsetPtr DefinitionsOfDay(CDataStore& store, std::int32_t prodId, const DateTime& day);
/// Adds a definition through any recordset of "Prod_CoverDT"; it becomes the current record. Raises ComError.
void AddDefinition(CRecordset& definitions, std::int32_t prodId, const DateTime& from);
/// Copies the packaging rows of the product's newest definition before this one, if there is one. Raises ComError.
void TakePackagingBefore(CDataStore& store, std::int32_t prodId, std::int32_t dtId, const DateTime& from);
