#include "windows/files/file_browser.h"

#include "base/keys.h"
#include "gui/key_taps.h"
#include "gui/presses.h"
#include "gui/shown_names.h"
#include "gui/text_field.h"
#include "gui/typed_text.h"
#include "platform/places.h"
#include "platform/safe_file.h"
#include "state/guides.h"
#include "state/mouse.h"
#include "state/options.h"
#include "state/run.h"
#include "windows/files/browser_names.h"
#include "windows/files/browser_start.h"
#include "windows/files/file_browser_rows.h"
#include "windows/files/file_list.h"
#include "windows/files/file_preview.h"
#include "windows/files/picture_files.h"
#include "windows/files/picture_formats.h"
#include "windows/files/previous_window.h"
#include "windows/files/type_ahead.h"
#include "windows/kit/confirm_box.h"
#include "windows/kit/run_window.h"
#include "workspace/folders.h"
#include "workspace/notices.h"
#include "workspace/preferred_font.h"
#include "workspace/previous.h"
#include <algorithm>
#include <allegro.h>
#include <array>
#include <filesystem>

namespace nubo {
namespace {

namespace fs = std::filesystem;

/// The user's HOME directory: empty while the browser floats.
std::array<char, path_size>& home_of(BrowserMode mode) {
    return mode == BROWSE_FOR_FONT ? default_font_dir : default_image_dir;
}

template <std::size_t N> void set_text(std::array<char, N>& to, const std::string& text) {
    to.fill('\0');
    if (text.size() < N) std::copy(text.begin(), text.end(), to.begin());
}

std::string field_text(int slot) {
    std::array<char, field_size> text{};
    GUI_read_field(slot, text);
    return text.data();
}

// ---- The browser ---------------------------------------------------------------------------------------------------

class FileBrowser {
public:
    FileBrowser(BrowserMode mode, FilePurpose purpose)
        : mode_(mode), purpose_(purpose),
          places_(mode == BROWSE_FOR_FONT ? find_font_places(program_dir.data()) : find_places(program_dir.data())),
          extra_(extra_of(mode, purpose)) {
        places_.resize(std::min(places_.size(), at(places_beside(extra_))));
    }

    /// The chosen path, empty after CANCEL.
    std::string run() {
        const BrowserStart start = browser_start(mode_, purpose_);
        const auto enters = [&](const std::string& folder) { return is_folder(folder) && enter(folder); };
        if (std::ranges::none_of(start.folders, enters)) return {};
        set_text(image_file, start.file);
        WindowRow row = browser_window;
        row.gives_way = mode_ != BROWSE_TO_SAVE;
        if (extra_ != EXTRA_NONE) row.child_count = BROWSER_SLOTS;
        if (mode_ == BROWSE_TO_SAVE) {
            row.title = LABEL_SAVE_FILE;
            row.focus = BROWSER_FILE;
        }
        const WindowPass end = run_window(row, {.built = [&] { fill(); },
                                                .show = [&] { settle_file_list(BROWSER_LIST); },
                                                .serve = [&] { return serve(); }});
        clear_preview();
        if (purpose_ == PURPOSE_PICTURE) browse_in(Folder(image_dir.data()));
        if (chosen_.empty() || !is_workspace_file(chosen_))
            remember_browsing(purpose_, image_dir.data(), image_file.data());
        return end == WINDOW_DONE ? chosen_ : "";
    }

    /// The chosen picture is to be the Cel.
    bool cuts_out() const { return cuts_out_; }

private:
    // Building.

    static BrowserExtra extra_of(BrowserMode mode, FilePurpose purpose) {
        const bool loads = mode == BROWSE_TO_LOAD;
        if (purpose == PURPOSE_PICTURE) return loads ? EXTRA_CUT_OUT : EXTRA_CLEAR;
        return loads && purpose == PURPOSE_ARCHIVE && !list_previous_workspaces().empty() ? EXTRA_PREVIOUS : EXTRA_NONE;
    }

    void fill() {
        if (extra_ != EXTRA_NONE) build_element(browser_extra_row(extra_), window_x(), window_y());
        for (const int field : {BROWSER_PATH, BROWSER_FILE}) GUI_set_field(field, field_layout, "");
        fill_places();
        fill_filters();
        set_home_button();
        show_folder();
        show_name(image_file.data());
        show_nothing();
        show_clear_button();
    }

