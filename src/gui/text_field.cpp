#include "gui/text_field.h"

#include "base/utf8.h"
#include "framework/traps.h"
#include "gui/elements.h"
#include <algorithm>

namespace nubo {
namespace {

/// Moves the bytes from `start` on up to `end`.
void open_gap(int slot, int start, int end) {
    auto& text = gui::text[at(slot)];
    for (int to = field_size - 1; to >= end; --to) text[at(to)] = text[at(to - end + start)];
}

/// A field's bytes as they are now, to be looked at as text: the other flow may write to the field meanwhile.
class FieldBytes {
public:
    explicit FieldBytes(int slot) : length_(at(field_length(slot))) {
        for (std::size_t i = 0; i < length_; ++i) bytes_[i] = gui::text[at(slot)][i];
    }
    std::string_view from(int start) const { return text().substr(std::min(at(start), length_)); }
    std::string_view before(int end) const { return text().substr(0, at(end)); }

private:
    std::string_view text() const { return {bytes_.data(), length_}; }

    std::size_t length_;
    std::array<char, field_size> bytes_{};
};

}  // namespace

int field_length(int slot) {
    const auto& text = gui::text[at(slot)];
    int length = 0;
    while (length < field_size - 1 && text[at(length)] != '\0') ++length;
    return length;
}

int field_step_on(int slot, int position) {
    const FieldBytes bytes(slot);
    const std::string_view rest = bytes.from(position);
    return rest.empty() ? position : position + static_cast<int>(first_character(rest).size);
}

int field_step_back(int slot, int position) {
    constexpr std::size_t longest = 4;
    const FieldBytes bytes(slot);
    const std::string_view text = bytes.before(position);
    position = static_cast<int>(text.size());
    for (std::size_t size = std::min(longest, text.size()); size > 1; --size)
        if (first_character(text.substr(text.size() - size)).size == size) return position - static_cast<int>(size);
    return std::max(position - 1, 0);
}

int step_by_columns(int slot, int position, int columns) {
    for (; columns > 0; --columns) position = field_step_on(slot, position);
    return position;
}

int field_columns(int slot, int from, int to) {
    const FieldBytes bytes(slot);
    std::string_view rest = bytes.from(from).substr(0, at(std::max(to - from, 0)));
    int columns = 0;
    for (; !rest.empty(); ++columns) rest.remove_prefix(first_character(rest).size);
    return columns;
}

void scroll_field_to_end(int slot) {
    const std::size_t s = at(slot);
    gui::cursor[s] = gui::field_scroll[s] = field_length(slot);
    for (int i = 0; i < gui::field_visible[s]; ++i) gui::field_scroll[s] = field_step_back(slot, gui::field_scroll[s]);
}

int GUI_insert_field(int slot, std::string_view character, int position) {
    if (!GUI_check_window(slot, "GUI_insert_field")) return 0;
    const int length = field_length(slot), size = static_cast<int>(character.size());
    if (position < 0 || position > length || size == 0 || length + size >= field_size) return 0;
    if (field_columns(slot, 0, length) >= gui::field_max[at(slot)]) return 0;
    open_gap(slot, position, position + size);
    for (const char byte : character) gui::text[at(slot)][at(position++)] = byte;
    return 1;
}

void delete_bytes(int slot, int start, int end) {
    auto& text = gui::text[at(slot)];
    for (int i = start; i < field_size; ++i, ++end) text[at(i)] = end < field_size ? char{text[at(end)]} : '\0';
}

void GUI_delete_field(int slot, int position) {
    if (!GUI_check_window(slot, "GUI_delete_field")) return;
    if (position < 1 || position > field_length(slot) || gui::cursor[at(slot)] <= 0) return;
    delete_bytes(slot, field_step_back(slot, position), position);
}

void GUI_delete_field(int slot, int position, Forward) {
    if (!GUI_check_window(slot, "GUI_delete_field")) return;
    if (position >= 0 && position < field_length(slot)) delete_bytes(slot, position, field_step_on(slot, position));
}

}  // namespace nubo
