#include "workspace/rename_job.h"

#include "base/log.h"
#include "platform/input_file.h"
#include "platform/safe_file.h"
#include "state/frames.h"
#include "workspace/frame_slot.h"
#include "workspace/ghosts.h"
#include "workspace/workspace_files.h"
#include <algorithm>
#include <array>
#include <set>
#include <sstream>
#include <string_view>

namespace nubo {
namespace {

constexpr std::string_view above = "../";

std::string journal_of(const Folder& folder) { return folder.file("frames.job"); }

bool is_there(const Folder& folder, const std::string& name) { return file_exists(path_of(folder, name)); }

// ---- The journal ---------------------------------------------------------------------------------------------------

bool write_journal(const Folder& folder, const RenameJob& job) {
    std::ostringstream text;
    text << static_cast<char>(job.kind) << ' ' << job.start << ' ' << job.count << ' ' << job.frames << '\n';
    for (const Rename& rename : job.renames) text << rename.from << ' ' << rename.to << '\n';
    const std::string bytes = text.str();
    return write_file(journal_of(folder), bytes.data(), bytes.size());
}

bool numbers_fit(const RenameJob& job) {
    const int most = frame_slots;
    if (job.start < 0 || job.count < 1 || job.count > most || job.frames < 1 || job.frames > most) return false;
    switch (job.kind) {
    case JOB_INSERT: return job.start < job.frames && job.count <= most - job.frames;
    case JOB_DELETE: return job.count < job.frames && job.start <= job.frames - job.count;
    case JOB_CHANGE: return true;
    }
    return false;
}

/// No journal may touch anything but the Workspace's own files.
bool is_known_name(const std::string& name) {
    if (name.rfind(above, 0) == 0)
        return name == previous_staged || name == previous_retired ||
               std::find(previous_names.begin(), previous_names.end(), name) != previous_names.end();
    return is_stem(name.substr(0, name.find('.'))) && name.find('/') == std::string::npos;
}

/// Each rename has its file, under its old name or its new one, and no other file is in the way.
bool files_bear_out(const Folder& folder, const RenameJob& job) {
    std::set<std::string> names;
    for (const Rename& rename : job.renames) names.insert({rename.from, rename.to});
    const auto there =
        std::count_if(names.begin(), names.end(), [&](const auto& name) { return is_there(folder, name); });
    return static_cast<std::size_t>(there) == job.renames.size();
}

/// The work under way, if there is some and the files bear it out.
std::optional<RenameJob> read_journal(const Folder& folder) {
    constexpr std::size_t longest = 32 * 1024;
    std::vector<std::uint8_t> bytes;
    if (!read_file(journal_of(folder), longest, bytes)) return std::nullopt;
    std::istringstream text(std::string(bytes.begin(), bytes.end()));
    RenameJob job;
    char kind = 0;
    if (!(text >> kind >> job.start >> job.count >> job.frames)) return std::nullopt;
    job.kind = static_cast<JobKind>(kind);
    for (Rename rename; text >> rename.from >> rename.to;) job.renames.push_back(rename);
    const auto is_known = [](const Rename& rename) { return is_known_name(rename.from) && is_known_name(rename.to); };
    const bool fits = numbers_fit(job) && std::all_of(job.renames.begin(), job.renames.end(), is_known);
    return fits && files_bear_out(folder, job) ? std::optional(job) : std::nullopt;
}

// ---- The renames, forth and back -----------------------------------------------------------------------------------

/// Renames if there is a file to rename and its new name is free: if not, that was done before the kill.
bool advance(const Folder& folder, const std::string& from, const std::string& to) {
    return !is_there(folder, from) || is_there(folder, to) || rename_file(path_of(folder, from), path_of(folder, to));
}

bool carry_out(const Folder& folder, const RenameJob& job) {
    return std::all_of(job.renames.begin(), job.renames.end(),
                       [&](const Rename& rename) { return advance(folder, rename.from, rename.to); });
}

bool take_back(const Folder& folder, const RenameJob& job) {
    return std::all_of(job.renames.rbegin(), job.renames.rend(),
                       [&](const Rename& rename) { return advance(folder, rename.to, rename.from); });
}

/// Something else has been at the files: those that were taken out may be all that there is of them.
void keep_what_was_taken_out(const Folder& folder) {
    for (const FrameStem stem : {STEM_DELETED, STEM_BACKUP})
        for (int slot = 0; slot < frame_slots; ++slot)
            if (const std::string file = FrameSlot{folder, slot}.path(stem); file_exists(file))
                set_aside(file, aside_spare);
}

std::optional<RenameJob> last_job;  // as it was carried out, or tried
bool is_stuck = false;  // it could neither be carried out nor be taken back, until one of the two is possible

}  // namespace

void RenameJob::add(const Folder& folder, const std::string& from, const std::string& to) {
    if (is_there(folder, from)) renames.push_back({from, to});
}

std::string path_of(const Folder& folder, const std::string& name) {
    if (name.rfind(above, 0) != 0) return folder.file(name);
    const std::string& path = folder.path();  // by its words: the folder itself may be a link
    return path.substr(0, path.rfind('/') + 1) + name.substr(above.size());
}

bool do_job(const Folder& folder, const RenameJob& job) {
    last_job = job;
    forget_ghosts();
    if (!files_bear_out(folder, job) || !write_journal(folder, job)) {
        UA_log("[ ERROR ] : The files in %s can't be moved now", folder.path().c_str());
        remove_leftovers(folder);
        return false;
    }
    if (carry_out(folder, job)) return true;
    take_back_job(folder);
    return false;
}

bool job_is_open(const Folder& folder) { return !is_stuck && file_exists(journal_of(folder)); }

bool end_job(const Folder& folder) {
    if (is_stuck && !take_back(folder, *last_job)) return false;
    if (file_exists(journal_of(folder))) {
        if (!remove_file(journal_of(folder))) return false;
        // Else a loss of power could bring the journal back without the files that it speaks of.
        sync_folder(folder.path());
    }
    is_stuck = false;
    remove_leftovers(folder);
    return true;
}

void take_back_job(const Folder& folder) {
    is_stuck = true;
    forget_ghosts();
    end_job(folder);
}

bool row_is_whole(const Folder& folder) { return !is_stuck || !file_exists(journal_of(folder)) || end_job(folder); }

std::optional<RenameJob> finish_interrupted_job(const Folder& folder) {
    const std::optional<RenameJob> job = read_journal(folder);
    if (!job) {
        if (file_exists(journal_of(folder))) keep_what_was_taken_out(folder);
        end_job(folder);
        return std::nullopt;
    }
    last_job = job;
    if (!carry_out(folder, *job)) {
        take_back_job(folder);
        return std::nullopt;
    }
    UA_log("[ INFO ] : Finished what the last run began with frame %d", job->start);
    if (job->kind == JOB_CHANGE) end_job(folder);  // its state is on disk
    return job;
}

void remove_leftovers(const Folder& folder) {
    constexpr std::array passing_stems{STEM_INSERTED, STEM_DELETED, STEM_LOADED, STEM_BACKUP, STEM_DROPPED};
    std::vector<std::string> names{previous_staged, previous_retired};
    for (const FrameStem stem : passing_stems) {
        for (int slot = 0; slot < frame_slots; ++slot) names.push_back(frame_file_name(stem, slot));
        for (const char* ending : side_endings) names.push_back(side_file_name(stem, ending));
    }
    for (const std::string& name : names)
        if (is_there(folder, name)) remove_file(path_of(folder, name));
}

}  // namespace nubo
