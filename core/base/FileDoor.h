#pragma once

#include "core/base/Door.h"

#include <QString>

/// The one door through which a window asks for a file or a folder.
class IFileDoor {
public:
    struct Request {
        QString title;
        /// Where the box opens; a file name in it is proposed.
        QString path;
        /// "Záloha dat (*.mdb)" and the like.
        QString filter;
        /// Appended to a name without one.
        QString defaultExtension;
    };

    virtual ~IFileDoor() = default;
    /// All three answer the full path, or an empty text when the user gave up.
    virtual QString OpenFile(const Request& request) = 0;
    virtual QString SaveFile(const Request& request) = 0;
    virtual QString ChooseFolder(const Request& request) = 0;
};

/// Until something is put in, every question is answered with nothing.
Door<IFileDoor*>& FileDoor();
