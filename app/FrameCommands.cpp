#include "app/FrameCommands.h"

#include "app/AboutDlg.h"
#include "app/BackupDlg.h"
#include "app/HelpKey.h"
#include "app/HelpWindow.h"
#include "app/ImportCommands.h"
#include "app/KuvelDoc.h"
#include "app/MainFrame.h"
#include "app/OptionsDlg.h"
#include "app/ProgressDoor.h"
#include "app/ReportCommand.h"
#include "rules/BulkRecompute.h"
#include "rules/Propagation.h"

#include <QPointer>

namespace {

void RunBackup(CMainFrame& frame, CBackupDlg::Mode mode) {
    const auto reload = [&frame] { frame.RegisterArea().Broadcast(ViewMessage::Refresh, nullptr); };
    CBackupDlg(mode, frame.Document().Store(), {reload, EndProcess}, &frame).exec();
}

void RunRecompute(CMainFrame& frame, CProgressDoor& progress) {
    if (!AskRecomputeAllIssues())
        return;
    std::int64_t lines = 0;
    RecomputeAllIssues(frame.Document().Store(), progress, lines);
    frame.RegisterArea().Broadcast(ViewMessage::WM_COVERS_CHANGED, nullptr);
}

void ShowHelp(QPointer<CHelpWindow>& window, HelpContext context) {
    if (window == nullptr)
        window = new CHelpWindow;
    window->Open(context);
}

} // namespace

void InstallFrameCommands(CMainFrame& frame, CProgressDoor& progress) {
    using enum Command;
    frame.SetHandler(ID_REPORT, [&] { RunReportCommand(frame.Document().Store(), progress, &frame); });
    frame.SetHandler(ID_BACKUP, [&] { RunBackup(frame, CBackupDlg::Mode::Backup); });
    frame.SetHandler(ID_RESTORE, [&] { RunBackup(frame, CBackupDlg::Mode::Restore); });
    frame.SetHandler(ID_RECOMPUTE_ISSUES, [&] { RunRecompute(frame, progress); });
    InstallImportCommands(frame, progress);
    frame.SetHandler(ID_OPTIONS, [&] { COptionsDlg(g_options, &frame).exec(); });
    frame.SetHandler(ID_APP_ABOUT, [&] { CAboutDlg(&frame).exec(); });
    frame.SetHandler(ID_HELP, [] { OpenHelp(HelpContext::Contents); });
    static QPointer<CHelpWindow> help;
    SetHelpDoor([](HelpContext context) { ShowHelp(help, context); });
    new CHelpKey(&frame);
}
