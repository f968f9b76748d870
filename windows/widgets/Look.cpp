#include "windows/widgets/Look.h"

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
