// Every operation, ended or failing at each change of a name; those that put one Workspace in the place of another at
// each call to the disk. What does the next start find? That a file written to a new name fails as a whole, whichever
// of its calls fails, is told elsewhere.
#include "harness/user.h"
#include "platform/faults.h"
#include "state/guides.h"
#include "state/messages.h"
#include "workspace/archive.h"
#include "workspace/archive_file.h"
#include "workspace/workspace_kit.h"

#include <span>
#include <sys/wait.h>

namespace nubo {
namespace {

constexpr int in_file = 3, in_memory = 33;  // the current Frame, as last left and as painted since
constexpr int other_current = 7;            // that of the archive

struct Operation {
    const char* name;
    bool (*run)();
    std::vector<Ids> outcomes;  // of the row on disk; the first is that of nothing done
    faults::Call struck = faults::CALL_NAMING;
};
const Operation operations[] = {
    {"swap", [] { return fetch_frame(2, 4); }, {{1, 2, 3, 4, 5}, {1, 2, 33, 4, 5}}},
    {"clone",
     [] { return insert_frames(2, 1, false) && save_workspace_state(state_file, true); },
     {{1, 2, 3, 4, 5}, {1, 2, 3, 33, 4, 5}}},
    {"insert two",
     [] { return insert_frames(2, 2, true) && save_workspace_state(state_file, true); },
     {{1, 2, 3, 4, 5}, {1, 2, 3, 0, 0, 4, 5}}},
    {"delete",
     [] { return delete_frames(2, 1) && save_workspace_state(state_file, true); },
     {{1, 2, 3, 4, 5}, {1, 2, 4, 5}}},
    {"load",
     [] { return load_workspace_archive("other.wsp") == 0; },
     {{1, 2, 3, 4, 5}, {1, 2, 33, 4, 5}, {6, other_current}},
     faults::CALL_ANY},
    {"exit", [] { return close_workspace(), true; }, {{1, 2, 3, 4, 5}, {1, 2, 33, 4, 5}}},
    {"clear", clear_workspace, {{1, 2, 3, 4, 5}, {1, 2, 33, 4, 5}, {0}}, faults::CALL_ANY},
};

class InterruptionTest : public WorkspaceTest {
protected:
    void SetUp() override {
        WorkspaceTest::SetUp();
        make_screen();
        make_workspace({6, other_current}, 1);
        ASSERT_EQ(save_workspace_archive("other.wsp"), 0);
        make_workspace({1, 2, in_file, 4, 5}, 2);
        std::filesystem::rename("WORKSPACE", "original");
    }

    /// Runs `act` in a process of its own on a fresh Workspace. Its exit status.
    template <typename Act> int run_apart(Act act) {
        for (const char* left : {"WORKSPACE", "state", "previous-2.wsp", "previous-3.wsp"})
            std::filesystem::remove_all(left);
        EXPECT_TRUE(write_file("previous.wsp", "older", 5) && write_file("previous-2.wsp", "oldest", 6));
        std::filesystem::copy("original", "WORKSPACE");
        EXPECT_TRUE(open_workspace());
        paint(in_memory);
        const pid_t child = fork();
        if (child == 0) _exit(act());
        int status = 0;
        EXPECT_EQ(waitpid(child, &status, 0), child);
        EXPECT_TRUE(WIFEXITED(status));
        return WEXITSTATUS(status);
    }

    static std::size_t size_of(const char* name) {
        std::error_code missing;
        const auto size = std::filesystem::file_size(name, missing);
        return missing ? 0 : size;
    }

    /// The Workspace that went is whole, and there exactly if another has come; those that went before moved up then.
    /// Only the oldest may be gone, where the disk says that it is full.
    static void expect_previous(bool has_gone, bool was_full, const std::string& when) {
        EXPECT_EQ(size_of(has_gone ? "previous-2.wsp" : "previous.wsp"), 5u) << when;
        const std::size_t oldest = size_of(has_gone ? "previous-3.wsp" : "previous-2.wsp");
        EXPECT_TRUE(oldest == 6 || (was_full && oldest == 0)) << when;
        for (const char* passing : {"previous-new.wsp", "previous-old.wsp"}) EXPECT_EQ(size_of(passing), 0u) << when;
        if (!has_gone) return;
        ArchiveContents contents;
        EXPECT_EQ(read_archive(InputFile("previous.wsp"), contents), nullptr) << when;
        EXPECT_EQ(contents.head.frame_count, 5) << when;
    }

