#include "bench/startup/FirstPaint.h"

#include "windows/frame/KuvelApp.h"
#include "windows/frame/doors/Desktop.h"
#include "windows/frame/doors/FileDialogDoor.h"
#include "windows/frame/doors/MessageBoxDoor.h"

/// The program as it starts, up to its first painted window.
int main(int argc, char** argv) {
    QApplication application(argc, argv);
    const FirstPaint firstPaint;
    SetUpDesktop();
    CMessageBoxDoor messages;
    const DoorUse shown(MessageDoor(), &messages);
    CFileDialogDoor files;
    const DoorUse asked(FileDoor(), &files);
    CKuvelApp theApp;
    if (!theApp.InitInstance())
        return 1;
    return QApplication::exec();
}
