#pragma once
// Numbers of a text, one a line.
#include <algorithm>
#include <climits>
#include <cstdint>
#include <cstdlib>
#include <span>
#include <string>

namespace nubo {

class NumberLines {
public:
    /// Each line begins with `label` characters that don't count.
    explicit NumberLines(std::span<const std::uint8_t> text, std::size_t label = 0)
        : text_(text.begin(), text.end()), label_(label) {}
    /// True once a number was asked for where no whole line was left.
    bool has_ended() const { return has_ended_; }
    /// True when no character is left.
    bool is_empty() const { return at_ == text_.size(); }
    /// The next line's number; 0 for a line without one and behind the end. A long line goes on as the next one.
    int next() {
        constexpr std::size_t longest_line = 79;
        const std::size_t line_feed = text_.find('\n', at_);
        const std::size_t line_end = line_feed == std::string::npos ? text_.size() : line_feed + 1;
        const std::string line = text_.substr(at_, std::min(line_end - at_, longest_line));
        at_ += line.size();
        has_ended_ = has_ended_ || (at_ == text_.size() && line_feed == std::string::npos);
        const char* const number = line.c_str() + std::min(label_, line.size());
        return static_cast<int>(std::clamp(std::strtol(number, nullptr, 10), long{INT_MIN}, long{INT_MAX}));
    }

private:
    std::string text_;
    std::size_t at_ = 0, label_;
    bool has_ended_ = false;
};

}  // namespace nubo
