#include "workspace/frame_export.h"

#include "codecs/apng.h"
#include "codecs/gif_animation.h"
#include "codecs/png.h"
#include "codecs/read_picture.h"
#include "platform/safe_file.h"
#include "state/frames.h"
#include <algorithm>
#include <array>
#include <filesystem>
#include <memory>
#include <strings.h>

namespace nubo {
namespace {

namespace fs = std::filesystem;

const std::string no_memory = "there isn't memory enough", no_frame = "a Frame can't be read",
                  not_written = "a file can't be written";

// ---- Names ---------------------------------------------------------------------------------------------------------

constexpr const char* ending_of(ExportKind kind) { return kind == EXPORT_GIF ? ".gif" : ".png"; }

bool is_format_ending(const std::string& ending) {
    constexpr std::array known{".gif", ".png", ".apng", ".json", ".bmp", ".pcx", ".jpg", ".jpeg", ".lbm", ".wsp"};
    return std::ranges::any_of(known, [&](const char* one) { return strcasecmp(one, ending.c_str()) == 0; });
}

/// The path without an ending that tells a format.
fs::path stem_of(const std::string& path) {
    fs::path stem(path);
    return is_format_ending(stem.extension()) ? stem.replace_extension() : stem;
}

std::string with_ending(const std::string& path, const char* ending) {
    const std::string own = fs::path(path).extension();
    return strcasecmp(own.c_str(), ending) == 0 ? path : stem_of(path).string() + ending;
}

// ---- Pictures ------------------------------------------------------------------------------------------------------

void scale_up(BITMAP* from, int scale, BITMAP* to) {
    for (int y = 0; y < to->h; ++y) {
        const Color* const pixels = pixels_at(from, 0, y / scale);
        Color* const scaled = pixels_at(to, 0, y);
        for (int x = 0; x < to->w; ++x) scaled[x] = pixels[x / scale];
    }
}

/// The Frames of the range, all of one size: that of the largest, and scaled.
class RangePictures {
public:
    RangePictures(const FrameSource& source, const ExportOptions& options) : source_(source), options_(options) {}

    /// Empty, or why they can't be had.
    std::string measure() {
        for (int slot = options_.first; slot <= options_.last; ++slot) {
            const std::optional<FrameSize> size = source_.size(slot);
            if (!size) return no_frame;
            size_ = {std::max(size_.w, size->w), std::max(size_.h, size->h)};
        }
        const auto side = [&](int pixels) { return static_cast<std::uint64_t>(pixels) * scale(); };
        const char* const fault = size_fault(side(size_.w), side(size_.h));
        return fault == nullptr ? "" : fault;
    }

    int count() const { return options_.last - options_.first + 1; }
    int w() const { return size_.w * options_.scale; }
    int h() const { return size_.h * options_.scale; }
    FrameTime time(int i) const { return source_.time(options_.first + i); }

    /// Picture i of the range. Null, with the fault, if it can't be had.
    OwnedBitmap picture(int i, std::string& fault) const {
        OwnedBitmap frame = source_.frame(options_.first + i);
        fault = frame ? no_memory : no_frame;
        if (frame && (frame->w != size_.w || frame->h != size_.h)) {
            OwnedBitmap canvas = make_bitmap(size_.w, size_.h, source_.mask);
            if (canvas) blit(frame.get(), canvas.get(), 0, 0, 0, 0, frame->w, frame->h);
            frame = std::move(canvas);
        }
        if (!frame || options_.scale == 1) return frame;
        OwnedBitmap scaled = make_uncleared_bitmap(w(), h());
        if (scaled) scale_up(frame.get(), options_.scale, scaled.get());
        return scaled;
    }

private:
    std::uint64_t scale() const { return static_cast<std::uint64_t>(options_.scale); }

    const FrameSource& source_;
    const ExportOptions& options_;
    FrameSize size_{};
};

// ---- Files ---------------------------------------------------------------------------------------------------------

/// Files that come all together or not at all.
class FileSet {
public:
    bool add(const std::string& path, const void* bytes, std::size_t size) {
        files_.push_back(std::make_unique<SafeFile>(path));
        files_.back()->write(bytes, size);
        files_.back()->sync();  // whether the disk has room is known before the first is renamed
        return files_.back()->is_sound();
    }
    bool commit() {
        return std::ranges::all_of(files_, [](const auto& file) { return file->commit(); });
    }

private:
    std::vector<std::unique_ptr<SafeFile>> files_;
};

class FrameExport {
public:
    FrameExport(const RangePictures& pictures, const ExportOptions& options, Color mask, std::vector<std::string> paths)
        : pictures_(pictures), options_(options), mask_(mask), paths_(std::move(paths)) {}

