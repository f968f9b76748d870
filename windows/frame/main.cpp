#include "core/base/FailureLog.h"
#include "windows/frame/KuvelApp.h"
#include "windows/frame/doors/Desktop.h"
#include "windows/frame/doors/FileDialogDoor.h"
#include "windows/frame/doors/MessageBoxDoor.h"

#include <QApplication>

int main(int argc, char** argv) {
    StartFailureLog();
    QApplication application(argc, argv);
    SetUpDesktop();
    CMessageBoxDoor messages;
    const DoorUse shown(MessageDoor(), &messages);
    CFileDialogDoor files;
    const DoorUse asked(FileDoor(), &files);

    CKuvelApp theApp;
    if (!theApp.InitInstance())
        return theApp.InitResult();
    const int result = QApplication::exec();
    theApp.ExitInstance();
    return result;
}
