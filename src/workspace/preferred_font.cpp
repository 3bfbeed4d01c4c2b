#include "workspace/preferred_font.h"

#include "base/log.h"
#include "framework/outline_font.h"
#include "platform/safe_file.h"
#include "workspace/folders.h"
#include "workspace/notices.h"
#include <algorithm>
#include <filesystem>

namespace nubo {
namespace {

namespace fs = std::filesystem;

Folder delivered_fonts() { return program_folder().inside("fonts"); }

bool is_folder(const std::string& path) {
    std::error_code away;
    return fs::is_directory(path, away);
}

/// A text that doesn't fit is left out: half a name would be another file's.
template <std::size_t N> void set_text(std::array<char, N>& to, const std::string& text) {
    to.fill('\0');
    if (text.size() < N) std::copy(text.begin(), text.end(), to.begin());
}

/// The font that comes with the program; `font_dir` stays.
bool take_system_font() {
    const bool loaded = load_preferred_font(delivered_fonts().file(system_font)) == 1;
    set_text(font_name, system_font);
    if (!loaded) UA_log("[ ERROR ] : Preferred font AND system font are missing. Reinstall program!");
    return loaded;
}

}  // namespace

Folder font_folder() { return font_dir[0] == '\0' ? delivered_fonts() : Folder(font_dir.data()); }

int load_preferred_font(const std::string& path) {
    if (!file_exists(path)) return -1;
    OutlineFont* const font = font_load(path);
    if (font == nullptr) {
        UA_log("[ ERROR ] : Missing or corrupt font file! Name = %s", path.c_str());
        queue_box(LABEL_FAILURE, LABEL_MEDITATION);
        return -1;
    }
    font_destroy(preferred_font);
    preferred_font = font;
    font_set_language(font, "chinese-traditional");
    font_set_convert(font, CONVERT_WIDE);
    font_set_spacing(font, 0);
    font_text_mode(-1);
    font_set_height(font, text_tool_size);
    return 1;
}

bool select_preferred_font() {
    if (font_dir[0] != '\0' && !is_folder(font_dir.data())) {
        UA_log("[ WARNING ] : Preferred font path doesn't exist. Defaulting as Bravely as I can!");
        font_dir = program_dir;
        return take_system_font();
    }
    const bool is_named = font_name[0] != '\0';
    if (is_named && load_preferred_font(font_folder().file(font_name.data())) == 1) return true;
    return take_system_font();
}

void choose_preferred_font(const std::string& path) {
    if (!file_exists(path)) return flash_text("THERE IS NO SUCH FILE");
    if (load_preferred_font(path) != 1) return;
    const fs::path file(path);
    const std::string folder = file.parent_path();
    set_text(font_dir, folder == delivered_fonts().path() ? "" : folder);  // which may move, or come by an archive
    set_text(font_name, file.filename());
}

}  // namespace nubo
