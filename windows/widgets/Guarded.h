#pragma once

#include "core/base/Messages.h"

/// Runs one operation of a window; an error of the store is shown. False after an error.
template <class Operation>
bool Guarded(const Operation& operation) {
    try {
        operation();
        return true;
    } catch (const ComError& error) {
        ShowComError(error);
        return false;
    }
}
