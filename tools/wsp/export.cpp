// nubo-wsp export: a range of Frames as an animation, a sheet or pictures, of an archive or a WORKSPACE folder.
#include "companion.h"

#include "codecs/bmp_file.h"
#include "state/guides.h"
#include "state/tools.h"
#include "workspace/defaults.h"
#include "workspace/frame_export.h"
#include "workspace/rename_job.h"
#include "workspace/state_fields.h"
#include <algorithm>
#include <charconv>
#include <cstdio>
#include <filesystem>
#include <optional>

namespace nubo {
namespace {

// ---- The words -----------------------------------------------------------------------------------------------------

struct ExportWords {
    ExportOptions options;
    std::optional<ExportKind> kind;
    std::optional<AnimationLoop> loop;
    std::optional<int> from, to;
    bool is_of_sheet = false;  // an option was named that only a sheet has
    std::string out, source;
};

void take_kind(ExportWords& words, ExportKind kind) { words.kind = kind; }
void take_order(ExportWords& words, SheetOrder order) {
    words.options.sheet.order = order;
    words.is_of_sheet = true;
}

/// An option and what it takes: nothing, a number of that range, or the path of the file to be written.
struct OptionRow {
    std::string_view name;
    enum Takes : int { NOTHING, NUMBER, OUT } takes;
    int low, high;
    void (*apply)(ExportWords& words, int number);
};
constexpr int widest = 9999;  // pixels
constexpr OptionRow option_rows[] = {
    {"--gif", OptionRow::OUT, 0, 0, [](ExportWords& words, int) { take_kind(words, EXPORT_GIF); }},
    {"--apng", OptionRow::OUT, 0, 0, [](ExportWords& words, int) { take_kind(words, EXPORT_APNG); }},
    {"--sheet", OptionRow::OUT, 0, 0, [](ExportWords& words, int) { take_kind(words, EXPORT_SHEET); }},
    {"--png", OptionRow::OUT, 0, 0, [](ExportWords& words, int) { take_kind(words, EXPORT_PNGS); }},
    {"--from", OptionRow::NUMBER, 0, frame_slots - 1, [](ExportWords& words, int n) { words.from = n; }},
    {"--to", OptionRow::NUMBER, 0, frame_slots - 1, [](ExportWords& words, int n) { words.to = n; }},
    {"--scale", OptionRow::NUMBER, 1, export_scale_max, [](ExportWords& words, int n) { words.options.scale = n; }},
    {"--clear", OptionRow::NOTHING, 0, 0, [](ExportWords& words, int) { words.options.clear = true; }},
    {"--loop", OptionRow::NOTHING, 0, 0, [](ExportWords& words, int) { words.loop = LOOP_FOR_EVER; }},
    {"--once", OptionRow::NOTHING, 0, 0, [](ExportWords& words, int) { words.loop = LOOP_ONCE; }},
    {"--ping-pong", OptionRow::NOTHING, 0, 0, [](ExportWords& words, int) { words.loop = LOOP_PING_PONG; }},
    {"--rows", OptionRow::NOTHING, 0, 0, [](ExportWords& words, int) { take_order(words, SHEET_ROWS); }},
    {"--columns", OptionRow::NOTHING, 0, 0, [](ExportWords& words, int) { take_order(words, SHEET_COLUMNS); }},
    {"--square", OptionRow::NOTHING, 0, 0, [](ExportWords& words, int) { take_order(words, SHEET_SQUARE); }},
    {"--border", OptionRow::NUMBER, 0, widest,
     [](ExportWords& words, int n) {
         words.options.sheet.border = n;
         words.is_of_sheet = true;
     }},
    {"--gap", OptionRow::NUMBER, 0, widest,
     [](ExportWords& words, int n) {
         words.options.sheet.gap = n;
         words.is_of_sheet = true;
     }},
    {"--json", OptionRow::NOTHING, 0, 0,
     [](ExportWords& words, int) { words.options.json = words.is_of_sheet = true; }},
};

std::optional<int> number_of(std::string_view text, int low, int high) {
    int number = 0;
    const auto [end, error] = std::from_chars(text.data(), text.data() + text.size(), number);
    const bool is_number = error == std::errc() && end == text.data() + text.size();
    return is_number && number >= low && number <= high ? std::optional(number) : std::nullopt;
}

/// Nothing if the words make no sense.
std::optional<ExportWords> parse(Words words) {
    ExportWords told;
    for (std::size_t i = 0; i < words.size(); ++i) {
        const std::string_view word = words[i];
        const auto* const row = std::ranges::find(option_rows, word, &OptionRow::name);
        if (row == std::end(option_rows)) {
            if (word.starts_with("--") || !told.source.empty()) return std::nullopt;
            told.source = word;
            continue;
        }
        int number = 0;
        if (row->takes != OptionRow::NOTHING && ++i == words.size()) return std::nullopt;
        if (row->takes == OptionRow::NUMBER) {
            const std::optional<int> read = number_of(words[i], row->low, row->high);
            if (!read) return std::nullopt;
            number = *read;
        }
        if (row->takes == OptionRow::OUT) {
            if (told.kind) return std::nullopt;  // one kind at a time
            told.out = words[i];
        }
        row->apply(told, number);
    }
    const bool makes_sense =
        told.kind && !told.out.empty() && !told.source.empty() && (!told.is_of_sheet || told.kind == EXPORT_SHEET);
    return makes_sense ? std::optional(told) : std::nullopt;
}

// ---- The Frames ----------------------------------------------------------------------------------------------------

/// A Workspace on disk, whose state becomes that of the tables.
class OpenedWorkspace {
public:
    explicit OpenedWorkspace(const std::string& path) : path_(path), folder_(path) {}

