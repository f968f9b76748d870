#pragma once

#include "core/base/Door.h"

#include <functional>

/// The signal that nothing (more) was found.
void Beep();
/// What the signal does: the desktop's sound until something else is put in.
Door<std::function<void()>>& BeepDoor();
