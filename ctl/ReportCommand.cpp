#include "core/report/ReportRun.h"
#include "core/report/office/OfficeSpreadsheet.h"
#include "core/store/DataStore.h"
#include "ctl/Commands.h"
#include "ctl/Interrupts.h"
#include "ctl/Terminal.h"

#include <memory>

namespace {

struct ReportOptions {
    int year = 0;
    int quarter = 0;
    bool corrective = false;
};

bool Report(const ReportOptions& options, CTerminal& terminal) {
    if (!OpenStore())
        return false;
    // From before the workbook is made, so that none is left half-filled.
    const CInterrupts interrupts;
    const ReportRequest request{{options.year, options.quarter}, !options.corrective, ReadCompanyData()};
    const QString workbook = RunReport(g_dataStore, terminal, LibreOfficeFactory(), request);
    if (workbook.isEmpty())
        return false;
    PrintLine(workbook);
    return true;
}

} // namespace

void AddReport(CLI::App& app, Action& action) {
    CLI::App* command = app.add_subcommand("report", "Makes the quarter's report as a workbook and prints its path");
    const auto options = std::make_shared<ReportOptions>();
    AddPeriod(*command, options->year, options->quarter);
    command->add_flag("--corrective", options->corrective, "A report that corrects an earlier one");
    command->callback(
        [options, &action] { action = [options](CTerminal& terminal) { return Report(*options, terminal); }; });
}
