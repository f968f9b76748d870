#include "core/base/AppDir.h"
#include "core/report/CompanyData.h"
#include "core/store/DataStore.h"
#include "ctl/Commands.h"
#include "ctl/Delivery.h"
#include "ctl/Failure.h"
#include "ctl/Interrupts.h"
#include "ctl/Terminal.h"
#include "ctl/sample/SampleCompany.h"

#include <QTemporaryDir>

namespace {

/// The program folder is elsewhere while it lives.
class OtherAppDir {
public:
    explicit OtherAppDir(const QString& folder) : m_before(g_strAppDir) { SetAppDir(folder); }
    ~OtherAppDir() { g_strAppDir = m_before; }
    OtherAppDir(const OtherAppDir&) = delete;
    OtherAppDir& operator=(const OtherAppDir&) = delete;

private:
    QString m_before;
};

/// Answers the path of the finished database; nothing after an error that was shown.
QString BuildDatabase(const QString& folder) {
    const OtherAppDir building(folder);
    const QString database = PlaceEmptyDatabase();
    CDataStore store;
    if (!store.OpenDatabase())
        return {};
    FillSampleCompany(store);
    return store.CloseDatabase() ? database : QString();
}

/// Company data that somebody has entered are left alone.
void WriteMissingCompany() {
    const CompanyData company = ReadCompanyData();
    if (!company.name.isEmpty() || !company.companyNumber.isEmpty())
        return;
    if (const std::error_code error = WriteCompanyData(SampleCompanyData()))
        throw Failure(QStringLiteral("cannot write '%1'").arg(SettingsPath()), error);
}

bool Demo(CTerminal& terminal) {
    RequireNoDatabase();
    PlaceTemplates();
    // Beside its place, so that an interrupted run leaves no half-filled database there.
    QTemporaryDir folder(g_strAppDir + QStringLiteral("demo-XXXXXX"));
    if (!folder.isValid())
        throw Failure(QStringLiteral("cannot create a folder in '%1': %2").arg(g_strAppDir, folder.errorString()));
    const CInterrupts interrupts;
    const QString built = BuildDatabase(folder.path());
    if (built.isEmpty() || terminal.ErrorCount() > 0)
        return false;
    if (interrupts.Noted())
        terminal.Interrupt();
    WriteMissingCompany();
    PlaceFile(built, DatabasePath());
    PrintLine(DatabasePath());
    return true;
}

} // namespace

void AddDemo(CLI::App& app, Action& action) {
    app.add_subcommand("demo", "The same as init, with the records of a sample company")->callback([&action] {
        action = Demo;
    });
}
