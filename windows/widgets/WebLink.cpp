#include "windows/widgets/WebLink.h"

#include "core/base/Messages.h"

#include <QDesktopServices>
#include <QProcess>
#include <QStandardPaths>
#include <QUrl>
#include <QWidget>

void OpenAddress(const QUrl& address, QWidget& asker, const QString& failure) {
    // The toolkit starts the desktop's opener too, and calls it done without waiting for what the opener finds.
    const QString opener = QStandardPaths::findExecutable(QStringLiteral("xdg-open"));
    if (opener.isEmpty()) {
        if (!QDesktopServices::openUrl(address))
            ShowWarning(failure);
        return;
    }
    // Without a parent, since the address shall open also when the asker or the program is closed at once.
    auto* const process = new QProcess;
    process->setStandardInputFile(QProcess::nullDevice());
    process->setStandardOutputFile(QProcess::nullDevice());
    process->setStandardErrorFile(QProcess::nullDevice());
    QObject::connect(process, &QProcess::finished, &asker, [failure](int code) {
        if (code != 0)
            ShowWarning(failure);
    });
    QObject::connect(process, &QProcess::finished, process, &QObject::deleteLater);
    process->start(opener, {address.toString(QUrl::FullyEncoded)});
}

void OpenWebPage(const QUrl& page, QWidget& asker) {
    OpenAddress(page, asker,
                QStringLiteral("Stránku '%1' nelze otevřít.\nV tomto počítači není nastaven internetový prohlížeč.")
                    .arg(page.toDisplayString()));
}
