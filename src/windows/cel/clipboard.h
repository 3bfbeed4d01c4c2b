#pragma once
// Pictures to and from the clipboard that the user's programs share (platform/clipboard.h). Main flow only.
struct BITMAP;

namespace nubo {

/// What the keys do: the Frame goes to the clipboard, with the mask colour clear if CLEAR is on, or the Cel, clear
/// where PASTE would leave it out, and the status bar says so; a picture from there is pasted. Where it has alpha the
/// user is asked what becomes of that, unless the program has put it there itself.
///
/// A picture smaller than the Frame in both directions floats as a Cel until it is anchored, as it is or with SHIFT by
/// the ink, or left; the user's Cel is back afterwards. Any other fills the Frame from its upper left corner, cut off
/// at its sides; before, for one that is larger, the user is asked whether the Frame shall grow. All of it can be
/// undone.
void clipboard_copy();
void clipboard_copy_cel();
void clipboard_paste();

/// Offers a copy of the bitmap to other programs, as PNG, in which the mask colour is clear if CLEAR is on, and BMP. 1,
/// or 0 without a display or the memory.
int clipboard_put(BITMAP* bitmap);

/// A new bitmap, which the caller owns, of what is on the clipboard: a PNG, BMP, JPEG or GIF, or the one picture file
/// of this machine that a file manager has copied. What is more transparent than not is of the mask colour. Null when
/// there is no picture or it can't be read, which the log tells, and when the user leaves while it is waited for.
BITMAP* clipboard_get();

}  // namespace nubo
