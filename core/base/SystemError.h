#pragma once

#include <cerrno>
#include <system_error>

/// A code of errno; no error for 0.
inline std::error_code SystemError(int code) {
    return {code, std::generic_category()};
}

/// Why the last call of the system failed; asked right after it, before anything is cleaned up.
inline std::error_code LastError() {
    return SystemError(errno);
}
