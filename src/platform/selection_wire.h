#pragma once
// A connection to the X server for selections alone, with a window that is never shown: atoms, properties, times and
// events, by XCB. No call waits for another program, only for the server.
#include "platform/memory_packfile.h"
#include <chrono>
#include <cstdint>
#include <deque>
#include <map>
#include <memory>
#include <string>
#include <xcb/xcb.h>

namespace nubo {

using SteadyTime = std::chrono::steady_clock::time_point;

struct MallocFreer {
    void operator()(void* memory) const { std::free(memory); }
};
template <typename T> using FromXcb = std::unique_ptr<T, MallocFreer>;
using SelectionEvent = FromXcb<xcb_generic_event_t>;

/// The code of an event, whether the server sent it or another program; 0 for an error.
inline int event_code(const xcb_generic_event_t& event) { return event.response_type & 0x7f; }

/// What stands in a property.
struct PropertyValue {
    xcb_atom_t type = XCB_NONE;
    int bits = 0;        // of an item
    bool whole = false;  // nothing was cut off at the limit
    Bytes bytes;         // words of 32 bits in this machine's order
    std::vector<std::uint32_t> words() const;
};

class SelectionWire {
public:
    /// Null when there is no display, or it takes no further connection.
    static std::unique_ptr<SelectionWire> open();
    ~SelectionWire();
    SelectionWire(const SelectionWire&) = delete;
    SelectionWire& operator=(const SelectionWire&) = delete;

    int descriptor() const;
    /// The server has ended or thrown us out; nothing comes any more.
    bool is_broken() const;
    xcb_window_t window() const { return window_; }
    /// Bytes that one piece of a large content has: 256 KiB, or what a request of this server holds.
    std::size_t piece_bytes() const { return piece_bytes_; }

    /// The number that the server has for a name, asked once.
    xcb_atom_t atom(const std::string& name);

    /// The next event that has come; null when there is none.
    SelectionEvent next_event();
    /// Waits until something has come, at most until `end`.
    void wait(SteadyTime end) const;
    /// Hands over what was asked of the server.
    void flush() const;

    /// The server's time, by which selections are told older from newer.
    xcb_timestamp_t server_time();

    xcb_window_t owner_of(xcb_atom_t selection) const;
    /// Makes our window the owner, or with XCB_NONE nobody. False if another is it then.
    bool take_ownership(xcb_atom_t selection, xcb_timestamp_t time) const;
    /// Asks the owner for a kind, to be put into our window's property. The answer is an event.
    void ask_owner(xcb_atom_t selection, xcb_atom_t kind, xcb_atom_t property, xcb_timestamp_t time) const;
    /// Tells the asker of a request that its property is there, or with XCB_NONE that nothing will come.
    void answer(const xcb_selection_request_event_t& request, xcb_atom_t property) const;

    /// Reads a property, at most `limit` bytes, and deletes it.
    PropertyValue take_property(xcb_window_t window, xcb_atom_t property, std::size_t limit) const;
    void put_bytes(xcb_window_t window, xcb_atom_t property, xcb_atom_t type,
                   std::span<const std::uint8_t> bytes) const;
    void put_words(xcb_window_t window, xcb_atom_t property, xcb_atom_t type,
                   std::span<const std::uint32_t> words) const;
    void delete_property(xcb_window_t window, xcb_atom_t property) const;
    /// Hears of changes of another program's window, or no longer.
    void watch(xcb_window_t window, bool hears) const;

private:
    explicit SelectionWire(xcb_connection_t* connection);
    bool make_window(int screen);

    xcb_connection_t* connection_;
    xcb_window_t window_ = XCB_NONE;
    std::size_t piece_bytes_ = 0;
    std::map<std::string, xcb_atom_t> atoms_;
    std::deque<SelectionEvent> kept_;  // came while something else was waited for
};

}  // namespace nubo
