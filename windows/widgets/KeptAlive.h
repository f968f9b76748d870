#pragma once

#include "windows/widgets/DisabledWindow.h"

#include <QElapsedTimer>

#include <optional>

/// Keeps the windows painting through work that has no progress window. They take no input meanwhile, so that no other
/// command gets into the middle of it; work that is over soon does not show that it was there.
class CKeptAlive {
public:
    /// Milliseconds of work between two looks at what the desktop wants.
    static constexpr int Slice = 50;

    explicit CKeptAlive(QWidget& window) : m_window(window) { m_sinceLook.start(); }
    /// To be called after each piece of the work; any window's message may be served inside.
    void Look();

private:
    QWidget& m_window;
    std::optional<CDisabledWindow> m_disabled;
    QElapsedTimer m_sinceLook;
};
