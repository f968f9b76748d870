#pragma once

#include "core/rules/CompCoverFilter.h"
#include "windows/registers/ListRegisterView.h"

/// The composite covers register.
class CViewCompCover : public ListRegisterView {
    Q_OBJECT

public:
    CViewCompCover(CDataStore& store, IBroadcaster& broadcaster, QWidget* parent = nullptr);

protected:
    std::string AllSql() const override;
    std::string FilterClauses() const override { return m_filter.Clauses(); }
    bool FilterActive() const override { return m_filter.IsActive(); }
    void ForgetFilter() override { m_filter = {}; }

private:
    void OnAddCompCover();
    void OnEditCompCover();
    void OnFilterCompCovers();

    CompCoverFilter m_filter;
};
