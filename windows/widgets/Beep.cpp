#include "windows/widgets/Beep.h"

#include <QApplication>

#include <utility>

static std::function<void()> g_beep;

void Beep() {
    if (g_beep)
        g_beep();
    else
        QApplication::beep();
}

std::function<void()> SetBeep(std::function<void()> beep) {
    return std::exchange(g_beep, std::move(beep));
}
