#pragma once
// Asking a selection's owner for one kind: its answer, whole or piece by piece.
#include "platform/selection_wire.h"
#include <string>

namespace nubo {

enum AskerState : int {
    ASKER_WAITS,       // for the answer, or for the next piece
    ASKER_HAS_IT,      // `content` is whole
    ASKER_WAS_DENIED,  // the owner hasn't got the kind
    ASKER_GAVE_UP      // too large, too slow, or no sense in it
};

class SelectionAsker {
public:
    SelectionAsker(SelectionWire& wire, xcb_atom_t selection) : wire_(wire), selection_(selection) {}

    /// Asks for a kind. Whatever was asked before is forgotten, an answer to it unheard.
    void ask(xcb_atom_t kind, std::chrono::milliseconds patience);

    /// Acts on an event that has come.
    void hear(const xcb_generic_event_t& event);

    /// Gives up when the time for the answer, or for the next piece, is over.
    void look_at_clock();

    AskerState state() const { return state_; }
    SteadyTime deadline() const { return deadline_; }
    PropertyValue content{};

private:
    void give_up(const char* cause);
    bool is_end_of_owner(const xcb_generic_event_t& event) const;
    void hear_owner(const xcb_generic_event_t& event);
    void hear_answer(const xcb_selection_notify_event_t& answer);
    void take_answer();
    void take_piece();

    SelectionWire& wire_;
    xcb_atom_t selection_, kind_ = XCB_NONE, property_ = XCB_NONE;
    xcb_window_t owner_ = XCB_NONE;
    xcb_timestamp_t time_ = 0;
    unsigned asked_ = 0;
    AskerState state_ = ASKER_GAVE_UP;
    bool by_pieces_ = false;
    SteadyTime deadline_;
};

}  // namespace nubo
