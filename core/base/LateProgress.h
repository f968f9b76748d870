#pragma once

#include "core/base/Progress.h"

#include <chrono>

/// The progress window of work that is mostly over at once: it opens only when that has lasted a while, so that the
/// user sees it after about half a second.
class CLateProgress : public IProgress {
public:
    CLateProgress(IProgressDoor& door, QString title, bool showCancel);

    void SetRange(int low, int high) override;
    void SetPhaseText(const QString& text) override;
    void SetDetailText(const QString& text) override;
    void SetPosition(int position) override;
    bool CancelRequested() override;

private:
    bool IsOpen();

    IProgressDoor& m_door;
    const QString m_title;
    const bool m_showCancel;
    const std::chrono::steady_clock::time_point m_start;
    std::unique_ptr<IProgress> m_window;
    int m_low = 0;
    int m_high = 100;
    QString m_phase;
    QString m_detail;
};
