#include "windows/widgets/WebLink.h"

#include "core/base/Messages.h"

#include <QDesktopServices>
#include <QUrl>

void OpenWebPage(const QUrl& page) {
    if (!QDesktopServices::openUrl(page))
        ShowWarning(QStringLiteral("Stránku '%1' nelze otevřít.\nV tomto počítači není nastaven internetový prohlížeč.")
                        .arg(page.toDisplayString()));
}
