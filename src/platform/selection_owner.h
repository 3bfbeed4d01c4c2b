#pragma once
// Our side of a selection that we own: what is offered, the requests of other programs, and the large contents that go
// to them piece by piece.
#include "platform/clipboard_offer.h"
#include "platform/selection_wire.h"
#include <memory>
#include <optional>
#include <vector>

namespace nubo {

class SelectionOwner {
public:
    SelectionOwner(SelectionWire& wire, xcb_atom_t selection) : wire_(wire), selection_(selection) {}

    /// Takes the selection. False, with the old offer kept, if another program has it then.
    bool offer(ClipboardOffer offer);
    bool is_owner() const { return offer_.has_value(); }

    /// Acts on an event that has come.
    void hear(const xcb_generic_event_t& event);

    /// Gives up who has taken no piece for 10 seconds.
    void drop_silent_askers();

    /// Asks a clipboard manager, if one runs, to fetch what is offered. True when one was asked: it answers by an
    /// event.
    bool ask_manager_to_keep();
    bool manager_has_answered() const { return manager_has_answered_; }

private:
    using Content = std::shared_ptr<const Bytes>;  // null: it couldn't be made
    struct Transfer {
        xcb_window_t asker;
        xcb_atom_t property, type;
        Content content;
        std::size_t sent = 0;
        SteadyTime heard;
    };

    void answer(const xcb_selection_request_event_t& request);
    bool convert(xcb_window_t asker, xcb_atom_t kind, xcb_atom_t property);
    bool convert_several(xcb_window_t asker, xcb_atom_t property);
    std::vector<std::uint32_t> kind_atoms();
    Content content_of(xcb_atom_t kind);
    void send_content(const Transfer& transfer);
    void send_next_piece(xcb_window_t asker, xcb_atom_t property);
    template <typename Condition> void drop_transfers(Condition is_dropped);

    SelectionWire& wire_;
    xcb_atom_t selection_;
    std::optional<ClipboardOffer> offer_;
    xcb_timestamp_t since_ = 0;
    std::vector<std::pair<xcb_atom_t, Content>> contents_;  // those that were asked for
    std::vector<Transfer> transfers_;
    bool manager_has_answered_ = false;
};

}  // namespace nubo
