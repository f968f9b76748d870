#include "windows/registers/find/FindInList.h"

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
                    ++(ReplaceCurrent() ? all.replaced : all.unchanged);
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

private:
    /// The first match from this row on, as the current record.
    int FindFrom(int row) {
        if (!CDataStore::MoveToRecord(m_records, row))
            return NoRow;
        m_records->Find(m_criterion);
        return m_records->get_EOF() ? NoRow : m_records->get_AbsolutePosition() - 1;
    }

    /// False when the record holds what it held.
    bool ReplaceCurrent() {
        const Variant before = m_records->get_Collect(m_request.field);
        const Variant after = m_request.Replaced(before);
        m_records->put_Collect(m_request.field, after);
        m_records->Update();
        m_list.RefreshRow(m_records->get_AbsolutePosition() - 1);
        return after != before;
    }

    const FindRequest& m_request;
    const std::string m_criterion;
    RecordList& m_list;
    const RecordsetPtr m_records;
};

} // namespace

void CarryOut(const FindRequest& request, CDataStore& store, RecordList& list, ReplacedAll& all) {
    const WaitCursor wait;
    Search search(request, list);
    const int selected = list.SelectedRow();
    list.DeselectAll();
    switch (request.mode) {
    case FindMode::FindNext:
        search.FindNext(selected + 1);
        break;
    case FindMode::Replace:
        search.Replace(selected);
        break;
    case FindMode::ReplaceAll:
        search.All(store, all);
        break;
    }
}
