#include "bench/startup/FirstPaint.h"

#include "app/Desktop.h"
#include "app/FileDialogDoor.h"
#include "app/KuvelApp.h"
#include "app/MessageBoxDoor.h"

/// The program as it starts, up to its first painted window.
int main(int argc, char** argv) {
    QApplication application(argc, argv);
    const FirstPaint firstPaint;
    SetUpDesktop();
    CMessageBoxDoor messages;
    SetMessageDoor(&messages);
    CFileDialogDoor files;
    SetFileDoor(&files);
    CKuvelApp theApp;
    if (!theApp.InitInstance())
        return 1;
    return QApplication::exec();
}
