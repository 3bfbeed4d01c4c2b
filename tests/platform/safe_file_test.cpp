#include "platform/safe_file.h"

#include "harness/harness.h"
#include "platform/faults.h"
#include "platform/input_file.h"

#include <sys/stat.h>
#include <sys/wait.h>

namespace nubo {
namespace {

constexpr std::size_t large = 700'000;  // more than one buffer

int files_here() {
    int count = 0;
    for ([[maybe_unused]] const auto& entry : std::filesystem::directory_iterator(".")) ++count;
    return count;
}

class SafeFileTest : public testing::Test {
protected:
    void SetUp() override { ASSERT_TRUE(write_file("kept", "old", 3)); }
    const std::string new_bytes_ = std::string(large, 'n');

private:
    ScratchFolder folder_;
};

TEST_F(SafeFileTest, KeepsTheOldFileWhateverCallFails) {
    UA_log_open();
    int failures = 0;
    for (const int error : {ENOSPC, EIO})
        for (int n = 0;; ++n) {
            ASSERT_TRUE(write_file("kept", "old", 3));
            faults::arm(faults::CALL_ANY, n, error);
            const bool written = write_file("kept", new_bytes_.data(), new_bytes_.size());
            const bool struck = faults::struck();
            faults::disarm();
            // After the rename only the folder's sync can fail, and the new file stands.
            EXPECT_TRUE(bytes_of("kept") == (written ? new_bytes_ : "old")) << n;
            EXPECT_EQ(files_here(), 2) << n;  // the log is the other
            if (!struck) break;
            if (!written) ++failures;
            EXPECT_NE(log_text().find(std::strerror(error)), std::string::npos) << n;
        }
    EXPECT_EQ(failures, 2 * 6);  // open, three writes, sync and rename, for each of the two errors
}

TEST_F(SafeFileTest, IsWholeOldOrWholeNewWhenTheProcessStops) {
    for (int n = 0;; ++n) {
        const pid_t child = fork();
        if (child == 0) {
            faults::arm(faults::CALL_ANY, n, faults::stop_here);
            _exit(write_file("kept", new_bytes_.data(), new_bytes_.size()) ? 0 : 1);
        }
        int status = 0;
        ASSERT_EQ(waitpid(child, &status, 0), child);
        const std::string text = bytes_of("kept");
        EXPECT_TRUE(text == "old" || text == new_bytes_) << n;
        if (WEXITSTATUS(status) != faults::stop_status) break;
    }
    EXPECT_TRUE(bytes_of("kept") == new_bytes_);
    EXPECT_GT(files_here(), 1);
    remove_unfinished_files(".");
    EXPECT_EQ(files_here(), 1);
}

TEST_F(SafeFileTest, IsSyncedBeforeItHasItsNameAndItsFolderBehind) {
    const std::string here = std::filesystem::current_path().filename();
    const std::pair<FileSync, std::vector<std::string>> cases[] = {
        {SYNC_NOW, {"sync kept*", "rename kept* kept", "sync " + here}},
        {SYNC_NAME_WITH_NEXT, {"sync kept*", "rename kept* kept"}},
        {SYNC_WITH_DISK, {"rename kept* kept"}},
    };
    for (const auto& [when, calls] : cases) {
        SafeFile file("kept");
        file.write("new", 3);
        faults::record();
        ASSERT_TRUE(file.commit(when));
        EXPECT_EQ(faults::calls, calls);
    }
}

TEST_F(SafeFileTest, KeepsLinksAndPermissions) {
    std::filesystem::create_symlink("kept", "link");
    std::filesystem::permissions("kept", std::filesystem::perms(0640));
    ASSERT_TRUE(write_file("link", "new", 3));
    EXPECT_TRUE(std::filesystem::is_symlink("link"));
    EXPECT_EQ(bytes_of("kept"), "new");
    EXPECT_EQ(std::filesystem::status("kept").permissions(), std::filesystem::perms(0640));
}

TEST_F(SafeFileTest, WritesWhatALinkWillLeadToAndLeavesAloneWhatIsNoFile) {
    std::filesystem::create_directory("far");
    std::filesystem::create_symlink("step", "link");
    std::filesystem::create_symlink("far/new", "step");
    ASSERT_TRUE(write_file("link", "new", 3));
    EXPECT_TRUE(std::filesystem::is_symlink("link") && std::filesystem::is_symlink("step"));
    EXPECT_EQ(bytes_of("far/new"), "new");

    ASSERT_EQ(mkfifo("pipe", 0600), 0);
    std::filesystem::create_symlink("pipe", "to_pipe");
    std::filesystem::create_symlink("ring", "ring");
    const int files = files_here();
    for (const char* const name : {"pipe", "to_pipe", "ring", "far"}) EXPECT_FALSE(write_file(name, "new", 3)) << name;
    EXPECT_TRUE(std::filesystem::is_fifo("pipe") && std::filesystem::is_symlink("ring"));
    EXPECT_EQ(files_here(), files);
    std::vector<std::uint8_t> bytes;
    EXPECT_FALSE(read_file("to_pipe", SIZE_MAX, bytes));
}

TEST_F(SafeFileTest, IsHiddenWhileItIsWrittenAndWritesOverNothing) {
    const SafeFile one("kept"), other("kept");
    EXPECT_EQ(files_here(), 3);
    for (const auto& entry : std::filesystem::directory_iterator("."))
        EXPECT_TRUE(entry.path().filename() == "kept" || entry.path().filename().string().starts_with(".kept."));
}

TEST_F(SafeFileTest, TellsWhetherAFolderTakesFiles) {
    EXPECT_TRUE(has_room_for(".", large));
    EXPECT_FALSE(has_room_for("nowhere", 1));
    EXPECT_FALSE(has_room_for(".", std::size_t{1} << 60));
    EXPECT_EQ(files_here(), 1);
}

TEST_F(SafeFileTest, LeavesNoTraceWithoutACommit) {
    { SafeFile("kept").write("half", 4); }
    EXPECT_EQ(bytes_of("kept"), "old");
    EXPECT_EQ(files_here(), 1);
}

}  // namespace
}  // namespace nubo
