#pragma once

#include <QString>

#include <memory>

/// The progress window of one long operation. Destroying it closes the window.
class IProgress {
public:
    virtual ~IProgress() = default;
    virtual void SetRange(int low, int high) = 0;
    /// Sets the first line and clears the second.
    virtual void SetPhaseText(const QString& text) = 0;
    virtual void SetDetailText(const QString& text) = 0;
    /// Lets pending window messages through first, then moves the bar.
    virtual void SetPosition(int position) = 0;
    /// Lets pending window messages through; true once for any number of presses since it was asked last.
    virtual bool CancelRequested() = 0;
};

/// The door through which the core opens a progress window over the main window.
class IProgressDoor {
public:
    virtual ~IProgressDoor() = default;
    virtual std::unique_ptr<IProgress> Open(const QString& title, bool showCancel) = 0;
};

/// A door whose windows show nothing and are never cancelled.
IProgressDoor& SilentProgress();
