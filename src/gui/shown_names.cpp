#include "gui/shown_names.h"

#include "base/utf8.h"
#include <cctype>
#include <string_view>

namespace nubo {

std::string shown_file_name(const std::string& name) {
    std::string shown;
    for (std::string_view rest = name; !rest.empty(); rest.remove_prefix(first_character(rest).size)) {
        const char32_t code = first_character(rest).code;
        shown += code >= U' ' && code < U'\x7f' ? static_cast<char>(std::toupper(static_cast<int>(code))) : '?';
    }
    return shown;
}

std::string short_file_name(const std::string& path) {
    constexpr std::size_t longest = 20;
    const std::string name = shown_file_name(path.substr(path.rfind('/') + 1));
    return name.size() <= longest ? name : name.substr(0, longest - 2) + "..";
}

}  // namespace nubo
