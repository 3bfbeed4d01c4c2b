#pragma once
// The clipboard that the user's programs share, as bytes of a kind: the CLIPBOARD selection of the X server. It has a
// connection and a hidden window of its own, so that no reply, event or error of it comes between Allegro and its
// window. Nothing runs beside the main flow: other programs are answered whenever a picture is presented or waited
// behind. Without a display all is as with an empty clipboard. Main flow only.
#include "platform/clipboard_offer.h"
#include <functional>
#include <span>
#include <string>

namespace nubo {

/// Puts the offer on the clipboard, where it is kept until another program, or another offer, takes its place. False,
/// with all as before, when there is no display or it doesn't take the offer.
bool offer_to_clipboard(ClipboardOffer offer);

enum FetchEnd : int {
    FETCH_DONE,
    FETCH_NOTHING,  // nothing of these kinds is there, it is above 256 MiB, or its owner doesn't answer
    FETCH_LEFT      // `goes_on` ended it
};
struct Fetched {
    FetchEnd end = FETCH_NOTHING;
    std::string kind;
    Bytes bytes;
};

/// Fetches the first of `kinds` that the clipboard's owner has, from another program. An owner that doesn't say within
/// a second what it has, takes more than ten to begin to give it, or lets two pass without a further piece, is given
/// up, and one that has gone at once. While it is waited for, `goes_on` is called some 50 times a second; false ends
/// the wait. What the program itself offers it knows, and finds nothing here.
Fetched fetch_from_clipboard(std::span<const std::string> kinds, const std::function<bool()>& goes_on);

/// Answers what other programs ask. With each picture, whether the program rests behind it or not.
void serve_clipboard();

/// The descriptor that becomes readable when another program asks, -1 for none.
int clipboard_descriptor();

/// At the program's end: hands what is offered to a clipboard manager, if one runs, so that it outlives the program,
/// within 3 seconds; then gives everything back.
void leave_clipboard();

/// Stands in for the X server in tests that play without one; null: none does.
struct ClipboardStandIn {
    std::function<bool(ClipboardOffer)> offer;
    std::function<Fetched(std::span<const std::string> kinds, const std::function<bool()>& goes_on)> fetch;
};
void set_clipboard_stand_in(const ClipboardStandIn* stand_in);

}  // namespace nubo
