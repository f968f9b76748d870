#include "bench/support/Pairs.h"

#include <QTemporaryDir>

#include <cstdio>
#include <cstdlib>
#include <spawn.h>
#include <stdexcept>
#include <string>
#include <sys/wait.h>

namespace {

/// Starts a program of this folder and waits until it ends by itself, its window painted.
void Start(const char* name) {
    std::string path = std::string(KUVEL_BIN_DIR) + "/" + name;
    char* const arguments[] = {path.data(), nullptr};
    pid_t child = 0;
    int status = 0;
    if (posix_spawn(&child, path.c_str(), nullptr, nullptr, arguments, environ) != 0 ||
        waitpid(child, &status, 0) != child || status != 0)
        throw std::runtime_error("could not start " + path);
}

} // namespace

int main(int argc, char** argv) {
    ReadArguments(argc, argv);
    const QTemporaryDir folder;
    setenv("KUVEL_HOME", folder.path().toUtf8().constData(), 1);
    setenv("XDG_CONFIG_HOME", folder.path().toUtf8().constData(), 1);
    const std::string demo = std::string(KUVEL_BIN_DIR) + "/kuvelctl demo > /dev/null";
    if (std::system(demo.c_str()) != 0)
        return 1;
    Measure({"start-up", 1.5, Sized(30), nullptr, [] { Start("ProgramWindow"); }, [] { Start("EmptyWindow"); }});
}
