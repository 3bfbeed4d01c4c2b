#include "framework/resources.h"

#include "base/bitmap.h"
#include "base/log.h"
#include "base/random.h"
#include "codecs/gif.h"
#include "framework/number_lines.h"
#include "framework/packer.h"
#include "framework/scrambler.h"
#include "framework/text.h"
#include "platform/input_file.h"
#include "platform/last_words.h"
#include "platform/memory_packfile.h"
#include "platform/safe_file.h"
#include "state/resources.h"
#include "state/sound.h"
#include <algorithm>
#include <cstdlib>
#include <filesystem>
#include <new>
#include <optional>
#include <string>
#include <vector>

namespace nubo {
namespace {

constexpr std::size_t resource_size_max = std::size_t{64} << 20;  // bytes; far above any file of ours
constexpr const char* library_file = "obj_lib.def";
constexpr std::array<const char*, 3> temporary_files{"prat", "prat.def", "prat_2.def"};

/// The end of a start that can't go on; the log line has been written.
[[noreturn]] void stop_with_message(const std::string& message, const char* file) {
    say_last_words(message + "\nFile = " + file);
    std::exit(-1);
}

std::optional<Bytes> read_resource(const std::string& path) {
    Bytes bytes;
    if (!read_file(path, resource_size_max, bytes)) return std::nullopt;
    return bytes;
}

/// True if `target` stands and is not older than `source`.
bool is_up_to_date(const char* source, const char* target) {
    std::error_code no_source, no_target;
    const auto source_time = std::filesystem::last_write_time(source, no_source);
    const auto target_time = std::filesystem::last_write_time(target, no_target);
    return !no_target && !no_source && target_time >= source_time;
}

[[noreturn]] void stop_missing_resource(const char* name) {
    UA_log("ERROR: Failed to find a resource file. File = %s", name);
    stop_with_message("A critical resource file is missing. Please reinstall the program.", name);
}

/// The file of that kind that a resource stands for, taken out of its cover; nothing if there is none.
std::optional<Bytes> read_payload(const Folder& folder, const char* name, const char* kind) {
    const std::string covered = folder.file(name), plain = covered + kind;
    // What can't be scrambled, on a full disk or a read-only one, is read as it lies there.
    if (file_exists(plain) && !UA_convert_resource(plain.c_str(), covered.c_str())) return read_resource(plain);
    const auto file = read_resource(covered);
    if (!file) stop_missing_resource(name);
    return unscramble_bytes(*file);
}

/// A resource that the program can't do without.
BITMAP* load_needed_bitmap(const Folder& folder, const char* name) {
    BITMAP* const bitmap = UA_load_resource_bitmap(folder, name);
    if (bitmap == nullptr) stop_missing_resource(name);
    return bitmap;
}

/// The sheets of a game, which the editor doesn't fill.
void create_placeholder_sheets() {
    constexpr int side = 2;
    for (BITMAP** const sheet : {&actor_sheet, &glow_sheet, &tile_sheet, &scene_sheet})
        replace_bitmap(*sheet, make_bitmap(side, side, transparent_color));
}

/// False when the count of pairs is not one that a record can hold.
bool read_library_object(NumberLines& lines, LibraryObject& object) {
    for (int& value : object.header) value = lines.next();
    const int pairs = lines.next();
    if (pairs < 0 || pairs > library_pairs_max) return false;
    object.pair_count = pairs;
    for (std::size_t i = 0; i < static_cast<std::size_t>(pairs); ++i) {
        object.pairs[i].angle = lines.next();
        object.pairs[i].radius = lines.next();
    }
    return true;
}

// ---- Packed files --------------------------------------------------------------------------------------------------

/// What `work` gives; without the memory for it the program ends after the line `error`.
template <typename Work> bool in_memory(const char* error, const char* file, Work work) {
    try {
        return work();
    } catch (const std::bad_alloc&) {
        UA_log(error);
        stop_with_message("The program ran out of memory! Reboot, or close some active programs and try again.", file);
    }
}

bool pack_resource(const char* source, const char* target) {
    const auto plain = read_resource(source);
    if (!plain) {
        UA_log("[ ERROR ] : Missing resource file while compressing!");
        stop_with_message("A critical resource file is missing. Please reinstall the application.", source);
    }
    const auto packed = pack_bytes(*plain);
    if (!packed) {
        UA_log("[ ERROR ] : Resource file is too long to be compressed! File = %s", source);
        return false;
    }
    return write_file(target, packed->data(), packed->size());
}

bool unpack_resource(const char* source, const char* target) {
    const auto packed = read_resource(source);
    if (!packed) {
        UA_log("[ ERROR ] : Missing resource file while decompressing!");
        stop_with_message("A critical resource file is missing. Please reinstall the game.", source);
    }
    const auto plain = unpack_bytes(*packed);
    if (!plain) {
        UA_log("[ ERROR ] : Resource file is no sound container! File = %s", source);
        return false;
    }
    return write_file(target, plain->data(), plain->size());
}

}  // namespace

// ---- Scrambled files -----------------------------------------------------------------------------------------------

bool UA_convert_resource(const char* source, const char* target) {
    if (is_up_to_date(source, target)) return true;
    const auto plain = read_resource(source);
    if (!plain) {
        UA_log("ERROR: Failed to convert a resource file. File = %s", source);
        stop_with_message("A resource file conversion failed. Please reinstall the game and try again.", source);
    }
    // The plain file goes only when the scrambled one is safely there.
    const auto scrambled = scramble_bytes(*plain, UA_random(scramble_seeds));
    return write_file(target, scrambled.data(), scrambled.size()) && remove_file(source);
}

BITMAP* UA_load_resource_bitmap(const Folder& folder, const char* name) {
    const auto payload = read_payload(folder, name, ".gif");
    PACKFILE* const file = payload ? open_for_reading(*payload) : nullptr;
    if (file == nullptr) return nullptr;
    BITMAP* const bitmap = load_gif_pf(file, global_palette.data());
    pack_fclose(file);
    return bitmap;
}

bool UA_load_resource_sample(const Folder& folder, const char* name, int slot, float gain) {
    if (slot < 0 || slot >= sample_slots) {
        UA_log("[ ERROR ] : Sample slot is out of range while loading a sample! Slot = %d", slot);
        return false;
    }
    const auto payload = read_payload(folder, name, ".wav");
    PACKFILE* const file = payload ? open_for_reading(*payload) : nullptr;
    SAMPLE* const sample = file != nullptr ? load_wav_pf(file) : nullptr;
    if (file != nullptr) pack_fclose(file);
    if (sample == nullptr) {
        UA_log("[ ERROR ] : Resource file holds no sample! File = %s", name);
        return false;
    }
    if (sound::sample[at(slot)] != nullptr) destroy_sample(sound::sample[at(slot)]);
    sound::sample[at(slot)] = sample;
    sound::gain[at(slot)] = gain;
    sound::valid[at(slot)] = SAMPLE_LOADED;
    return true;
}

void UA_black_to_mask(BITMAP* bitmap) {
    const auto black = static_cast<Color>(makecol(0, 0, 0));
    for (int y = 0; y < bitmap->h; ++y)
        std::replace(pixels_at(bitmap, 0, y), pixels_at(bitmap, bitmap->w, y), black, transparent_color);
}

void UA_load_framework_video(const Folder& folder) {
    replace_bitmap(gui_sheet, OwnedBitmap(load_needed_bitmap(folder, "UA_GUI")));
    UA_black_to_mask(gui_sheet);
    create_placeholder_sheets();
    destroy_bitmap(load_needed_bitmap(folder, "PALETTE"));
    set_palette(global_palette.data());
    UA_init_text_colors();
    if (!UA_load_font(folder, FONT_NARROW, {"UA_FONT_04"})) stop_missing_resource("UA_FONT_04");
    if (!UA_load_font(folder, FONT_WIDE, {"UA_FONT_05"})) stop_missing_resource("UA_FONT_05");
}

void UA_sweep_temp_resources(const Folder& folder) {
    for (const char* const file : temporary_files) remove_file(folder.file(file));
    remove_unfinished_files(folder.path());
}

// ---- The object library --------------------------------------------------------------------------------------------

void UA_load_object_library(const Folder& folder) {
    std::fill_n(object_library.begin(), library_count, LibraryObject{});  // no more: untouched memory takes no time
    library_count = 0;
    const auto text = read_resource(folder.file(library_file));
    if (!text) {
        UA_log("[ WARNING ] : Couldn't read the object library. File = %s", library_file);
        return;
    }
    NumberLines lines(*text);
    do {
        LibraryObject object;
        if (library_count == library_objects || !read_library_object(lines, object)) {
            UA_log("[ WARNING ] : Object library has more than its table holds! Record = %d", library_count);
            return;
        }
        object_library[static_cast<std::size_t>(library_count++)] = object;
    } while (!lines.has_ended());
}

// ---- Packed files --------------------------------------------------------------------------------------------------

bool UA_pack_resource(const char* source, const char* target) {
    return in_memory("[ ERROR ] : Ran out of memory allocating deflation buffer!", source,
                     [&] { return pack_resource(source, target); });
}

bool UA_unpack_resource(const char* source, const char* target) {
    return in_memory("[ ERROR ] : Ran out of memory allocating inflation buffer.", source,
                     [&] { return unpack_resource(source, target); });
}

bool UA_is_packed(const char* file) {
    constexpr std::size_t magic_size = 4;
    Bytes bytes;
    return read_file(file, magic_size, bytes) && has_pack_magic(bytes);
}

}  // namespace nubo
