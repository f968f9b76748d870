#include "windows/frame/FrameCommands.h"

#include "core/base/ListDecimals.h"
#include "core/rules/BulkRecompute.h"
#include "core/rules/Propagation.h"
#include "windows/frame/AboutDlg.h"
#include "windows/frame/BackupDlg.h"
#include "windows/frame/ImportCommands.h"
#include "windows/frame/KuvelDoc.h"
#include "windows/frame/MainFrame.h"
#include "windows/frame/OptionsDlg.h"
#include "windows/frame/ReportCommand.h"
#include "windows/frame/doors/ProgressDoor.h"
#include "windows/frame/help/HelpKey.h"
#include "windows/frame/help/HelpWindow.h"

#include <QPointer>

namespace {

void RunBackup(CMainFrame& frame, CBackupDlg::Mode mode) {
    const auto reload = [&frame] { frame.RegisterArea().Broadcast(ViewMessage::Refresh, nullptr); };
    CBackupDlg(mode, frame.Document().Store(), {reload, EndProcess}, &frame).exec();
}

void RunRecompute(CMainFrame& frame, CProgressDoor& progress) {
    if (!AskRecomputeAllIssues(frame.Document().Store()))
        return;
    std::int64_t lines = 0;
    RecomputeAllIssues(frame.Document().Store(), progress, lines);
    frame.RegisterArea().Broadcast(ViewMessage::WM_COVERS_CHANGED, nullptr);
}

void RunOptions(CMainFrame& frame) {
    const bool fourDecimals = FourDecimalsInLists();
    COptionsDlg(*Options(), &frame).exec();
    if (FourDecimalsInLists() != fourDecimals)
        frame.RegisterArea().Broadcast(ViewMessage::Refresh, nullptr);
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
    frame.RegisterArea().SetProgress(progress);
    frame.SetHandler(ID_OPTIONS, [&] { RunOptions(frame); });
    frame.SetHandler(ID_APP_ABOUT, [&] { CAboutDlg(&frame).exec(); });
    frame.SetHandler(ID_HELP, [] { OpenHelp(HelpContext::Contents); });
    static QPointer<CHelpWindow> help;
    HelpDoor().Put([](HelpContext context) { ShowHelp(help, context); });
    new CHelpKey(&frame);
}
