#pragma once
// Finding an entry of a list by the begin of its name. Main flow only.
#include <string>
#include <string_view>

namespace nubo {

/// What the user looks for: characters that come within a second of each other are one text.
class TypeAhead {
public:
    /// Takes one more character, or what a break begins anew.
    void add(std::string_view character);

    /// Takes the last one back. False when nothing is being typed.
    bool take_back();

    /// What is looked for.
    const std::string& text() const { return text_; }

    /// The one character, if only that was struck, again and again; else empty.
    std::string repeated() const;

private:
    bool is_fresh() const;

    std::string text_;
    int struck_at_ = 0;  // the 500 Hz tick of the last character
};

}  // namespace nubo
