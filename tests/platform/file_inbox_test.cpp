#include "platform/file_inbox.h"

#include "harness/harness.h"

namespace nubo {
namespace {

TEST(FileInbox, BringsFilesInTheirOrderToTheProgramThatHoldsTheFolder) {
    const ScratchFolder scratch;
    UA_log_open();
    const std::string folder = scratch.path() + "/" + std::string(200, 'd');  // longer than a socket's address
    std::filesystem::create_directory(folder);
    EXPECT_FALSE(hand_over_files(folder, {"/a.png"}));
    std::ofstream(folder + "/nubo.inbox") << "of a program that was killed";
    open_file_inbox(folder);
    EXPECT_TRUE(take_handed_files().empty());
    std::vector<std::string> files{"/a b/\xc3\xa9.png", "/|c21.gif"};
    for (int i = 0; i < 100; ++i) files.push_back("/" + std::string(1000, static_cast<char>('a' + i % 26)));
    EXPECT_TRUE(hand_over_files(folder, files));  // more than fits one message
    EXPECT_TRUE(hand_over_files(folder, {"/last"}));
    files.push_back("/last");
    EXPECT_EQ(take_handed_files(), files);
    EXPECT_TRUE(take_handed_files().empty());
    close_file_inbox();
    EXPECT_FALSE(std::filesystem::exists(folder + "/nubo.inbox"));
    EXPECT_FALSE(hand_over_files(folder, {"/a.png"}));
    UA_log_close();
}

}  // namespace
}  // namespace nubo
