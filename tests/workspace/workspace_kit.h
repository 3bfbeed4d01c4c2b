#pragma once
// A program folder in a scratch folder, and Frames that are told apart by their colour.
#include "harness/harness.h"
#include "platform/safe_file.h"
#include "platform/system_calls.h"
#include "state/cel.h"
#include "state/colors.h"
#include "state/frames.h"
#include "state/guides.h"
#include "state/options.h"
#include "state/run.h"
#include "state/stroke.h"
#include "workspace/bmp_files.h"
#include "workspace/folders.h"
#include "workspace/frame_memory.h"
#include "workspace/frame_slot.h"
#include "workspace/frame_store.h"
#include "workspace/nail.h"
#include "workspace/state_file.h"
#include "workspace/workspace.h"

namespace nubo {

using Ids = std::vector<int>;
constexpr int frame_side = 50;  // large enough for a thumbnail without enlargement

class WorkspaceTest : public testing::Test {
protected:
    void SetUp() override {
        UA_log_open();
        system_calls.fsync =
            system_calls.syncfs = [](int) { return 0; };  // no test pulls the plug, and it takes its time
        std::strncpy(program_dir.data(), folder_.path().c_str(), path_size - 1);
        setenv("XDG_STATE_HOME", (folder_.path() + "/state").c_str(), 1);
        std::filesystem::create_directory("resource");
        replace_bitmap(nail_sheet, make_bitmap(nail_side, nail_side));
        replace_bitmap(tip_sheet, make_bitmap(tip_sheet_w, tip_sheet_h));
        for (BITMAP** placeholder : {&cel, &cel_mask, &original_frame, &stroke_mask})
            replace_bitmap(*placeholder, make_bitmap(2, 2));
        handlers_locked = 0;
    }

    /// Writes Frames of one colour each and a state and a Nail that fit them; slot `index` is current. Then opens it.
    void make_workspace(const Ids& ids, int index) {
        ASSERT_TRUE(open_workspace());
        for (std::size_t i = 0; i < ids.size(); ++i) {
            const int id = ids[i];
            const auto frame = make_bitmap(frame_side, frame_side, static_cast<Color>(id));
            ASSERT_TRUE(save_bmp_file(slot_of_row(static_cast<int>(i)).frame(), frame.get()));
            make_nail_tile(frame.get(), static_cast<int>(i));
            frame_view[i] = {id, id, 2};
            guides.frame_times[i] = static_cast<std::uint8_t>(id);
        }
        frame_count = static_cast<int>(ids.size());
        frame_index = index;
        ASSERT_TRUE(open_frame(slot_of_row(index)) && save_workspace_state(state_file, false) && open_workspace());
    }

    /// What the files of the row hold, in order; ends at the first missing one.
    static Ids ids_on_disk() {
        Ids ids;
        for (int slot = 0; slot < frame_slots; ++slot) {
            const std::string path = slot_of_row(slot).frame();
            if (!std::filesystem::exists(path)) break;
            const OwnedBitmap frame = load_bmp_file(path);
            ids.push_back(frame ? static_cast<int>(*pixels_at(frame.get(), 0, 0)) : -1);
        }
        return ids;
    }
    static int id_in_memory() { return static_cast<int>(*pixels_at(current_frame, 0, 0)); }
    static void paint(int id) {
        EXPECT_TRUE(save_undo(false));
        scribble(id);
    }
    /// As a part of a step that is open.
    static void scribble(int id) {
        clear_to_color(current_frame, id);
        note_all_touched();
    }
    static int tile_id(int slot) {
        return static_cast<int>(
            *pixels_at(nail_sheet, slot % nail_columns * nail_tile, slot / nail_columns * nail_tile));
    }
    static int files_in_workspace(const std::string& part) {
        int count = 0;
        for (const auto& entry : std::filesystem::directory_iterator("WORKSPACE"))
            count += entry.path().filename().string().find(part) != std::string::npos;
        return count;
    }
    static bool logged(const std::string& line) { return log_text().find(line) != std::string::npos; }

    ScratchFolder folder_;
};

}  // namespace nubo
