#include "windows/registers/find/FindInList.h"

#include "core/base/Messages.h"
#include "core/base/SqlText.h"
#include "core/base/TextField.h"
#include "core/store/CommitGroup.h"
#include "windows/widgets/Beep.h"
#include "windows/widgets/KeptAlive.h"
#include "windows/widgets/WaitCursor.h"
#include "windows/widgets/lists/RecordList.h"

namespace {

constexpr int NoRow = -1;

class Search {
public:
    Search(const FindRequest& request, RecordList& list)
        : m_request(request), m_criterion(request.Criterion()), m_list(list), m_records(list.Records()) {}

    void FindNext(int start) {
        const int row = FindFrom(start < m_records->get_RecordCount() ? start : 0);
        if (row == NoRow)
            Beep();
        else
            m_list.SelectRow(row);
    }

    /// Only the row that was selected, and only when it matches.
    void Replace(int row) {
        if (row != NoRow && FindFrom(row) == row)
            ReplaceCurrent();
        FindNext(row + 1);
    }

    void All(CDataStore& store, ReplacedAll& all) {
        CKeptAlive alive(*m_list.window());
        try {
            InCommitGroup(store, {}, [&](CCommitGroup& group) {
                for (int row = FindFrom(0); row != NoRow; row = FindFrom(row + 1)) {
                    const Outcome outcome = ReplaceCurrent();
                    all.replaced += outcome == Outcome::Replaced;
                    all.unchanged += outcome == Outcome::Unchanged;
                    group.RecordDone();
                    alive.Look();
                }
            });
        } catch (const ComError&) {
            // What was not committed yet may have been taken back.
            m_list.RefreshAllRows();
            throw;
        }
        Beep();
    }

    void Run(CDataStore& store, ReplacedAll& all) {
        const int selected = m_list.SelectedRow();
        m_list.DeselectAll();
        switch (m_request.mode) {
        case FindMode::FindNext:
            FindNext(selected + 1);
            break;
        case FindMode::Replace:
            Replace(selected);
            break;
        case FindMode::ReplaceAll:
            All(store, all);
            break;
        }
    }

    void TellTooLong() const {
        if (m_tooLong > 0)
            ShowWarning(MessageText("Nenahrazeno záznamů: %i. Nový text by měl více než %i znaků.", m_tooLong,
                                    LongestText(m_request.field)));
    }

private:
    /// The first match from this row on, as the current record.
    int FindFrom(int row) {
        if (!CDataStore::MoveToRecord(m_records, row))
            return NoRow;
        m_records->Find(m_criterion);
        return m_records->get_EOF() ? NoRow : m_records->get_AbsolutePosition() - 1;
    }

    enum class Outcome { Replaced, Unchanged, TooLong };

    /// A text that the column cannot hold is not cut: the record stays as it is.
    Outcome ReplaceCurrent() {
        const Variant before = m_records->get_Collect(m_request.field);
        const Variant after = m_request.Replaced(before);
        if (const auto* text = std::get_if<QString>(&after); text && text->size() > LongestText(m_request.field)) {
            ++m_tooLong;
            return Outcome::TooLong;
        }
        m_records->put_Collect(m_request.field, after);
        m_records->Update();
        m_list.RefreshRow(m_records->get_AbsolutePosition() - 1);
        return after != before ? Outcome::Replaced : Outcome::Unchanged;
    }

    const FindRequest& m_request;
    const std::string m_criterion;
    RecordList& m_list;
    const RecordsetPtr m_records;
    int m_tooLong = 0;
};

} // namespace

void CarryOut(const FindRequest& request, CDataStore& store, RecordList& list, ReplacedAll& all) {
    Search search(request, list);
    {
        const WaitCursor wait;
        search.Run(store, all);
    }
    search.TellTooLong();
}
