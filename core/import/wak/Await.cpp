#include "core/import/wak/Await.h"

#include <chrono>
#include <future>
#include <thread>

namespace {

constexpr std::chrono::milliseconds Turn{50};
/// Within this a call that is asked to end mostly does.
constexpr std::chrono::milliseconds Grace{100};

} // namespace

void Await(std::function<void()> call, const Waiting& waiting) {
    if (!waiting.alive) {
        call();
        return;
    }
    std::packaged_task<void()> task(std::move(call));
    std::future<void> end = task.get_future();
    std::thread thread(std::move(task));
    try {
        while (end.wait_for(Turn) != std::future_status::ready)
            waiting.alive();
    } catch (...) {
        waiting.cancel();
        if (end.wait_for(Grace) == std::future_status::ready) {
            thread.join();
        } else {
            thread.detach();
            waiting.leave();
        }
        throw;
    }
    thread.join();
    end.get();
}