    void fill_places() const {
        for (std::size_t i = 0; i < places_.size(); ++i) {
            const std::size_t slot = at(BROWSER_PLACE_FIRST) + i;
            gui::label[slot] = drive_label(places_[i].letter - 'A');
            gui::left_action[slot] = ACTION_CLICK;  // the lit place too: its own folder may lie further up
        }
    }

    /// The place in which the folder lies most closely is lit.
    void light_place() const {
        const std::string folder = image_dir.data();
        std::size_t lit = places_.size(), longest = 0;
        for (std::size_t i = 0; i < places_.size(); ++i) {
            const std::string& place = places_[i].folder;
            const bool inside = place == "/" || folder == place || folder.rfind(place + "/", 0) == 0;
            if (!inside || place.size() <= longest) continue;
            longest = place.size();
            lit = i;
        }
        for (std::size_t i = 0; i < places_.size(); ++i)
            GUI_light_button(BROWSER_PLACE_FIRST + static_cast<int>(i), i == lit);
    }

    void fill_filters() const {
        for (int i = 0; i < filter_count; ++i) GUI_light_button(BROWSER_FILTER_FIRST + i, i == filter_);
    }

    void set_home_button() const {
        const bool is_home = home_of(mode_)[0] != '\0';
        gui::label[BROWSER_HOME] = is_home ? LABEL_FLOAT : LABEL_HOME;
        gui::tooltip[BROWSER_HOME] = is_home ? MESSAGE_CLEAR_HOME : MESSAGE_SET_HOME;
    }

    void show_folder() const {
        light_place();
        set_file_list(BROWSER_LIST);
        GUI_set_field(BROWSER_PATH, field_layout, image_dir.data());
    }

    /// What stands in the field that has the keyboard is selected: the next name is typed in its place.
    void show_name(const std::string& name) const {
        FieldLayout layout = field_layout;
        if (mode_ == BROWSE_TO_SAVE) layout.selects = SELECTS_STEM;
        GUI_set_field(BROWSER_FILE, layout, name.c_str());
        if (key_focus == BROWSER_FILE) GUI_set_key_focus(BROWSER_FILE, true);
    }

    // Moving about.

    /// Lists the folder. False, where it was and told, if it can't be read or its path is too long to be kept.
    bool enter(const std::string& folder) {
        const OfferedFiles offered = mode_ == BROWSE_TO_SAVE ? OFFER_WRITABLE : OFFER_READABLE;
        if (folder.size() >= path_size || !file_names.read(folder, endings_of_filter(filter_), offered)) {
            flash_text(folder.size() >= path_size ? "THE PATH OF THIS FOLDER IS TOO LONG" : "CAN'T OPEN THIS FOLDER");
            return false;
        }
        set_text(image_dir, folder);
        set_text(image_file, "");
        file_cursor = -1;
        return true;
    }

    /// The same for the window on screen. The name that is to be saved stays.
    void go_to(const std::string& folder) {
        sought_ = {};
        if (enter(folder) && mode_ != BROWSE_TO_SAVE) show_name("");
        show_folder();
    }

    void open_entry(int index) { go_to(path_of_entry(file_names[at(index)].name)); }

    /// Takes a file's name, and shows what is in the file. A folder's is shown where no name is to be saved.
    void pick(int index) {
        file_cursor = index;
        show_file(BROWSER_LIST, index);
        const FolderEntry& entry = file_names[at(index)];
        if (entry.is_folder && mode_ != BROWSE_TO_SAVE) show_name(entry.name + "/");
        name_at_pick_ = field_text(BROWSER_FILE);
        if (entry.is_folder) return;
        set_text(image_file, entry.name);
        show_name(entry.name);
        show_preview(false);
    }

    /// With CLEAR on the Frame is seen as it will be saved, in place of any file that isn't asked for.
    bool shows_frame() const { return extra_ == EXTRA_CLEAR && guides.clear_ground != 0; }

    void show_nothing() const {
        if (!shows_frame()) return set_preview_message(PREVIEW_UNAVAILABLE);
        shown_type_ = written_type(named_path());
        preview_clear_frame(shown_type_);
    }

    void show_clear_button() const {
        if (extra_ == EXTRA_CLEAR) GUI_light_button(BROWSER_EXTRA, shows_frame());
    }

