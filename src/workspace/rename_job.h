#pragma once
// Many files take other names as one step: all of them or none, wherever the program is killed.
//
// An insert and a delete of Frames are such jobs, and so is the change to another Workspace, by LOAD or NEW. Each goes
// in four steps, and each step can be the last one before a kill:
//
//   Step             Insert                       Delete                      Change
//   1 what is new    inserted.000 on, and         nothing                     loaded.000 on, loaded.cel, .nal, .tip,
//     is written     inserted.nal                                             .spa; the Workspace that goes, whole in
//                                                                             ../previous-new.wsp, if it is put away
//   2 the journal    frames.job: what is done, where, how many Frames there were, and every rename
//     is written
//   3 the files are  those behind move up, from   those to be deleted become  all current.* become backup.*, the new
//     renamed        the far end on; the Nail     deleted.000 on, those       those put away move up by one, from the
//                    becomes backup.nal; then     behind move down            oldest on, which becomes
//                    the new ones go in place                                 previous-old.wsp; then the new ones go in
//                                                                             place, the state as the last
//   4 the state is   written anew; then the journal goes, and only then       in place since step 3; then the same
//     on disk        what was taken out
//
// Killed in step 1 there is no journal: the next start removes what is new. Nothing has happened. From step 2 on the
// next start finishes the work. Every rename moves one file to a name that is free by then, so that the names which
// exist tell which renames are done. If a rename fails, all are taken back and the journal goes.
// Where the state can't be written the journal stays, and nothing that it speaks of is written before it has ended.
#include "platform/folder.h"
#include <array>
#include <optional>
#include <string>
#include <vector>

namespace nubo {

/// Files of the folder that holds the WORKSPACE folder, by names as a job knows them: "../" leads there. The archives
/// of the Workspaces that were put away, the newest first; one on its way in, and the one that goes for it.
inline constexpr std::array previous_names{"../previous.wsp", "../previous-2.wsp", "../previous-3.wsp",
                                           "../previous-4.wsp", "../previous-5.wsp"};
inline constexpr const char *previous_staged = "../previous-new.wsp", *previous_retired = "../previous-old.wsp";

enum JobKind : char { JOB_INSERT = 'I', JOB_DELETE = 'D', JOB_CHANGE = 'L' };

struct Rename {
    std::string from, to;
};

struct RenameJob {
    JobKind kind = JOB_CHANGE;
    int start = 0, count = 0, frames = 0;  // the slot, how many Frames are new or go, how many there were
    std::vector<Rename> renames{};         // in their order

    /// Adds a rename if there is such a file.
    void add(const Folder& folder, const std::string& from, const std::string& to);
};

/// The path of a file that a job knows by `name`.
std::string path_of(const Folder& folder, const std::string& name);

/// Steps 2 and 3. False, logged, with all files as they were after a failure; what is new is removed then.
bool do_job(const Folder& folder, const RenameJob& job);

/// True while the state file doesn't know of the last job yet: the journal stands for it.
bool job_is_open(const Folder& folder);

/// Ends the last job, once the state file knows of it; one that got stuck on a failing disk is taken back. False if the
/// disk doesn't let it.
bool end_job(const Folder& folder);

/// Puts the files back as they were before the job that has just been done. Where the disk doesn't let it the row isn't
/// whole until it does.
void take_back_job(const Folder& folder);

/// False while a job is stuck halfway: the files don't stand under the slots that memory knows, so none may be written.
/// In another folder than that of the job it is true.
bool row_is_whole(const Folder& folder);

/// At start: does what is left of the job that a kill interrupted and returns it. What one has left lying is removed;
/// if the files don't bear out its journal, Frames that were taken out are set aside instead.
std::optional<RenameJob> finish_interrupted_job(const Folder& folder);

/// Removes what the first step has written and the third one has taken out.
void remove_leftovers(const Folder& folder);

}  // namespace nubo
