#pragma once
// TEXT while the user makes it: a line in the preferred font, its place, its preview, its paint. Main flow only.
#include "base/bitmap.h"
#include "paint/cel_pixels.h"
#include "paint/shape_in_hand.h"
#include <string>

namespace nubo {

inline constexpr int text_margin = 10;  // pixels around the line, for what reaches beyond it

/// What the line is made from.
struct TextLook {
    std::string text;
    int size = 0, gap = 0, antialias = 0;
    bool operator==(const TextLook&) const = default;
};

/// The line as a bitmap of coverage. Its corner lies at `click_points[0]`.
class TextInHand {
public:
    /// Draws the line anew if it looks different now. False when it has just become larger than a line may be: above
    /// 65,535 pixels on a side or 256 MiB. Nothing is shown and painted then, until it is smaller.
    bool follow(const TextLook& look);

    /// The next `follow` draws with another font.
    void change_font();

    /// True for a Frame pixel in the box around the line.
    bool contains(Point pixel) const;

    /// Draws the line as it would be painted, and its box, on `overlay`.
    void draw_preview() const;

    /// Paints the line through the active ink. What would change no pixel of the Frame leaves no undo step.
    void commit() const;

private:
    bool draw(const TextLook& look);
    void find_covered();
    bool has_box() const { return covered_ && covered_->width() > 1 && covered_->height() > 1; }

    OwnedBitmap text_bitmap_;        // 8 bits: coverage
    std::optional<Area> covered_{};  // its part that isn't empty
    Remembered<TextLook> drawn_{};
    Remembered<int> size_{};
};

}  // namespace nubo
