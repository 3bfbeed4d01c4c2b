// The file browser: a folder of 10,000 files, beside a look at each of them, and the preview of a PNG of 1,024 x 1,024,
// beside its decoding alone.
#include "base/bitmap.h"
#include "platform/folder_listing.h"
#include "state/options.h"
#include "state/run.h"
#include "windows/files/file_list.h"
#include "windows/files/file_preview.h"
#include "windows/files/picture_formats.h"

#include <benchmark/benchmark.h>
#include <cstdlib>
#include <dirent.h>
#include <filesystem>
#include <fstream>
#include <sys/stat.h>

namespace nubo {
namespace {

/// A folder that goes in the end.
class BenchFolder {
public:
    BenchFolder() : path_(std::filesystem::temp_directory_path() / "nubo-bench-XXXXXX") {
        if (mkdtemp(path_.data()) == nullptr) std::abort();
    }
    ~BenchFolder() { std::filesystem::remove_all(path_); }
    BenchFolder(const BenchFolder&) = delete;
    BenchFolder& operator=(const BenchFolder&) = delete;

    const std::string& path() const { return path_; }
    void fill(int files) const {
        for (int i = 0; i < files; ++i) std::ofstream(path_ + "/picture_" + std::to_string(i * 7919 % files) + ".png");
    }

private:
    std::string path_;
};

constexpr int file_count = 10'000;

void browser_list(benchmark::State& state) {
    const BenchFolder folder;
    folder.fill(file_count);
    for (auto _ : state) {
        FolderListing listing;
        benchmark::DoNotOptimize(listing.read(folder.path(), {}));
        listing.settle(0, file_rows);
    }
}

void browser_list_limit_stat(benchmark::State& state) {
    const BenchFolder folder;
    folder.fill(file_count);
    for (auto _ : state) {
        DIR* const opened = opendir(folder.path().c_str());
        struct stat status {};
        while (const dirent* const entry = readdir(opened))
            benchmark::DoNotOptimize(fstatat(dirfd(opened), entry->d_name, &status, 0));
        closedir(opened);
    }
}

BENCHMARK(browser_list)->Unit(benchmark::kMillisecond);
BENCHMARK(browser_list_limit_stat)->Unit(benchmark::kMillisecond);

/// A PNG of shades in a folder of its own.
std::string put_png(const BenchFolder& folder) {
    constexpr int side = 1024;
    const OwnedBitmap picture = make_bitmap(side, side);
    for (int i = 0; i < side * side; ++i)
        *pixels_at(picture.get(), i % side, i / side) = static_cast<Color>(i % side / 4 * 0x10100 + i / side / 4);
    std::string path = folder.path() + "/a.png";
    write_picture_file(path, picture.get());
    return path;
}

void browser_preview(benchmark::State& state) {
    const BenchFolder folder;
    const std::string path = put_png(folder);
    opt_file_preview = PREVIEW_ALL;
    replace_bitmap(preview_bitmap, make_bitmap(preview_w, preview_h));
    for (auto _ : state) preview_picture(path, FILE_PNG, false);
}

void browser_preview_limit_decoding(benchmark::State& state) {
    const BenchFolder folder;
    const std::string path = put_png(folder);
    for (auto _ : state) {
        FileType type = FILE_UNKNOWN;
        benchmark::DoNotOptimize(read_picture_file(path, type).bitmap.get());
    }
}

BENCHMARK(browser_preview)->Unit(benchmark::kMillisecond);
BENCHMARK(browser_preview_limit_decoding)->Unit(benchmark::kMillisecond);

}  // namespace
}  // namespace nubo
