#pragma once

#include "core/rules/CompCoverFilter.h"
#include "windows/registers/ListRegisterView.h"

/// The composite covers register.
class CViewCompCover : public ListRegisterView {
    Q_OBJECT

public:
    CViewCompCover(CDataStore& store, IBroadcaster& broadcaster, QWidget* parent = nullptr);

protected:
    std::string MasterSql() const override;
    bool FilterActive() const override { return m_filter.IsActive(); }

private:
    void OnAddCompCover();
    void OnEditCompCover();
    void OnFilterCompCovers();

    CompCoverFilter m_filter;
};
