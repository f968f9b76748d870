#include "windows/widgets/DisabledWindow.h"

#include <QApplication>
#include <QWindow>

#include <algorithm>

namespace {

std::vector<const CDisabledWindow*>& Living() {
    static std::vector<const CDisabledWindow*> living;
    return living;
}

bool IsInput(QEvent::Type type) {
    switch (type) {
    case QEvent::KeyPress:
    case QEvent::KeyRelease:
    case QEvent::Shortcut:
    case QEvent::ShortcutOverride:
    case QEvent::InputMethod:
    case QEvent::MouseButtonPress:
    case QEvent::MouseButtonRelease:
    case QEvent::MouseButtonDblClick:
    case QEvent::Wheel:
    case QEvent::ContextMenu:
    case QEvent::TabletPress:
    case QEvent::TouchBegin:
    case QEvent::DragEnter:
    case QEvent::Drop:
    case QEvent::Close:
        return true;
    default:
        return false;
    }
}

/// The widget that the event is for; of an action or a shortcut the one that it stands in.
const QWidget* Target(const QObject* object) {
    if (object->isWindowType()) {
        for (const QWidget* window : QApplication::topLevelWidgets())
            if (window->windowHandle() == object)
                return window;
        return nullptr;
    }
    while (object != nullptr && !object->isWidgetType())
        object = object->parent();
    return static_cast<const QWidget*>(object);
}

} // namespace

CDisabledWindow::CDisabledWindow(QWidget& window) {
    m_windows.emplace_back(&window);
    for (QWidget* each : window.findChildren<QWidget*>())
        if (each->isWindow())
            m_windows.emplace_back(each);
    Living().push_back(this);
    qApp->installEventFilter(this);
}

CDisabledWindow::~CDisabledWindow() {
    std::erase(Living(), this);
}

bool CDisabledWindow::Holds(const QWidget& widget) const {
    return std::find(m_windows.begin(), m_windows.end(), widget.window()) != m_windows.end();
}

bool CDisabledWindow::TakesInput(const QWidget& widget) {
    return widget.isEnabled() && std::none_of(Living().begin(), Living().end(),
                                              [&](const CDisabledWindow* each) { return each->Holds(widget); });
}

bool CDisabledWindow::eventFilter(QObject* watched, QEvent* event) {
    if (!IsInput(event->type()))
        return false;
    const QWidget* const target = Target(watched);
    if (target == nullptr || !Holds(*target))
        return false;
    if (event->type() == QEvent::Close)
        event->ignore();
    return true;
}
