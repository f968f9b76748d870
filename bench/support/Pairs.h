#pragma once

#include <functional>
#include <string>

/// One row of the table: the program's way and the plain one, timed in turn so that both meet the same machine.
struct Work {
    std::string name;
    /// The program may take this many times what the plain way takes.
    double limit = 0;
    int pairs = 7;
    /// Runs before each timed call, untimed; null for none.
    std::function<void()> prepare;
    std::function<void()> program;
    std::function<void()> plain;
};

/// Prints the medians and "ratio NAME R LIMIT", R being the median of the pairs' ratios.
void Measure(const Work& work);

/// Seconds that one call takes.
double Seconds(const std::function<void()>& call);

/// "value NAME V LIMIT unit", for a row that is no ratio.
void Report(const std::string& name, double value, double limit, const char* unit);

/// Whether the run was asked to be a tenth of the size, and the size that follows.
void ReadArguments(int argc, char** argv);
int Sized(int full);

/// The highest resident memory of a child process that makes the call, over that of one that makes `baseline`; in MB.
double PeakMegabytes(const std::function<void()>& call, const std::function<void()>& baseline);
