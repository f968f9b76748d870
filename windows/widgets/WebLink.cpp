#include "windows/widgets/WebLink.h"

#include "core/base/Messages.h"

#include <QDesktopServices>
#include <QProcess>
#include <QStandardPaths>
#include <QUrl>
#include <QWidget>

static void SayThatThereIsNoBrowser(const QUrl& page) {
    ShowWarning(QStringLiteral("Stránku '%1' nelze otevřít.\nV tomto počítači není nastaven internetový prohlížeč.")
                    .arg(page.toDisplayString()));
}

void OpenWebPage(const QUrl& page, QWidget& asker) {
    // The toolkit starts the desktop's opener too, and calls it done without waiting for what the opener finds.
    const QString opener = QStandardPaths::findExecutable(QStringLiteral("xdg-open"));
    if (opener.isEmpty()) {
        if (!QDesktopServices::openUrl(page))
            SayThatThereIsNoBrowser(page);
        return;
    }
    // Without a parent, since the page shall open also when the asker or the program is closed at once.
    auto* const process = new QProcess;
    process->setStandardInputFile(QProcess::nullDevice());
    process->setStandardOutputFile(QProcess::nullDevice());
    process->setStandardErrorFile(QProcess::nullDevice());
    QObject::connect(process, &QProcess::finished, &asker, [page](int code) {
        if (code != 0)
            SayThatThereIsNoBrowser(page);
    });
    QObject::connect(process, &QProcess::finished, process, &QObject::deleteLater);
    process->start(opener, {page.toString(QUrl::FullyEncoded)});
}
