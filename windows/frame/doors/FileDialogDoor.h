#pragma once

#include "core/base/FileDoor.h"

/// The desktop's own boxes for files and folders, over the window that is active.
class CFileDialogDoor : public IFileDoor {
public:
    QString OpenFile(const Request& request) override;
    QString SaveFile(const Request& request) override;
    QString ChooseFolder(const Request& request) override;
};
