#pragma once

#include "core/import/OverwriteDoor.h"

/// Asks with the window of the question, over the window that is in front.
class COverwriteDialogDoor : public IOverwriteDoor {
public:
    Answer Ask(const OverwriteQuestion& question) override;
};
