#include "platform/selection_owner.h"

#include "base/log.h"
#include <algorithm>
#include <array>
#include <utility>

namespace nubo {
namespace {

constexpr std::chrono::seconds asker_patience(10);

constexpr const char *targets_kind = "TARGETS", *multiple_kind = "MULTIPLE", *time_kind = "TIMESTAMP",
                     *save_kind = "SAVE_TARGETS", *manager_selection = "CLIPBOARD_MANAGER";

/// The server's times wrap around every 50 days.
bool is_before(xcb_timestamp_t a, xcb_timestamp_t b) { return static_cast<std::int32_t>(a - b) < 0; }

}  // namespace

bool SelectionOwner::offer(ClipboardOffer offer) {
    const xcb_timestamp_t now = wire_.server_time();
    if (!wire_.take_ownership(selection_, now)) return false;
    offer_ = std::move(offer);
    since_ = now;
    contents_.clear();  // transfers that run have their own hold on what they send
    return true;
}

// ---- Contents ------------------------------------------------------------------------------------------------------

std::vector<std::uint32_t> SelectionOwner::kind_atoms() {
    std::vector<std::uint32_t> atoms;
    for (const std::string& kind : offer_->kinds) atoms.push_back(wire_.atom(kind));
    return atoms;
}

SelectionOwner::Content SelectionOwner::content_of(xcb_atom_t kind) {
    const auto made = std::ranges::find(contents_, kind, [](const auto& content) { return content.first; });
    if (made != contents_.end()) return made->second;
    const auto known =
        std::ranges::find_if(offer_->kinds, [&](const std::string& name) { return wire_.atom(name) == kind; });
    if (known == offer_->kinds.end()) return nullptr;
    const auto bytes = std::make_shared<Bytes>();
    const bool encoded = offer_->encode(*known, *bytes);
    if (!encoded) UA_log("[ ERROR ] : The clipboard's content couldn't be made as %s", known->c_str());
    return contents_.emplace_back(kind, encoded ? bytes : nullptr).second;
}

// ---- Requests ------------------------------------------------------------------------------------------------------

void SelectionOwner::answer(const xcb_selection_request_event_t& request) {
    const bool is_meant = offer_ && request.owner == wire_.window() && request.selection == selection_ &&
                          (request.time == XCB_CURRENT_TIME || !is_before(request.time, since_));
    // Old programs name no property and expect the kind's own.
    const xcb_atom_t property = request.property != XCB_NONE ? request.property : request.target;
    const bool several = request.target == wire_.atom(multiple_kind);
    const bool done = is_meant && (several ? convert_several(request.requestor, request.property)
                                           : convert(request.requestor, request.target, property));
    wire_.answer(request, done ? property : xcb_atom_t{XCB_NONE});
}

/// Puts one kind into the asker's property; a content too large for one piece begins to go there.
bool SelectionOwner::convert(xcb_window_t asker, xcb_atom_t kind, xcb_atom_t property) {
    if (kind == wire_.atom(targets_kind)) {
        std::vector<std::uint32_t> atoms = kind_atoms();
        for (const char* name : {targets_kind, multiple_kind, time_kind, save_kind}) atoms.push_back(wire_.atom(name));
        wire_.put_words(asker, property, XCB_ATOM_ATOM, atoms);
        return true;
    }
    if (kind == wire_.atom(time_kind)) {
        wire_.put_words(asker, property, XCB_ATOM_INTEGER, std::array<std::uint32_t, 1>{since_});
        return true;
    }
    if (kind == wire_.atom(save_kind)) {  // asks for nothing: naming it tells a manager that we know of it
        wire_.put_words(asker, property, wire_.atom("NULL"), {});
        return true;
    }
    const Content content = content_of(kind);
    if (content) send_content({asker, property, kind, content, 0, {}});
    return content != nullptr;
}

/// The asker's property holds pairs of a kind and a property; what can't be given loses its property there.
bool SelectionOwner::convert_several(xcb_window_t asker, xcb_atom_t property) {
    constexpr std::size_t pairs_max = 64;
    if (property == XCB_NONE) return false;
    std::vector<std::uint32_t> pairs =
        wire_.take_property(asker, property, pairs_max * 2 * sizeof(std::uint32_t)).words();
    for (std::size_t i = 0; i + 1 < pairs.size(); i += 2) {
        const bool nests = pairs[i] == wire_.atom(multiple_kind);
        if (nests || pairs[i + 1] == XCB_NONE || !convert(asker, pairs[i], pairs[i + 1])) pairs[i + 1] = XCB_NONE;
    }
    wire_.put_words(asker, property, wire_.atom("ATOM_PAIR"), pairs);
    return !pairs.empty();
}

// ---- Piece by piece ------------------------------------------------------------------------------------------------

void SelectionOwner::send_content(const Transfer& transfer) {
    const auto size = static_cast<std::uint32_t>(transfer.content->size());
    drop_transfers(
        [&](const Transfer& old) { return old.asker == transfer.asker && old.property == transfer.property; });
    if (size <= wire_.piece_bytes()) {
        wire_.put_bytes(transfer.asker, transfer.property, transfer.type, *transfer.content);
        return;
    }
    wire_.watch(transfer.asker, true);  // before it can answer
    wire_.put_words(transfer.asker, transfer.property, wire_.atom("INCR"), std::array<std::uint32_t, 1>{size});
    transfers_.push_back(transfer);
    transfers_.back().heard = std::chrono::steady_clock::now();
}

/// The asker has deleted the property: it has read what stood there. Behind the last piece an empty one ends it.
void SelectionOwner::send_next_piece(xcb_window_t asker, xcb_atom_t property) {
    const auto is_asked = [&](const Transfer& one) { return one.asker == asker && one.property == property; };
    const auto found = std::ranges::find_if(transfers_, is_asked);
    if (found == transfers_.end()) return;
    const std::size_t count = std::min(wire_.piece_bytes(), found->content->size() - found->sent);
    wire_.put_bytes(asker, property, found->type, std::span(*found->content).subspan(found->sent, count));
    found->sent += count;
    found->heard = std::chrono::steady_clock::now();
    if (count == 0) drop_transfers(is_asked);
}

template <typename Condition> void SelectionOwner::drop_transfers(Condition is_dropped) {
    std::vector<xcb_window_t> askers;
    std::erase_if(transfers_, [&](const Transfer& transfer) {
        const bool dropped = is_dropped(transfer);
        if (dropped) askers.push_back(transfer.asker);
        return dropped;
    });
    for (const xcb_window_t asker : askers)
        if (std::ranges::find(transfers_, asker, &Transfer::asker) == transfers_.end()) wire_.watch(asker, false);
}

void SelectionOwner::drop_silent_askers() {
    if (transfers_.empty()) return;
    const SteadyTime limit = std::chrono::steady_clock::now() - asker_patience;
    drop_transfers([&](const Transfer& transfer) { return transfer.heard < limit; });
}

// ---- Events --------------------------------------------------------------------------------------------------------

void SelectionOwner::hear(const xcb_generic_event_t& event) {
    const auto drop_asker = [this](xcb_window_t gone) {
        drop_transfers([&](const Transfer& transfer) { return transfer.asker == gone; });
    };
    if (const int code = event_code(event); code == XCB_SELECTION_REQUEST) {
        answer(reinterpret_cast<const xcb_selection_request_event_t&>(event));
    } else if (code == XCB_SELECTION_CLEAR) {
        const auto& lost = reinterpret_cast<const xcb_selection_clear_event_t&>(event);
        if (lost.selection != selection_ || is_before(lost.time, since_)) return;
        offer_.reset();
        contents_.clear();
    } else if (code == XCB_PROPERTY_NOTIFY) {
        const auto& change = reinterpret_cast<const xcb_property_notify_event_t&>(event);
        if (change.state == XCB_PROPERTY_DELETE) send_next_piece(change.window, change.atom);
    } else if (code == XCB_DESTROY_NOTIFY) {
        drop_asker(reinterpret_cast<const xcb_destroy_notify_event_t&>(event).window);
    } else if (code == XCB_SELECTION_NOTIFY) {
        const auto& notify = reinterpret_cast<const xcb_selection_notify_event_t&>(event);
        if (notify.selection == wire_.atom(manager_selection)) manager_has_answered_ = true;
    } else if (code == 0) {  // a request went to a window that is gone
        drop_asker(reinterpret_cast<const xcb_generic_error_t&>(event).resource_id);
    }
}

bool SelectionOwner::ask_manager_to_keep() {
    const xcb_atom_t manager = wire_.atom(manager_selection), property = wire_.atom("NUBO_KEEP");
    if (!offer_ || wire_.owner_of(manager) == XCB_NONE) return false;
    wire_.put_words(wire_.window(), property, XCB_ATOM_ATOM, kind_atoms());
    wire_.ask_owner(manager, wire_.atom(save_kind), property, wire_.server_time());
    return true;
}

}  // namespace nubo
