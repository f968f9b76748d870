#pragma once

#include <QObject>

/// F1 in a dialog, on a wizard page or in a box opens the guide at what it has to say on that window.
class CHelpKey : public QObject {
    Q_OBJECT

public:
    /// Listens to the whole program while it lives.
    explicit CHelpKey(QObject* parent);

protected:
    bool eventFilter(QObject* watched, QEvent* event) override;
};
