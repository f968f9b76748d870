#pragma once

#include "core/import/ImportOptions.h"
#include "core/import/ImportSource.h"
#include "core/import/OverwriteDoor.h"
#include "core/rules/IssueLines.h"
#include "core/store/CommitGroup.h"

#include <QStringList>

#include <map>
#include <optional>
#include <vector>

/// Records written, inserted or overwritten, and kept: what a failed commit takes back is never counted.
struct ImportCounts {
    std::int32_t products = 0;
    std::int32_t documents = 0;
    /// Texts that were longer than their column, and the first ten of them with their records.
    std::int32_t cutTexts = 0;
    QStringList firstCutTexts;
};

/// Writes what one phase of an import read: finds the record of an earlier import, decides whether to overwrite it,
/// writes and counts. Every member raises ComError; the records written before it stay with `Keep`.
///
/// Commits are joined, between whole records only: a product, or a document with all its lines, so that an import that
/// is killed leaves no half of a document for the next one to keep.
class CImportWriter {
public:
    /// The policy holds for this phase; the answers "to all" change it, and Stop throws ImportCancelled.
    CImportWriter(CDataStore& store, const IImportSource& source, ExistingRecords policy, IOverwriteDoor& door,
                  ImportCounts& counts);

    void WriteProduct(const SourceProduct& product);
    /// False when the document of an earlier import is kept.
    bool MayWrite(const SourceDocument& document);
    /// The document asked about last, with all its lines and their packaging. An overwritten one loses its old lines.
    /// After an error `Keep` leaves nothing of it, and an overwritten one as it was.
    void WriteDocument(SourceDocument document, std::vector<SourceLine> lines);
    /// Commits the rest.
    void Finish();
    /// The same for an import that an error or the user ended.
    void Keep() noexcept;

private:
    /// The question as a function, since most records need none.
    template <class Question>
    bool MayOverwrite(const Question& question);
    bool AskMayOverwrite(const OverwriteQuestion& question);
    OverwriteQuestion QuestionAbout(const SourceProduct& product) const;
    OverwriteQuestion QuestionAbout(const SourceDocument& document);
    /// Leaves `m_product` on the product of this key; false when there is none.
    bool FindProduct(std::int32_t key);
    bool FindDocument(const QString& number);
    /// As the database holds it. Raises ComError for one that would be the same as another's when it is cut.
    QString NumberOf(const SourceDocument& document);
    /// A text as the column holds it; what is cut is counted.
    Variant Fitted(const char* column, const Variant& value, const QString& record);
    void StoreProduct(const SourceProduct& product, bool isNew);
    /// Leaves `m_document` on the document; false when there is none.
    bool FindDocument(const SourceDocument& document);
    void StoreDocument(const SourceDocument& document, const std::vector<SourceLine>& lines);
    /// Answers the document's key.
    Variant StoreHeader(const SourceDocument& document);
    void StoreLines(const Variant& moveId, const std::vector<SourceLine>& lines);
    /// Takes back what is not committed, with the document that an error cut in half, and writes the whole documents
    /// among it again.
    void RewriteWholeDocuments();
    void BeginGroup();
    void BeginRecord();

    CDataStore& m_store;
    const std::int32_t m_code;
    const QString m_name;
    ExistingRecords m_policy;
    IOverwriteDoor& m_door;
    /// What is committed, and that with what is written since.
    ImportCounts& m_kept;
    ImportCounts m_written;
    RecordsetPtr m_product;
    RecordsetPtr m_document;
    CIssueLines m_lines;
    /// The numbers that were cut, and what they were.
    std::map<QString, QString> m_cutNumbers;
    std::optional<CCommitGroup> m_group;
    struct Document {
        SourceDocument header;
        std::vector<SourceLine> lines;
    };
    /// What was written since the last commit.
    std::vector<Document> m_uncommitted;
    /// Between the first and the last statement of a document.
    bool m_inDocument = false;
};
