// Memory that ends: the n-th larger piece that C++ asks for can't be had, for each n. Whatever is under way is refused
// or done, nothing is thrown through it, and nothing is lost.
#include "harness/user.h"
#include "windows/files/picture_formats.h"
#include "workspace/archive.h"
#include "workspace/workspace_kit.h"
#include <new>

namespace {

constexpr std::size_t larger = 60'000;  // bytes
int pieces_left = -1;

void* take(std::size_t size, bool throws) {
    const bool ends = size >= larger && pieces_left >= 0 && pieces_left-- == 0;
    void* const memory = ends ? nullptr : std::malloc(size);
    if (memory == nullptr && throws) throw std::bad_alloc();
    return memory;
}

}  // namespace

void* operator new(std::size_t size) { return take(size, true); }
void* operator new[](std::size_t size) { return take(size, true); }
void* operator new(std::size_t size, const std::nothrow_t&) noexcept { return take(size, false); }
void* operator new[](std::size_t size, const std::nothrow_t&) noexcept { return take(size, false); }
void operator delete(void* memory) noexcept { std::free(memory); }
void operator delete[](void* memory) noexcept { std::free(memory); }
void operator delete(void* memory, std::size_t) noexcept { std::free(memory); }
void operator delete[](void* memory, std::size_t) noexcept { std::free(memory); }

namespace nubo {
namespace {

class MemoryTest : public WorkspaceTest {
protected:
    void SetUp() override {
        WorkspaceTest::SetUp();
        make_screen();
        make_workspace({1, 2, 3}, 0);
    }
    /// Runs `work` with the first piece missing, then the second and so on, until it wants no more.
    template <typename Work> static void with_each_piece_missing(const std::string& name, Work work) {
        bool struck = true;
        for (int n = 0; struck; ++n) {
            pieces_left = n;
            EXPECT_NO_THROW(work()) << name << ", piece " << n;
            struck = pieces_left < 0;
            pieces_left = -1;
        }
    }
};

TEST_F(MemoryTest, PicturesAreReadAndWrittenOrRefused) {
    const auto picture = make_bitmap(300, 200, 11);
    for (const FileType type : {FILE_GIF, FILE_PCX, FILE_BMP, FILE_PNG, FILE_JPG}) {
        const std::string path = "picture." + std::string(file_format(type).ending());
        ASSERT_TRUE(write_picture_file(path, picture.get()));
        with_each_piece_missing(path, [&] {
            write_picture_file(path, picture.get());
            FileType read_as = FILE_UNKNOWN;
            read_picture_file(path, read_as);
        });
        FileType read_as = FILE_UNKNOWN;
        EXPECT_TRUE(read_picture_file(path, read_as).bitmap) << path;
    }
}

TEST_F(MemoryTest, TheFramesAreAsBeforeOrAsAsked) {
    struct Step {
        const char* name;
        void (*go)();
    };
    constexpr Step steps[] = {{"swap", [] { fetch_frame(frame_index, 1 - frame_index); }},
                              {"clone", [] { insert_frames(frame_index, 1, false); }},
                              {"delete", [] { delete_frames(frame_index, 1); }},
                              {"archive", [] { save_workspace_archive("all.wsp"); }},
                              {"load", [] { load_workspace_archive("all.wsp"); }},
                              {"new", [] { clear_workspace(); }}};
    for (const Step& step : steps) {
        with_each_piece_missing(step.name, step.go);
        const Ids ids = ids_on_disk();
        EXPECT_EQ(static_cast<int>(ids.size()), frame_count) << step.name;
        EXPECT_EQ(std::count(ids.begin(), ids.end(), -1), 0) << step.name;
    }
}

}  // namespace
}  // namespace nubo
