#include "ctl/CommandLine.h"

int main(int argc, char** argv) {
    return RunCommandLine(argc, argv);
}
