#include "core/import/OverwriteDoor.h"

namespace {

class NobodyDoor : public IOverwriteDoor {
public:
    Answer Ask(const OverwriteQuestion&) override { return Answer::No; }
};

} // namespace

IOverwriteDoor& NobodyToAsk() {
    static NobodyDoor door;
    return door;
}
