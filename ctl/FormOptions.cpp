#include "ctl/FormOptions.h"

#include "core/report/IntroSheet.h"
#include "ctl/Commands.h"

void FormOptions::Add(CLI::App& command) {
    AddPeriod(command, year, quarter);
    command
        .add_option("--template-version", templateVersion,
                    "The form's version as cell A1 of the template has it (the usual one of the quarter)")
        ->option_text("V");
}

QString FormOptions::Version() const {
    return templateVersion.empty() ? UsualVersion({year, quarter}) : QString::fromStdString(templateVersion);
}
