#include "editor/command_line.h"

#include "harness/harness.h"

namespace nubo {
namespace {

CommandLine read(std::vector<std::string> arguments) {
    std::vector<char*> words;
    arguments.insert(arguments.begin(), "nubo");
    for (std::string& argument : arguments) words.push_back(argument.data());
    return read_command_line(static_cast<int>(words.size()), words.data());
}

TEST(CommandLine, NamesFilesFromWhereTheUserStands) {
    const ScratchFolder scratch;
    const CommandLine asked = read({"a b.png", "../c.gif", "/d//e.bmp", "--", "-f.png"});
    EXPECT_FALSE(asked.answered);
    const std::string here = scratch.path(), above = here.substr(0, here.rfind('/'));
    EXPECT_EQ(asked.files,
              (std::vector<std::string>{here + "/a b.png", above + "/c.gif", "/d/e.bmp", here + "/-f.png"}));
    EXPECT_TRUE(read({}).files.empty());
}

TEST(CommandLine, AnswersWhoAsksAndRefusesWhatItDoesntKnow) {
    for (const char* question : {"-h", "--help", "--version"}) EXPECT_EQ(read({question}).answered, 0) << question;
    EXPECT_EQ(read({"a.png", "--verison"}).answered, 2);
}

}  // namespace
}  // namespace nubo
