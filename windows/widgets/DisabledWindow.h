#pragma once

#include <QObject>
#include <QPointer>

#include <vector>

class QWidget;

/// A top-level window, with the windows over it, that takes no input while this lives. It looks as before and is still
/// painted; windows that are opened over it meanwhile take input.
class CDisabledWindow : public QObject {
public:
    explicit CDisabledWindow(QWidget& window);
    ~CDisabledWindow() override;

    /// False for a window, or what stands in it, while it is disabled in this or in the usual way.
    static bool TakesInput(const QWidget& widget);

protected:
    bool eventFilter(QObject* watched, QEvent* event) override;

private:
    bool Holds(const QWidget& widget) const;

    std::vector<QPointer<QWidget>> m_windows;
};
