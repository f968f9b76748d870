#pragma once

#include "core/rules/MoveFilter.h"
#include "windows/registers/ListRegisterView.h"

struct IssuedCover;

/// The issues register: issue documents, the products issued on the selected one, and the covers that went out with the
/// selected product or, by a button, with the whole document. The covers of an item are computed when it is added and
/// when its quantity changes, and can then be corrected by hand.
class CViewMove : public ListRegisterView {
    Q_OBJECT

public:
    CViewMove(CDataStore& store, IBroadcaster& broadcaster, QWidget* parent = nullptr);

    void Receive(ViewMessage message) override;

protected:
    std::string AllSql() const override;
    std::string FilterClauses() const override { return m_filter.Clauses(); }
    std::string DetailSql(std::int32_t moveId) const override;
    std::string SubdetailSql() const override;
    bool FilterActive() const override { return m_filter.IsActive(); }
    void ForgetFilter() override { m_filter = {}; }
    void EnableDetails() override;

private:
    void OnToggleCovers();
    void OnAddIssue();
    void OnEditIssue();
    void OnFilterIssues();
    void OnAddItem();
    void OnEditItem();
    void OnDeleteItem();
    void OnAddCover();
    void OnEditCover();
    void OnDeleteCover();

    /// Whether items can be added, changed and deleted, and covers added.
    bool ItemsAllowed() const { return m_coversOfItem && DetailsAllowed(); }
    /// Adds a cover to an item; false when the item's record has gone. Raises ComError.
    bool AddCover(std::int32_t mvprodId, const IssuedCover& values);
    /// The item's record has gone: clears what is left of it. Raises ComError.
    void ClearVanishedItem(std::int32_t mvprodId);

    MoveFilter m_filter;
    /// The covers list shows those of the selected item; otherwise those of the whole issue.
    bool m_coversOfItem = true;
    CIconButton* m_toggle;
};
