#pragma once

#include <QProxyStyle>

/// The desktop's own style, with the lines between the cells of a list only as dark as it takes to see them, and boxes
/// and buttons of a choice that are seen on a dark window also while they are off.
class CLook : public QProxyStyle {
    Q_OBJECT

public:
    int styleHint(StyleHint hint, const QStyleOption* option, const QWidget* widget,
                  QStyleHintReturn* answer) const override;
    void drawPrimitive(PrimitiveElement element, const QStyleOption* option, QPainter* painter,
                       const QWidget* widget) const override;
};
