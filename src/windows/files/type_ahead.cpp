#include "windows/files/type_ahead.h"

#include "base/utf8.h"
#include "state/run.h"

namespace nubo {

bool TypeAhead::is_fresh() const { return !text_.empty() && UA_wait_ticks - struck_at_ < clock_hz; }

void TypeAhead::add(std::string_view character) {
    if (!is_fresh()) text_.clear();
    text_ += character;
    struck_at_ = UA_wait_ticks;
}

bool TypeAhead::take_back() {
    if (!is_fresh()) return false;
    while (text_.size() > 1 && continues_character(text_.back())) text_.pop_back();
    text_.pop_back();
    struck_at_ = UA_wait_ticks;
    return true;
}

std::string TypeAhead::repeated() const {
    const std::string first = text_.substr(0, text_.empty() ? 0 : first_character(text_).size);
    for (std::size_t i = 0; i < text_.size(); i += first.size())
        if (text_.compare(i, first.size(), first) != 0) return {};
    return first;
}

}  // namespace nubo
