#pragma once
// The file browser on a folder of the test's own, its rows pressed by their numbers.
#include "menus_kit.h"
#include "windows/files/file_browser.h"
#include "windows/files/file_list.h"
#include "windows/files/file_preview.h"
#include "windows/files/picture_files.h"
#include "windows/files/picture_formats.h"

namespace nubo {

namespace fs = std::filesystem;

class FileBrowserTest : public MenuTest {
protected:
    FileBrowserTest() {
        replace_bitmap(preview_bitmap, make_bitmap(preview_w, preview_h));
        std::strncpy(default_image_dir.data(), folder_.path().c_str(), path_size - 1);
        opt_file_preview = PREVIEW_ALL;
    }
    static void put(const char* name, const std::string& bytes) { std::ofstream(name, std::ios::binary) << bytes; }
    static bool is_shown(const char* name) { return find_file(name) != -1; }
    static int row_y(int list, int row) { return gui::y[at(list)] + 4 + row * file_row_h; }
    static int list_slot() {
        int slot = 0;
        while (gui::type[at(slot)] != ELEMENT_FILE_LIST) ++slot;
        return slot;
    }
    static User::Pause click_row(User& user, int row) {
        const int list = list_slot();
        return click_place(user, gui::x[at(list)] + 20, row_y(list, row));
    }

    ScratchFolder folder_;
};

}  // namespace nubo
