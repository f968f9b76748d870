#include "windows/frame/ImportCommands.h"

#include "core/import/money/MoneyImport.h"
#include "core/import/wak/WakImport.h"
#include "windows/frame/KuvelDoc.h"
#include "windows/frame/MainFrame.h"
#include "windows/frame/doors/OverwriteDialogDoor.h"
#include "windows/import/MoneyWizard.h"
#include "windows/import/WakWizard.h"

namespace {

/// Runs the wizard and the import that follows it; its settings are stored however they end.
template <class Wizard, class Import>
bool Carry(Wizard& wizard, CMainFrame& frame, const Import& import) {
    bool imported = false;
    try {
        imported = wizard.Run(&frame) && import();
    } catch (...) {
        wizard.StoreOptions();
        throw;
    }
    wizard.StoreOptions();
    return imported;
}

bool ImportFromMoney(CMainFrame& frame, IProgressDoor& progress, ImportCounts& counts) {
    if (!MoneyComponentReady())
        return false;
    CMoneyWizard wizard;
    return Carry(wizard, frame, [&] {
        CMoneySource source(wizard.Year(), wizard.Options());
        COverwriteDialogDoor door;
        return RunImport(frame.Document().Store(), source, wizard.Options(), progress, door, counts);
    });
}

bool ImportFromWak(CMainFrame& frame, IProgressDoor& progress, ImportCounts& counts) {
    CWakWizard wizard(progress);
    return Carry(wizard, frame, [&] {
        CWakSource source(wizard.Options(), wizard.Range());
        COverwriteDialogDoor door;
        return RunImport(frame.Document().Store(), source, wizard.Options(), progress, door, counts);
    });
}

void Import(CMainFrame& frame, const ImportCommand& command) {
    const ImportResult result = RunImportCommand(command);
    if (result.ProductsChanged())
        frame.RegisterArea().Broadcast(ViewMessage::WM_PRODUCTS_CHANGED, nullptr);
    if (result.MovesChanged())
        frame.RegisterArea().Broadcast(ViewMessage::WM_MOVES_CHANGED, nullptr);
}

} // namespace

void InstallImportCommands(CMainFrame& frame, IProgressDoor& progress) {
    const auto install = [&frame](Command command, ImportCommand import) {
        frame.SetHandler(command, [&frame, import = std::move(import)] { Import(frame, import); });
    };
    install(Command::ID_IMPORT_MONEY, [&](ImportCounts& counts) { return ImportFromMoney(frame, progress, counts); });
    install(Command::ID_IMPORT_WAK, [&](ImportCounts& counts) { return ImportFromWak(frame, progress, counts); });
    install(Command::ID_IMPORT_EKONOM, ImportFromEkonom);
}
