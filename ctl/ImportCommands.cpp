#include "ctl/ImportCommands.h"

#include "ctl/Failure.h"
#include "ctl/Terminal.h"

#include <CLI/Validators.hpp>

CImportArguments::CImportArguments(CLI::App& command) {
    command.add_flag("--products", m_products, "Import products");
    command.add_flag("--issues", m_issues, "Import issue documents");
    command.add_option("--existing", m_existing, "What to do with the records of an earlier import")
        ->option_text("overwrite|keep")
        ->check(CLI::IsMember({"overwrite", "keep"}));
}

bool CImportArguments::Apply(ImportOptions& options) const {
    if (m_products || m_issues) {
        options.products = m_products;
        options.documents = m_issues;
    }
    if (!m_existing.empty())
        options.existing = m_existing == "overwrite" ? ExistingRecords::Overwrite : ExistingRecords::Keep;
    if (!options.products && !options.documents) {
        ShowWarning(QStringLiteral("Není vybrán import produktů ani dokladů!"));
        return false;
    }
    if (options.existing == ExistingRecords::Ask)
        throw Failure(QStringLiteral(
            "kuvel.ini says to ask about each existing record, which is not possible here; give --existing"));
    return true;
}

bool RunImportHere(const ImportCommand& command) {
    const ImportResult result = CarryOutImport(command);
    if (!result.IsSilent())
        PrintLine(result.Summary());
    if (const QString notice = result.CutNotice(); !notice.isEmpty())
        ShowWarning(notice);
    return result.end == ImportResult::End::Done;
}

void AddImport(CLI::App& app, Action& action) {
    CLI::App* import = app.add_subcommand("import", "Takes over products and issue documents from another system");
    import->require_subcommand(1);
    AddImportMoney(*import, action);
    AddImportWak(*import, action);
}
