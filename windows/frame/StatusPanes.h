#pragma once

#include "windows/frame/LockKeys.h"

#include <QObject>

class QLabel;
class QStatusBar;

/// The panes of the status bar: the idle text, and the three indicators that follow the keyboard.
class CStatusPanes : public QObject {
    Q_OBJECT

public:
    explicit CStatusPanes(QStatusBar& bar);
    void Show(const LockKeys& keys);

protected:
    bool eventFilter(QObject* watched, QEvent* event) override;

private:
    QLabel* AddIndicator(QStatusBar& bar, const char* name, const QString& text);
    void Ask();

    QLabel* m_caps;
    QLabel* m_num;
    QLabel* m_scroll;
};
