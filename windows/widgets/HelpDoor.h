#pragma once

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

using HelpDoor = std::function<void(HelpContext)>;

/// The one door to the user's guide; what opens it is set by the main window. Until then nothing happens.
void OpenHelp(HelpContext context);
/// Returns the door that was in use before.
HelpDoor SetHelpDoor(HelpDoor door);