    /// Starts and compares the row, and that views, times and thumbnails stand with their Frames.
    void expect_outcome(const std::vector<Ids>& allowed, const std::string& when) {
        ASSERT_TRUE(open_workspace());
        const Ids ids = ids_on_disk();
        EXPECT_NE(std::find(allowed.begin(), allowed.end(), ids), allowed.end()) << when << testing::PrintToString(ids);
        EXPECT_EQ(frame_count, static_cast<int>(ids.size())) << when;
        for (std::size_t slot = 0; slot < ids.size(); ++slot) {
            if (ids[slot] == 0 || ids[slot] == in_file || ids[slot] == in_memory || ids[slot] == other_current)
                continue;
            EXPECT_EQ(frame_view[slot].pan_x, ids[slot]) << when;
            EXPECT_EQ(guides.frame_times[slot], ids[slot]) << when;
            // A delete leaves the Nail on disk as it was, so that a kill right behind it brings the old tiles back.
            const int tile = tile_id(static_cast<int>(slot)), old_tile = static_cast<int>(slot) + 1;
            EXPECT_TRUE(tile == ids[slot] || (when.starts_with("delete") && tile == old_tile)) << when << tile;
        }
        for (const char* part : {"unfinished", "inserted", "deleted", "loaded", "backup", "job"})
            EXPECT_EQ(files_in_workspace(part), 0) << when << part;
        expect_previous(ids == Ids{6, other_current} || ids == Ids{0}, when.find("failed") != when.npos, when);
    }
};

TEST_F(InterruptionTest, KilledAtAnyCallTheNextStartHasAllFramesInOrder) {
    for (const Operation& operation : operations)
        for (int n = 0, status = faults::stop_status; status == faults::stop_status; ++n) {
            status = run_apart([&] {
                faults::arm(operation.struck, n, faults::stop_here);
                operation.run();
                return 0;
            });
            const auto& all = operation.outcomes;
            const bool stopped = status == faults::stop_status;
            expect_outcome(stopped ? all : std::vector<Ids>{all.back()},
                           operation.name + std::string(" ended at ") + std::to_string(n) + ": ");
            if (HasFailure()) return;
        }
}

TEST_F(InterruptionTest, AJournalIsOnDiskBeforeWhatItTellsOfAndGoneBehindIt) {
    for (const Operation& operation : std::span(operations).subspan(1)) {
        if (std::strcmp(operation.name, "exit") == 0) continue;  // no job
        run_apart([&] {
            faults::record();
            operation.run();
            std::ofstream calls("calls");
            for (const std::string& call : faults::calls) calls << call << ';';
            calls.close();
            return 0;
        });
        std::vector<std::uint8_t> bytes;
        ASSERT_TRUE(read_file("calls", SIZE_MAX, bytes));
        const std::string calls(bytes.begin(), bytes.end());
        const std::size_t begun = calls.find("sync frames.job*;rename frames.job* frames.job;sync WORKSPACE;rename ");
        const std::size_t ended = calls.find("unlink frames.job;sync WORKSPACE;");
        EXPECT_LT(begun, ended) << operation.name << ": " << calls;
        EXPECT_NE(ended, std::string::npos) << operation.name << ": " << calls;
    }
}

TEST_F(InterruptionTest, AnArchiveBeingSavedIsTheOldOneOrTheNewWhereverTheProgramIsKilled) {
    bool was_old = false, was_new = false;
    for (int n = 0, status = faults::stop_status; status == faults::stop_status; ++n) {
        const auto replaced = std::filesystem::copy_options::overwrite_existing;
        std::filesystem::copy_file("other.wsp", "mine.wsp", replaced);
        status = run_apart([&] {
            faults::arm(faults::CALL_ANY, n, faults::stop_here);
            return archive_workspace("mine.wsp") ? 0 : 1;
        });
        ArchiveContents contents;
        ASSERT_EQ(read_archive(InputFile("mine.wsp"), contents), nullptr) << n;
        (contents.head.frame_count == 2 ? was_old : was_new) = true;
        expect_outcome({{1, 2, in_file, 4, 5}, {1, 2, in_memory, 4, 5}}, "save ended at " + std::to_string(n));
        if (HasFailure()) return;
    }
    EXPECT_TRUE(was_old && was_new);
}

TEST_F(InterruptionTest, FailingAtAnyCallNothingIsLostThatTheUserHas) {
    enum Told : int { TOLD_DONE, TOLD_REFUSED, TOLD_LOST_FRAME, TOLD_NO_MESSAGE };
    for (const Operation& operation : operations)
        for (const bool lasting : {false, true}) {
            int struck_to_the_end = 0;
            for (int n = 0; struck_to_the_end == n; ++n) {
                const int told = run_apart([&] {
                    faults::arm(operation.struck, n, n % 2 ? EIO : ENOSPC, lasting);
                    const bool done = operation.run();
                    const bool struck = faults::struck();
                    faults::disarm();
                    if (!struck) return 100;
                    if (done) return static_cast<int>(TOLD_DONE);
                    const bool deleted = std::strcmp(operation.name, "delete") == 0 && frame_count == 4;
                    if (!deleted && id_in_memory() != in_memory) return static_cast<int>(TOLD_LOST_FRAME);
                    close_workspace();  // a disk that is well again
                    return static_cast<int>(TOLD_REFUSED);
                });
                const std::string when = operation.name + std::string(" failed at ") + std::to_string(n) + ": ";
                EXPECT_NE(told, TOLD_LOST_FRAME) << when;
                auto allowed = operation.outcomes;
                if (told == TOLD_REFUSED)  // and what was painted reached the disk at the end
                    for (Ids& ids : allowed) std::ranges::replace(ids, in_file, in_memory);
                expect_outcome(allowed, when);
                if (HasFailure()) return;
                if (told != 100) ++struck_to_the_end;
            }
        }
}

TEST_F(InterruptionTest, GapsAreClosedWithTheirViewsAndThumbnails) {
    std::filesystem::remove("original/current.001");
    run_apart([] { return 0; });
    expect_outcome({{1, 3, 4, 5}}, "gap: ");
    EXPECT_EQ(frame_index, 1);  // still the same Frame
}

}  // namespace
}  // namespace nubo
