#pragma once

#include "core/report/Spreadsheet.h"
#include "core/report/office/OfficeConnection.h"

#include <com/sun/star/sheet/XSpreadsheet.hpp>
#include <com/sun/star/sheet/XSpreadsheetView.hpp>
#include <com/sun/star/table/XCell.hpp>

#include <functional>

class COfficeWorksheet : public IWorksheet {
public:
    /// `view` may be empty: then nothing shows which sheet is active. `isProtected`: locked cells refuse writing.
    COfficeWorksheet(std::shared_ptr<COfficeConnection> connection,
                     const css::uno::Reference<css::sheet::XSpreadsheet>& sheet,
                     const css::uno::Reference<css::sheet::XSpreadsheetView>& view, bool isProtected);

    void Activate() override;
    QString GetText(const QString& range) override;
    void SetText(const QString& range, const QString& text) override;
    void SetInteger(const QString& range, std::int32_t value) override;
    void SetCurrency(const QString& range, Currency value) override;

private:
    using Cell = css::uno::Reference<css::table::XCell>;

    Cell CellAt(const QString& range);
    void Write(const QString& range, const std::function<void(const Cell&)>& write);

    std::shared_ptr<COfficeConnection> m_connection; // outlives what follows
    css::uno::Reference<css::sheet::XSpreadsheet> m_sheet;
    css::uno::Reference<css::sheet::XSpreadsheetView> m_view;
    bool m_isProtected;
};
