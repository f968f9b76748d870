#include "windows/widgets/TitleBand.h"

#include <QPainter>
#include <qdrawutil.h>

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
    painter.drawText(rect(), Qt::AlignCenter | Qt::TextSingleLine,
                     QStringLiteral("  %1  ").arg(windowTitle().trimmed()));
}
