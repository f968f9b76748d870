#include "core/report/ReportRun.h"

#include "core/base/Messages.h"
#include "core/base/Pacing.h"
#include "core/base/Shared.h"
#include "core/base/SqlText.h"
#include "core/report/Figures.h"
#include "core/report/IntroSheet.h"
#include "core/report/SheetTable.h"
#include "core/report/TemplateFile.h"
#include "core/store/DataStore.h"

#include <QDir>
#include <QFile>

namespace {

QString IntroName() {
    return QStringLiteral("Úvod");
}

/// The workbook under way and the application that holds it.
class OpenReport {
public:
    explicit OpenReport(const OutputName& output) : m_output(output) {}

    bool Start(const SpreadsheetFactory& start) {
        m_spreadsheet = start();
        return m_spreadsheet != nullptr;
    }
    IWorkbook& Open() {
        if (!m_output.isFree)
            RaiseTaken();
        m_workbook = m_spreadsheet->Open(m_output.path);
        return *m_workbook;
    }
    /// Closes and ends what was opened, whatever state it is in: the application may be gone already.
    void End() noexcept {
        if (m_workbook)
            Quietly([&] { m_workbook->Close(); });
        m_workbook.reset();
        if (m_spreadsheet)
            Quietly([&] { m_spreadsheet->Quit(); });
        m_spreadsheet.reset();
    }
    /// The same, and nothing of the report remains.
    void Discard() noexcept {
        End();
        if (m_output.isFree)
            Quietly([&] { QFile::remove(m_output.path); });
    }

private:
    [[noreturn]] void RaiseTaken() const {
        throw ComError("Open", m_output.path.toStdString(), ResultCode::Fail,
                       MessageText("Všech %i názvů výkazů pro dnešní den je použito. Odstraňte nebo přesuňte starší "
                                   "výkazy ze složky '%s'.",
                                   NamesOfDay, QDir::toNativeSeparators(ReportFolder())));
    }
    template <class Act>
    static void Quietly(Act act) noexcept {
        try {
            act();
        } catch (...) {
            // What led here has been or will be reported; a second failure has nothing to add.
        }
    }

    OutputName m_output;
    std::unique_ptr<ISpreadsheet> m_spreadsheet;
    std::unique_ptr<IWorkbook> m_workbook;
};

void FillFigureSheets(IWorkbook& workbook, Period period, CDataStore& store, IProgress& progress) {
    CQuarterTotals totals(store, QuarterRange(period.year, period.quarter));
    for (const FigureSheet& figures : FigureSheets) {
        const std::unique_ptr<IWorksheet> sheet = workbook.Worksheet(figures.Name());
        if (!sheet)
            continue;
        progress.SetPhaseText(QStringLiteral("sešit ") + figures.Name());
        sheet->Activate();
        FillSheet(figures, totals, progress, *sheet);
    }
}

/// Null also where the spreadsheet rejects the name because the workbook has no such sheet.
std::unique_ptr<IWorksheet> IntroSheet(IWorkbook& workbook) {
    try {
        return workbook.Worksheet(IntroName());
    } catch (const ComError& error) {
        if (error.Code() == NoSuchSheet)
            return nullptr;
        throw;
    }
}

/// Empty when the workbook is filled and saved, otherwise why the template cannot be used. Raises ComError.
QString FillWorkbook(IWorkbook& workbook, const QString& templatePath, const ReportRequest& request, CDataStore& store,
                     IProgress& progress) {
    const QString templateName = QDir::toNativeSeparators(templatePath);
    {
        const std::unique_ptr<IWorksheet> intro = IntroSheet(workbook);
        if (!intro)
            return MessageText("Soubor '%s' neobsahuje předlohu výkazu", templateName);
        progress.SetPhaseText(QStringLiteral("sešit ") + IntroName());
        intro->Activate();
        if (!ReadIntroSheet(*intro, request.period))
            return MessageText("Soubor '%s'\nneobsahuje předlohu výkazu pro %i. čtvrtletí %i!", templateName,
                               request.period.quarter, request.period.year);
        WriteIntroSheet(*intro, request);
    }
    FillFigureSheets(workbook, request.period, store, progress);
    if (const std::unique_ptr<IWorksheet> intro = IntroSheet(workbook))
        intro->Activate();
    workbook.Save();
    return {};
}

} // namespace

QString RunReport(CDataStore& store, IProgressDoor& door, const SpreadsheetFactory& startSpreadsheet,
                  const ReportRequest& request) {
    const QString templatePath = FindTemplate(request.period);
    if (templatePath.isEmpty()) {
        ShowWarning(MessageText("Nemohu najít soubor s předlohou výkazu \"%s_%i\"",
                                QDir::toNativeSeparators(YearTemplate(request.period.year)), request.period.quarter));
        return {};
    }
    CreateDirectoryPath(ReportFolder());
    const OutputName output = NextOutputName(DateTime::Today());
    if (output.isFree && !CopyToNewFile(templatePath, output.path)) {
        ShowMessage(MessageText("Nemohu vytvořit soubor \"%s\"!", QDir::toNativeSeparators(output.path)),
                    Message::Icon::Error);
        return {};
    }

    const std::unique_ptr<IProgress> progress = door.Open(QStringLiteral("Sestavení výkazu"), false);
    progress->SetRange(0, CPacing::BarRange);
    progress->SetPhaseText(QStringLiteral("Spouštím excel"));
    OpenReport report(output);
    try {
        if (!report.Start(startSpreadsheet)) {
            ShowMessage(QStringLiteral("Na tomto počítači pravděpodobně nemáte nainstalován Excel!"),
                        Message::Icon::Error);
            return {};
        }
        const QString refusal = FillWorkbook(report.Open(), templatePath, request, store, *progress);
        if (refusal.isEmpty()) {
            report.End();
            return output.path;
        }
        report.Discard();
        ShowWarning(refusal);
    } catch (const ComError& error) {
        report.Discard();
        ShowComError(error);
    } catch (...) {
        report.Discard();
    }
    return {};
}
