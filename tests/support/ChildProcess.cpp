#include "tests/support/ChildProcess.h"

#include <gtest/gtest.h>
#include <sys/wait.h>
#include <unistd.h>

#include <cstdlib>

std::string InChild(const std::function<std::string()>& act) {
    int ends[2] = {};
    if (pipe(ends) != 0)
        return "no pipe";
    const pid_t child = fork();
    if (child == 0) {
        close(ends[0]);
        std::string answer;
        try {
            answer = act();
        } catch (const std::exception& error) {
            answer = std::string("raised: ") + error.what();
        }
        const auto written = write(ends[1], answer.data(), answer.size());
        _exit(written == static_cast<ssize_t>(answer.size()) ? 0 : 3);
    }
    close(ends[1]);
    std::string answer;
    char part[4096];
    for (ssize_t count = 0; (count = read(ends[0], part, sizeof part)) > 0;)
        answer.append(part, static_cast<std::size_t>(count));
    close(ends[0]);
    int status = 0;
    if (child < 0 || waitpid(child, &status, 0) != child)
        return "no child";
    if (WIFSIGNALED(status))
        return "signal " + std::to_string(WTERMSIG(status));
    return WEXITSTATUS(status) == 0 ? answer : "exit " + std::to_string(WEXITSTATUS(status));
}
