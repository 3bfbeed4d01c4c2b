// nubo-wsp: looks into an archive of a Workspace, takes its files out and puts a folder's files in; takes its Frames
// out to the world and pictures in. It needs no display.
#include "companion.h"

#include "base/color.h"
#include "base/utf8.h"
#include "codecs/png.h"
#include "state/colors.h"
#include "state/frames.h"
#include "state/guides.h"
#include "workspace/bmp_files.h"
#include "workspace/state_fields.h"
#include <algorithm>
#include <allegro.h>
#include <array>
#include <cerrno>
#include <cstdio>
#include <filesystem>
#include <optional>
#include <span>
#include <string>
#include <string_view>

namespace nubo {

int fail(const std::string& cause) {
    std::fprintf(stderr, "nubo-wsp: %s\n", cause.c_str());
    return EXIT_FAILED;
}

bool open_archive(const InputFile& file, const std::string& path, ArchiveContents& contents) {
    if (!file.is_open()) return fail(path + " can't be read"), false;
    const char* const fault = read_archive(file, contents);
    return fault == nullptr || (fail(path + " is damaged: " + fault), false);
}

int count_frames(const Folder& folder) {
    int count = 0;
    while (count < frame_slots && FrameSlot{folder, count}.has_frame()) ++count;
    if (count > 0 && count == count_frames_in(folder)) return count;
    fail(FrameSlot{folder, count}.frame() + " is missing");
    return 0;
}

namespace {

namespace fs = std::filesystem;

// ---- Looking -------------------------------------------------------------------------------------------------------

/// A text of an archive without what would move the cursor of a terminal, or more.
std::string printable(std::string_view text) {
    std::string shown;
    for (Utf8Character next; !text.empty(); text.remove_prefix(next.size)) {
        next = first_character(text);
        const bool is_control = next.code < U' ' || (next.code >= U'\x7f' && next.code < U'\xa0');
        const bool is_loose_byte = next.size == 1 && next.code >= U'\x7f';
        shown += is_control || is_loose_byte ? "?" : std::string(text.substr(0, next.size));
    }
    return shown;
}

int list(Words words) {
    const InputFile file(words[0]);
    ArchiveContents contents;
    if (!open_archive(file, words[0], contents)) return EXIT_FAILED;
    const int frames = contents.head.frame_count;
    std::printf("title   %s\nnotes   %s\nframes  %d\n", printable(contents.head.title).c_str(),
                printable(contents.head.notes).c_str(), frames);
    for (int i = 0; i < component_count(frames); ++i) {
        const ArchivePart& part = contents.parts[static_cast<unsigned>(i)];
        BmpHeader header;
        const bool is_state = i + 1 == component_count(frames);
        const char* const fault = is_state ? nullptr : read_picture_head(file, part, header);
        const std::string size =
            header.width > 0 ? std::to_string(header.width) + "x" + std::to_string(header.height) : "";
        std::printf("%-12s %10zu bytes  %s\n", component_name(STEM_CURRENT, i, frames).c_str(), part.size,
                    fault != nullptr ? fault : size.c_str());
    }
    return EXIT_DONE;
}

// ---- Checking ------------------------------------------------------------------------------------------------------

/// False after lines that tell each value which the editor would have to repair.
bool check_state(const InputFile& part) {
    std::vector<std::uint8_t> bytes(std::min(part.size(), state_file_limit));
    if (!part.read_at(0, bytes.data(), bytes.size())) return fail("current.spa can't be read"), false;
    return unpack_state(bytes, "current.spa") || (fail("current.spa: the editor would repair it"), false);
}

/// Reads a component as the editor would. False after a message.
bool check_part(const InputFile& part, int index, int frames) {
    if (index + 1 == component_count(frames)) return check_state(part);
    const char* const fault = fault_of_bmp(part);
    if (fault == nullptr) return true;
    fail(component_name(STEM_CURRENT, index, frames) + ": " + fault +
         (index < frames ? "; the editor would refuse the archive" : "; the editor would make a black one"));
    return false;
}

int check(Words words) {
    const InputFile file(words[0]);
    ArchiveContents contents;
    if (!open_archive(file, words[0], contents)) return EXIT_FAILED;
    const int frames = contents.head.frame_count;
    bool is_whole = true;
    for (int i = 0; i < component_count(frames); ++i) {
        const ArchivePart& part = contents.parts[static_cast<unsigned>(i)];
        is_whole = check_part(InputFile(file, part.at, part.size), i, frames) && is_whole;
    }
    if (!is_whole) return EXIT_FAILED;
    std::printf("%s is whole: %d frames\n", words[0], frames);
    return EXIT_DONE;
}

// ---- Taking out ----------------------------------------------------------------------------------------------------

/// The mask colour, if the Workspace of the archive lets its Frames leave with that clear.
std::optional<Color> ground_of(const InputFile& file, const ArchivePart& state) {
    std::vector<std::uint8_t> bytes(std::min(state.size, state_file_limit));
    if (!file.read_at(state.at, bytes.data(), bytes.size())) return std::nullopt;
    unpack_state(bytes, "current.spa");
    return guides.clear_ground != 0 ? std::optional(mask_color) : std::nullopt;
}

/// Puts a PNG beside the BMP file of that name and removes the latter. False if it is no picture.
bool turn_into_png(const std::string& path, std::optional<Color> ground) {
    const OwnedBitmap picture = load_bmp_file(path);
    Bytes bytes;
    const auto encode = [&] {
        return ground ? write_clear_png(picture.get(), *ground, bytes, PNG_BEST) : write_png(picture.get(), bytes);
    };
    return picture && encode() && write_file(path + ".png", bytes.data(), bytes.size()) && remove_file(path);
}

/// Takes all out that can be: a damaged picture stays as it is, and is told.
int extract(Words words, bool as_png) {
    const InputFile file(words[0]);
    ArchiveContents contents;
    if (!open_archive(file, words[0], contents)) return EXIT_FAILED;
    std::error_code error;
    fs::create_directories(words[1], error);
    const Folder folder(words[1]);
    const int frames = contents.head.frame_count, count = component_count(frames);
    const auto path_of_part = [&](int i) { return folder.file(component_name(STEM_CURRENT, i, frames)); };
    for (int i = 0; i < count; ++i)
        for (const char* ending : {"", ".png"})
            if (file_exists(path_of_part(i) + ending)) return fail(path_of_part(i) + ending + " is there already");
    const std::optional<Color> ground =
        as_png ? ground_of(file, contents.parts[static_cast<unsigned>(count - 1)]) : std::nullopt;
    CopyBuffer buffer;
    int result = EXIT_DONE;
    for (int i = 0; i < count; ++i) {
        if (unpack_component(file, contents.parts[static_cast<unsigned>(i)], path_of_part(i), buffer) != 0)
            return fail(path_of_part(i) + " can't be written");
        if (as_png && i + 1 < count && !turn_into_png(path_of_part(i), i < frames ? ground : std::nullopt))
            result = fail(path_of_part(i) + " can't be turned into a PNG");
    }
    return sync_disk(words[1]) ? result : fail("the disk can't be synced");
}

// ---- Putting in ----------------------------------------------------------------------------------------------------

/// Title and notes stand in the state, one behind the other.
void read_names(const Folder& folder, ArchiveHead& head) {
    constexpr std::size_t names_at = 4632;
    const InputFile state(folder.file(side_file_name(STEM_CURRENT, "spa")));
    std::size_t at = names_at;
    for (std::string* const text : {&head.title, &head.notes}) {
        std::uint8_t length = 0;
        if (!state.read_at(at, &length, 1)) return;
        text->resize(length);
        if (!state.read_at(at + 1, text->data(), length)) text->clear();
        at += 1 + std::size_t{length};
    }
}

/// Looks at all before FILE is touched, which may be a good one.
int make(Words words) {
    const Folder folder(words[1]);
    ArchiveHead head;
    head.frame_count = count_frames(folder);
    bool is_whole = head.frame_count > 0;
    for (int i = 0; head.frame_count > 0 && i < component_count(head.frame_count); ++i) {
        const std::string path = folder.file(component_name(STEM_CURRENT, i, head.frame_count));
        const InputFile part(path);
        if (!part.is_open())
            is_whole = (fail(path + (file_exists(path) ? " can't be read" : " is missing")), false);
        else
            is_whole = check_part(part, i, head.frame_count) && is_whole;
    }
    if (!is_whole) return fail(std::string(words[0]) + " isn't made");
    read_names(folder, head);
    SafeFile archive(words[0]);
    CopyBuffer buffer;
    if (!write_archive(archive, folder, head, buffer)) return fail("a file in " + folder.path() + " can't be read");
    if (!archive.commit()) return fail(std::string(words[0]) + " can't be written");
    std::printf("%s is whole: %d frames\n", words[0], head.frame_count);
    return EXIT_DONE;
}

// ---- The words of the command --------------------------------------------------------------------------------------

constexpr const char* usage =
    "Usage: nubo-wsp list FILE                  what is in an archive\n"
    "       nubo-wsp check FILE                 whether it is whole, and what the editor would have to repair\n"
    "       nubo-wsp extract [--png] FILE DIR   takes its files out; with --png its pictures as PNG\n"
    "       nubo-wsp make FILE DIR              checks the files current.* in DIR, as extract leaves them, and makes "
    "one "
    "of them\n"
    "       nubo-wsp export KIND OUT [OPTION...] SOURCE\n"
    "           takes the Frames of a FILE or of a WORKSPACE folder out, and says which files it has written\n"
    "           KIND: --gif, --apng, --sheet, or --png for one picture each\n"
    "           --from N, --to N          the first and the last Frame; else as ANIMATE has them\n"
    "           --loop, --once, --ping-pong   how it plays; else as ANIMATE has it\n"
    "           --scale N                 1 to 8\n"
    "           --clear                   the mask colour is clear\n"
    "           of a sheet: --rows, --columns or --square, --border N, --gap N, --json\n"
    "FILE is an archive of Nubo's, ending in .wsp. No file in DIR is written over.\n";

struct Command {
    std::string_view name, option;
    std::size_t words;
    int (*run)(Words);
};
constexpr std::array<Command, 5> commands{{
    {"list", "", 1, list},
    {"check", "", 1, check},
    {"extract", "--png", 2, [](Words words) { return extract(words, true); }},
    {"extract", "", 2, [](Words words) { return extract(words, false); }},
    {"make", "", 2, make},
}};

int run(Words words) {
    const auto asks_for_help = [](std::string_view word) { return word == "-h" || word == "--help"; };
    if (std::ranges::any_of(words, asks_for_help)) return std::fputs(usage, stdout), EXIT_DONE;
    if (!words.empty() && std::string_view(words[0]) == "export") {
        const int code = export_command(words.subspan(1));
        if (code == EXIT_USAGE) std::fputs(usage, stderr);
        return code;
    }
    for (const Command& command : commands) {
        const std::size_t front = command.option.empty() ? 1 : 2;
        if (words.size() != front + command.words || words[0] != command.name) continue;
        const bool has_option = std::string_view(words[1]).starts_with("--");
        if (has_option ? words[1] != command.option : front == 2) continue;
        return command.run(words.subspan(front));
    }
    std::fputs(usage, stderr);
    return EXIT_USAGE;
}

}  // namespace
}  // namespace nubo

int main(int argument_count, char** arguments) {
    if (install_allegro(SYSTEM_NONE, &errno, nullptr) != 0) return nubo::EXIT_FAILED;
    set_color_depth(32);
    nubo::use_window_color_order();
    const int code = nubo::run({arguments + 1, static_cast<std::size_t>(argument_count > 0 ? argument_count - 1 : 0)});
    allegro_exit();
    return code;
}
