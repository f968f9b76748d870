#include "windows/widgets/ScreenFit.h"

#include <QScreen>
#include <QStyle>
#include <QWidget>

QSize FittingSize(const QWidget& window, QSize wanted) {
    // The desktop tells a window's frame only after it is shown.
    const int border = window.style()->pixelMetric(QStyle::PM_MdiSubWindowFrameWidth);
    const int title = window.style()->pixelMetric(QStyle::PM_TitleBarHeight);
    return wanted.boundedTo(window.screen()->availableSize() - QSize(2 * border, 2 * border + title));
}

QSize FittingPage(const QWidget& page, QSize wanted) {
    constexpr QSize Sheet(40, 110);
    return FittingSize(page, wanted + Sheet) - Sheet;
}
