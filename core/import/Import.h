#pragma once

#include "core/base/Progress.h"
#include "core/import/ImportWriter.h"

#include <functional>

/// The phases that the options choose, under the progress window: products, then issue documents, each under the
/// options' policy. True when they ran to their end, also when the documents could not be opened; false, with nothing
/// imported, when nothing was chosen, the source could not be reached or its products could not be opened. Raises
/// ComError and throws ImportCancelled; what was written until then stays, and the counts say how much.
bool RunImport(CDataStore& store, IImportSource& source, const ImportOptions& options, IProgressDoor& progressDoor,
               IOverwriteDoor& overwriteDoor, ImportCounts& counts);

/// How an import command ended.
struct ImportResult {
    enum class End { Nothing, Done, Failed, Cancelled };

    End end = End::Nothing;
    ImportCounts counts;

    /// Nothing was imported and no summary is wanted.
    bool IsSilent() const { return end == End::Nothing; }
    /// The registers to be told, after the summary was shown.
    bool ProductsChanged() const { return counts.products > 0; }
    bool MovesChanged() const { return counts.documents > 0; }
    QString Summary() const;
    /// What of the texts was cut, for a message after the summary; empty when nothing was.
    QString CutNotice() const;
};

/// What an import command runs: its wizard and its phases, as `RunImport` answers.
using ImportCommand = std::function<bool(ImportCounts&)>;

/// The command "Importovat z Ekonomu", which does nothing, with success.
bool ImportFromEkonom(ImportCounts& counts);

/// Runs the command and shows the error that ended it; the caller shows the summary.
ImportResult CarryOutImport(const ImportCommand& command);
/// The same with the summary in a message box.
ImportResult RunImportCommand(const ImportCommand& command);
