#pragma once

#include "core/base/Messages.h"
#include "core/base/SqlText.h"

#include <QLineEdit>

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

/// Refuses a text longer than its column holds. Typing is not cut off, so that a longer one that came from elsewhere is
/// not lost by opening it.
inline bool IsShortEnough(QLineEdit& edit, int most) {
    if (edit.text().size() <= most)
        return true;
    Refuse(edit, MessageText("Zadejte nejvýše %i znaků.", most));
    edit.selectAll();
    return false;
}
