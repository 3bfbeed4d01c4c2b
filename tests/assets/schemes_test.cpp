#include "harness/user.h"
#include "logo.h"
#include "schemes.h"

#include "framework/resources.h"
#include "gui/columns.h"
#include "gui/draw.h"
#include "gui/elements.h"
#include "state/texts_help.h"
#include "windows/colors/scheme.h"
#include "windows/help_window.h"
#include <cmath>

namespace nubo {
namespace {

std::vector<ArtScheme> delivered_schemes() {
    const auto source = read_art(NUBO_ART "/schemes.txt");
    return source ? read_schemes(*source).value_or(std::vector<ArtScheme>{}) : std::vector<ArtScheme>{};
}

/// How much two colours stand apart, 1 to 21: the ratio of their luminances as the web's guidelines define it.
double contrast(Color a, Color b) {
    const auto linear = [](int channel) {
        const double c = channel / 255.0;
        return c <= 0.04045 ? c / 12.92 : std::pow((c + 0.055) / 1.055, 2.4);
    };
    const auto luminance = [&](Color c) {
        return 0.2126 * linear(red_of(c)) + 0.7152 * linear(green_of(c)) + 0.0722 * linear(blue_of(c));
    };
    const auto [low, high] = std::minmax({luminance(a), luminance(b)});
    return (high + 0.05) / (low + 0.05);
}

TEST(Schemes, AreAtLeastSixAndTheFirstIsTheDefault) {
    const auto schemes = delivered_schemes();
    ASSERT_GE(schemes.size(), 6u);
    EXPECT_EQ(schemes[0].colors, default_scheme);
    // "SCH", then 00 9e 9e 9e for the ground, 00 64 64 64 for the border, and so on to 00 00 5c bc.
    const std::string bytes = scheme_file(schemes[0]);
    ASSERT_EQ(bytes.size(), 43u);
    EXPECT_EQ(bytes.substr(0, 11), std::string("SCH\0\x9e\x9e\x9e\0\x64\x64\x64", 11));
    EXPECT_EQ(bytes.substr(39), std::string("\0\0\x5c\xbc", 4));
}

TEST(Schemes, AreLegible) {
    // Every text of the toolkit and the grounds that it draws it on.
    constexpr struct {
        SchemeColor text, ground;
    } pairs[] = {
        {SCHEME_TEXT_LIGHT, SCHEME_BACKGROUND},          // lists, inks
        {SCHEME_TEXT_LIGHT, SCHEME_SHADOW},              // the row under the mouse, text fields
        {SCHEME_TEXT_LIGHT, SCHEME_HIGHLIGHT_FORE},      // a field that is refused
        {SCHEME_TEXT_BUTTON, SCHEME_BACKGROUND},         // buttons
        {SCHEME_TEXT_BUTTON, SCHEME_BORDER},             // captions
        {SCHEME_TEXT_HIGHLIGHT, SCHEME_BACKGROUND},      // descriptions, switches
        {SCHEME_TEXT_SELECTED, SCHEME_BACKGROUND},       // what is chosen in a list,
        {SCHEME_TEXT_SELECTED, SCHEME_SHADOW},           // also under the mouse
        {SCHEME_TEXT_LIGHT_ALT, SCHEME_SHADOW},          // titles
        {SCHEME_TEXT_LIGHT_ALT, SCHEME_HIGHLIGHT_BACK},  // a button pressed in
    };
    constexpr double readable = 4.5;  // by the web's guidelines
    auto schemes = delivered_schemes();
    schemes.erase(schemes.begin());  // whose colours are as they always were
    for (const ArtScheme& scheme : schemes) {
        for (const auto& pair : pairs)
            EXPECT_GE(contrast(scheme.colors[pair.text], scheme.colors[pair.ground]), readable)
                << scheme.name << ": color " << pair.text << " on " << pair.ground;
        for (const SchemeColor ground : {SCHEME_BACKGROUND, SCHEME_SHADOW})
            EXPECT_GE(contrast(scheme_folder_color(scheme.colors), scheme.colors[ground]), readable)
                << scheme.name << ": folders on " << ground;
    }
}

class DrawnSchemesTest : public EditorTest {
protected:
    /// The element as it is drawn, but for a slider at its right end.
    static std::vector<Color> drawn(int slot) {
        constexpr int right_end = 12;
        GUI_draw_all();
        std::vector<Color> pixels;
        for (int y = gui::y[at(slot)]; y < gui::y[at(slot)] + gui::h[at(slot)]; ++y) {
            const Color* const row = pixels_at(screen_buffer, gui::x[at(slot)], y);
            pixels.insert(pixels.end(), row, row + gui::w[at(slot)] - right_end);
        }
        return pixels;
    }
    /// The least contrast of the pixels in which two pictures differ: of the text, which only one of them has.
    static double least_contrast(const std::vector<Color>& a, const std::vector<Color>& b) {
        double least = a == b ? 0 : 99;
        for (std::size_t i = 0; i < a.size(); ++i)
            if (a[i] != b[i]) least = std::min(least, contrast(a[i], b[i]));
        return least;
    }
};

TEST_F(DrawnSchemesTest, TheNumbersOfSlidersAndTheWordsOverTheEmblemAreLegible) {
    UA_load_framework_video(Folder(NUBO_FOLDER "/resource"));
    replace_bitmap(logo, draw_logo(read_art(NUBO_ART "/logo.txt").value()));
    play_on(help_window, [](User& user) -> Script {
        co_await user.wait(2);
        constexpr int slider = 40, help = slot_content + 1, no_topic = help_slots - 1;
        GUI_add_slider(slider, 10, 10, 120, 1000);
        for (const ArtScheme& scheme : delivered_schemes()) {
            color_scheme = scheme.colors;
            wear_scheme();
            gui::color[help] = static_cast<int>(ui_background);
            gui::slider_value[slider] = 111;
            const std::vector<Color> ones = drawn(slider);
            gui::slider_value[slider] = 112;  // at the same stop
            EXPECT_GE(least_contrast(ones, drawn(slider)), 4.5) << scheme.name;
            help_topic_of(help) = no_topic;
            const std::vector<Color> bare = drawn(help);
            help_topic_of(help) = help_index(HELP_BRUSH_TOOLS);
            EXPECT_GE(least_contrast(bare, drawn(help)), 4.5) << scheme.name;
        }
        exit_requested = 1;
        co_await user.wait(2);
    });
}

TEST(ObjectLibrary, IsOneNumberALineWithoutAnEmptyOneAtTheEnd) {
    const ArtSource source{"objects",
                           {{{"object", "a"}, {{"0", "100"}, {"85", "90"}, {"171", "80"}}, 1},
                            {{"object", "b"}, {{"1", "2"}, {"3", "4"}, {"5", "6"}}, 5}}};
    EXPECT_EQ(object_library(source), "0\n0\n0\n0\n3\n0\n100\n85\n90\n171\n80\n0\n0\n0\n0\n3\n1\n2\n3\n4\n5\n6");
    ArtSource broken = source;
    broken.blocks[1].rows[0][1] = "2x";
    EXPECT_FALSE(object_library(broken));
    broken.blocks[1].rows[0] = {"2"};
    EXPECT_FALSE(object_library(broken));
    EXPECT_TRUE(object_library(read_art(NUBO_ART "/objects.txt").value()));
}

}  // namespace
}  // namespace nubo
