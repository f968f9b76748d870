#pragma once

#include "store/Messages.h"

#include <QWidget>

/// A check of a dialog or page that failed: warns, and puts the focus where the fault is. False, for the caller to
/// answer.
inline bool Refuse(QWidget& control, const QString& text) {
    ShowWarning(text);
    control.setFocus();
    return false;
}
inline bool Refuse(QWidget& control, const char* text) {
    return Refuse(control, QString::fromUtf8(text));
}
