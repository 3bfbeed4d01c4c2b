#include "journeys/program.h"

#include <algorithm>
#include <cstdlib>
#include <cstring>
#include <filesystem>
#include <fstream>
#include <gtest/gtest.h>
#include <iostream>
#include <iterator>
#include <sstream>

namespace nubo {

namespace {

namespace fs = std::filesystem;

constexpr const char* window_title = "Nubo v1.3";
constexpr const char* ready_line = "[ INIT ] : All preparations complete. Entering program loop";

/// How long a window manager goes on moving a window about that it has just mapped.
constexpr Milliseconds window_settling(350);

constexpr Milliseconds answer_limit(1'000);

std::string text_of(const std::string& path) {
    std::ifstream file(path, std::ios::binary);
    return {std::istreambuf_iterator<char>(file), {}};
}

/// Everything staged but what a developer's own runs left there, and without the first Workspace: a journey begins on a
/// blank Frame.
void copy_program_folder(const fs::path& to) {
    const fs::path from = NUBO_FOLDER;
    for (const auto& entry : fs::recursive_directory_iterator(from)) {
        const std::string name = entry.path().filename();
        if (name.starts_with("current.") || name.starts_with("alternate.") || name.starts_with("backup.") ||
            name == "UA_log.txt")
            continue;
        const fs::path target = to / entry.path().lexically_relative(from);
        if (entry.is_directory())
            fs::create_directories(target);
        else
            fs::copy_file(entry.path(), target, fs::copy_options::overwrite_existing);
    }
}

// ---- BMP -----------------------------------------------------------------------------------------------------------

constexpr std::size_t bmp_pixels_at = 10, bmp_width_at = 18, bmp_height_at = 22, bmp_depth_at = 28, bmp_packing_at = 30;
constexpr std::size_t bmp_header_size = 54;

std::uint32_t little_endian(const std::string& bytes, std::size_t at, int count) {
    std::uint32_t value = 0;
    for (int i = count - 1; i >= 0; --i)
        value = value << 8 | static_cast<unsigned char>(bytes[at + static_cast<std::size_t>(i)]);
    return value;
}

void put_little_endian(std::string& bytes, std::size_t at, std::uint32_t value) {
    for (std::size_t i = 0; i < 4; ++i) bytes[at + i] = static_cast<char>(value >> 8 * i);
}

std::size_t bmp_row_size(std::size_t width, std::size_t depth) { return (width * depth / 8 + 3) / 4 * 4; }

}  // namespace

Photo read_bmp(const std::string& path) {
    const std::string bytes = text_of(path);
    if (bytes.size() < bmp_header_size || !bytes.starts_with("BM")) return {};
    const std::size_t start = little_endian(bytes, bmp_pixels_at, 4), depth = little_endian(bytes, bmp_depth_at, 2);
    const std::size_t width = little_endian(bytes, bmp_width_at, 4), height = little_endian(bytes, bmp_height_at, 4);
    const std::size_t row = bmp_row_size(width, depth);
    const bool plain = (depth == 24 || depth == 32) && little_endian(bytes, bmp_packing_at, 4) == 0;
    if (!plain || height > bytes.size() || bytes.size() < start + row * height) return {};
    Photo photo{static_cast<int>(width), static_cast<int>(height), {}};
    for (std::size_t y = 0; y < height; ++y)
        for (std::size_t x = 0; x < width; ++x)
            photo.pixels.push_back(little_endian(bytes, start + (height - 1 - y) * row + x * depth / 8, 3));
    return photo;
}

void write_bmp(const std::string& path, int width, int height, std::uint32_t color) {
    const std::size_t row = bmp_row_size(static_cast<std::size_t>(width), 24);
    std::string bytes(bmp_header_size + row * static_cast<std::size_t>(height), '\0');
    bytes.replace(0, 2, "BM");
    put_little_endian(bytes, 2, static_cast<std::uint32_t>(bytes.size()));
    put_little_endian(bytes, bmp_pixels_at, bmp_header_size);
    put_little_endian(bytes, 14, 40);  // the size of the second header, which is what tells its kind
    put_little_endian(bytes, bmp_width_at, static_cast<std::uint32_t>(width));
    put_little_endian(bytes, bmp_height_at, static_cast<std::uint32_t>(height));
    put_little_endian(bytes, 26, 1 | 24U << 16);  // planes, depth
    for (std::size_t i = 0; i < bytes.size() - bmp_header_size; ++i)
        if (i % row / 3 < static_cast<std::size_t>(width))
            bytes[bmp_header_size + i] = static_cast<char>(color >> 8 * (i % row % 3));
    std::ofstream(path, std::ios::binary) << bytes;
}

// ---- The journey ---------------------------------------------------------------------------------------------------

Journey::Journey(char mode, int screen_width, int screen_height) {
    std::string form = fs::temp_directory_path() / "nubo-journey-XXXXXX";
    if (mkdtemp(form.data()) == nullptr) std::abort();
    scratch_ = form;
    folder_ = scratch_ + "/nubo";
    fs::create_directories(folder_);
    copy_program_folder(folder_);
    std::ofstream(path("config.def")) << mode;
    desktop_ = std::make_unique<Desktop>(scratch_, screen_width, screen_height);
}

Journey::~Journey() {
    if (testing::Test::HasFailure()) {
        const std::string picture = fs::temp_directory_path() / (fs::path(scratch_).filename().string() + ".ppm");
        desktop_->save_photo(picture);
        std::cout << "The screen: " << picture << "\nThe log:\n"
                  << log() << "\nThe program's output:\n"
                  << said() << '\n';
    }
    program_.reset();
    desktop_.reset();
    std::error_code ignored;
    fs::remove_all(scratch_, ignored);
}

void Journey::launch() {
    // An empty PATH: a message box of Allegro's is an outside program where there is one, and waits for a click.
    const Launch launch{{path("nubo")},
                        folder_,
                        scratch_ + "/program.txt",
                        {{"DISPLAY", desktop_->name()}, {"HOME", scratch_}, {"PATH", scratch_}}};
    program_ = std::make_unique<Process>(launch);
}

bool Journey::start() {
    launch();
    std::optional<Pane> found;
    const bool came = wait_until([&] {
        found = desktop_->find_window(window_title);
        return found.has_value() || !program_->is_running();
    });
    const auto mapped = std::chrono::steady_clock::now();
    const bool ready = came && found && wait_until([&] {
                           return log().find(ready_line) != std::string::npos || !program_->is_running();
                       });
    if (!ready || !program_->is_running()) {
        ADD_FAILURE() << "The program doesn't come up";
        return false;
    }
    std::this_thread::sleep_until(mapped + window_settling);
    window_ = desktop_->find_window(window_title).value_or(*found);
    return true;
}

std::optional<int> Journey::close() {
    desktop_->close_window(window_);
    return program_->wait_for_exit();
}

std::string Journey::log() const { return text_of(path("UA_log.txt")); }

std::vector<std::string> Journey::log_lines() const {
    std::istringstream text(log());
    std::vector<std::string> lines;
    for (std::string line; std::getline(text, line);) lines.push_back(line);
    return lines;
}

std::string Journey::said() const { return text_of(scratch_ + "/program.txt"); }

Spot Journey::spot(int x, int y) const {
    return {window_.x + x * scale() + scale() / 2, window_.y + y * scale() + scale() / 2};
}

bool Journey::comes_to_show(int x, int y, std::uint32_t color) {
    return wait_until([&] { return pixel(x, y) == color; });
}

/// What the screen shows near a logical pixel: where the cursor is drawn.
Photo Journey::around(Spot logical) {
    constexpr int reach = 4;  // logical pixels
    const int x = std::clamp(logical.x, reach, logical_width - 1 - reach);
    const int y = std::clamp(logical.y, reach, logical_height - 1 - reach);
    const int side = (2 * reach + 1) * scale();
    return desktop_->photo({0, window_.x + (x - reach) * scale(), window_.y + (y - reach) * scale(), side, side});
}

void Journey::move_to(int x, int y) {
    const Photo before = around({x, y});
    const bool moves = x != mouse_.x || y != mouse_.y;
    mouse_ = {x, y};
    desktop_->move_to(spot(x, y));
    if (moves) wait_until([&] { return around(mouse_).pixels != before.pixels; }, answer_limit);
}

bool Journey::draw_line(Spot from, Spot to, std::uint32_t color) {
    const int steps = std::max(std::abs(to.x - from.x), std::abs(to.y - from.y));
    const auto on_the_way = [&](int step) {
        return Spot{from.x + (to.x - from.x) * step / steps, from.y + (to.y - from.y) * step / steps};
    };
    const auto go = [&](int step) {
        mouse_ = on_the_way(step);
        desktop_->move_to(spot(mouse_.x, mouse_.y));
    };
    const auto shows = [&](int step) { return pixel(on_the_way(step).x, on_the_way(step).y) == color; };

    move_to(from.x, from.y);
    desktop_->press(MOUSE_LEFT);
    const bool begun = wait_until([&] {  // to and fro, until the program has seen the press
        go(2 * certain_from);
        go(0);
        return shows(certain_from);
    });
    for (int step = 1; step <= steps; ++step) go(step);
    const bool drawn = wait_until([&] { return shows(steps / 2); });
    desktop_->release(MOUSE_LEFT);
    return begun && drawn;
}

}  // namespace nubo
