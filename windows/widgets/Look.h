#pragma once

#include <QProxyStyle>

/// The desktop's own style, with the lines between the cells of a list only as dark as it takes to see them.
class CLook : public QProxyStyle {
    Q_OBJECT

public:
    int styleHint(StyleHint hint, const QStyleOption* option, const QWidget* widget,
                  QStyleHintReturn* answer) const override;
};
