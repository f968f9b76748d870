#include "windows/widgets/Beep.h"

#include <QApplication>

Door<std::function<void()>>& BeepDoor() {
    static Door<std::function<void()>> door(&QApplication::beep);
    return door;
}

void Beep() {
    (*BeepDoor())();
}
