#include "core/import/Import.h"

#include "core/base/Messages.h"
#include "core/base/Pacing.h"
#include "core/base/SqlText.h"

#include <utility>

namespace {

/// Shows the phase and steps through its rows.
template <class Act>
void ForEachRow(ISourceRows& rows, IProgress& progress, const QString& phase, const Act& act) {
    progress.SetPhaseText(phase);
    progress.SetPosition(0);
    CPacing pacing(progress, rows.Count());
    for (std::int64_t i = 0; !rows.AtEnd(); rows.MoveNext(), ++i) {
        if (!pacing.GoOn(i))
            throw ImportCancelled();
        act();
    }
}

/// Runs one phase; whatever ends it, what it wrote is kept.
template <class Phase>
void Write(CImportWriter& writer, const Phase& phase) {
    try {
        phase();
    } catch (...) {
        writer.Keep();
        throw;
    }
    writer.Finish();
}

void ImportProducts(ISourceProducts& products, CImportWriter& writer, IProgress& progress, const QString& phase) {
    Write(writer, [&] { ForEachRow(products, progress, phase, [&] { writer.WriteProduct(products.Product()); }); });
}

/// A document is written when all its lines are read, so that none stays with some of them: what cannot be read leaves
/// the whole document out, and a cancel waits for its last line.
void ImportLines(ISourceLines& lines, CImportWriter& writer, IProgress& progress) {
    SourceDocumentKey previous;
    std::optional<SourceDocument> document;
    std::vector<SourceLine> itsLines;
    const auto write = [&] {
        if (document)
            writer.WriteDocument(*std::exchange(document, std::nullopt), std::exchange(itsLines, {}));
    };
    const auto take = [&] {
        if (SourceDocumentKey key = lines.Document(); key != previous) {
            write();
            previous = std::move(key);
            if (std::optional<SourceDocument> header = lines.Header(); header && writer.MayWrite(*header))
                document = std::move(header);
        }
        if (document)
            itsLines.push_back(lines.Line());
    };
    Write(writer, [&] {
        try {
            ForEachRow(lines, progress, QStringLiteral("Importuji skladové pohyby"), take);
        } catch (const ImportCancelled&) {
            for (; document && !lines.AtEnd() && lines.Document() == previous; lines.MoveNext())
                take();
            write();
            throw;
        }
        write();
    });
}

} // namespace

bool RunImport(CDataStore& store, IImportSource& source, const ImportOptions& options, IProgressDoor& progressDoor,
               IOverwriteDoor& overwriteDoor, ImportCounts& counts) {
    if (!options.products && !options.documents)
        return false;
    const std::unique_ptr<IProgress> progress = progressDoor.Open(source.Title(), true);
    progress->SetRange(0, CPacing::BarRange);
    if (!source.Connect(*progress))
        return false;
    if (options.products) {
        const std::unique_ptr<ISourceProducts> products = source.OpenProducts();
        if (!products)
            return false;
        if (source.ShowsEmptyProductPhase() || products->Count() > 0) {
            CImportWriter writer(store, source, options.existing, overwriteDoor, counts);
            ImportProducts(*products, writer, *progress, source.ProductPhase());
        }
    }
    if (options.documents) {
        if (const std::unique_ptr<ISourceLines> lines = source.OpenLines()) {
            CImportWriter writer(store, source, options.existing, overwriteDoor, counts);
            ImportLines(*lines, writer, *progress);
        }
    }
    return true;
}

QString ImportResult::Summary() const {
    const QString status = end == End::Failed      ? QStringLiteral("Během importu došlo k chybě!")
                           : end == End::Cancelled ? QStringLiteral("Import byl přerušen!")
                                                   : QStringLiteral("Import dokončen úspěšně!");
    return MessageText("%s\n\nNaimportováno:\n   Produktů ~ %li\n   Dokladů ~ %li", status, counts.products,
                       counts.documents);
}

QString ImportResult::CutNotice() const {
    if (counts.cutTexts == 0)
        return {};
    const bool all = counts.firstCutTexts.size() == counts.cutTexts;
    return MessageText("Příliš dlouhé texty byly zkráceny: %li\n\n%s%s", counts.cutTexts,
                       counts.firstCutTexts.join(u'\n'), all ? "" : "\n…");
}

bool ImportFromEkonom(ImportCounts&) {
    return true;
}

ImportResult CarryOutImport(const ImportCommand& command) {
    ImportResult result;
    try {
        result.end = command(result.counts) ? ImportResult::End::Done : ImportResult::End::Nothing;
    } catch (const ComError& error) {
        result.end = ImportResult::End::Failed;
        ShowComError(error);
    } catch (const ImportCancelled&) {
        result.end = ImportResult::End::Cancelled;
    }
    return result;
}

ImportResult RunImportCommand(const ImportCommand& command) {
    const ImportResult result = CarryOutImport(command);
    if (!result.IsSilent())
        ShowMessage(result.Summary(), Message::Icon::Information);
    if (const QString notice = result.CutNotice(); !notice.isEmpty())
        ShowWarning(notice);
    return result;
}
