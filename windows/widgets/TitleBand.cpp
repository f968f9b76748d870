#include "windows/widgets/TitleBand.h"

#include <QPainter>
#include <qdrawutil.h>

#include <algorithm>

namespace {
const QColor Band(0, 131, 125);
const QColor Mark(255, 200, 60);
constexpr int MarkHeight = 3;
} // namespace

CTitleBand::CTitleBand(const QString& title, QWidget* parent) : QWidget(parent) {
    setWindowTitle(title);
    setAccessibleName(title.trimmed());
}

void CTitleBand::SetMarked(bool marked) {
    m_marked = marked;
    update();
}

void CTitleBand::SetButton(QWidget* button) {
    m_button = button;
    const QSize size(std::min(width(), button->sizeHint().width()), height() - 2);
    button->setGeometry(width() - size.width() - 1, 1, size.width(), size.height());
    update();
}

void CTitleBand::resizeEvent(QResizeEvent*) {
    if (m_button != nullptr)
        SetButton(m_button);
}

void CTitleBand::paintEvent(QPaintEvent*) {
    QPainter painter(this);
    painter.fillRect(rect(), Band);
    QPalette edge(palette());
    edge.setColor(QPalette::Light, Band.lighter(140));
    edge.setColor(QPalette::Mid, Band.darker(140));
    edge.setColor(QPalette::Dark, Band.darker(140));
    qDrawShadeRect(&painter, rect(), edge, true, 1, 0);
    if (m_marked) {
        painter.fillRect(rect().adjusted(1, height() - MarkHeight - 1, -1, -1), Mark);
        QFont bold(font());
        bold.setBold(true);
        painter.setFont(bold);
    }
    painter.setPen(Qt::white);
    const bool buttonShown = m_button != nullptr && !m_button->isHidden();
    painter.drawText(buttonShown ? rect().adjusted(0, 0, -m_button->width(), 0) : rect(),
                     Qt::AlignCenter | Qt::TextSingleLine, QStringLiteral("  %1  ").arg(windowTitle().trimmed()));
}
