#include "journeys/peer.h"

#include "journeys/process.h"
#include <array>
#include <cstdlib>
#include <cstring>
#include <memory>

namespace nubo {
namespace {

struct Freer {
    void operator()(void* memory) const { std::free(memory); }
};
template <typename T> using Owned = std::unique_ptr<T, Freer>;
using Event = Owned<xcb_generic_event_t>;

constexpr const char *clipboard_name = "CLIPBOARD", *property_name = "PEER_FETCH";

int code_of(const xcb_generic_event_t& event) { return event.response_type & 0x7f; }
template <typename T> const T& as(const xcb_generic_event_t& event) { return reinterpret_cast<const T&>(event); }

}  // namespace

Peer::Peer(const std::string& display) : connection_(xcb_connect(display.c_str(), nullptr)) {
    const std::uint32_t events = XCB_EVENT_MASK_PROPERTY_CHANGE;
    window_ = xcb_generate_id(connection_);
    const xcb_window_t root = xcb_setup_roots_iterator(xcb_get_setup(connection_)).data->root;
    xcb_create_window(connection_, XCB_COPY_FROM_PARENT, window_, root, 0, 0, 1, 1, 0, XCB_WINDOW_CLASS_INPUT_ONLY,
                      XCB_COPY_FROM_PARENT, XCB_CW_EVENT_MASK, &events);
}

void Peer::die() {
    if (connection_ != nullptr) xcb_disconnect(connection_);
    connection_ = nullptr;
}

xcb_atom_t Peer::atom(const std::string& name) const {
    const auto asked = xcb_intern_atom(connection_, 0, static_cast<std::uint16_t>(name.size()), name.c_str());
    const Owned<xcb_intern_atom_reply_t> reply(xcb_intern_atom_reply(connection_, asked, nullptr));
    return reply ? reply->atom : xcb_atom_t{XCB_NONE};
}

// ---- As an owner ---------------------------------------------------------------------------------------------------

void Peer::own(const std::string& selection) const {
    xcb_set_selection_owner(connection_, window_, atom(selection), XCB_CURRENT_TIME);
    xcb_flush(connection_);
}

xcb_window_t Peer::owner_of(const std::string& selection) const {
    const auto asked = xcb_get_selection_owner(connection_, atom(selection));
    const Owned<xcb_get_selection_owner_reply_t> reply(xcb_get_selection_owner_reply(connection_, asked, nullptr));
    return reply ? reply->owner : xcb_window_t{XCB_NONE};
}

void Peer::serve() {
    if (connection_ == nullptr) return;
    while (const Event event{xcb_poll_for_event(connection_)}) {
        if (code_of(*event) == XCB_SELECTION_REQUEST) on_request(as<Request>(*event));
        if (code_of(*event) != XCB_PROPERTY_NOTIFY) continue;
        const auto& change = as<xcb_property_notify_event_t>(*event);
        if (change.state == XCB_PROPERTY_DELETE && change.window != window_) on_read(change.window, change.atom);
    }
    xcb_flush(connection_);
}

void Peer::answer(const Request& request, xcb_atom_t property) const {
    std::array<char, 32> bytes{};
    xcb_selection_notify_event_t event{};
    event.response_type = XCB_SELECTION_NOTIFY;
    event.time = request.time;
    event.requestor = request.requestor;
    event.selection = request.selection;
    event.target = request.target;
    event.property = property;
    std::memcpy(bytes.data(), &event, sizeof event);
    xcb_send_event(connection_, 0, request.requestor, XCB_EVENT_MASK_NO_EVENT, bytes.data());
    xcb_flush(connection_);
}

void Peer::put(xcb_window_t window, xcb_atom_t property, const std::string& type, const std::string& bytes) const {
    xcb_change_property(connection_, XCB_PROP_MODE_REPLACE, window, property, atom(type), 8,
                        static_cast<std::uint32_t>(bytes.size()), bytes.data());
    xcb_flush(connection_);
}

void Peer::put_words(const Request& request, const std::string& type, const std::vector<std::uint32_t>& words) const {
    xcb_change_property(connection_, XCB_PROP_MODE_REPLACE, request.requestor, request.property, atom(type), 32,
                        static_cast<std::uint32_t>(words.size()), words.data());
    answer(request, request.property);
}

void Peer::give(const Request& request, const std::string& type, const std::string& bytes) const {
    put(request.requestor, request.property, type, bytes);
    answer(request, request.property);
}

void Peer::give_kinds(const Request& request, const std::vector<std::string>& kinds) const {
    std::vector<std::uint32_t> atoms;
    for (const std::string& kind : kinds) atoms.push_back(atom(kind));
    put_words(request, "ATOM", atoms);
}

void Peer::refuse(const Request& request) const { answer(request, XCB_NONE); }

void Peer::begin_pieces(const Request& request, std::uint32_t size) const {
    const std::uint32_t events = XCB_EVENT_MASK_PROPERTY_CHANGE;
    xcb_change_window_attributes(connection_, request.requestor, XCB_CW_EVENT_MASK, &events);
    put_words(request, "INCR", {size});
}

// ---- As an asker ---------------------------------------------------------------------------------------------------

Peer::Property Peer::take_property() const {
    constexpr std::uint32_t most_words = 1U << 26;
    const auto asked =
        xcb_get_property(connection_, 1, window_, atom(property_name), XCB_GET_PROPERTY_TYPE_ANY, 0, most_words);
    const Owned<xcb_get_property_reply_t> reply(xcb_get_property_reply(connection_, asked, nullptr));
    if (!reply) return {};
    const char* const first = static_cast<const char*>(xcb_get_property_value(reply.get()));
    return {reply->type, {first, static_cast<std::size_t>(xcb_get_property_value_length(reply.get()))}};
}

std::optional<Peer::Property> Peer::ask(const std::string& kind) {
    xcb_convert_selection(connection_, window_, atom(clipboard_name), atom(kind), atom(property_name),
                          XCB_CURRENT_TIME);
    xcb_flush(connection_);
    std::optional<Property> given;
    wait_until([&] {
        const Event event(xcb_poll_for_event(connection_));
        if (!event || code_of(*event) != XCB_SELECTION_NOTIFY) return false;
        if (as<xcb_selection_notify_event_t>(*event).property != XCB_NONE) given = take_property();
        return true;
    });
    xcb_flush(connection_);
    return given;
}

bool Peer::wait_for_piece() {
    return wait_until([&] {
        const Event event(xcb_poll_for_event(connection_));
        return event && code_of(*event) == XCB_PROPERTY_NOTIFY &&
               as<xcb_property_notify_event_t>(*event).state == XCB_PROPERTY_NEW_VALUE;
    });
}

std::optional<std::string> Peer::fetch(const std::string& kind) {
    const std::optional<Property> answer = ask(kind);
    if (!answer || answer->type != atom("INCR")) return answer ? std::optional(answer->bytes) : std::nullopt;
    std::string bytes;
    while (wait_for_piece()) {
        const Property piece = take_property();
        xcb_flush(connection_);
        if (piece.bytes.empty()) return bytes;
        bytes += piece.bytes;
    }
    return std::nullopt;
}

bool Peer::begin_to_fetch(const std::string& kind) {
    const std::optional<Property> answer = ask(kind);
    return answer && answer->type == atom("INCR") && wait_for_piece();
}

}  // namespace nubo
