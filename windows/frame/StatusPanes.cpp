#include "windows/frame/StatusPanes.h"

#include <QEvent>
#include <QGuiApplication>
#include <QKeyEvent>
#include <QLabel>
#include <QStatusBar>

CStatusPanes::CStatusPanes(QStatusBar& bar) : QObject(&bar) {
    auto* const idle = new QLabel(QStringLiteral("Hotovo"), &bar);
    idle->setObjectName(QStringLiteral("messagePane"));
    bar.addWidget(idle, 1);
    m_caps = AddIndicator(bar, "capsPane", QStringLiteral("CAP"));
    m_num = AddIndicator(bar, "numPane", QStringLiteral("NUM"));
    m_scroll = AddIndicator(bar, "scrollPane", QStringLiteral("SCRL"));
    qGuiApp->installEventFilter(this);
    Ask();
}

QLabel* CStatusPanes::AddIndicator(QStatusBar& bar, const char* name, const QString& text) {
    auto* const pane = new QLabel(text, &bar);
    pane->setObjectName(QString::fromLatin1(name));
    pane->setForegroundRole(QPalette::PlaceholderText);
    pane->setAlignment(Qt::AlignCenter);
    // The pane keeps its width while its text is off.
    pane->setMinimumWidth(pane->sizeHint().width() + 8);
    pane->setProperty("indicator", text);
    bar.addPermanentWidget(pane);
    return pane;
}

void CStatusPanes::Show(const LockKeys& keys) {
    const auto set = [](QLabel* pane, bool on) {
        pane->setText(on ? pane->property("indicator").toString() : QString());
    };
    set(m_caps, keys.caps);
    set(m_num, keys.num);
    set(m_scroll, keys.scroll);
}

void CStatusPanes::Ask() {
    Show(QueryLockKeys().value_or(LockKeys{}));
}

bool CStatusPanes::eventFilter(QObject* watched, QEvent* event) {
    const QEvent::Type type = event->type();
    if (type == QEvent::ApplicationActivate) {
        Ask();
    } else if ((type == QEvent::KeyPress || type == QEvent::KeyRelease) && watched->isWindowType()) {
        const int key = static_cast<QKeyEvent*>(event)->key();
        if (key == Qt::Key_CapsLock || key == Qt::Key_NumLock || key == Qt::Key_ScrollLock)
            Ask();
    }
    return false;
}
