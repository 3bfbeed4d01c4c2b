#include "platform/selection_asker.h"

#include "base/log.h"
#include "base/memory.h"
#include <string>
#include <utility>

namespace nubo {
namespace {

constexpr std::size_t content_limit = std::size_t{256} << 20;
constexpr std::chrono::seconds piece_patience(2);
constexpr const char* too_much = "has more than 256 MiB";

}  // namespace

void SelectionAsker::ask(xcb_atom_t kind, std::chrono::milliseconds patience) {
    constexpr unsigned property_names = 16;
    // Each time into another property: an owner that answers late, or goes on with pieces that nobody waits for any
    // more, writes where nobody looks.
    property_ = wire_.atom("NUBO_PASTE_" + std::to_string(asked_++ % property_names));
    wire_.delete_property(wire_.window(), property_);
    content = {};
    kind_ = kind;
    by_pieces_ = false;
    state_ = ASKER_WAITS;
    owner_ = wire_.owner_of(selection_);
    wire_.watch(owner_, true);  // for good, since it may be asking for ours, too
    time_ = wire_.server_time();
    deadline_ = std::chrono::steady_clock::now() + patience;
    wire_.ask_owner(selection_, kind, property_, time_);
}

void SelectionAsker::give_up(const char* cause) {
    UA_log("[ WARNING ] : Nothing was pasted: the clipboard's owner %s", cause);
    state_ = ASKER_GAVE_UP;
}

/// Its window is destroyed with its connection; before we watched it, a request to it was refused.
bool SelectionAsker::is_end_of_owner(const xcb_generic_event_t& event) const {
    if (event_code(event) == XCB_DESTROY_NOTIFY)
        return reinterpret_cast<const xcb_destroy_notify_event_t&>(event).window == owner_;
    return event_code(event) == 0 && reinterpret_cast<const xcb_generic_error_t&>(event).resource_id == owner_;
}

void SelectionAsker::hear(const xcb_generic_event_t& event) {
    if (state_ != ASKER_WAITS) return;
    if (unless_memory_ends([&] { return hear_owner(event), true; }, false)) return;
    content = {};
    give_up("has more than there is memory for");
}

void SelectionAsker::hear_owner(const xcb_generic_event_t& event) {
    if (is_end_of_owner(event)) return give_up("has gone");
    if (event_code(event) == XCB_SELECTION_NOTIFY) {
        hear_answer(reinterpret_cast<const xcb_selection_notify_event_t&>(event));
    } else if (event_code(event) == XCB_PROPERTY_NOTIFY && by_pieces_) {
        const auto& change = reinterpret_cast<const xcb_property_notify_event_t&>(event);
        const bool is_piece =
            change.window == wire_.window() && change.atom == property_ && change.state == XCB_PROPERTY_NEW_VALUE;
        if (is_piece) take_piece();
    }
}

void SelectionAsker::hear_answer(const xcb_selection_notify_event_t& answer) {
    if (by_pieces_ || answer.selection != selection_ || answer.target != kind_) return;
    if (answer.property == property_)
        take_answer();
    else if (answer.property == XCB_NONE && answer.time == time_)
        state_ = ASKER_WAS_DENIED;
}

/// What is too large for the owner to give at once has its size in its place, and comes piece by piece: the next one
/// each time that the property has been deleted.
void SelectionAsker::take_answer() {
    PropertyValue value = wire_.take_property(wire_.window(), property_, content_limit);
    if (value.type == wire_.atom("INCR")) {
        const auto words = value.words();
        const std::size_t size = words.empty() ? 0 : words.front();
        if (size > content_limit) return give_up(too_much);
        by_pieces_ = true;
        deadline_ = std::chrono::steady_clock::now() + piece_patience;
        return;
    }
    if (value.type == XCB_NONE) return give_up("left nothing where it was to leave it");
    if (!value.whole) return give_up(too_much);
    content = std::move(value);
    state_ = ASKER_HAS_IT;
}

void SelectionAsker::take_piece() {
    const PropertyValue piece = wire_.take_property(wire_.window(), property_, content_limit);
    if (piece.type == XCB_NONE) return;  // deleted again meanwhile
    if (!piece.whole || content.bytes.size() + piece.bytes.size() > content_limit) return give_up(too_much);
    if (piece.bytes.empty()) state_ = ASKER_HAS_IT;
    content.type = piece.type;
    content.bits = piece.bits;
    content.bytes.insert(content.bytes.end(), piece.bytes.begin(), piece.bytes.end());
    deadline_ = std::chrono::steady_clock::now() + piece_patience;
}

void SelectionAsker::look_at_clock() {
    if (state_ == ASKER_WAITS && std::chrono::steady_clock::now() >= deadline_) give_up("doesn't answer");
}

}  // namespace nubo