    std::string write() {
        const std::string fault = options_.kind == EXPORT_PNGS    ? write_pictures()
                                  : options_.kind == EXPORT_SHEET ? write_sheet()
                                                                  : write_animation();
        return fault.empty() && !files_.commit() ? not_written : fault;
    }

private:
    std::string add(const std::string& path, const void* bytes, std::size_t size) {
        return files_.add(path, bytes, size) ? "" : not_written;
    }

    std::string add_png(const std::string& path, BITMAP* bitmap) {
        Bytes bytes;
        const bool made = options_.clear ? write_clear_png(bitmap, mask_, bytes, PNG_BEST) : write_png(bitmap, bytes);
        return made ? add(path, bytes.data(), bytes.size()) : no_memory;
    }

    std::string write_pictures() {
        std::string fault;
        for (int i = 0; i < pictures_.count(); ++i) {
            const OwnedBitmap picture = pictures_.picture(i, fault);
            if (picture) fault = add_png(paths_[static_cast<std::size_t>(i)], picture.get());
            if (!fault.empty()) break;
        }
        return fault;
    }

    std::string write_sheet() {
        const auto layout = lay_out_sheet(pictures_.count(), pictures_.w(), pictures_.h(), options_.sheet);
        if (!layout) return "the sheet would be too large";
        std::string fault;
        const OwnedBitmap sheet = bitmap_to_fill(static_cast<std::uint64_t>(layout->width),
                                                 static_cast<std::uint64_t>(layout->height), fault);
        if (!sheet) return fault;
        clear_to_color(sheet.get(), static_cast<int>(mask_));
        std::vector<FrameTime> times;
        for (int i = 0; i < pictures_.count(); ++i) {
            const ImagePlace& cell = layout->cells[static_cast<std::size_t>(i)];
            const OwnedBitmap picture = pictures_.picture(i, fault);
            if (!picture) return fault;
            blit(picture.get(), sheet.get(), 0, 0, cell.x, cell.y, cell.w, cell.h);
            times.push_back(pictures_.time(i));
        }
        fault = add_png(paths_[0], sheet.get());
        if (!fault.empty() || !options_.json) return fault;
        const SheetNames names{fs::path(paths_[0]).stem(), fs::path(paths_[0]).filename()};
        const std::string json = sheet_json(*layout, times, names, options_.loop);
        return add(paths_[1], json.data(), json.size());
    }

    /// Their numbers in the order in which they are shown: PING-PONG has the way back too, its ends once.
    std::vector<int> order() const {
        std::vector<int> numbers;
        for (int i = 0; i < pictures_.count(); ++i) numbers.push_back(i);
        if (options_.loop == LOOP_PING_PONG)
            for (int i = pictures_.count() - 2; i > 0; --i) numbers.push_back(i);
        return numbers;
    }

    std::string write_animation() {
        WrittenAnimation animation{.width = pictures_.w(), .height = pictures_.h()};
        const std::vector<int> numbers = order();
        for (const int number : numbers) animation.times.push_back(pictures_.time(number));
        if (options_.clear) animation.clear = mask_;
        animation.plays = options_.loop == LOOP_ONCE ? 1 : 0;
        std::string fault = no_memory;
        OwnedBitmap shown;
        animation.picture = [&](int i) {
            shown = pictures_.picture(numbers[static_cast<std::size_t>(i)], fault);
            return shown.get();
        };
        Bytes bytes;
        const bool made = options_.kind == EXPORT_GIF ? write_gif_animation(animation, options_.reduction, bytes)
                                                      : write_apng(animation, bytes);
        return made ? add(paths_[0], bytes.data(), bytes.size()) : fault;
    }

    const RangePictures& pictures_;
    const ExportOptions& options_;
    Color mask_;
    std::vector<std::string> paths_;
    FileSet files_;
};

}  // namespace

FrameRange range_of(const Guides& values, int frames) {
    const int last = values.range_end == 0 ? frames - 1 : std::min(values.range_end, frames) - 1;
    return {std::min(values.first_frame, last), last};
}

std::vector<std::string> export_paths(const std::string& path, const ExportOptions& options) {
    if (options.kind != EXPORT_PNGS) {
        std::vector<std::string> paths{with_ending(path, ending_of(options.kind))};
        if (options.kind == EXPORT_SHEET && options.json) paths.push_back(with_ending(path, ".json"));
        return paths;
    }
    std::vector<std::string> paths;
    const fs::path whole = with_ending(path, ending_of(options.kind));
    for (int i = 0; i <= options.last - options.first; ++i) {
        fs::path numbered = whole;
        numbered.replace_filename(numbered_name(whole.stem(), i) + whole.extension().string());
        paths.push_back(numbered);
    }
    return paths;
}

std::string export_frames(const FrameSource& source, const ExportOptions& options, const std::string& path) {
    RangePictures pictures(source, options);
    const std::string fault = pictures.measure();
    return fault.empty() ? FrameExport(pictures, options, source.mask, export_paths(path, options)).write() : fault;
}

}  // namespace nubo
