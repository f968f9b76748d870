#pragma once

#include <cstdint>

/// Numbers that look drawn and are the same on every machine and in every run, which the standard distributions do not
/// promise.
class CSequence {
public:
    explicit CSequence(std::uint64_t seed) : m_state(seed) {}

    /// Both bounds inclusive.
    int Between(int lowest, int highest) {
        const auto span = static_cast<std::uint64_t>(highest) - static_cast<std::uint64_t>(lowest) + 1;
        return lowest + static_cast<int>(Next() % span);
    }
    bool Chance(int percent) { return Between(1, 100) <= percent; }

private:
    std::uint64_t Next() {
        m_state += 0x9E3779B97F4A7C15u;
        std::uint64_t z = m_state;
        z = (z ^ (z >> 30)) * 0xBF58476D1CE4E5B9u;
        z = (z ^ (z >> 27)) * 0x94D049BB133111EBu;
        return z ^ (z >> 31);
    }

    std::uint64_t m_state;
};
