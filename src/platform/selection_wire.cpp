#include "platform/selection_wire.h"

#include "platform/display_loss.h"
#include <algorithm>
#include <array>
#include <cstring>
#include <poll.h>
#include <utility>

namespace nubo {
namespace {

constexpr std::size_t piece_limit = 256 << 10, request_head = 64;
constexpr std::uint32_t watched_events = XCB_EVENT_MASK_PROPERTY_CHANGE | XCB_EVENT_MASK_STRUCTURE_NOTIFY;

/// The root window of a screen by its number.
xcb_window_t root_of(xcb_connection_t* connection, int screen) {
    auto screens = xcb_setup_roots_iterator(xcb_get_setup(connection));
    for (; screens.rem > 1 && screen > 0; --screen) xcb_screen_next(&screens);
    return screens.rem > 0 ? screens.data->root : xcb_window_t{XCB_NONE};
}

}  // namespace

std::vector<std::uint32_t> PropertyValue::words() const {
    std::vector<std::uint32_t> words(bits == 32 ? bytes.size() / sizeof(std::uint32_t) : 0);
    if (!words.empty()) std::memcpy(words.data(), bytes.data(), words.size() * sizeof(std::uint32_t));
    return words;
}

// ---- Coming and going ----------------------------------------------------------------------------------------------

std::unique_ptr<SelectionWire> SelectionWire::open() {
    const DisplayUse use;
    int screen = 0;
    std::unique_ptr<SelectionWire> wire(new SelectionWire(xcb_connect(nullptr, &screen)));
    return !wire->is_broken() && wire->make_window(screen) ? std::move(wire) : nullptr;
}

SelectionWire::SelectionWire(xcb_connection_t* connection) : connection_(connection) {}

SelectionWire::~SelectionWire() { xcb_disconnect(connection_); }

bool SelectionWire::make_window(int screen) {
    constexpr std::uint32_t own_events = XCB_EVENT_MASK_PROPERTY_CHANGE;
    const xcb_window_t root = root_of(connection_, screen);
    if (root == XCB_NONE) return false;
    window_ = xcb_generate_id(connection_);
    xcb_create_window(connection_, XCB_COPY_FROM_PARENT, window_, root, 0, 0, 1, 1, 0, XCB_WINDOW_CLASS_INPUT_ONLY,
                      XCB_COPY_FROM_PARENT, XCB_CW_EVENT_MASK, &own_events);
    const std::size_t request = std::size_t{xcb_get_maximum_request_length(connection_)} * 4;
    piece_bytes_ = std::min(piece_limit, request - request_head);
    return true;
}

int SelectionWire::descriptor() const { return xcb_get_file_descriptor(connection_); }
bool SelectionWire::is_broken() const { return xcb_connection_has_error(connection_) != 0; }
void SelectionWire::flush() const { xcb_flush(connection_); }

xcb_atom_t SelectionWire::atom(const std::string& name) {
    if (const auto known = atoms_.find(name); known != atoms_.end()) return known->second;
    const DisplayUse use;
    const auto asked = xcb_intern_atom(connection_, 0, static_cast<std::uint16_t>(name.size()), name.c_str());
    const FromXcb<xcb_intern_atom_reply_t> reply(xcb_intern_atom_reply(connection_, asked, nullptr));
    return reply ? atoms_[name] = reply->atom : xcb_atom_t{XCB_NONE};
}

// ---- Events and time -----------------------------------------------------------------------------------------------

SelectionEvent SelectionWire::next_event() {
    if (kept_.empty()) return SelectionEvent(xcb_poll_for_event(connection_));
    SelectionEvent oldest = std::move(kept_.front());
    kept_.pop_front();
    return oldest;
}

void SelectionWire::wait(SteadyTime end) const {
    const auto left = std::chrono::ceil<std::chrono::milliseconds>(end - std::chrono::steady_clock::now());
    pollfd connection{descriptor(), POLLIN, 0};
    if (kept_.empty() && left.count() > 0) poll(&connection, 1, static_cast<int>(left.count()));
}

xcb_timestamp_t SelectionWire::server_time() {
    // The time comes with the event of a change; the reply to a question behind it tells that the event has come.
    const xcb_atom_t property = atom("NUBO_TIME");
    put_bytes(window_, property, XCB_ATOM_STRING, {});
    owner_of(XCB_ATOM_PRIMARY);
    xcb_timestamp_t time = XCB_CURRENT_TIME;
    while (SelectionEvent event{xcb_poll_for_event(connection_)}) {
        const auto& change = reinterpret_cast<const xcb_property_notify_event_t&>(*event);
        if (event_code(*event) == XCB_PROPERTY_NOTIFY && change.window == window_ && change.atom == property)
            time = change.time;
        else
            kept_.push_back(std::move(event));
    }
    return time;
}

// ---- Selections ----------------------------------------------------------------------------------------------------

xcb_window_t SelectionWire::owner_of(xcb_atom_t selection) const {
    const DisplayUse use;
    const FromXcb<xcb_get_selection_owner_reply_t> reply(
        xcb_get_selection_owner_reply(connection_, xcb_get_selection_owner(connection_, selection), nullptr));
    return reply ? reply->owner : xcb_window_t{XCB_NONE};
}

bool SelectionWire::take_ownership(xcb_atom_t selection, xcb_timestamp_t time) const {
    xcb_set_selection_owner(connection_, window_, selection, time);
    return owner_of(selection) == window_;
}

void SelectionWire::ask_owner(xcb_atom_t selection, xcb_atom_t kind, xcb_atom_t property, xcb_timestamp_t time) const {
    xcb_convert_selection(connection_, window_, selection, kind, property, time);
    flush();
}

void SelectionWire::answer(const xcb_selection_request_event_t& request, xcb_atom_t property) const {
    constexpr std::size_t event_bytes = 32;  // of every event on the wire
    xcb_selection_notify_event_t event{};
    event.response_type = XCB_SELECTION_NOTIFY;
    event.time = request.time;
    event.requestor = request.requestor;
    event.selection = request.selection;
    event.target = request.target;
    event.property = property;
    std::array<char, event_bytes> bytes{};
    std::memcpy(bytes.data(), &event, sizeof event);
    xcb_send_event(connection_, 0, request.requestor, XCB_EVENT_MASK_NO_EVENT, bytes.data());
}

// ---- Properties ----------------------------------------------------------------------------------------------------

PropertyValue SelectionWire::take_property(xcb_window_t window, xcb_atom_t property, std::size_t limit) const {
    const DisplayUse use;
    const auto asked = xcb_get_property(connection_, 1, window, property, XCB_GET_PROPERTY_TYPE_ANY, 0,
                                        static_cast<std::uint32_t>((limit + 3) / 4));
    const FromXcb<xcb_get_property_reply_t> reply(xcb_get_property_reply(connection_, asked, nullptr));
    if (!reply) return {};
    PropertyValue value{reply->type, reply->format, reply->bytes_after == 0, {}};
    const auto* const first = static_cast<const std::uint8_t*>(xcb_get_property_value(reply.get()));
    const int count = xcb_get_property_value_length(reply.get());
    value.bytes.assign(first, first + count);
    if (!value.whole) delete_property(window, property);  // the server deletes only what was read to its end
    return value;
}

void SelectionWire::put_bytes(xcb_window_t window, xcb_atom_t property, xcb_atom_t type,
                              std::span<const std::uint8_t> bytes) const {
    xcb_change_property(connection_, XCB_PROP_MODE_REPLACE, window, property, type, 8,
                        static_cast<std::uint32_t>(bytes.size()), bytes.data());
}

void SelectionWire::put_words(xcb_window_t window, xcb_atom_t property, xcb_atom_t type,
                              std::span<const std::uint32_t> words) const {
    xcb_change_property(connection_, XCB_PROP_MODE_REPLACE, window, property, type, 32,
                        static_cast<std::uint32_t>(words.size()), words.data());
}

void SelectionWire::delete_property(xcb_window_t window, xcb_atom_t property) const {
    xcb_delete_property(connection_, window, property);
}

void SelectionWire::watch(xcb_window_t window, bool hears) const {
    const std::uint32_t events = hears ? watched_events : 0;
    xcb_change_window_attributes(connection_, window, XCB_CW_EVENT_MASK, &events);
}

}  // namespace nubo
