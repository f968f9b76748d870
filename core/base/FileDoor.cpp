#include "core/base/FileDoor.h"

namespace {

class NoFiles : public IFileDoor {
public:
    QString OpenFile(const Request&) override { return {}; }
    QString SaveFile(const Request&) override { return {}; }
    QString ChooseFolder(const Request&) override { return {}; }
};

NoFiles g_noFiles;
IFileDoor* g_door = nullptr;

} // namespace

IFileDoor& FileDoor() {
    return g_door != nullptr ? *g_door : g_noFiles;
}

IFileDoor* SetFileDoor(IFileDoor* door) {
    IFileDoor* const before = g_door;
    g_door = door;
    return before;
}
