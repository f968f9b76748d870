#pragma once

#include "core/base/FileDoor.h"

#include <vector>

/// Answers the next questions for a file in order, and keeps what was asked. In use while it lives.
class ScriptedFiles : public IFileDoor {
public:
    enum class Kind { Open, Save, Folder };
    struct Asked {
        Kind kind;
        Request request;
    };

    ~ScriptedFiles() override;

    std::vector<QString> answers;
    std::vector<Asked> asked;

    QString OpenFile(const Request& request) override { return Answer(Kind::Open, request); }
    QString SaveFile(const Request& request) override { return Answer(Kind::Save, request); }
    QString ChooseFolder(const Request& request) override { return Answer(Kind::Folder, request); }

private:
    QString Answer(Kind kind, const Request& request);

    DoorUse<IFileDoor*> m_use{FileDoor(), this};
};
