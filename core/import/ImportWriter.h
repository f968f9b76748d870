#pragma once

#include "core/import/ImportOptions.h"
#include "core/import/ImportSource.h"
#include "core/import/OverwriteDoor.h"
#include "core/rules/IssueLines.h"
#include "core/store/CommitGroup.h"

#include <optional>

/// Records written, inserted or overwritten, and kept: what a failed commit takes back is never counted.
struct ImportCounts {
    std::int32_t products = 0;
    std::int32_t documents = 0;
};

/// Writes what one phase of an import read: finds the record of an earlier import, decides whether to overwrite it,
/// writes and counts. Every member raises ComError; what was written before it stays with `Keep`.
///
/// Commits are joined, between whole records only: a product, or a document with all its lines, so that an import that
/// is killed leaves no half of a document for the next one to keep.
class CImportWriter {
public:
    /// The policy holds for this phase; the answers "to all" change it.
    CImportWriter(CDataStore& store, const IImportSource& source, ExistingRecords policy, IOverwriteDoor& door,
                  ImportCounts& counts);

    void WriteProduct(const SourceProduct& product);
    /// False when the document of an earlier import is kept: its lines are then not written either. An overwritten one
    /// has lost its old lines and their packaging.
    bool WriteDocument(const SourceDocument& document);
    /// A line of the document written last, with its packaging.
    void WriteLine(const SourceLine& line);
    /// Commits the rest.
    void Finish();
    /// The same for an import that an error or the user ended.
    void Keep() noexcept;

private:
    /// The question as a function, since most records need none.
    template <class Question>
    bool MayOverwrite(const Question& question);
    bool AskMayOverwrite(const QString& question);
    /// Leaves `m_product` on the product of this key; false when there is none.
    bool FindProduct(std::int32_t key);
    void StoreProduct(const SourceProduct& product, bool isNew);
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
    Variant m_moveId;
    std::optional<CCommitGroup> m_group;
};