    void show_preview(bool asked) const {
        const std::string name = field_text(BROWSER_FILE);
        if (shows_frame() && !asked) return show_nothing();
        if (name.empty()) return;
        const FileType type = file_type_from_extension(name, mode_);
        const bool is_known = type != FILE_UNKNOWN || (mode_ == BROWSE_FOR_FONT && is_other_font(name));
        if (!is_known && !asked)
            show_nothing();
        else if (mode_ == BROWSE_FOR_FONT)
            preview_font_file(absolute_path(name));
        else
            preview_picture(absolute_path(name), type, asked);
        UA_idle_ticks = 0;
    }

    // Serving.
    WindowPass serve() {
        const bool doubled = serve_list(), keyed = serve_keys();
        if (take_click(BROWSER_PATH) > 0) go_to(absolute_path(field_text(BROWSER_PATH)));
        if (take_click(BROWSER_HOME) > 0) flip_home();
        serve_filters();
        serve_places();
        const bool extra = extra_ != EXTRA_NONE && take_click(BROWSER_EXTRA) > 0;
        if (extra && extra_ == EXTRA_PREVIOUS && picks_previous()) return WINDOW_DONE;
        cuts_out_ = extra && extra_ == EXTRA_CUT_OUT;
        if (extra && extra_ == EXTRA_CLEAR) flip_clear();
        if (shows_frame() && written_type(named_path()) != shown_type_) show_nothing();
        if (take_click(BROWSER_PREVIEW) > 0) show_preview(true);
        const bool okay = take_click(BROWSER_OKAY) > 0, entered = take_click(BROWSER_FILE) > 0;
        return (okay || entered || doubled || keyed || cuts_out_) && commit() ? WINDOW_DONE : WINDOW_STAYS;
    }

    void flip_clear() const {
        guides.clear_ground = 1 - guides.clear_ground;
        show_clear_button();
        show_nothing();
    }

    /// True after the second of two quick clicks on one name.
    bool serve_list() {
        constexpr int double_click_ticks = 250;  // of 500 a second
        if (mouse_left == 0) pressed_ = false;
        if (mouse_left == 0 || pressed_ || press_slot != BROWSER_LIST || drag_slider != 0) return false;
        pressed_ = true;  // till the button is up, else one click were two
        const int index = file_under_mouse(BROWSER_LIST);
        if (index == -1) return false;
        if (file_names[at(index)].is_folder) {
            open_entry(index);
            GUI_set_key_focus(BROWSER_PATH, true);
            return false;
        }
        if (index == file_cursor && UA_idle_ticks < double_click_ticks) return true;
        pick(index);
        GUI_set_key_focus(BROWSER_FILE, true);
        UA_idle_ticks = 0;
        return false;
    }

    /// The list has the keyboard when no field has, and else the keys that no field knows. True for ENTER.
    bool serve_keys() {
        const int code = keys_.take();
        const bool is_of_list = code == KEY_UP || code == KEY_DOWN || code == KEY_PGUP || code == KEY_PGDN;
        if (code == 0 || (is_text_field(key_focus) && !is_of_list)) return false;
        if (code == KEY_TAB) GUI_set_key_focus(BROWSER_FILE, true);
        if (code == KEY_BACKSPACE) go_back();
        const int index = file_of_key(code, file_cursor);
        if (index != file_cursor && is_entry(index)) pick(index);
        if (index == file_cursor) serve_typing(code);
        return code == KEY_ENTER || code == KEY_ENTER_PAD;
    }

    /// A character that was mistyped goes, or the user does, to the folder above.
    void go_back() {
        if (sought_.take_back())
            find_sought(std::max(file_cursor, 0));
        else
            go_to(path_of_entry(".."));
    }

    void serve_typing(int code) {
        const std::string typed = (modifiers_down() & key_ctrl) == 0 ? typed_by(code) : "";
        if (typed.empty() || static_cast<unsigned char>(typed.front()) < ' ' || typed.front() == '\x7f') return;
        sought_.add(typed);
        const bool begins = sought_.text() == typed;
        find_sought(std::max(file_cursor + (begins ? 1 : 0), 0));
    }

    /// The name that begins so, or, of one letter again and again, the next with that; else what was typed stands in
    /// the field, so that ENTER opens nothing that isn't shown.
    void find_sought(int first) {
        int index = find_beginning(sought_.text(), first);
        if (index == -1) index = find_beginning(sought_.repeated(), file_cursor + 1);
        if (is_entry(index) && !sought_.text().empty()) return pick(index);
        file_cursor = -1;
        set_text(image_file, "");
        show_name(sought_.text());
        show_nothing();
    }

