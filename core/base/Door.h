#pragma once

#include <type_traits>
#include <utility>

/// A place through which all of the program reaches what is outside of it or set for the whole run: message boxes, the
/// clock, the user's options. `first` stands there until something else is put in. Used from one thread.
template <class T>
class Door {
public:
    explicit Door(T first = {}) : m_now(std::move(first)) {}
    Door(const Door&) = delete;
    Door& operator=(const Door&) = delete;

    T& operator*() { return m_now; }
    auto operator->() {
        if constexpr (std::is_pointer_v<T>)
            return m_now;
        else
            return &m_now;
    }
    /// Answers what stood there before. Whoever puts in what does not live to the program's end uses `DoorUse`.
    T Put(T now) { return std::exchange(m_now, std::move(now)); }

private:
    T m_now;
};

/// Puts something in a door's place for as long as it lives.
template <class T>
class DoorUse {
public:
    [[nodiscard]] DoorUse(Door<T>& door, std::type_identity_t<T> now)
        : m_door(door), m_before(door.Put(std::move(now))) {}
    ~DoorUse() { m_door.Put(std::move(m_before)); }
    DoorUse(const DoorUse&) = delete;
    DoorUse& operator=(const DoorUse&) = delete;

    T& Before() { return m_before; }

private:
    Door<T>& m_door;
    T m_before;
};
