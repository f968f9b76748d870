#pragma once

#include "windows/widgets/commands/Commands.h"

#include <QIcon>
#include <QKeySequence>
#include <QList>
#include <QString>

#include <span>

class CIconButton;
class QWidget;

/// All that is shown of a command, in menus, bars, buttons, tool tips and the status bar, and the keys that run it.
struct CommandRow {
    /// What a context menu must have been opened on; greyed otherwise.
    enum class Needs { Nothing, Row, Parent };

    Command command;
    /// In menus; null for a command that stands in none.
    const char* text;
    /// In portable form, "Ctrl+Ins"; null for none.
    const char* keys;
    /// By its name in the resources; null for none.
    const char* icon;
    /// In the status bar, while the command is pointed at.
    const char* prompt;
    const char* toolTip;
    Needs needs = Needs::Nothing;

    QString Text() const { return QString::fromUtf8(text); }
    QString Prompt() const { return QString::fromUtf8(prompt); }
    QString ToolTip() const { return QString::fromUtf8(toolTip); }
    /// Null for a command without one.
    QIcon Icon() const;
    /// The first is the one that a menu shows; each Enter is also the key pad's.
    QList<QKeySequence> Keys() const;
};

std::span<const CommandRow> AllCommands();
const CommandRow& RowOf(Command command);

/// The small button of a command, without its click.
CIconButton* MakeCommandButton(Command command, QWidget* parent);
