#include "checks/tree.h"

#include <algorithm>
#include <cctype>
#include <sstream>

namespace nubo {

namespace {

constexpr std::size_t longest_file = 450, longest_function = 45;  // lines

/// The storey of a path below src/, 0 for the ground; -1 when it is in none.
int storey_of(std::string_view path) {
    for (std::size_t slash = path.rfind('/'); slash != std::string_view::npos; slash = path.rfind('/')) {
        path = path.substr(0, slash);
        const auto found = std::find(storeys.begin(), storeys.end(), path);
        if (found != storeys.end()) return static_cast<int>(found - storeys.begin());
    }
    return -1;
}

bool has_word(std::string_view line, std::string_view word) {
    const auto in_name = [](char c) { return std::isalnum(static_cast<unsigned char>(c)) != 0 || c == '_'; };
    for (std::size_t at = line.find(word); at != std::string_view::npos; at = line.find(word, at + 1)) {
        const bool starts = at == 0 || !in_name(line[at - 1]);
        const std::size_t end = at + word.size();
        if (starts && (end == line.size() || !in_name(line[end]))) return true;
    }
    return false;
}

/// The path between the quotes of an include of ours, empty in any other line.
std::string_view own_include(std::string_view line) {
    const std::size_t first = line.find_first_not_of(" \t");
    if (first == std::string_view::npos || line[first] != '#' || !has_word(line, "include")) return {};
    const std::size_t open = line.find('"');
    if (open == std::string_view::npos) return {};
    return line.substr(open + 1, line.find('"', open + 1) - open - 1);
}

/// Whether a line defines a bitmap's owner that lives to the end: at a line's start, where namespaces have theirs, or
/// `static`. A function's name is followed by a bracket.
bool has_static_owner(std::string_view line) {
    if (line.empty() || (line[0] == ' ' && !has_word(line, "static"))) return false;
    const std::size_t end = line.find_first_of(";={");
    return end != std::string_view::npos && has_word(line.substr(0, end), "OwnedBitmap") &&
           line.substr(0, end).find('(') == std::string_view::npos && !has_word(line, "using");
}

std::string fault_of_line(std::string_view path, std::string_view line) {
    const std::string_view included = own_include(line);
    if (!included.empty() && path.starts_with("src/")) {
        const int own = storey_of(path.substr(4)), other = storey_of(included);
        if (other < 0) return "includes " + std::string(included) + ", which stands in no storey";
        if (other > own) return "includes " + std::string(included) + ", which stands above it";
    }
    if (path.ends_with(".cpp") && has_word(line, "extern")) return "extern in a .cpp";
    if (has_word(line, "volatile") && !has_word(line, "sig_atomic_t")) return "volatile";
    if (has_static_owner(line)) return "a static owner of a bitmap";
    return {};
}

/// Finds functions by how they are laid out: each ends with a bracket alone in a line, under the first letter of the
/// line that it begins with, at the left or, in a class, one step from there.
class FunctionLengths {
public:
    /// The number of lines of the function that ends here, or 0; `begin` becomes the number of its first line.
    std::size_t length_at(std::size_t number, std::string_view line, std::size_t& begin) {
        constexpr std::size_t step = 4;
        const std::size_t indent = line.find_first_not_of(' ');
        if (indent != 0 && indent != step) return 0;
        std::size_t& begun = begun_[indent / step];
        if (line.substr(indent) == "}") return begin = begun, number - begun + 1;
        if (line[indent] != '}' && line[indent] != '#') begun = number;
        return 0;
    }

private:
    std::array<std::size_t, 2> begun_{};
};

std::string without_ending(std::string_view path) { return std::string(path.substr(0, path.rfind('.'))); }

/// Follows the includes from `file` on; `way` has led there. True with the circle in `way` when it comes back to it.
bool leads_back(const IncludeGraph& graph, const std::string& file, std::vector<std::string>& way,
                std::set<std::string>& done) {
    const auto first = std::find(way.begin(), way.end(), file);
    if (first != way.end()) {
        way.erase(way.begin(), first);
        way.push_back(file);
        return true;
    }
    const auto node = graph.find(file);
    if (node == graph.end() || !done.insert(file).second) return false;
    way.push_back(file);
    for (const std::string& next : node->second)
        if (leads_back(graph, next, way, done)) return true;
    way.pop_back();
    return false;
}

}  // namespace

std::string code_only(std::string_view text) {
    std::string code;
    const auto skip_to = [&](std::size_t from, std::string_view mark) {
        const std::size_t end = std::min(text.find(mark, from), text.size());
        code.append(static_cast<std::size_t>(std::count(text.begin() + from, text.begin() + end, '\n')), '\n');
        return end;
    };
    for (std::size_t at = 0; at < text.size();) {
        const bool digit_mark = text[at] == '\'' && at > 0 && std::isxdigit(static_cast<unsigned char>(text[at - 1]));
        if (text.substr(at, 2) == "//") {
            at = skip_to(at, "\n");
        } else if (text.substr(at, 2) == "/*") {
            at = std::min(skip_to(at + 2, "*/") + 2, text.size());
        } else if (text.substr(at, 3) == "R\"(") {
            at = std::min(skip_to(at + 3, ")\"") + 2, text.size());
        } else if (text[at] == '"' || (text[at] == '\'' && !digit_mark)) {
            const std::size_t line_start = code.rfind('\n') + 1;
            const bool include = code.find('#', line_start) != std::string::npos;
            std::size_t end = at + 1;
            while (end < text.size() && text[end] != text[at] && text[end] != '\n') end += text[end] == '\\' ? 2 : 1;
            code += text[at];
            if (include) code += text.substr(at + 1, end - at - 1);
            if (end < text.size()) code += text[end];
            at = end + 1;
        } else {
            code += text[at++];
        }
    }
    return code;
}

std::vector<std::string> faults_of(std::string_view path, std::string_view text) {
    std::vector<std::string> faults;
    const std::string where(path);
    if (path.starts_with("src/") && storey_of(path.substr(4)) < 0) faults.push_back(where + " stands in no storey");
    std::istringstream lines(code_only(text));
    std::size_t number = 0, begin = 0;
    FunctionLengths functions;
    const auto add = [&](std::size_t at, const std::string& fault) {
        faults.push_back(where + ":" + std::to_string(at) + " " + fault);
    };
    for (std::string line; std::getline(lines, line);) {
        const std::string fault = fault_of_line(path, line);
        if (!fault.empty()) add(number + 1, fault);
        const std::size_t length = functions.length_at(++number, line, begin);
        if (length > longest_function && !path.starts_with("tests/"))
            add(begin, "has a function of " + std::to_string(length) + " lines");
    }
    if (number > longest_file) faults.push_back(where + " has " + std::to_string(number) + " lines");
    return faults;
}

void add_includes(IncludeGraph& graph, std::string_view path, std::string_view text) {
    const std::string file = without_ending(path.substr(std::string_view("src/").size()));
    std::istringstream lines(code_only(text));
    for (std::string line; std::getline(lines, line);) {
        const std::string included = without_ending(own_include(line));
        if (!included.empty() && included != file) graph[file].insert(included);
    }
}

std::string circle_in(const IncludeGraph& graph) {
    std::set<std::string> done;
    std::vector<std::string> way;
    std::string circle;
    for (const auto& [file, includes] : graph)
        if (circle.empty() && leads_back(graph, file, way, done))
            for (const std::string& member : way) circle += (circle.empty() ? "" : ", ") + member;
    return circle;
}

}  // namespace nubo
