#include "art_source.h"
#include "harness/harness.h"

namespace nubo {
namespace {

class ArtSources : public testing::Test {
protected:
    static std::optional<ArtSource> read(const std::string& text) {
        std::ofstream("source.txt") << text;
        return read_art("source.txt");
    }
    ScratchFolder folder_;
};

TEST_F(ArtSources, KeepBlocksRowsAndLines) {
    const auto source = read("; a comment\n\n: kind ; 12\n.#. ;\n\n#.# x\n:next\n");
    ASSERT_TRUE(source);
    ASSERT_EQ(source->blocks.size(), 2u);
    const ArtBlock& block = source->blocks[0];
    EXPECT_EQ(block.head, (Words{"kind", ";", "12"}));  // a semicolon comments only at the start of a line
    EXPECT_EQ(block.rows, (std::vector<Words>{{".#.", ";"}, {"#.#", "x"}}));
    EXPECT_EQ(block.line, 3);
    EXPECT_EQ(source->blocks[1].line, 7);
    EXPECT_EQ(head_number(block, 2, 0, 12), 12);
    EXPECT_FALSE(head_number(block, 2, 0, 11));
    EXPECT_FALSE(head_number(block, 1, 0, 99));
    EXPECT_FALSE(head_number(block, 3, 0, 99));
}

}  // namespace
}  // namespace nubo