    static bool is_entry(int index) { return index >= 0 && at(index) < file_names.size(); }

    void flip_home() const {
        set_text(home_of(mode_), home_of(mode_)[0] == '\0' ? image_dir.data() : "");
        set_home_button();
    }

    void serve_filters() {
        for (int i = 0; i < filter_count; ++i) {
            if (take_click(BROWSER_FILTER_FIRST + i) <= 0) continue;
            filter_ = filter_ == i ? -1 : i;
            fill_filters();
            go_to(image_dir.data());
        }
    }

    void serve_places() {
        for (std::size_t i = 0; i < places_.size(); ++i)
            if (take_click(BROWSER_PLACE_FIRST + static_cast<int>(i)) > 0) go_to(places_[i].folder);
    }

    /// True when one of the Workspaces that were put away is chosen.
    bool picks_previous() {
        chosen_ = choose_previous_workspace();
        return !chosen_.empty();
    }

    /// A picture's name whose ending no kind of files has gets that of the lit filter, and a Workspace its own.
    std::string named_path() const {
        const std::string name = field_text(BROWSER_FILE), path = absolute_path(name);
        const int filter = purpose_ == PURPOSE_ARCHIVE ? workspace_filter : filter_;
        const bool has_filter = purpose_ == PURPOSE_ARCHIVE || (purpose_ == PURPOSE_PICTURE && filter_ != -1);
        if (mode_ != BROWSE_TO_SAVE || !has_filter) return path;
        const auto endings = endings_of_filter(filter);
        const auto has_it = [&](std::string_view ending) { return has_ending(name, ending); };
        const bool is_named = std::ranges::any_of(endings, has_it) || !foreign_picture_ending(name).empty() ||
                              file_type_from_extension(name, mode_) != FILE_UNKNOWN;
        const bool names_folder = name.find('.') != std::string::npos && is_folder(path);
        return is_named || names_folder ? path : path + "." + std::string(endings.front());
    }

    /// A folder that the keys have come to, and no name typed since.
    bool stands_on_folder() const {
        return is_entry(file_cursor) && file_names[at(file_cursor)].is_folder &&
               field_text(BROWSER_FILE) == name_at_pick_;
    }

    /// True when a file is chosen for good.
    bool commit() {
        if (stands_on_folder()) {
            open_entry(file_cursor);
            return false;
        }
        if (field_text(BROWSER_FILE).empty()) return false;
        const std::string path = named_path();
        if (is_folder(path)) {
            go_to(path);
            return false;
        }
        if (mode_ == BROWSE_TO_SAVE && !(may_save_as(path, purpose_) && may_overwrite(path))) return false;
        set_text(image_file, fs::path(path).filename());
        chosen_ = path;
        return true;
    }

    static bool may_overwrite(const std::string& path) {
        std::error_code away;
        if (!fs::exists(path, away)) return true;
        hide_window();
        const bool may = confirm_about(LABEL_OVERWRITE, shown_file_name(fs::path(path).filename()));
        toggle_window();
        return may;
    }

    BrowserMode mode_;
    FilePurpose purpose_;
    std::vector<Place> places_;
    BrowserExtra extra_;
    bool cuts_out_ = false;
    mutable FileType shown_type_ = FILE_UNKNOWN;  // of which the Frame is shown with its mask colour clear
    int filter_ = -1;                             // the lit filter button, -1 none
    bool pressed_ = false;
    std::string chosen_, name_at_pick_;  // the latter: in the FILE field when an entry was chosen last
    KeyTaps keys_;
    TypeAhead sought_;
};

}  // namespace

void file_browser(BrowserMode mode, FilePurpose purpose) {
    const auto images_dir = image_dir;
    const auto images_file = image_file;
    FileBrowser browser(mode, purpose);
    const std::string path = browser.run();
    if (purpose != PURPOSE_PICTURE) {  // who looks for anything else doesn't leave his pictures
        image_dir = images_dir;
        image_file = images_file;
    }
    if (path.empty()) return;
    if (mode == BROWSE_TO_SAVE)
        save_file(path, purpose);
    else if (browser.cuts_out())
        load_cut_out(path);
    else
        load_file(path, purpose);
}

void load_frame_command() { file_browser(BROWSE_TO_LOAD, PURPOSE_PICTURE); }
void save_frame_command() { file_browser(BROWSE_TO_SAVE, PURPOSE_PICTURE); }

}  // namespace nubo
