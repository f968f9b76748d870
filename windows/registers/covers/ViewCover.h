#pragma once

#include "core/rules/CoverFilter.h"
#include "windows/registers/ListRegisterView.h"

class CPageDisc;

/// The covers register: covers, and the discards of the selected one.
class CViewCover : public ListRegisterView {
    Q_OBJECT

public:
    CViewCover(CDataStore& store, IBroadcaster& broadcaster, QWidget* parent = nullptr);

protected:
    std::string AllSql() const override;
    std::string FilterClauses() const override { return m_filter.Clauses(); }
    std::string DetailSql(std::int32_t coverId) const override;
    bool FilterActive() const override { return m_filter.IsActive(); }
    void ForgetFilter() override { m_filter = {}; }

private:
    void OnAddCover();
    void OnEditCover();
    void OnFilterCovers();
    void OnAddDiscard();
    void OnEditDiscard();
    void OnDeleteDiscard();
    /// The sheet with this page; true for OK.
    bool AskDiscard(CPageDisc& page);

    CoverFilter m_filter;
};
