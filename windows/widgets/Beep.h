#pragma once

#include <functional>

/// The signal that nothing (more) was found.
void Beep();
/// What the signal does instead of the desktop's sound; null puts the sound back. Returns what was in use before.
std::function<void()> SetBeep(std::function<void()> beep);
