#include "app/OverwriteDialogDoor.h"

#include "app/ActiveWindow.h"
#include "import/AskOverwriteDlg.h"

IOverwriteDoor::Answer COverwriteDialogDoor::Ask(const QString& question) {
    return CAskOverwriteDlg(question, ActiveWindow()).Ask();
}
