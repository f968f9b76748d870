#pragma once

#include "windows/widgets/HelpDoor.h"

#include <optional>
#include <span>

class QWidget;

struct HelpPage {
    HelpContext context;
    /// File in the guide, with an anchor when the page is about more than this.
    const char* address;
};

/// One row for each context.
std::span<const HelpPage> HelpPages();
const char* HelpAddress(HelpContext context);
/// What the guide has to say on the dialog, wizard page or box that holds the control; nothing for the main window,
/// whose own command opens the contents.
std::optional<HelpContext> HelpContextOf(const QWidget& control);
