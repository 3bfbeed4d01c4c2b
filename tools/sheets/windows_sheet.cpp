// Draws a contact sheet of all windows, each with its name, at twice its size, for the eye of a reviewer.
// Usage: nubo_windows TARGET.png
//
// A window runs until its user leaves it. So each opens in a process of its own, which ends with the eighth picture.
#include "codecs/png.h"
#include "framework/text.h"
#include "gui/present.h"
#include "gui/progress_box.h"
#include "gui/window.h"
#include "harness/windows.h"
#include "state/flow.h"
#include "state/options.h"
#include "state/run.h"
#include "state/texts_labels.h"
#include "windows/kit/drawing_menu.h"
#include <algorithm>
#include <cstdio>
#include <string>
#include <sys/mman.h>
#include <sys/wait.h>
#include <unistd.h>
#include <vector>

namespace nubo {
namespace {

// ---- The windows ---------------------------------------------------------------------------------------------------

void save_for_long() {
    constexpr double percent = 60;
    ProgressBox box(LABEL_SAVING_WORKSPACE);
    for (;;) box.tell(percent);
}

std::vector<WindowOpener> exhibits() {
    std::vector<WindowOpener> all{{"DRAWING MENU", IS_WINDOW, build_drawing_menu}};
    for (const WindowOpener& window : all_windows())
        if ((window.traits & IS_WINDOW) != 0) all.push_back(window);
    all.push_back({"PROGRESS", IS_WINDOW, save_for_long});
    return all;
}

// ---- One window ----------------------------------------------------------------------------------------------------

/// What a child tells: its screen, and the part of it that the elements take.
struct Picture {
    bool taken = false;
    int x = 0, y = 0, w = 0, h = 0;
    std::array<Color, view_w * view_h> pixels{};
};
Picture* picture = nullptr;  // shared with the children

void take_picture() {
    int right = 0, bottom = 0;
    picture->x = view_w;
    picture->y = view_h;
    for (int slot = 0; slot < gui_slots; ++slot) {
        const std::size_t s = at(slot);
        if (gui::active[s] == 0 || gui::hidden[s] != 0) continue;
        picture->x = std::min<int>(picture->x, gui::x[s]);
        picture->y = std::min<int>(picture->y, gui::y[s]);
        right = std::max<int>(right, gui::x[s] + gui::w[s] + 1);  // with the border of a window
        bottom = std::max<int>(bottom, gui::y[s] + gui::h[s] + 1);
    }
    picture->x = std::clamp(picture->x, 0, view_w - 1);
    picture->y = std::clamp(picture->y, 0, view_h - 1);
    picture->w = std::clamp(right, picture->x + 1, view_w) - picture->x;
    picture->h = std::clamp(bottom, picture->y + 1, view_h) - picture->y;
    for (int y = 0; y < view_h; ++y)
        std::copy_n(pixels_at(screen_buffer, 0, y), view_w, picture->pixels.begin() + view_w * y);
    picture->taken = true;
    std::_Exit(0);
}

void open_and_take_picture(const WindowOpener& exhibit) {
    set_present_hook([] {
        constexpr int pictures = 8, picture_ms = 20;
        static int presents = 0;
        advance_time(picture_ms);
        if (++presents == pictures) take_picture();
    });
    exhibit.open();
    for (;;) update_screen(UPDATE_NORMAL);
}

/// Null when the window hasn't come up.
OwnedBitmap picture_of(const WindowOpener& exhibit) {
    picture->taken = false;
    std::fflush(nullptr);
    const pid_t child = fork();
    if (child == 0) open_and_take_picture(exhibit);
    int status = 0;
    if (child < 0 || waitpid(child, &status, 0) != child || !picture->taken) return nullptr;
    OwnedBitmap part = make_bitmap(picture->w, picture->h);
    for (int y = 0; part && y < picture->h; ++y)
        std::copy_n(picture->pixels.begin() + view_w * (picture->y + y) + picture->x, picture->w,
                    pixels_at(part.get(), 0, y));
    return part;
}

// ---- The sheet -----------------------------------------------------------------------------------------------------

constexpr int scale = 2, gap = 8, name_h = 8, columns = 2, column_w = view_w * scale + gap;

void draw_name(BITMAP* sheet, int x, int y, const std::string& name) {
    const OwnedBitmap strip = make_bitmap(view_w, name_h);  // texts end where the screen would
    if (!strip) return;
    set_font(FONT_WIDE, TEXT_YELLOW);
    UA_text(strip.get(), 0, 0, name);
    stretch_blit(strip.get(), sheet, 0, 0, view_w, name_h, x, y, view_w * scale, name_h * scale);
}

struct Place {
    int x, y;
};

/// In columns, each window in turn where the sheet is still shortest; the last place is the sheet's own end.
std::vector<Place> places_of(const std::vector<OwnedBitmap>& pictures) {
    std::array<int, columns> ends{};
    ends.fill(gap);
    std::vector<Place> places;
    for (const OwnedBitmap& part : pictures) {
        const auto end = std::ranges::min_element(ends);
        places.push_back({gap + static_cast<int>(end - ends.begin()) * column_w, *end});
        *end += (name_h + part->h) * scale + gap;
    }
    places.push_back({gap + columns * column_w, std::ranges::max(ends)});
    return places;
}

OwnedBitmap draw_sheet(const std::vector<WindowOpener>& all, const std::vector<OwnedBitmap>& pictures) {
    const std::vector<Place> places = places_of(pictures);
    OwnedBitmap sheet = make_bitmap(places.back().x, places.back().y);
    for (std::size_t i = 0; sheet && i < pictures.size(); ++i) {
        BITMAP* const part = pictures[i].get();
        draw_name(sheet.get(), places[i].x, places[i].y, all[i].name);
        stretch_blit(part, sheet.get(), 0, 0, part->w, part->h, places[i].x, places[i].y + name_h * scale,
                     part->w * scale, part->h * scale);
    }
    return sheet;
}

/// Nothing but windows on its screen.
class SheetEditor : public AllWindowsTest {
public:
    SheetEditor() {
        constexpr Color orange = 0xe07818;
        brush_color = orange;
        opt_status_bar = opt_crosshair_strength = 0;
        ::mouse_x = 0;
        ::mouse_y = 0;
    }
    void TestBody() override {}
};

int make_sheet(const char* target) {
    void* const memory = mmap(nullptr, sizeof(Picture), PROT_READ | PROT_WRITE, MAP_SHARED | MAP_ANONYMOUS, -1, 0);
    if (memory == MAP_FAILED) return 1;
    picture = new (memory) Picture;
    const SheetEditor editor;
    const std::vector<WindowOpener> all = exhibits();
    std::vector<OwnedBitmap> pictures;
    for (const WindowOpener& exhibit : all) {
        pictures.push_back(picture_of(exhibit));
        if (pictures.back()) continue;
        std::fprintf(stderr, "nubo_windows: %s doesn't open\n", exhibit.name.c_str());
        return 1;
    }
    const OwnedBitmap sheet = draw_sheet(all, pictures);
    return sheet && save_png(target, sheet.get(), nullptr) == 0 ? 0 : 1;
}

}  // namespace
}  // namespace nubo

int main(int argc, char** argv) {
    if (argc != 2) {
        std::fprintf(stderr, "usage: nubo_windows TARGET.png\n");
        return 2;
    }
    nubo::start_without_display();
    return nubo::make_sheet(argv[1]);
}
