// The interface's texts: what the fonts, the boxes and the status bar ask of every one of them.
#include "editor/commands.h"
#include "harness/harness.h"
#include "state/commands.h"
#include "state/messages.h"
#include "state/options.h"
#include "state/texts_help.h"
#include "state/texts_keys.h"
#include "state/texts_labels.h"
#include "state/tools.h"

#include <allegro.h>
#include <cctype>

namespace nubo {
namespace {

/// The text without its colour codes; what is left of an unfinished code shows as a bar.
std::string visible(std::string_view text) {
    std::string shown;
    for (std::size_t i = 0; i < text.size(); ++i) {
        const bool code = text.substr(i).starts_with("|c") && i + 3 < text.size() && std::isdigit(text[i + 2]) != 0 &&
                          std::isdigit(text[i + 3]) != 0;
        if (code)
            i += 3;
        else
            shown += text[i];
    }
    return shown;
}

template <typename Table> void expect_readable(const Table& table) {
    for (std::size_t i = 0; i < table.size(); ++i) {
        const std::string text = visible(table[i]);
        EXPECT_EQ(text.find('|'), std::string::npos) << i << " has an unfinished colour code: " << table[i];
        EXPECT_TRUE(
            std::all_of(text.begin(), text.end(), [](char c) { return c >= ' ' && c <= '~' && std::islower(c) == 0; }))
            << i << " has a character that the interface does not use: " << table[i];
    }
}

TEST(Texts, UseUpperCaseOfTheFontsCharactersAndWholeColourCodes) {
    expect_readable(tooltip_text);
    expect_readable(label_text);
    hand_over_commands();
    for (const Command& row : commands) expect_readable(std::array{row.name});
    for (const ToolKind& tool : tools) expect_readable(tool.description);
    for (const InkKind& ink : inks) expect_readable(ink.description);
    expect_readable(key_names);
    for (const std::string_view text : help_text) {
        std::string words(text);
        std::erase(words, '|');  // line breaks
        expect_readable(std::array{std::string_view(words)});
    }
}

TEST(Texts, EveryOptionIsExplained) {
    for (const UserOption& option : user_options)
        EXPECT_EQ(option.word == nullptr, tooltip_text[option_message(option.label)] == spare_text)
            << label_text[static_cast<std::size_t>(option.label)];
}

TEST(Texts, MessagesFitTheScreenInTheWideFont) {
    constexpr int wide_advance = 6, screen_columns = 320 / wide_advance;
    for (const std::string_view text : tooltip_text) EXPECT_LE(visible(text).size(), screen_columns) << text;
}

TEST(Texts, EveryHelpTopicIsToldAtALengthThatOneWindowHolds) {
    constexpr std::size_t columns = 33, shortest = 185, longest = 1061;
    for (int topic = 0; topic < HELP_COUNT; ++topic) {
        const std::string_view text = help_text[static_cast<std::size_t>(help_index(static_cast<HelpTopic>(topic)))];
        EXPECT_GE(text.size(), shortest) << text;
        EXPECT_LE(text.size(), longest) << text;
        EXPECT_EQ(text.find("  "), std::string_view::npos) << text;  // two blanks would make an empty word
        std::istringstream words{std::string(text)};
        for (std::string word; words >> word;) {
            EXPECT_LE(word.size(), columns) << word;
            EXPECT_TRUE(word == "||" || word.find('|') == std::string::npos) << word;
        }
    }
}

TEST(Texts, KeyNamesFollowAllegrosCodes) {
    const std::pair<int, std::string_view> keys[] = {{KEY_Z, "Z"},
                                                     {KEY_9, "9"},
                                                     {KEY_0_PAD, "0 (P)"},
                                                     {KEY_F12, "F12"},
                                                     {KEY_TILDE, "TILDE"},
                                                     {KEY_BACKSPACE, "BCKSP"},
                                                     {KEY_BACKSLASH, "\\"},
                                                     {KEY_DEL, "DEL"},
                                                     {KEY_PGDN, "PGDN"},
                                                     {KEY_DOWN, "<D>"},
                                                     {KEY_PLUS_PAD, "+ (P)"},
                                                     {KEY_ENTER_PAD, "ENT2"},
                                                     {KEY_PAUSE, "PAUSE"},
                                                     {key_awaiting_input, "AWAITING INPUT"}};
    for (const auto& [code, name] : keys) EXPECT_EQ(key_names[static_cast<std::size_t>(code)], name);
    EXPECT_EQ(key_prefixes[(key_ctrl | key_shift) >> key_modifier_shift], "C/S+");
    EXPECT_EQ(key_prefixes[(key_alt | key_shift) >> key_modifier_shift], "A/S+");
}

}  // namespace
}  // namespace nubo
