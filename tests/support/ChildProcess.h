#pragma once

#include <functional>
#include <string>

/// Runs `act` in a forked child, where it may lower its rights, run into limits or be killed without harm to the test,
/// and returns the text that it returned; "signal N" or "exit N" when it did not come to that.
std::string InChild(const std::function<std::string()>& act);
