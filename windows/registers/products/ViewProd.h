#pragma once

#include "core/rules/ProdFilter.h"
#include "windows/registers/ListRegisterView.h"

/// The products register: products, the validity dates of the selected one, and the packaging rows of the selected
/// date. After a change of them the packaging of the product's issues is computed anew, if the user wants that.
class CViewProd : public ListRegisterView {
    Q_OBJECT

public:
    CViewProd(CDataStore& store, IBroadcaster& broadcaster, QWidget* parent = nullptr);

    void Receive(ViewMessage message) override;

protected:
    std::string AllSql() const override;
    std::string FilterClauses() const override { return m_filter.Clauses(); }
    std::string DetailSql(std::int32_t prodId) const override;
    std::string SubdetailSql() const override;
    bool FilterActive() const override { return m_filter.IsActive(); }
    void ForgetFilter() override { m_filter = {}; }

private:
    void OnAddProduct();
    void OnEditProduct();
    void OnFilterProducts();
    void OnAddDate();
    void OnEditDate();
    void OnDeleteDate();
    void OnAddPackaging();
    void OnEditPackaging();
    void OnDeletePackaging();
    void OnAssignCovers();

    /// In the edit that changed the product's packaging definitions: what follows from it.
    void CarryOn(std::int32_t prodId);
    /// After that edit, also when an error ended it.
    void TellOfPackaging();

    ProdFilter m_filter;
};
