#include "windows/frame/LockKeys.h"

#include <QGuiApplication>
#include <QLibrary>

std::optional<LockKeys> QueryLockKeys() {
    const auto* x11 = qGuiApp->nativeInterface<QNativeInterface::QX11Application>();
    // The platform without a screen has the interface too, but no display behind it.
    if (x11 == nullptr || x11->display() == nullptr)
        return std::nullopt;
    // Looked up at run time: the program also runs on a desktop that has no X.
    using IndicatorState = int (*)(Display*, unsigned, unsigned*);
    static const auto indicatorState =
        reinterpret_cast<IndicatorState>(QLibrary::resolve(QStringLiteral("X11"), 6, "XkbGetIndicatorState"));
    constexpr unsigned CoreKeyboard = 0x100;
    unsigned lights = 0;
    if (indicatorState == nullptr || indicatorState(x11->display(), CoreKeyboard, &lights) != 0)
        return std::nullopt;
    return LockKeys{(lights & 1) != 0, (lights & 2) != 0, (lights & 4) != 0};
}
