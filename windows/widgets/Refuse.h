#pragma once

#include "core/base/Messages.h"
#include "core/base/TextField.h"

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

/// Makes one line of what was typed or pasted, without blanks at its ends unless they are to stay, and refuses it when
/// the column cannot hold it. Typing is not cut off, so that a longer text that came from elsewhere is not lost by
/// opening it.
inline bool TakeLine(QLineEdit& edit, const char* column, bool trims = true) {
    const QString line = trims ? TrimmedLine(edit.text()) : OneLine(edit.text());
    if (line != edit.text())
        edit.setText(line);
    const QString refusal = RefuseLength(column, line);
    if (refusal.isEmpty())
        return true;
    Refuse(edit, refusal);
    edit.selectAll();
    return false;
}
