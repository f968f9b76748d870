#include "core/rules/IssueLines.h"

#include "core/base/SqlText.h"
#include "core/rules/ItemCovers.h"
#include "core/store/Edit.h"

std::int32_t CIssueLines::Add(const Variant& moveId, std::int32_t prodId, Currency quantity,
                              const DateTime& issueDate) {
    std::int32_t mvprodId = 0;
    InOneEdit(m_store, [&] {
        if (!m_lines)
            m_lines = m_store.Table("Move_Prod");
        m_lines->AddNew();
        m_lines->put_Collect("move_id", moveId);
        m_lines->put_Collect("prod_id", prodId);
        m_lines->put_Collect("mvprod_qty", quantity);
        m_lines->Update();
        mvprodId = m_lines->Long("mvprod_id");
        AddCovers(mvprodId, moveId, prodId, quantity, issueDate);
    });
    return mvprodId;
}

std::int32_t CIssueLines::Add(std::int32_t moveId, std::int32_t prodId, Currency quantity) {
    std::int32_t mvprodId = 0;
    InOneEdit(m_store, [&] { mvprodId = Add(moveId, prodId, quantity, IssueDateOrToday(moveId)); });
    return mvprodId;
}

bool CIssueLines::Change(std::int32_t mvprodId, Currency quantity) {
    bool found = false;
    InOneEdit(m_store, [&] {
        const RecordsetPtr line = m_store.Query(SqlText("SELECT * FROM Move_Prod WHERE (mvprod_id = %li)", mvprodId));
        found = !line->get_EOF();
        if (!found)
            return;
        line->put_Collect("mvprod_qty", quantity);
        line->Update();
        RemoveCovers(mvprodId);
        const std::int32_t moveId = line->Long("move_id");
        AddCovers(mvprodId, moveId, line->Long("prod_id"), quantity, IssueDateOrToday(moveId));
    });
    return found;
}

void CIssueLines::Remove(std::int32_t mvprodId) {
    InOneEdit(m_store, [&] {
        RemoveCovers(mvprodId);
        m_store.ExecuteSQL(SqlText("DELETE FROM Move_Prod WHERE (mvprod_id = %li)", mvprodId));
    });
}

bool CIssueLines::Recompute(CRecordset& lines) {
    bool found = false;
    InOneEdit(m_store, [&] {
        if (!lines.IsThere())
            return;
        const std::int32_t moveId = lines.Long("move_id");
        const std::optional<DateTime> issueDate = IssueDate(moveId);
        found = issueDate.has_value();
        if (!found)
            return;
        const std::int32_t mvprodId = lines.Long("mvprod_id");
        RemoveCovers(mvprodId);
        AddCovers(mvprodId, moveId, lines.Long("prod_id"), ToCurrency(lines.get_Collect("mvprod_qty")), *issueDate);
    });
    return found;
}

std::optional<DateTime> CIssueLines::IssueDate(std::int32_t moveId) {
    m_store.OpenRecordset(m_issue, SqlText("SELECT move_date FROM Move WHERE move_id = %li", moveId),
                          CursorType::Keyset, LockType::Optimistic, CommandType::Text);
    if (m_issue->get_EOF())
        return std::nullopt;
    return ToDate(m_issue->get_Collect("move_date"));
}

void CIssueLines::RemoveCovers(std::int32_t mvprodId) {
    m_store.ExecuteSQL(SqlText("DELETE FROM Move_Cover WHERE mvprod_id = %li", mvprodId));
}

void CIssueLines::AddCovers(const Variant& mvprodId, const Variant& moveId, std::int32_t prodId, Currency quantity,
                            const DateTime& issueDate) {
    if (!m_covers)
        m_covers = m_store.Table("Move_Cover");
    AddItemCovers(m_store, m_covers, mvprodId, moveId, prodId, quantity, issueDate, m_packaging);
}
