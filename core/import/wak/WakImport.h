#pragma once

#include "core/import/ImportSource.h"
#include "core/import/wak/SqlServerConnection.h"
#include "core/import/wak/WakOptions.h"

/// WAK INTRA as a source: the products of "pol_mj", and the stock documents of type "PRO" that the routine
/// "DoklSkl_Pre" answers for the days of the range. Only reads.
class CWakSource : public IImportSource {
public:
    /// The connection is opened by `Connect` and closed with the source.
    CWakSource(const WakOptions& options, const WakDateRange& range,
               std::unique_ptr<CSqlServerConnection> connection = std::make_unique<CSqlServerConnection>());
    ~CWakSource() override;

    SourceCode Code() const override { return SourceCode::Wak; }
    QString Name() const override { return QStringLiteral("WAK"); }
    QString Title() const override { return QStringLiteral("Import dat z WAK INTRA"); }
    QString ProductPhase() const override { return QStringLiteral("Importuji produkty"); }
    bool ShowsEmptyProductPhase() const override { return true; }

    /// False after the failure was shown. The progress window lives while the server is waited for.
    bool Connect(IProgress& progress) override;
    std::unique_ptr<ISourceProducts> OpenProducts() override;
    std::unique_ptr<ISourceLines> OpenLines() override;

private:
    SqlServerRowsPtr Open(const std::string& source, CSqlServerConnection::SourceType type,
                          const std::vector<std::string>& columns);

    const WakOptions m_options;
    const WakDateRange m_range;
    std::unique_ptr<CSqlServerConnection> m_connection;
    std::function<void()> m_alive;
};
