#include "core/base/LateProgress.h"

namespace {
/// The window waits a little by itself.
constexpr std::chrono::milliseconds OpenAfter{300};
} // namespace

CLateProgress::CLateProgress(IProgressDoor& door, QString title, bool showCancel)
    : m_door(door), m_title(std::move(title)), m_showCancel(showCancel), m_start(std::chrono::steady_clock::now()) {}

bool CLateProgress::IsOpen() {
    if (m_window)
        return true;
    if (std::chrono::steady_clock::now() - m_start < OpenAfter)
        return false;
    m_window = m_door.Open(m_title, m_showCancel);
    m_window->SetRange(m_low, m_high);
    m_window->SetPhaseText(m_phase);
    m_window->SetDetailText(m_detail);
    return true;
}

void CLateProgress::SetRange(int low, int high) {
    m_low = low;
    m_high = high;
    if (m_window)
        m_window->SetRange(low, high);
}

void CLateProgress::SetPhaseText(const QString& text) {
    m_phase = text;
    m_detail.clear();
    if (m_window)
        m_window->SetPhaseText(text);
}

void CLateProgress::SetDetailText(const QString& text) {
    m_detail = text;
    if (m_window)
        m_window->SetDetailText(text);
}

void CLateProgress::SetPosition(int position) {
    if (IsOpen())
        m_window->SetPosition(position);
}

bool CLateProgress::CancelRequested() {
    return IsOpen() && m_window->CancelRequested();
}
