#include "windows/widgets/SplitterBar.h"

#include <QMouseEvent>
#include <QPainter>
#include <QRubberBand>
#include <qdrawutil.h>

#include <algorithm>

namespace {
constexpr int KeyStep = 20;
} // namespace

CSplitterBar::CSplitterBar(QWidget* parent) : QWidget(parent) {
    setObjectName(QStringLiteral("splitter"));
    setCursor(Qt::SplitHCursor);
    setFocusPolicy(Qt::TabFocus);
    setAccessibleName(QStringLiteral("Hranice mezi seznamy"));
    setAccessibleDescription(QStringLiteral("Posunete ji šipkami vlevo a vpravo."));
}

void CSplitterBar::paintEvent(QPaintEvent*) {
    QPainter painter(this);
    const QColor window = palette().window().color();
    painter.fillRect(rect(), window);
    // Dark palettes often leave the edge colours bright.
    QPalette edge(palette());
    edge.setColor(QPalette::Light, window.lighter(140));
    edge.setColor(QPalette::Dark, window.darker(140));
    qDrawShadeRect(&painter, rect(), edge, true, 1, 0);
    if (hasFocus())
        painter.fillRect(rect().adjusted(1, 1, -1, -1), palette().highlight());
}

void CSplitterBar::keyPressEvent(QKeyEvent* event) {
    const int way = event->key() == Qt::Key_Left ? -1 : event->key() == Qt::Key_Right ? 1 : 0;
    if (way == 0) {
        QWidget::keyPressEvent(event);
        return;
    }
    move(std::clamp(x() + way * KeyStep, 0, parentWidget()->width() - width()), y());
    emit moved();
}

int CSplitterBar::PointerX(const QMouseEvent& event) const {
    const int x = parentWidget()->mapFromGlobal(event.globalPosition().toPoint()).x();
    return std::clamp(x, 0, parentWidget()->width() - 1);
}

void CSplitterBar::mousePressEvent(QMouseEvent* event) {
    if (event->button() != Qt::LeftButton)
        return;
    m_pressX = PointerX(*event);
    if (m_track == nullptr)
        m_track = new QRubberBand(QRubberBand::Rectangle, parentWidget());
    m_track->setGeometry(m_pressX - width() / 2, y(), width(), height());
    m_track->show();
}

void CSplitterBar::mouseMoveEvent(QMouseEvent* event) {
    if (m_track != nullptr && m_track->isVisible())
        m_track->move(PointerX(*event) - width() / 2, y());
}

void CSplitterBar::mouseReleaseEvent(QMouseEvent* event) {
    if (event->button() != Qt::LeftButton || m_track == nullptr || !m_track->isVisible())
        return;
    m_track->hide();
    move(x() + PointerX(*event) - m_pressX, y());
    emit moved();
}
