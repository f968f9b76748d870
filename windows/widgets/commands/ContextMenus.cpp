#include "windows/widgets/commands/ContextMenus.h"

#include "windows/widgets/commands/CommandTable.h"

#include <QCoreApplication>
#include <QMenu>
#include <QStatusTipEvent>

#include <span>

namespace {

using enum Command;

constexpr Command Separator{};
constexpr Command RecMain[] = {ID_RECORD_ADD,  ID_RECORD_EDIT,    ID_RECORD_DELETE, Separator,
                               ID_RECORD_FIND, ID_RECORD_REPLACE, Separator,        ID_RECORD_FILTER};
constexpr Command Rec2[] = {ID_DETAIL_ADD, ID_DETAIL_EDIT, ID_DETAIL_DELETE};
constexpr Command Rec3[] = {ID_SUBDETAIL_ADD, ID_SUBDETAIL_EDIT, ID_SUBDETAIL_DELETE};
constexpr Command RecProd[] = {ID_RECORD_ADD, ID_RECORD_EDIT, ID_RECORD_DELETE,  Separator, ID_PROD_ASSIGN_COVERS,
                               Separator,     ID_RECORD_FIND, ID_RECORD_REPLACE, Separator, ID_RECORD_FILTER};
constexpr Command Rec1[] = {ID_RECORD_ADD, ID_RECORD_EDIT, ID_RECORD_DELETE};

std::span<const Command> CommandsOf(ContextMenu menu) {
    switch (menu) {
    case ContextMenu::RecMain:
        return RecMain;
    case ContextMenu::Rec2:
        return Rec2;
    case ContextMenu::Rec3:
        return Rec3;
    case ContextMenu::RecProd:
        return RecProd;
    case ContextMenu::Rec1:
        return Rec1;
    }
    return {};
}

/// In the composition list Enter is the default button's, so the menu does not promise it.
bool ShowsKeys(ContextMenu menu, const CommandRow& row) {
    return row.keys != nullptr && !(menu == ContextMenu::Rec1 && row.command == ID_RECORD_EDIT);
}

bool Allows(const MenuState& state, CommandRow::Needs needs) {
    switch (needs) {
    case CommandRow::Needs::Row:
        return state.onRow;
    case CommandRow::Needs::Parent:
        return state.hasParent;
    default:
        return true;
    }
}

void TellStatusBar(QWidget& from, const QString& text) {
    QStatusTipEvent tip(text);
    QCoreApplication::sendEvent(&from, &tip);
}

} // namespace

QMenu* MakeContextMenu(ContextMenu menu, const MenuState& state, const std::function<bool(Command)>& handles,
                       const std::function<void(Command)>& run, QWidget* parent) {
    auto* const result = new QMenu(parent);
    for (const Command command : CommandsOf(menu)) {
        if (command == Separator) {
            result->addSeparator();
            continue;
        }
        const CommandRow& row = RowOf(command);
        QString text = row.Text();
        if (ShowsKeys(menu, row))
            text += QLatin1Char('\t') + QLatin1String(row.keys);
        QAction* const action = result->addAction(text, result, [run, command] { run(command); });
        // A menu is a window of its own: what it tells the status bar would not reach it.
        const QString prompt = row.Prompt();
        QObject::connect(action, &QAction::hovered, parent, [parent, prompt] { TellStatusBar(*parent, prompt); });
        action->setEnabled(Allows(state, row.needs) && handles(command));
    }
    QObject::connect(result, &QMenu::aboutToHide, parent, [parent] { TellStatusBar(*parent, {}); });
    return result;
}
