#pragma once

#include "core/base/Messages.h"

/// Message boxes over the window that is active.
class CMessageBoxDoor : public IMessageDoor {
public:
    Message::Answer Show(const Message& message) override;
};
