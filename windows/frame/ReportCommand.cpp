#include "windows/frame/ReportCommand.h"

#include "core/base/Messages.h"
#include "core/base/SqlText.h"
#include "core/report/ReportRun.h"
#include "core/report/office/OfficeProgram.h"
#include "core/report/office/OfficeSpreadsheet.h"
#include "windows/frame/doors/ProgressDoor.h"
#include "windows/report/ReportDlg.h"

#include <QDesktopServices>
#include <QDir>
#include <QProcess>
#include <QUrl>

void RunReportCommand(CDataStore& store, CProgressDoor& progress, QWidget* parent) {
    CReportDlg dialog(parent);
    if (dialog.exec() != QDialog::Accepted)
        return;
    const SpreadsheetFactory start = [&] {
        progress.ShowNow();
        return LibreOfficeFactory()();
    };
    const QString workbook = RunReport(store, progress, start, dialog.Request());
    if (!workbook.isEmpty())
        OpenWorkbook(workbook);
}

bool OpenWorkbook(const QString& path) {
    // Asked for by name: another program may be the desktop's choice for the workbook's type.
    const QString office = FindOffice();
    if (!office.isEmpty() && QProcess::startDetached(office, {path}))
        return true;
    if (QDesktopServices::openUrl(QUrl::fromLocalFile(path)))
        return true;
    ShowWarning(MessageText("Výkaz '%s' byl vytvořen, ale nepodařilo se ho otevřít.", QDir::toNativeSeparators(path)));
    return false;
}
