#pragma once

#include <optional>

struct LockKeys {
    bool caps = false;
    bool num = false;
    bool scroll = false;
};

/// As the keyboard's lights show them; nothing where the desktop does not tell.
std::optional<LockKeys> QueryLockKeys();
