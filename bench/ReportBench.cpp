#include "bench/support/Pairs.h"

#include "core/base/AppDir.h"
#include "core/base/Progress.h"
#include "core/report/CompanyData.h"
#include "core/report/ReportRun.h"
#include "core/report/TemplateFile.h"
#include "core/report/office/OfficeSpreadsheet.h"
#include "core/store/DataStore.h"
#include "ctl/CommandLine.h"

#include <QFile>
#include <QTemporaryDir>

#include <cstdlib>

namespace {

constexpr Period Quarter{2012, 2};

/// What the office costs by itself: started, the file opened and saved, closed.
void OfficeAlone(const QString& workbook) {
    const std::unique_ptr<ISpreadsheet> office = LibreOfficeFactory()();
    if (!office)
        std::abort();
    const std::unique_ptr<IWorkbook> book = office->Open(workbook);
    book->Save();
    book->Close();
    office->Quit();
}

} // namespace

int main(int argc, char** argv) {
    ReadArguments(argc, argv);
    const QTemporaryDir folder;
    const QByteArray home = folder.path().toUtf8() + "/company";
    const char* const demo[] = {"kuvelctl", "--home", home.constData(), "demo"};
    if (RunCommandLine(4, demo) != 0)
        std::abort();
    SetAppDir(QString::fromUtf8(home));
    const QString workbook = folder.filePath(QStringLiteral("alone.xls"));
    QFile::copy(FindTemplate(Quarter), workbook);
    CDataStore store;
    store.OpenDatabase();
    ReportRequest request;
    request.period = Quarter;
    const auto program = [&] {
        if (RunReport(store, SilentProgress(), LibreOfficeFactory(), request).isEmpty())
            std::abort();
    };
    OfficeAlone(workbook); // the first start makes the profile
    Measure({"whole-report", 1.3, 7, nullptr, program, [&] { OfficeAlone(workbook); }});
}
