#include "harness/harness.h"
#include "platform/folder_listing.h"
#include "platform/places.h"

#include <sys/stat.h>

namespace nubo {
namespace {

namespace fs = std::filesystem;

/// A folder of its own, gone with the test.
class FolderListingTest : public testing::Test {
protected:
    FolderListingTest() { fs::create_directory(folder_); }
    ~FolderListingTest() override { fs::remove_all(folder_); }

    void put(const std::string& name) { std::ofstream(folder_ + "/" + name) << "x"; }
    std::vector<std::string> names() const {
        std::vector<std::string> all;
        for (std::size_t i = 0; i < listing_.size(); ++i) all.push_back(listing_[i].name);
        return all;
    }

    std::string folder_ = fs::temp_directory_path() / ("nubo_listing_" + std::to_string(getpid()));
    FolderListing listing_;
};

using Names = std::vector<std::string>;

TEST_F(FolderListingTest, FoldersComeFirstAndAllByLetter) {
    for (const char* name : {"b.png", "A.PNG", "a.Png", "notes.txt", ".hidden.png", "png", "\xe4.png", "-c # |d.png"})
        put(name);
    fs::create_directory(folder_ + "/sub.png");
    fs::create_directory(folder_ + "/.cache");
    fs::create_symlink("sub.png", folder_ + "/link");
    fs::create_symlink("nowhere", folder_ + "/lost.png");
    ASSERT_EQ(mkfifo((folder_ + "/pipe.png").c_str(), 0600), 0);
    ASSERT_TRUE(listing_.read(folder_, {"PNG"}));
    EXPECT_EQ(names(), (Names{"..", "link", "sub.png", "-c # |d.png", "A.PNG", "a.Png", "b.png", "\xe4.png"}));
    ASSERT_TRUE(listing_.read(folder_, {}));
    EXPECT_EQ(listing_.size(), 10u);  // with notes.txt and png
    EXPECT_FALSE(listing_.read(folder_ + "/none", {}));
    EXPECT_EQ(listing_.size(), 10u);
}

TEST_F(FolderListingTest, WhatMayntBeWrittenToOrReadLeavesTheListWhenItsRowIsShown) {
    for (char letter = 'a'; letter <= 'j'; ++letter) put(std::string(1, letter));
    for (const char* name : {"a", "c", "d", "j"}) fs::permissions(folder_ + "/" + name, fs::perms::owner_read);
    fs::permissions(folder_ + "/b", fs::perms::owner_write);
    ASSERT_TRUE(listing_.read(folder_, {}, OFFER_READABLE));
    listing_.settle(0, 3);
    EXPECT_EQ(names(), (Names{"..", "a", "c", "d", "e", "f", "g", "h", "i", "j"}));
    ASSERT_TRUE(listing_.read(folder_, {}, OFFER_WRITABLE));
    listing_.settle(0, 3);
    EXPECT_EQ(names(), (Names{"..", "b", "e", "f", "g", "h", "i", "j"}));
    listing_.settle(3, 20);
    EXPECT_EQ(names(), (Names{"..", "b", "e", "f", "g", "h", "i"}));
    listing_.settle(20, 5);
    EXPECT_EQ(listing_.size(), 7u);
}

TEST_F(FolderListingTest, PlacesAreThoseThatTheDesktopNames) {
    for (const char* name : {"/fonts", "/SCHEMES", "/me", "/me/Bilder", "/me/.config", "/me/Downloads"})
        fs::create_directory(folder_ + name);
    std::ofstream(folder_ + "/me/.config/user-dirs.dirs") << "# mine\nXDG_DESKTOP_DIR=\"$HOME/\"\n"
                                                             "XDG_PICTURES_DIR=\"$HOME/Bilder\"\n";
    setenv("HOME", (folder_ + "/me").c_str(), 1);
    unsetenv("XDG_CONFIG_HOME");
    std::string letters;
    for (const Place& place : find_places(folder_)) letters += place.letter;
    EXPECT_EQ(letters.substr(0, 6), "CHPLFS");  // the desktop is home here: one place
    EXPECT_EQ(pictures_folder(), folder_ + "/me/Bilder");
    EXPECT_EQ(expand_home("~/x"), folder_ + "/me/x");
    EXPECT_EQ(expand_home("~x"), "~x");
}

}  // namespace
}  // namespace nubo