    /// False after a message.
    bool open() {
        set_workspace_defaults();
        if (std::filesystem::is_directory(path_)) {
            if (job_is_open(folder_)) return fail("in " + path_ + " a change isn't done: start Nubo once"), false;
            frames_ = count_frames(folder_);
        } else {
            archive_ = std::make_unique<InputFile>(path_);
            if (!open_archive(*archive_, path_, contents_)) return false;
            frames_ = contents_.head.frame_count;
        }
        if (frames_ == 0) return false;
        const std::unique_ptr<InputFile> state = part(component_count(frames_) - 1);
        std::vector<std::uint8_t> bytes(std::min(state->size(), state_file_limit));
        if (!state->is_open() || !state->read_at(0, bytes.data(), bytes.size()))
            return fail("current.spa can't be read"), false;
        unpack_state(bytes, "current.spa");
        return true;
    }

    int frames() const { return frames_; }

    FrameSource source() const {
        return {
            .size = [this](int slot) { return size(slot); },
            .frame = [this](int slot) { return read_bmp(*part(slot)).bitmap; },
            .time =
                [](int slot) { return frame_time(guides.frame_times[static_cast<std::size_t>(slot)], guides.speed); },
            .mask = mask_color};
    }

private:
    /// A component, by its place in an archive.
    std::unique_ptr<InputFile> part(int index) const {
        if (!archive_) return std::make_unique<InputFile>(folder_.file(component_name(STEM_CURRENT, index, frames_)));
        const ArchivePart& in = contents_.parts[static_cast<std::size_t>(index)];
        return std::make_unique<InputFile>(*archive_, in.at, in.size);
    }

    std::optional<FrameSize> size(int slot) const {
        BmpHeader header;
        const std::unique_ptr<InputFile> file = part(slot);
        const char* const fault = read_picture_head(*file, {0, file->size()}, header);
        if (fault == nullptr) return FrameSize{header.width, header.height};
        fail(component_name(STEM_CURRENT, slot, frames_) + ": " + fault);
        return std::nullopt;
    }

    std::string path_;
    Folder folder_;
    std::unique_ptr<InputFile> archive_;
    ArchiveContents contents_;
    int frames_ = 0;
};

}  // namespace

int export_command(Words words) {
    std::optional<ExportWords> told = parse(words);
    if (!told) return EXIT_USAGE;
    OpenedWorkspace workspace(told->source);
    if (!workspace.open()) return EXIT_FAILED;
    const FrameRange range = range_of(guides, workspace.frames());
    ExportOptions& options = told->options;
    options.kind = *told->kind;
    options.loop = told->loop.value_or(static_cast<AnimationLoop>(guides.loop));
    options.first = told->from.value_or(told->to ? std::min(range.first, *told->to) : range.first);
    options.last = told->to.value_or(told->from ? std::max(range.last, *told->from) : range.last);
    if (options.last >= workspace.frames() || options.first > options.last)
        return fail("there are no frames " + std::to_string(options.first) + " to " + std::to_string(options.last));
    const std::string fault = export_frames(workspace.source(), options, told->out);
    if (!fault.empty()) return fail(told->out + " isn't made: " + fault);
    for (const std::string& path : export_paths(told->out, options)) std::printf("%s\n", path.c_str());
    return EXIT_DONE;
}

}  // namespace nubo
