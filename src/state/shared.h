#pragma once
// The words that the main flow and the timer handlers share. This header stands in the lowest room, since the tables of
// the editor's state are made of such words.
#include <array>
#include <atomic>
#include <cstddef>
#include <utility>

namespace nubo {

/// A word of both the main flow and the timer handlers. Relaxed: it orders no other word, two may be of different
/// ticks.
template <typename T> class Shared {
public:
    constexpr Shared(T value = T{}) noexcept : word_(value) {}
    Shared(const Shared&) = delete;
    Shared& operator=(T value) noexcept {
        word_.store(value, std::memory_order_relaxed);
        return *this;
    }
    Shared& operator=(const Shared& other) noexcept { return *this = T(other); }
    operator T() const noexcept { return word_.load(std::memory_order_relaxed); }
    T operator+=(T step) noexcept { return static_cast<T>(word_.fetch_add(step, std::memory_order_relaxed) + step); }
    T operator-=(T step) noexcept { return static_cast<T>(word_.fetch_sub(step, std::memory_order_relaxed) - step); }
    /// Reads and clears in one step, so that no press is lost between the two.
    T take() noexcept { return word_.exchange(T{}, std::memory_order_relaxed); }
    /// Writes `value` if the word still holds `held`; false when the other flow was first.
    bool claim(T held, T value) noexcept {
        return word_.compare_exchange_strong(held, value, std::memory_order_acquire, std::memory_order_relaxed);
    }
    /// Writes with release order: whoever reads the word by `acquire` sees all that was written before it.
    void publish(T value) noexcept { word_.store(value, std::memory_order_release); }
    T acquire() const noexcept { return word_.load(std::memory_order_acquire); }

private:
    std::atomic<T> word_;
};

/// A column whose N words start at `value`; words can't be copied, so each is built in place.
template <typename T, std::size_t N> consteval std::array<T, N> filled(auto value) {
    const auto word = [value](std::size_t) { return T(value); };
    return [&]<std::size_t... I>(std::index_sequence<I...>) { return std::array<T, N>{{word(I)...}}; }
    (std::make_index_sequence<N>{});
}

/// A number of a table as an index of its columns: `gui::x[at(slot)]`.
constexpr std::size_t at(int number) { return static_cast<std::size_t>(number); }

/// True when row i describes the value `first` + i: none missing, none out of order. For tables beside their
/// enumeration.
template <typename Row, std::size_t N, typename Key>
consteval bool rows_in_order(const std::array<Row, N>& rows, Key Row::*key, int first = 0) {
    for (std::size_t i = 0; i < N; ++i)
        if (static_cast<int>(rows[i].*key) != static_cast<int>(i) + first) return false;
    return true;
}

}  // namespace nubo
