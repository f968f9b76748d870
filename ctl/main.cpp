#include "core/base/FailureLog.h"
#include "ctl/CommandLine.h"

int main(int argc, char** argv) {
    StartFailureLog();
    return RunCommandLine(argc, argv);
}
