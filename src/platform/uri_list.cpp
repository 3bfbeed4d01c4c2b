#include "platform/uri_list.h"

#include <array>
#include <charconv>
#include <unistd.h>

namespace nubo {
namespace {

/// Cuts the first line off `text`; its end may be that of any system.
std::string_view take_line(std::string_view& text) {
    const std::size_t end = text.find_first_of("\r\n");
    const std::string_view line = text.substr(0, end);
    text = end == std::string_view::npos ? std::string_view{} : text.substr(end + 1);
    return line;
}

bool is_this_machine(std::string_view host) {
    std::array<char, 256> name{};
    if (host.empty() || host == "localhost") return true;
    return gethostname(name.data(), name.size() - 1) == 0 && host == name.data();
}

/// Bytes written as "%20" become themselves; none if one of them makes no sense or would end the path.
std::optional<std::string> unescape(std::string_view text) {
    constexpr int hexadecimal = 16;
    std::string path;
    for (std::size_t i = 0; i < text.size(); ++i) {
        unsigned char byte = static_cast<unsigned char>(text[i]);
        if (byte == '%') {
            if (text.size() - i < 3) return std::nullopt;
            const char *const digits = text.data() + i + 1, *const end = digits + 2;
            if (std::from_chars(digits, end, byte, hexadecimal).ptr != end) return std::nullopt;
            i += 2;
        }
        if (byte == 0) return std::nullopt;
        path += static_cast<char>(byte);
    }
    return path;
}

std::optional<std::string> local_path(std::string_view uri) {
    constexpr std::string_view scheme = "file://";
    if (!uri.starts_with(scheme)) return std::nullopt;
    uri.remove_prefix(scheme.size());
    const std::size_t path_at = uri.find('/');
    if (path_at == std::string_view::npos || !is_this_machine(uri.substr(0, path_at))) return std::nullopt;
    return unescape(uri.substr(path_at));
}

}  // namespace

std::optional<std::string> only_local_file(std::string_view list) {
    std::string_view only;
    while (!list.empty()) {
        const std::string_view line = take_line(list);
        if (line.empty() || line.front() == '#' || line.front() == '\0') continue;
        if (!only.empty()) return std::nullopt;
        only = line;
    }
    return local_path(only);
}

}  // namespace nubo
