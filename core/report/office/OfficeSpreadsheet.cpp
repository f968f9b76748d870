#include "core/report/office/OfficeSpreadsheet.h"

#include "core/report/office/OfficeConnection.h"
#include "core/report/office/OfficeWorkbook.h"

#include <utility>

namespace {

class COfficeSpreadsheet : public ISpreadsheet {
public:
    explicit COfficeSpreadsheet(std::shared_ptr<COfficeConnection> connection) : m_connection(std::move(connection)) {}

    ~COfficeSpreadsheet() override { m_connection->End(); }

    std::unique_ptr<IWorkbook> Open(const QString& path) override {
        return std::make_unique<COfficeWorkbook>(m_connection, path);
    }

    void Quit() override { m_connection->Quit(); }

private:
    std::shared_ptr<COfficeConnection> m_connection;
};

} // namespace

SpreadsheetFactory LibreOfficeFactory(OfficeLimits limits) {
    return [limits]() -> std::unique_ptr<ISpreadsheet> {
        auto connection = COfficeConnection::Open(limits);
        return connection ? std::make_unique<COfficeSpreadsheet>(std::move(connection)) : nullptr;
    };
}
