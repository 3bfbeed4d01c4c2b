#pragma once
// Another program on the desktop, as far as selections go: one that owns them or asks for them, well-behaved or not.
#include <cstdint>
#include <functional>
#include <optional>
#include <string>
#include <vector>
#include <xcb/xcb.h>

namespace nubo {

class Peer {
public:
    using Request = xcb_selection_request_event_t;

    explicit Peer(const std::string& display);
    ~Peer() { die(); }
    Peer(const Peer&) = delete;
    Peer& operator=(const Peer&) = delete;

    /// Goes from the server at once, as a program that is killed.
    void die();

    xcb_atom_t atom(const std::string& name) const;

    // ---- As an owner ----
    void own(const std::string& selection) const;
    /// The window that has a selection now, 0 for none.
    xcb_window_t owner_of(const std::string& selection) const;
    /// What is done with a request, when `serve` meets it.
    std::function<void(const Request& request)> on_request = [](const Request&) {};
    /// What is done when an asker has read and deleted a property of ours.
    std::function<void(xcb_window_t asker, xcb_atom_t property)> on_read = [](xcb_window_t, xcb_atom_t) {};
    void serve();
    /// Puts bytes or atoms into an asker's property and tells it.
    void give(const Request& request, const std::string& type, const std::string& bytes) const;
    void give_kinds(const Request& request, const std::vector<std::string>& kinds) const;
    void refuse(const Request& request) const;
    /// Tells the asker that a content comes piece by piece.
    void begin_pieces(const Request& request, std::uint32_t size) const;
    void put(xcb_window_t window, xcb_atom_t property, const std::string& type, const std::string& bytes) const;

    // ---- As an asker ----
    /// Asks the clipboard's owner for a kind and reads all of it; nothing when it is denied or 10 seconds pass.
    std::optional<std::string> fetch(const std::string& kind);
    /// The same up to the first piece of a large content, which is left unread.
    bool begin_to_fetch(const std::string& kind);

private:
    struct Property {
        xcb_atom_t type = XCB_NONE;
        std::string bytes;
    };
    std::optional<Property> ask(const std::string& kind);
    Property take_property() const;
    bool wait_for_piece();
    void answer(const Request& request, xcb_atom_t property) const;
    void put_words(const Request& request, const std::string& type, const std::vector<std::uint32_t>& words) const;

    xcb_connection_t* connection_;
    xcb_window_t window_ = XCB_NONE;
};

}  // namespace nubo
