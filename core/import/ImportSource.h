#pragma once

#include "core/base/Progress.h"
#include "core/base/Variant.h"

#include <cstdint>
#include <memory>
#include <optional>

/// Thrown when the user cancels an import, in the progress window or in a question.
struct ImportCancelled {};

/// Where records come from; the number is stored with each of them.
enum class SourceCode { Money = 1, Wak = 2 };

/// A product as the source has it; its texts are texts or nulls, of any length.
struct SourceProduct {
    /// The source's own number of the product.
    std::int32_t key = 0;
    Variant name;
    Variant catalogue;
    Variant unit;
};

/// Which document a line belongs to. No line belongs to the default one.
struct SourceDocumentKey {
    std::int64_t number = -1;
    QString kind;

    friend bool operator==(const SourceDocumentKey&, const SourceDocumentKey&) = default;
};

struct SourceDocument {
    QString number;
    bool isExport = false;
    /// An index of the code list MoveType.
    std::int32_t type = 0;
    /// Valid or null.
    DateTime date;
};

/// A line, with the product that is made for it when there is none of this key.
struct SourceLine {
    SourceProduct product;
    /// Valid or null.
    Currency quantity;
    /// The day for which the packaging is computed; valid or null.
    DateTime date;
};

/// Rows read once, forward, with a current one; opened on the first. Every member raises ComError.
class ISourceRows {
public:
    virtual ~ISourceRows() = default;
    virtual std::int32_t Count() = 0;
    virtual bool AtEnd() = 0;
    virtual void MoveNext() = 0;
};

class ISourceProducts : public ISourceRows {
public:
    virtual SourceProduct Product() = 0;
};

/// Lines of documents, those of one document one after the other.
class ISourceLines : public ISourceRows {
public:
    virtual SourceDocumentKey Document() = 0;
    /// The document of the current line; none when it is not to be imported. Asked once a document, at its first line.
    virtual std::optional<SourceDocument> Header() = 0;
    /// Asked only for the lines of documents that are imported, after `Header`.
    virtual SourceLine Line() = 0;
};

/// A system that products and issue documents are taken over from. It only reads. Every member may raise ComError; a
/// value that cannot be read raises UnreadableValue, whose description names its place.
class IImportSource {
public:
    virtual ~IImportSource() = default;
    virtual SourceCode Code() const = 0;
    /// As the question about an existing product names it.
    virtual QString Name() const = 0;
    /// Of the progress window.
    virtual QString Title() const = 0;
    virtual QString ProductPhase() const = 0;
    /// Whether the product phase is shown when there is nothing in it.
    virtual bool ShowsEmptyProductPhase() const = 0;

    /// Called first, with the progress window open, which a source that is long in opening keeps alive. False, after a
    /// message, ends the import with nothing imported.
    virtual bool Connect(IProgress&) { return true; }
    /// None, after a message, ends the import with nothing imported.
    virtual std::unique_ptr<ISourceProducts> OpenProducts() = 0;
    /// None ends the document phase only.
    virtual std::unique_ptr<ISourceLines> OpenLines() = 0;
};
