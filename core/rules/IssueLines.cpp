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
    InOneEdit(m_store, [&] { mvprodId = Add(moveId, prodId, quantity, IssueDate(moveId)); });
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
        AddCovers(mvprodId, moveId, line->Long("prod_id"), quantity, IssueDate(moveId));
    });
    return found;
}

void CIssueLines::Remove(std::int32_t mvprodId) {
    InOneEdit(m_store, [&] {
        RemoveCovers(mvprodId);
        m_store.ExecuteSQL(SqlText("DELETE FROM Move_Prod WHERE (mvprod_id = %li)", mvprodId));
    });
}

bool CIssueLines::Recompute(std::int32_t mvprodId) {
    bool found = false;
    InOneEdit(m_store, [&] {
        m_store.OpenRecordset(m_line,
                              SqlText("SELECT Move.move_date, Move_Prod.* FROM Move INNER JOIN Move_Prod ON "
                                      "Move.move_id = Move_Prod.move_id WHERE (Move_Prod.mvprod_id=%li) ",
                                      mvprodId),
                              CursorType::Keyset, LockType::Optimistic, CommandType::Text);
        found = !m_line->get_EOF();
        if (!found)
            return;
        RemoveCovers(mvprodId);
        AddCovers(mvprodId, m_line->get_Collect("move_id"), m_line->Long("prod_id"),
                  ToCurrency(m_line->get_Collect("mvprod_qty")), ToDate(m_line->get_Collect("move_date")));
    });
    return found;
}

DateTime CIssueLines::IssueDate(std::int32_t moveId) {
    const RecordsetPtr issue = m_store.Query(SqlText("SELECT move_date FROM Move WHERE move_id = %li", moveId));
    return issue->get_EOF() ? DateTime::Today() : ToDate(issue->get_Collect("move_date"));
}

void CIssueLines::RemoveCovers(std::int32_t mvprodId) {
    m_store.ExecuteSQL(SqlText("DELETE FROM Move_Cover WHERE mvprod_id = %li", mvprodId));
}

void CIssueLines::AddCovers(const Variant& mvprodId, const Variant& moveId, std::int32_t prodId, Currency quantity,
                            const DateTime& issueDate) {
    if (!m_covers)
        m_covers = m_store.Table("Move_Cover");
    AddItemCovers(m_store, m_covers, mvprodId, moveId, prodId, quantity, issueDate);
}
