#include "windows/widgets/Look.h"

#include <QPainter>
#include <QStyleOption>

/// A colour on the way from one to the other, in hundredths.
static QColor Between(const QColor& from, const QColor& to, int way) {
    const auto part = [way](int a, int b) { return a + (b - a) * way / 100; };
    return {part(from.red(), to.red()), part(from.green(), to.green()), part(from.blue(), to.blue())};
}

int CLook::styleHint(StyleHint hint, const QStyleOption* option, const QWidget* widget,
                     QStyleHintReturn* answer) const {
    if (hint != SH_Table_GridLineColor || option == nullptr)
        return QProxyStyle::styleHint(hint, option, widget, answer);
    const QPalette& palette = option->palette;
    return static_cast<int>(Between(palette.base().color(), palette.text().color(), 10).rgba());
}

void CLook::drawPrimitive(PrimitiveElement element, const QStyleOption* option, QPainter* painter,
                          const QWidget* widget) const {
    QProxyStyle::drawPrimitive(element, option, painter, widget);
    const bool isRound = element == PE_IndicatorRadioButton;
    const QPalette& palette = option->palette;
    if ((!isRound && element != PE_IndicatorCheckBox) || palette.window().color().lightness() >= 128)
        return;
    constexpr double Corner = 2;
    const QRectF outline = QRectF(option->rect).adjusted(0.5, 0.5, -0.5, -0.5);
    painter->save();
    painter->setRenderHint(QPainter::Antialiasing);
    painter->setBrush(Qt::NoBrush);
    painter->setPen(Between(palette.window().color(), palette.windowText().color(), 40));
    isRound ? painter->drawEllipse(outline) : painter->drawRoundedRect(outline, Corner, Corner);
    painter->restore();
}
