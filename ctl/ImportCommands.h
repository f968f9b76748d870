#pragma once

#include "core/import/Import.h"
#include "ctl/Commands.h"

#include <memory>

/// What the commands `import money` and `import wak` may be told alike; what is not given comes from `kuvel.ini`.
class CImportArguments {
public:
    /// Adds --products, --issues and --existing to the command.
    explicit CImportArguments(CLI::App& command);

    /// Changes what the settings say by what was given. False, after the program's message, when neither products nor
    /// issues are chosen. Raises Failure when a question would have to be asked for each record.
    bool Apply(ImportOptions& options) const;

private:
    bool m_products = false;
    bool m_issues = false;
    std::string m_existing;
};

/// Runs the import and prints its summary, if it wants one. True when it came to its end.
bool RunImportHere(const ImportCommand& command);

/// Each adds one command to `import`.
void AddImportMoney(CLI::App& import, Action& action);
void AddImportWak(CLI::App& import, Action& action);
