#include "windows/frame/help/HelpWindow.h"

#include "windows/frame/help/HelpBrowser.h"
#include "windows/frame/help/HelpContents.h"
#include "windows/frame/help/HelpPages.h"
#include "windows/widgets/ScreenFit.h"
#include "windows/widgets/WebLink.h"

#include <QAction>
#include <QApplication>
#include <QCloseEvent>
#include <QDialog>
#include <QSettings>
#include <QShortcut>
#include <QSplitter>
#include <QToolBar>
#include <QWindow>

namespace {

const QString GeometryKey = QStringLiteral("Kuvel/helpGeometry");
const QString SplitterKey = QStringLiteral("Kuvel/helpSplitter");

QUrl PageOf(HelpContext context) {
    return QUrl(QStringLiteral("qrc:/help/") + QString::fromLatin1(HelpAddress(context)));
}

} // namespace

CHelpWindow::CHelpWindow()
    : m_contents(new CHelpContents(PageOf(HelpContext::Contents), this)), m_browser(new CHelpBrowser(this)),
      m_splitter(new QSplitter(this)) {
    setObjectName(QStringLiteral("helpWindow"));
    setWindowTitle(QStringLiteral("Nápověda - Kuvel"));
    m_browser->setObjectName(QStringLiteral("helpBrowser"));
    m_browser->setAccessibleName(QStringLiteral("Text nápovědy"));
    m_browser->setOpenLinks(false);
    resize(FittingSize(*this, {1060, 700}));
    m_splitter->addWidget(m_contents);
    m_splitter->addWidget(m_browser);
    m_splitter->setStretchFactor(1, 1);
    const int contentsWidth = 40 * fontMetrics().averageCharWidth();
    m_splitter->setSizes({contentsWidth, width() - contentsWidth});
    setCentralWidget(m_splitter);
    setContextMenuPolicy(Qt::NoContextMenu);
    CreateBar();
    connect(m_contents, &CHelpContents::pageWanted, this, &CHelpWindow::ShowPage);
    connect(m_contents, &CHelpContents::sought, m_browser, &CHelpBrowser::Mark);
    connect(m_browser, &QTextBrowser::sourceChanged, m_contents, &CHelpContents::ShowCurrent);
    connect(m_browser, &QTextBrowser::anchorClicked, this, &CHelpWindow::ShowPage);
    new QShortcut(Qt::Key_Escape, this, [this] { close(); });
    new QShortcut(QKeySequence::Find, this, [this] { m_contents->FocusSearch(); });
    const QSettings settings;
    restoreGeometry(settings.value(GeometryKey).toByteArray());
    m_splitter->restoreState(settings.value(SplitterKey).toByteArray());
}

void CHelpWindow::CreateBar() {
    QToolBar* const bar = addToolBar(QStringLiteral("Nápověda"));
    bar->setObjectName(QStringLiteral("helpBar"));
    bar->setMovable(false);
    bar->setToolButtonStyle(Qt::ToolButtonTextBesideIcon);
    const auto add = [&](const QString& text, const QKeySequence& keys, const char* name, auto slot) {
        const QIcon icon(QStringLiteral(":/icons/help-%1.svg").arg(QString::fromLatin1(name)));
        QAction* const action = bar->addAction(icon, text, this, slot);
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
}

void CHelpWindow::ShowPage(const QUrl& page) {
    if (page.scheme().startsWith(QLatin1String("http"))) {
        OpenWebPage(page, *this);
        return;
    }
    m_browser->setSource(m_browser->source().resolved(page));
    if (!page.hasFragment())
        m_browser->Mark(m_contents->SoughtText());
}

/// A modal dialog lets only windows that belong to it take input.
void CHelpWindow::StandOverModalDialog() {
    QWidget* const dialog = QApplication::activeModalWidget();
    windowHandle()->setTransientParent(dialog == nullptr ? nullptr : dialog->windowHandle());
    disconnect(m_dialogFinished);
    if (const auto* const closing = qobject_cast<QDialog*>(dialog))
        m_dialogFinished =
            connect(closing, &QDialog::finished, this, &CHelpWindow::StandOverModalDialog, Qt::QueuedConnection);
}

void CHelpWindow::Open(HelpContext context) {
    m_contents->ClearSearch();
    m_browser->setSource(PageOf(context));
    setWindowState(windowState() & ~Qt::WindowMinimized);
    show();
    StandOverModalDialog();
    raise();
    activateWindow();
    m_browser->setFocus();
}

bool CHelpWindow::event(QEvent* event) {
    // Not at once: the dialog is only about to be shown.
    if (event->type() == QEvent::WindowBlocked)
        QMetaObject::invokeMethod(this, &CHelpWindow::StandOverModalDialog, Qt::QueuedConnection);
    return QMainWindow::event(event);
}

void CHelpWindow::closeEvent(QCloseEvent* event) {
    QSettings settings;
    settings.setValue(GeometryKey, saveGeometry());
    settings.setValue(SplitterKey, m_splitter->saveState());
    event->accept();
}
