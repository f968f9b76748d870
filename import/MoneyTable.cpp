#include "import/MoneyTable.h"

#include "import/DbfTable.h"
#include "store/ComError.h"
#include "store/Messages.h"
#include "store/Shared.h"
#include "store/SqlText.h"

#include <utility>

namespace {

MoneyTableFactory& Factory() {
    static MoneyTableFactory factory;
    return factory;
}

MoneyTablePtr MakeTable() {
    return Factory() ? Factory()() : std::make_unique<CDbfTable>();
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

MoneyTableFactory SetMoneyTableFactory(MoneyTableFactory factory) {
    return std::exchange(Factory(), std::move(factory));
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
