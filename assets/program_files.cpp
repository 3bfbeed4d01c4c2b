#include "program_files.h"

#include "codecs/gif.h"
#include "codecs/png.h"
#include "framework/scrambler.h"
#include <cstdio>
#include <fstream>
#include <iterator>

namespace nubo {

namespace {

namespace fs = std::filesystem;

std::string file_bytes(const fs::path& path) {
    std::ifstream file(path, std::ios::binary);
    return {std::istreambuf_iterator<char>(file), {}};
}

fs::path name_while_made(const fs::path& place) { return place.string() + ".new"; }

bool fail(const fs::path& path, const char* cause) {
    std::fprintf(stderr, "%s: %s\n", path.c_str(), cause);
    return false;
}

/// Moves a new file to its place, unless the same stands there already.
bool put_in_place(const fs::path& made, const fs::path& place) {
    std::error_code error;
    if (fs::exists(place, error) && file_bytes(made) == file_bytes(place))
        fs::remove(made, error);
    else
        fs::rename(made, place, error);
    return !error || fail(place, error.message().c_str());
}

}  // namespace

bool write_bytes(const fs::path& place, const std::string& bytes) {
    const fs::path made = name_while_made(place);
    std::ofstream file(made, std::ios::binary);
    file.write(bytes.data(), static_cast<std::streamsize>(bytes.size()));
    file.close();
    if (!file) return fail(made, "can't be written");
    return put_in_place(made, place);
}

bool write_png(const fs::path& place, BITMAP* picture) {
    const fs::path made = name_while_made(place);
    if (save_png(made.c_str(), picture, nullptr) != 0) return fail(made, png_error);
    return put_in_place(made, place);
}

bool write_covered(const fs::path& place, const std::string& bytes) {
    // Any seed will do. A fixed one makes the same file of the same art every time.
    constexpr int seed = 3;
    const auto scrambled = scramble_bytes({reinterpret_cast<const std::uint8_t*>(bytes.data()), bytes.size()}, seed);
    return write_bytes(place, std::string(scrambled.begin(), scrambled.end()));
}

bool write_resource(const fs::path& place, BITMAP* sheet, const ArtPalette& palette) {
    const fs::path plain = place.string() + ".plain";
    const AllegroPalette colors = to_allegro_palette(palette);
    if (save_gif(plain.c_str(), sheet, colors.data()) != 0) return fail(plain, "can't be written");
    const std::string gif = file_bytes(plain);
    std::error_code error;
    fs::remove(plain, error);
    return write_covered(place, gif);
}

}  // namespace nubo
