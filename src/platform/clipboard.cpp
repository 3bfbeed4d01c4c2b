#include "platform/clipboard.h"

#include "platform/selection_asker.h"
#include "platform/selection_owner.h"
#include <algorithm>
#include <memory>
#include <optional>
#include <utility>

namespace nubo {
namespace {

using std::chrono::milliseconds;

/// Both sides of the one selection on the one connection.
struct Clipboard {
    explicit Clipboard(std::unique_ptr<SelectionWire> opened)
        : wire(std::move(opened)), owner(*wire, wire->atom("CLIPBOARD")), asker(*wire, wire->atom("CLIPBOARD")) {}
    std::unique_ptr<SelectionWire> wire;
    SelectionOwner owner;
    SelectionAsker asker;
};

// What is offered may hold bitmaps, so that nothing may be left of it when Allegro has gone: `leave_clipboard`.
Clipboard* clipboard = nullptr;
const ClipboardStandIn* stand_in = nullptr;

void close_clipboard() { delete std::exchange(clipboard, nullptr); }

/// Opened when first needed: who never copies or pastes pays nothing.
Clipboard* open_clipboard() {
    if (clipboard == nullptr)
        if (auto wire = SelectionWire::open()) clipboard = new Clipboard(std::move(wire));
    return clipboard;
}

// ---- Fetching ------------------------------------------------------------------------------------------------------

/// False when `goes_on` has ended the wait. A picture every now and then is enough: each costs more than a piece.
bool wait_for_asker(const std::function<bool()>& goes_on) {
    constexpr milliseconds picture_interval(20);
    auto next_picture = std::chrono::steady_clock::now() + picture_interval;
    while (clipboard != nullptr && clipboard->asker.state() == ASKER_WAITS) {
        clipboard->wire->wait(std::min(next_picture, clipboard->asker.deadline()));
        serve_clipboard();
        if (std::chrono::steady_clock::now() < next_picture) continue;
        if (!goes_on()) return false;
        next_picture = std::chrono::steady_clock::now() + picture_interval;
    }
    return true;
}

/// Asks the owner for one kind. NOTHING: the owner hasn't got it; without a result it isn't to be asked again.
std::optional<FetchEnd> ask_for(xcb_atom_t kind, milliseconds patience, const std::function<bool()>& goes_on) {
    clipboard->asker.ask(kind, patience);
    if (!wait_for_asker(goes_on)) return FETCH_LEFT;
    if (clipboard == nullptr || clipboard->asker.state() == ASKER_GAVE_UP) return std::nullopt;
    return clipboard->asker.state() == ASKER_HAS_IT ? FETCH_DONE : FETCH_NOTHING;
}

/// Asks for the kinds that the owner has, in our order, until one is given.
Fetched fetch_first(std::span<const std::string> kinds, const std::vector<std::uint32_t>& offered,
                    const std::function<bool()>& goes_on) {
    // The owner lives, or it hadn't said what it has: a PNG of 4096x4096 takes some programs several seconds to make.
    constexpr milliseconds content_patience(10'000);
    for (const std::string& kind : kinds) {
        const xcb_atom_t atom = clipboard->wire->atom(kind);
        if (std::ranges::find(offered, atom) == offered.end()) continue;
        const auto end = ask_for(atom, content_patience, goes_on);
        if (!end) break;
        if (*end != FETCH_NOTHING) return {*end, kind, std::move(clipboard->asker.content.bytes)};
    }
    return {};
}

Fetched fetch(std::span<const std::string> kinds, const std::function<bool()>& goes_on) {
    constexpr milliseconds kinds_patience(1000);
    const xcb_window_t owner = clipboard->wire->owner_of(clipboard->wire->atom("CLIPBOARD"));
    if (owner == XCB_NONE || owner == clipboard->wire->window()) return {};
    const auto end = ask_for(clipboard->wire->atom("TARGETS"), kinds_patience, goes_on);
    if (end != FETCH_DONE) return {end.value_or(FETCH_NOTHING), {}, {}};
    return fetch_first(kinds, clipboard->asker.content.words(), goes_on);
}

/// Serves other programs until the manager has what it wants, or is too slow.
void wait_for_manager() {
    constexpr std::chrono::seconds patience(3);
    const auto end = std::chrono::steady_clock::now() + patience;
    while (clipboard != nullptr && !clipboard->owner.manager_has_answered()) {
        if (std::chrono::steady_clock::now() >= end) return;
        clipboard->wire->wait(end);
        serve_clipboard();
    }
}

}  // namespace

bool offer_to_clipboard(ClipboardOffer offer) {
    if (stand_in != nullptr) return stand_in->offer(std::move(offer));
    if (open_clipboard() == nullptr) return false;
    const bool taken = clipboard->owner.offer(std::move(offer));
    serve_clipboard();
    return taken;
}

Fetched fetch_from_clipboard(std::span<const std::string> kinds, const std::function<bool()>& goes_on) {
    if (stand_in != nullptr) return stand_in->fetch(kinds, goes_on);
    static bool is_fetching = false;  // the picture behind a wait may come here again
    if (is_fetching || open_clipboard() == nullptr) return {};
    is_fetching = true;
    Fetched fetched = fetch(kinds, goes_on);
    is_fetching = false;
    serve_clipboard();
    return fetched;
}

void serve_clipboard() {
    if (clipboard == nullptr) return;
    while (const SelectionEvent event = clipboard->wire->next_event()) {
        clipboard->owner.hear(*event);
        clipboard->asker.hear(*event);
    }
    clipboard->owner.drop_silent_askers();
    clipboard->asker.look_at_clock();
    clipboard->wire->flush();
    if (clipboard->wire->is_broken()) close_clipboard();
}

int clipboard_descriptor() { return clipboard != nullptr ? clipboard->wire->descriptor() : -1; }

void leave_clipboard() {
    if (clipboard != nullptr && clipboard->owner.ask_manager_to_keep()) wait_for_manager();
    close_clipboard();
}

void set_clipboard_stand_in(const ClipboardStandIn* stands_in) { stand_in = stands_in; }

}  // namespace nubo
