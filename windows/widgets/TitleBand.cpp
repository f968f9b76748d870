#include "windows/widgets/TitleBand.h"

#include <QPainter>
#include <qdrawutil.h>

CTitleBand::CTitleBand(const QString& title, QWidget* parent) : QWidget(parent) {
    setWindowTitle(title);
    setAccessibleName(title.trimmed());
}

void CTitleBand::paintEvent(QPaintEvent*) {
    QPainter painter(this);
    const QBrush band(QColor(0, 131, 125));
    painter.fillRect(rect(), band);
    QPalette edge(palette());
    edge.setColor(QPalette::Light, band.color().lighter(140));
    edge.setColor(QPalette::Mid, band.color().darker(140));
    edge.setColor(QPalette::Dark, band.color().darker(140));
    qDrawShadeRect(&painter, rect(), edge, true, 1, 0);
    painter.setPen(Qt::white);
    painter.drawText(rect(), Qt::AlignCenter | Qt::TextSingleLine,
                     QStringLiteral("  %1  ").arg(windowTitle().trimmed()));
}
