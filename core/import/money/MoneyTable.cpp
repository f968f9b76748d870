#include "core/import/money/MoneyTable.h"

#include "core/base/ComError.h"
#include "core/base/Messages.h"
#include "core/base/Shared.h"
#include "core/base/SqlText.h"
#include "core/import/money/DbfTable.h"

namespace {

MoneyTablePtr MakeTable() {
    return (*MoneyTableDoor())();
}

bool CanMakeTable() {
    try {
        return MakeTable() != nullptr;
    } catch (const ComError&) {
        // The answer is that it cannot; whoever asks says so.
        return false;
    }
}

QString DescriptionOf(const ComError& error) {
    return error.Description().isEmpty() ? QStringLiteral("Neznámá chyba") : error.Description().left(1000);
}

} // namespace

Door<MoneyTableFactory>& MoneyTableDoor() {
    static Door<MoneyTableFactory> door([] { return std::make_unique<CDbfTable>(); });
    return door;
}

bool MoneyComponentAvailable() {
    if (CanMakeTable())
        return true;
    RegisterServerDll(QStringLiteral("mon2kdbe.dll"));
    return CanMakeTable();
}

bool OpenMoneyTable(MoneyTablePtr& table, const QString& path, bool showMessages) {
    if (!table) {
        try {
            table = MakeTable();
        } catch (const ComError& error) {
            if (showMessages)
                ShowMessage(MessageText("Nemohu otevřít tabulku Money \"%s\"\n%s", path, DescriptionOf(error)),
                            Message::Icon::Error);
            return false;
        }
    }
    table->Close();
    if (!table->Open(path)) {
        table.reset();
        if (showMessages)
            ShowMessage(MessageText("Nemohu otevřít tabulku Money \"%s\"", path), Message::Icon::Error);
        return false;
    }
    return true;
}
