#pragma once

#include "core/base/Door.h"

#include <functional>

/// What a "Nápověda" button or F1 may ask for.
enum class HelpContext {
    Contents = 0,
    Cover = 3,
    CompositeCover = 13,
    CoverFilter,
    Discard,
    CompositeFilter,
    Product,
    ProductFilter,
    ValidityDate,
    CoverChoice,
    PackagingRow,
    BulkAssignment,
    Issue,
    IssueFilter,
    IssueItem,
    IssuedCover,
    Report,
    MoneyImport,
    WakImport,
    ExistingRecords,
    FindReplace,
    Options,
    Backup,
    Messages
};

/// The one door to the user's guide; what opens it is put in by the main window. Until then nothing happens.
Door<std::function<void(HelpContext)>>& HelpDoor();
void OpenHelp(HelpContext context);
