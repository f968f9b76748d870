#pragma once

#include "core/base/Progress.h"

#include <cstdint>

/// A run of `count` steps in a progress window: shows "%li z %li" and moves the bar at most about 200 times, and asks
/// the window whether it was cancelled then, and whenever a step has taken long.
class CPacing {
public:
    /// The window's range is from 0 to this.
    static constexpr int BarRange = 200;

    CPacing(IProgress& progress, std::int64_t count);
    /// Before the step at this place, counted from 0; false when the user cancelled.
    bool GoOn(std::int64_t index);
    /// The same for a run that cannot be cancelled.
    void Show(std::int64_t index);
    /// Where the bar stands at this place.
    int Position(std::int64_t index) const;

private:
    bool IsStep(std::int64_t index) const { return index % m_step == 0; }

    IProgress& m_progress;
    const std::int64_t m_count;
    const std::int64_t m_step;
    std::int64_t m_lastLook;
};
