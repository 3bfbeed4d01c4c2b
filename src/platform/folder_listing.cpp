#include "platform/folder_listing.h"

#include "base/log.h"
#include "platform/input_file.h"
#include "platform/safe_file.h"
#include <algorithm>
#include <cerrno>
#include <cstring>
#include <dirent.h>
#include <memory>
#include <strings.h>
#include <sys/stat.h>
#include <tuple>

namespace nubo {
namespace {

enum EntryKind : int { KIND_OTHER, KIND_FILE, KIND_FOLDER };

EntryKind kind_of_mode(mode_t mode) {
    if (S_ISDIR(mode)) return KIND_FOLDER;
    return S_ISREG(mode) ? KIND_FILE : KIND_OTHER;
}

/// Most file systems tell the kind with the name; a link is what it points to.
EntryKind kind_of(int folder, const dirent& entry) {
    if (entry.d_type == DT_DIR) return KIND_FOLDER;
    if (entry.d_type == DT_REG) return KIND_FILE;
    if (entry.d_type != DT_LNK && entry.d_type != DT_UNKNOWN) return KIND_OTHER;
    struct stat status {};
    return fstatat(folder, entry.d_name, &status, 0) == 0 ? kind_of_mode(status.st_mode) : KIND_OTHER;
}

bool is_wanted(std::string_view name, EntryKind kind, const std::vector<std::string_view>& endings) {
    if (kind == KIND_OTHER || name == ".") return false;
    if (name == "..") return true;
    if (name.front() == '.') return false;
    const auto names_it = [&](std::string_view ending) { return has_ending(name, ending); };
    return kind == KIND_FOLDER || endings.empty() || std::any_of(endings.begin(), endings.end(), names_it);
}

bool comes_before(const FolderEntry& a, const FolderEntry& b) {
    if (a.is_folder != b.is_folder) return a.is_folder;
    if (const bool up = a.name == ".."; up || b.name == "..") return up && b.name != "..";
    const int order = strcasecmp(a.name.c_str(), b.name.c_str());
    return order != 0 ? order < 0 : a.name < b.name;  // names that differ in case alone keep one order, too
}

}  // namespace

bool has_ending(std::string_view name, std::string_view ending) {
    if (name.size() < ending.size() + 1) return false;
    const std::size_t start = name.size() - ending.size();
    return name[start - 1] == '.' && strncasecmp(name.data() + start, ending.data(), ending.size()) == 0;
}

bool FolderListing::read(const std::string& folder, const std::vector<std::string_view>& endings,
                         OfferedFiles offered) {
    const std::unique_ptr<DIR, int (*)(DIR*)> open_folder(opendir(folder.c_str()), closedir);
    if (!open_folder) {
        UA_log("[ ERROR ] : The folder %s can't be read: %s", folder.c_str(), std::strerror(errno));
        return false;
    }
    folder_ = folder;
    offered_ = offered;
    entries_.clear();
    while (const dirent* const entry = readdir(open_folder.get())) {
        const EntryKind kind = kind_of(dirfd(open_folder.get()), *entry);
        if (is_wanted(entry->d_name, kind, endings)) entries_.push_back({entry->d_name, kind == KIND_FOLDER});
    }
    std::sort(entries_.begin(), entries_.end(), comes_before);
    return true;
}

bool FolderListing::is_offered(const FolderEntry& entry) const {
    const std::string path = folder_ + "/" + entry.name;
    if (offered_ == OFFER_READABLE && !entry.is_folder) return why_unreadable(path).empty();
    struct stat status {};
    if (stat(path.c_str(), &status) != 0) return false;  // it has gone meanwhile
    return entry.is_folder || !is_write_protected(path);
}

void FolderListing::settle(std::size_t first, std::size_t count) {
    std::size_t kept = std::min(first, size()), next = kept;
    const std::size_t end = kept + count;
    for (; next < size() && kept < end; ++next) {
        FolderEntry& entry = entries_[next];
        entry.settled = entry.settled || is_offered(entry);
        if (!entry.settled) continue;
        if (kept != next) entries_[kept] = std::move(entry);
        ++kept;
    }
    entries_.erase(entries_.begin() + static_cast<std::ptrdiff_t>(kept),
                   entries_.begin() + static_cast<std::ptrdiff_t>(next));
}

}  // namespace nubo
