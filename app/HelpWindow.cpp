#include "app/HelpWindow.h"

#include <QAction>
#include <QApplication>
#include <QCloseEvent>
#include <QDesktopServices>
#include <QDialog>
#include <QSettings>
#include <QShortcut>
#include <QTextBrowser>
#include <QToolBar>
#include <QUrl>

namespace {

const QString GeometryKey = QStringLiteral("Kuvel/helpGeometry");

QUrl PageOf(HelpContext context) {
    const char* page = "index.html";
    if (context == HelpContext::Cover)
        page = "obaly.html";
    else if (context == HelpContext::CompositeCover)
        page = "slozene-obaly.html";
    return QUrl(QStringLiteral("qrc:/help/") + QString::fromLatin1(page));
}

} // namespace

CHelpWindow::CHelpWindow() : m_browser(new QTextBrowser(this)) {
    setObjectName(QStringLiteral("helpWindow"));
    setWindowTitle(QStringLiteral("Nápověda - Kuvel"));
    m_browser->setObjectName(QStringLiteral("helpBrowser"));
    m_browser->setAccessibleName(QStringLiteral("Text nápovědy"));
    m_browser->setOpenLinks(false);
    setCentralWidget(m_browser);
    setContextMenuPolicy(Qt::NoContextMenu);
    QToolBar* const bar = addToolBar(QStringLiteral("Nápověda"));
    bar->setObjectName(QStringLiteral("helpBar"));
    bar->setMovable(false);
    const auto add = [&](const QString& text, const QKeySequence& keys, const char* name, auto slot) {
        QAction* const action = bar->addAction(text, this, slot);
        action->setObjectName(QString::fromLatin1(name));
        action->setShortcut(keys);
        return action;
    };
    add(QStringLiteral("&Obsah"), QKeySequence(Qt::ALT | Qt::Key_Home), "contents",
        [this] { Open(HelpContext::Contents); });
    QAction* const back = add(QStringLiteral("&Zpět"), QKeySequence::Back, "back", [this] { m_browser->backward(); });
    QAction* const forward =
        add(QStringLiteral("&Vpřed"), QKeySequence::Forward, "forward", [this] { m_browser->forward(); });
    back->setEnabled(false);
    forward->setEnabled(false);
    connect(m_browser, &QTextBrowser::backwardAvailable, back, &QAction::setEnabled);
    connect(m_browser, &QTextBrowser::forwardAvailable, forward, &QAction::setEnabled);
    connect(m_browser, &QTextBrowser::anchorClicked, this, [this](const QUrl& link) {
        if (link.scheme().startsWith(QLatin1String("http")))
            QDesktopServices::openUrl(link);
        else
            m_browser->setSource(m_browser->source().resolved(link));
    });
    new QShortcut(Qt::Key_Escape, this, [this] { close(); });
    resize(760, 600);
    restoreGeometry(QSettings().value(GeometryKey).toByteArray());
}

void CHelpWindow::StandOver(QWidget* dialog) {
    if (parentWidget() == dialog)
        return;
    const bool wasVisible = isVisible();
    const QRect place = geometry();
    setParent(dialog, Qt::Window);
    setGeometry(place);
    if (wasVisible)
        show();
}

void CHelpWindow::Open(HelpContext context) {
    m_browser->setSource(PageOf(context));
    // A modal dialog lets only its own windows take input.
    if (auto* const dialog = qobject_cast<QDialog*>(QApplication::activeModalWidget())) {
        StandOver(dialog);
        connect(dialog, &QDialog::finished, this, [this] { StandOver(nullptr); });
    }
    setWindowState(windowState() & ~Qt::WindowMinimized);
    show();
    raise();
    activateWindow();
}

void CHelpWindow::closeEvent(QCloseEvent* event) {
    QSettings().setValue(GeometryKey, saveGeometry());
    event->accept();
}
