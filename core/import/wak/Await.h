#pragma once

#include <functional>

/// What is done while a call waits for somebody else.
struct Waiting {
    /// Called every 50 ms in the waiting thread; what it throws gives the call up.
    std::function<void()> alive;
    /// Asks a call that was given up to end, from the waiting thread.
    std::function<void()> cancel;
    /// Called when it did not end at once and is left alone, to end by itself.
    std::function<void()> leave;
};

/// Runs the call in a thread of its own and waits for it; what the call throws is thrown here. The call must own what
/// it uses. Without `alive` it is made here.
void Await(std::function<void()> call, const Waiting& waiting);
