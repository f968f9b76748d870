#pragma once

#include "core/report/Spreadsheet.h"
#include "core/report/office/OfficeConnection.h"

#include <com/sun/star/sheet/XSpreadsheetDocument.hpp>
#include <com/sun/star/sheet/XSpreadsheetView.hpp>

class COfficeWorkbook : public IWorkbook {
public:
    /// Opens a copy of the file. Raises when it is not there, is not a workbook or is damaged.
    COfficeWorkbook(std::shared_ptr<COfficeConnection> connection, const QString& path);

    std::unique_ptr<IWorksheet> Worksheet(const QString& name) override;
    void Save() override;
    void Close() override;

private:
    /// A new file in the run's folder with this content; the office takes it away with the folder.
    QString WorkingFile(const QByteArray& content) const;
    void RequireOpen(const char* operation) const;

    std::shared_ptr<COfficeConnection> m_connection; // outlives what follows
    QString m_path;
    css::uno::Reference<css::sheet::XSpreadsheetDocument> m_document; // empty after Close
    css::uno::Reference<css::sheet::XSpreadsheetView> m_view;
};
