#include "bench/support/Pairs.h"

#include <malloc.h>
#include <sys/wait.h>
#include <unistd.h>

#include <algorithm>
#include <chrono>
#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <fstream>
#include <vector>

namespace {

bool g_quick = false;

double Median(std::vector<double> values) {
    std::sort(values.begin(), values.end());
    const std::size_t middle = values.size() / 2;
    return values.size() % 2 == 1 ? values[middle] : (values[middle - 1] + values[middle]) / 2;
}

double OwnPeakMegabytes() {
    std::ifstream status("/proc/self/status");
    for (std::string line; std::getline(status, line);)
        if (line.rfind("VmHWM:", 0) == 0)
            return std::atof(line.c_str() + 6) / 1024;
    return 0;
}

double PeakOfChild(const std::function<void()>& call) {
    int ends[2];
    if (pipe(ends) != 0)
        return 0;
    const pid_t child = fork();
    if (child == 0) {
        // What the parent had at its peak does not count, nor may what it has set free serve the call.
        malloc_trim(0);
        std::ofstream("/proc/self/clear_refs") << "5";
        call();
        const double peak = OwnPeakMegabytes();
        const ssize_t written = write(ends[1], &peak, sizeof peak);
        _exit(written == sizeof peak ? 0 : 1);
    }
    close(ends[1]);
    double peak = 0;
    const ssize_t got = read(ends[0], &peak, sizeof peak);
    close(ends[0]);
    waitpid(child, nullptr, 0);
    return got == sizeof peak ? peak : -1;
}

} // namespace

double Seconds(const std::function<void()>& call) {
    const auto start = std::chrono::steady_clock::now();
    call();
    return std::chrono::duration<double>(std::chrono::steady_clock::now() - start).count();
}

void Measure(const Work& work) {
    std::vector<double> ours;
    std::vector<double> plain;
    std::vector<double> ratios;
    for (int pair = 0; pair < work.pairs; ++pair) {
        // The order alternates, so that neither side always runs first.
        for (int turn = 0; turn < 2; ++turn) {
            const bool program = (pair + turn) % 2 == 0;
            if (work.prepare)
                work.prepare();
            (program ? ours : plain).push_back(Seconds(program ? work.program : work.plain));
        }
        ratios.push_back(ours.back() / plain.back());
    }
    std::printf("time %s program %.4f s, plain %.4f s\n", work.name.c_str(), Median(ours), Median(plain));
    std::printf("ratio %s %.2f %.2f\n", work.name.c_str(), Median(ratios), work.limit);
    std::fflush(stdout);
}

void Report(const std::string& name, double value, double limit, const char* unit) {
    std::printf("value %s %.2f %.2f %s\n", name.c_str(), value, limit, unit);
    std::fflush(stdout);
}

void ReadArguments(int argc, char** argv) {
    for (int i = 1; i < argc; ++i)
        g_quick = g_quick || std::strcmp(argv[i], "--quick") == 0;
}

int Sized(int full) {
    return g_quick ? full / 10 : full;
}

double PeakMegabytes(const std::function<void()>& call, const std::function<void()>& baseline) {
    return PeakOfChild(call) - PeakOfChild(baseline);
}
