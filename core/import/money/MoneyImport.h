#pragma once

#include "core/import/Import.h"
#include "core/import/money/MoneyInstallation.h"

/// The stock cards, and the lines of stock documents and issued invoices, of one year of a Money S3 agenda.
class CMoneySource : public IImportSource {
public:
    /// The options must outlive the source; opening the lines turns their domestic names to upper case.
    CMoneySource(const MoneyYear& year, MoneyOptions& options);

    SourceCode Code() const override { return SourceCode::Money; }
    QString Name() const override { return QStringLiteral("Money"); }
    QString Title() const override { return QStringLiteral("Import dat z Money S3"); }
    QString ProductPhase() const override { return QStringLiteral("Importuji kmenové karty"); }
    bool ShowsEmptyProductPhase() const override { return false; }
    /// The progress window lives while indexes are made.
    bool Connect(IProgress& progress) override;
    std::unique_ptr<ISourceProducts> OpenProducts() override;
    std::unique_ptr<ISourceLines> OpenLines() override;

private:
    QString m_agendaFolder;
    QString m_yearFolder;
    MoneyOptions& m_options;
    IProgress* m_progress = nullptr;
};

/// Asked before the wizard is shown. False after "Nemohu najít komponentu Money (mon2kdbe.dll)!".
bool MoneyComponentReady();
