#include "first_start.h"

#include "first_values.h"
#include "state/cel.h"
#include "state/frames.h"
#include "state/options.h"
#include "state/run.h"
#include "state/stroke.h"
#include "workspace/bmp_files.h"
#include "workspace/frame_slot.h"
#include "workspace/nail.h"
#include "workspace/side_files.h"
#include "workspace/state_file.h"
#include "workspace/user_settings.h"
#include <cstdio>

namespace nubo {

namespace {

namespace fs = std::filesystem;

constexpr const char* frame_sources[] = {"frame_welcome.txt", "frame_sprites.txt", "frame_landscape.txt"};

/// The editor's long-lived bitmaps, as its start makes them.
bool make_work_bitmaps(BITMAP* tips) {
    replace_bitmap(tip_sheet, make_bitmap(tip_sheet_w, tip_sheet_h, transparent_color));
    replace_bitmap(nail_sheet, make_bitmap(nail_side, nail_side));
    if (tip_sheet == nullptr || nail_sheet == nullptr) return false;
    blit(tips, tip_sheet, 0, 0, 0, 0, tip_sheet_w, tip_image_h);
    return true;
}

/// The stamps `cel` and `tip` become the Cel and the CustomTip.
bool take_cel_and_tip(const Stamps& stamps) {
    const auto texture = stamps.find("cel"), tip = stamps.find("tip");
    if (texture == stamps.end() || tip == stamps.end()) return false;
    replace_bitmap(cel, copy_bitmap(texture->second.get()));
    replace_bitmap(cel_mask, copy_bitmap(texture->second.get()));
    blit(tip->second.get(), tip_sheet, 0, 0, 0, custom_tip_y, custom_tip_w, custom_tip_h);
    return cel != nullptr && cel_mask != nullptr;
}

/// Paints the Frame of a slot and puts it on disk and on the Nail.
bool make_frame(const ArtSource& source, const Stamps& stamps, const fs::path& workspace, int slot) {
    if (!paint_frame(source, stamps)) return false;
    make_nail_tile(current_frame, slot);
    return save_bmp_file(workspace / frame_file_name(STEM_ALTERNATE, slot), current_frame);
}

std::optional<Stamps> read_all_stamps(const FirstSources& sources) {
    const auto source = read_art(sources.folder / "stamps.txt");
    auto stamps = source ? read_stamps(*source) : std::nullopt;
    if (stamps) (*stamps)["logo"] = copy_bitmap(sources.logo);
    return stamps;
}

bool make_frames(const FirstSources& sources, const Stamps& stamps, const fs::path& workspace,
                 std::vector<OwnedBitmap>& pictures) {
    int slot = 0;
    for (const char* const name : frame_sources) {
        const auto source = read_art(sources.folder / name);
        if (!source || !make_frame(*source, stamps, workspace, slot++)) return false;
        pictures.push_back(copy_bitmap(current_frame));
    }
    frame_count = slot;
    frame_index = 0;
    return true;
}

/// The state last: with it the set is whole, and the program takes it over.
bool write_side_files_and_state(const fs::path& workspace) {
    const Folder folder(workspace);
    bool written = true;
    for (const SideFile kind : {SIDE_CEL, SIDE_TIP, SIDE_NAIL})
        written = save_side_file(folder, kind, "alternate.") && written;
    return written && write_workspace(folder, "alternate.spa", true);
}

/// The writer of settings writes to the program folder that the editor knows.
bool write_settings(const fs::path& program_folder) {
    const std::string folder = fs::absolute(program_folder);
    if (folder.size() >= path_size) return false;
    folder.copy(program_dir.data(), folder.size());
    return save_user_settings();
}

}  // namespace

bool make_first_start(const FirstSources& sources, const fs::path& program_folder, std::vector<OwnedBitmap>& pictures) {
    const fs::path workspace = program_folder / "WORKSPACE";
    const auto stamps = read_all_stamps(sources);
    const auto colors = read_art(sources.folder / "favorites.txt");
    const auto schemes = read_art(sources.folder / "schemes.txt");
    set_first_settings();
    if (!schemes || !set_first_scheme(*schemes)) return false;
    if (!stamps || !colors || !make_work_bitmaps(sources.tips) || !take_cel_and_tip(*stamps)) return false;
    if (!make_frames(sources, *stamps, workspace, pictures) || !set_first_colors(*colors)) return false;
    set_first_workspace();
    return write_side_files_and_state(workspace) && write_settings(program_folder);
}

}  // namespace nubo
