#include "windows/widgets/commands/ContextMenus.h"

#include <QMenu>

#include <span>

namespace {

enum class Needs { Nothing, Row, Parent };

struct Item {
    Command command;
    const char* text;
    const char* key;
    Needs needs;
};

constexpr Item Separator{Command{}, nullptr, nullptr, Needs::Nothing};

constexpr Item RecMain[] = {
    {Command::ID_RECORD_ADD, "&Přidat", "Ins", Needs::Nothing},
    {Command::ID_RECORD_EDIT, "&Upravit", "Enter", Needs::Row},
    {Command::ID_RECORD_DELETE, "&Odstranit", "Del", Needs::Row},
    Separator,
    {Command::ID_RECORD_FIND, "&Najít...", "Ctrl+F", Needs::Nothing},
    {Command::ID_RECORD_REPLACE, "Na&hradit...", "Ctrl+H", Needs::Nothing},
    Separator,
    {Command::ID_RECORD_FILTER, "Fil&tr...", "Ctrl+T", Needs::Nothing},
};
constexpr Item Rec2[] = {
    {Command::ID_DETAIL_ADD, "&Přidat", "Ctrl+Ins", Needs::Parent},
    {Command::ID_DETAIL_EDIT, "&Upravit", "Ctrl+Enter", Needs::Row},
    {Command::ID_DETAIL_DELETE, "&Odstranit", "Ctrl+Del", Needs::Row},
};
constexpr Item Rec3[] = {
    {Command::ID_SUBDETAIL_ADD, "&Přidat", "Alt+Ins", Needs::Parent},
    {Command::ID_SUBDETAIL_EDIT, "&Upravit", "Alt+Enter", Needs::Row},
    {Command::ID_SUBDETAIL_DELETE, "&Odstranit", "Alt+Del", Needs::Row},
};
constexpr Item RecProd[] = {
    {Command::ID_RECORD_ADD, "&Přidat", "Ins", Needs::Nothing},
    {Command::ID_RECORD_EDIT, "&Upravit", "Enter", Needs::Row},
    {Command::ID_RECORD_DELETE, "&Odstranit", "Del", Needs::Row},
    Separator,
    {Command::ID_PROD_ASSIGN_COVERS, "Hromadně přiř&adit kuvel", nullptr, Needs::Row},
    Separator,
    {Command::ID_RECORD_FIND, "&Najít...", "Ctrl+F", Needs::Nothing},
    {Command::ID_RECORD_REPLACE, "Na&hradit...", "Ctrl+H", Needs::Nothing},
    Separator,
    {Command::ID_RECORD_FILTER, "Fil&tr...", "Ctrl+T", Needs::Nothing},
};
constexpr Item Rec1[] = {
    {Command::ID_RECORD_ADD, "&Přidat", "Ins", Needs::Nothing},
    {Command::ID_RECORD_EDIT, "&Upravit", nullptr, Needs::Row},
    {Command::ID_RECORD_DELETE, "&Odstranit", "Del", Needs::Row},
};

std::span<const Item> Items(ContextMenu menu) {
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

} // namespace

QMenu* MakeContextMenu(ContextMenu menu, const MenuState& state, const std::function<bool(Command)>& handles,
                       const std::function<void(Command)>& run, QWidget* parent) {
    auto* result = new QMenu(parent);
    for (const Item& item : Items(menu)) {
        if (item.text == nullptr) {
            result->addSeparator();
            continue;
        }
        QString text = QString::fromUtf8(item.text);
        if (item.key != nullptr)
            text += QLatin1Char('\t') + QLatin1String(item.key);
        const Command command = item.command;
        QAction* action = result->addAction(text, result, [run, command] { run(command); });
        const bool allowed = item.needs == Needs::Nothing || (item.needs == Needs::Row && state.onRow) ||
                             (item.needs == Needs::Parent && state.hasParent);
        action->setEnabled(allowed && handles(command));
    }
    return result;
}
