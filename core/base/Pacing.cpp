#include "core/base/Pacing.h"

#include "core/base/SqlText.h"

#include <algorithm>
#include <chrono>

namespace {

/// A step of a very long run takes longer than a press of the button may wait.
constexpr std::int64_t LongestDeafness = 100; // milliseconds

std::int64_t Milliseconds() {
    using namespace std::chrono;
    return duration_cast<milliseconds>(steady_clock::now().time_since_epoch()).count();
}

} // namespace

CPacing::CPacing(IProgress& progress, std::int64_t count)
    : m_progress(progress), m_count(std::max<std::int64_t>(count, 1)),
      m_step(std::max<std::int64_t>(count / BarRange, 1)), m_lastLook(Milliseconds()) {}

bool CPacing::GoOn(std::int64_t index) {
    if (IsStep(index) || Milliseconds() - m_lastLook > LongestDeafness) {
        if (m_progress.CancelRequested())
            return false;
        m_lastLook = Milliseconds();
    }
    Show(index);
    return true;
}

void CPacing::Show(std::int64_t index) {
    if (!IsStep(index))
        return;
    m_progress.SetDetailText(MessageText("%li z %li", index + 1, m_count));
    m_progress.SetPosition(Position(index));
}

int CPacing::Position(std::int64_t index) const {
    return static_cast<int>(BarRange * (index + 1) / m_count);
}
