#include "windows/frame/doors/Desktop.h"

#include "windows/widgets/Look.h"

#include <QApplication>
#include <QIcon>
#include <QLibraryInfo>
#include <QLocale>
#include <QTranslator>

#include <clocale>

// Outside every namespace, as the macro demands; a static library's resources are left out unless they are named.
static void InitResources() {
    Q_INIT_RESOURCE(icons);
}

namespace {

struct OwnWord {
    const char* context;
    const char* source;
    const char* text;
};

/// Words that this program's windows have always used where the toolkit's catalogue has others.
constexpr OwnWord OwnWords[] = {
    {"QPlatformTheme", "OK", "OK"},
    {"QPlatformTheme", "Cancel", "Storno"},
    {"QPlatformTheme", "&Yes", "&Ano"},
    {"QPlatformTheme", "&No", "&Ne"},
    {"QPlatformTheme", "Close", "Zavřít"},
    {"QPlatformTheme", "Help", "Nápověda"},
    {"QShortcut", "Return", "Enter"},
    {"QShortcut", "Enter", "Enter"},
    {"QShortcut", "Ins", "Ins"},
    {"QShortcut", "Del", "Del"},
    {"QAbstractFileIconProvider", "Folder", "Složka"},
};

class OwnWordsTranslator : public QTranslator {
public:
    using QTranslator::QTranslator;
    bool isEmpty() const override { return false; }
    QString translate(const char* context, const char* source, const char*, int) const override {
        for (const OwnWord& word : OwnWords)
            if (qstrcmp(context, word.context) == 0 && qstrcmp(source, word.source) == 0)
                return QString::fromUtf8(word.text);
        return {};
    }
};

} // namespace

void SetUpDesktop() {
    InitResources();
    // Figures inside the program always have a point, also where C libraries write them.
    std::setlocale(LC_NUMERIC, "C");
    QApplication::setStyle(new CLook);
    const QLocale czech(QStringLiteral("cs_CZ"));
    QLocale::setDefault(czech);
    auto* const catalogue = new QTranslator(qApp);
    if (catalogue->load(czech, QStringLiteral("qtbase"), QStringLiteral("_"),
                        QLibraryInfo::path(QLibraryInfo::TranslationsPath)))
        QCoreApplication::installTranslator(catalogue);
    QCoreApplication::installTranslator(new OwnWordsTranslator(qApp));
    QCoreApplication::setApplicationName(QStringLiteral("Kuvel"));
    QCoreApplication::setApplicationVersion(QStringLiteral(KUVEL_VERSION));
    QGuiApplication::setWindowIcon(QIcon(QStringLiteral(":/icons/kuvel.svg")));
    QGuiApplication::setDesktopFileName(QStringLiteral("kuvel"));
    QGuiApplication::setQuitOnLastWindowClosed(false);
}
