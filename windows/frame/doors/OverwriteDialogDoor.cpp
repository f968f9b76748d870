#include "windows/frame/doors/OverwriteDialogDoor.h"

#include "windows/frame/doors/ActiveWindow.h"
#include "windows/import/AskOverwriteDlg.h"

IOverwriteDoor::Answer COverwriteDialogDoor::Ask(const OverwriteQuestion& question) {
    return CAskOverwriteDlg(question, ActiveWindow()).Ask();
}
