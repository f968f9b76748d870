#pragma once

#include "core/import/OverwriteDoor.h"

/// Asks with the four buttons, over the window that is in front.
class COverwriteDialogDoor : public IOverwriteDoor {
public:
    Answer Ask(const QString& question) override;
};
