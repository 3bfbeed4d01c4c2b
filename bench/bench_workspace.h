#pragma once
// A program folder for the benchmarks, with a Workspace of many Frames.
#include "base/bitmap.h"
#include "base/log.h"
#include "state/cel.h"
#include "state/frames.h"
#include "state/options.h"
#include "state/run.h"
#include "state/stroke.h"
#include "workspace/bmp_files.h"
#include "workspace/folders.h"
#include "workspace/frame_memory.h"
#include "workspace/nail.h"
#include "workspace/rescue.h"
#include "workspace/workspace.h"

#include <cstdlib>
#include <cstring>
#include <filesystem>
#include <unistd.h>

namespace nubo {

/// A program folder with a Workspace of `count` Frames of one size, open; it goes in the end.
class BenchWorkspace {
public:
    BenchWorkspace(int count, int width, int height) : before_(std::filesystem::current_path()) {
        std::string form = std::filesystem::temp_directory_path() / "nubo-bench-XXXXXX";
        if (mkdtemp(form.data()) == nullptr) std::abort();
        path_ = form;
        std::filesystem::current_path(path_);
        UA_log_open();
        std::strncpy(program_dir.data(), path_.c_str(), path_size - 1);
        std::strncpy(image_dir.data(), path_.c_str(), path_size - 1);
        replace_bitmap(nail_sheet, make_bitmap(nail_side, nail_side));
        replace_bitmap(tip_sheet, make_bitmap(tip_sheet_w, tip_sheet_h));
        for (BITMAP** held : {&cel, &cel_mask, &original_frame}) replace_bitmap(*held, make_bitmap(2, 2));
        open_workspace();
        const OwnedBitmap frame = make_bitmap(width, height, 0x123456);
        for (int slot = 0; slot < count; ++slot) save_bmp_file(slot_of_row(slot).frame(), frame.get());
        open_frame(slot_of_row(0));
        close_workspace();  // with its state, so that an opening finds all in order
        open_workspace();
    }
    ~BenchWorkspace() {
        settle_rescue();
        UA_log_close();
        std::filesystem::current_path(before_);
        std::filesystem::remove_all(path_);
    }

private:
    std::filesystem::path path_, before_;
};

}  // namespace nubo
