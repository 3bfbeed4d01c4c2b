#include "workspace/browse_places.h"

#include "platform/input_file.h"
#include "platform/safe_file.h"
#include "state/browse.h"
#include "workspace/byte_fields.h"
#include "workspace/folders.h"
#include <algorithm>

namespace nubo {
namespace {

std::string places_path() { return resource_folder().file("folders.def"); }

template <class Fields> void walk_places(Fields& fields) {
    for (BrowsePlace& place : browse_places) {
        fields.text(place.folder, "a folder");
        fields.text(place.file, "a file's name");
    }
}

}  // namespace

void load_browse_places() {
    constexpr std::size_t texts = 2 * BROWSE_KINDS, longest = 256;  // with its length
    browse_places = {};
    std::vector<std::uint8_t> bytes;
    if (!file_exists(places_path()) || !read_file(places_path(), texts * longest, bytes)) return;
    FieldReader fields(bytes, "folders.def");
    walk_places(fields);
    fields.finish();
}

bool save_browse_places() {
    const auto is_set = [](const BrowsePlace& place) { return place.folder[0] != '\0'; };
    if (std::ranges::none_of(browse_places, is_set)) return true;
    FieldWriter fields;
    walk_places(fields);
    return write_file(places_path(), fields.bytes.data(), fields.bytes.size());
}

}  // namespace nubo
