#include "checks/tree.h"

#include "harness/harness.h"

namespace nubo {

TEST(Tree, KeepsItsStoreysAndRules) {
    const std::filesystem::path root = NUBO_SOURCE_DIR;
    int files = 0;
    IncludeGraph graph;
    for (const char* const room : {"src", "tools", "assets", "tests", "bench", "fuzz"}) {
        if (!std::filesystem::exists(root / room)) continue;
        for (const auto& entry : std::filesystem::recursive_directory_iterator(root / room)) {
            const std::string extension = entry.path().extension();
            if (extension != ".cpp" && extension != ".h") continue;
            ++files;
            const std::string path = entry.path().lexically_relative(root);
            const std::string text = bytes_of(entry.path());
            for (const std::string& fault : faults_of(path, text)) ADD_FAILURE() << fault;
            if (path.starts_with("src/")) add_includes(graph, path, text);
        }
    }
    EXPECT_EQ(circle_in(graph), "");
    EXPECT_GT(files, 20);  // else the walk looked in the wrong place
}

TEST(Tree, EachFaultIsFound) {
    struct Case {
        const char *path, *text, *fault;  // fault "" for none
    };
    const Case cases[] = {
        {"src/paint/a.cpp", "#include \"paint/b.h\"\n#include \"state/c.h\"\n#include <gui>\n", ""},
        {"src/base/a.h", "\n#  include \"codecs/png.h\"",
         "src/base/a.h:2 includes codecs/png.h, which stands above it"},
        {"src/windows/kit/a.h", "#include \"windows/kit/b.h\"\n#include \"windows/files/b.h\"",
         "src/windows/kit/a.h:2 includes windows/files/b.h, which stands above it"},
        {"src/windows/a.h", "#include \"windows/kit/b.h\"", ""},
        {"src/base/a.h", "#include \"b.h\"", "src/base/a.h:1 includes b.h, which stands in no storey"},
        {"src/other/a.h", "", "src/other/a.h stands in no storey"},
        {"tests/base/a.cpp", "#include \"harness/harness.h\"", ""},
        {"src/base/a.cpp", "int a;\nextern int b;", "src/base/a.cpp:2 extern in a .cpp"},
        {"src/base/a.h", "extern int b;", ""},
        {"src/base/a.cpp",
         "/* extern\n */ // volatile\nauto c = \"volatile \\\" extern\", d = '\"', e = 1'0; "
         "int external, extern_a;",
         ""},
        {"src/base/a.cpp", "/* */ // \"\n auto a = '\"';\nvolatile int b;", "src/base/a.cpp:3 volatile"},
        {"src/base/a.h", "volatile std::sig_atomic_t a;", ""},
        {"src/base/a.cpp", "\nconst OwnedBitmap a = make_bitmap(1, 1), b;",
         "src/base/a.cpp:2 a static owner of a bitmap"},
        {"src/base/a.cpp", "    static std::array<OwnedBitmap, 2> a;", "src/base/a.cpp:1 a static owner of a bitmap"},
        {"src/base/a.cpp",
         "OwnedBitmap (*a)(BITMAP*) = b;\nusing A = OwnedBitmap;\n    OwnedBitmap a;\n"
         "OwnedBitmap a(BITMAP* b) { return b; }",
         ""},
        {"bench/a.cpp", "auto a = R\"(\n\")\"; volatile int b;", "bench/a.cpp:2 volatile"},
    };
    for (const Case& one : cases) {
        const std::vector<std::string> faults = faults_of(one.path, one.text);
        EXPECT_EQ(faults.empty() ? "" : faults.front(), std::string(one.fault)) << one.text;
        EXPECT_LE(faults.size(), 1U) << one.text;
    }
    EXPECT_EQ(faults_of("src/gui/a.cpp", std::string(451, '\n')),
              std::vector<std::string>{"src/gui/a.cpp has 451 lines"});
    const std::string body(44, '\n'), method = "class A {\n    A()\n        : a() {" + body + "    }\n};\n";
    const std::string function = "\nint a(int b,\n      int c) {" + body + "}\n\nint b() {\n}\n";
    EXPECT_EQ(faults_of("src/gui/a.cpp", function),
              std::vector<std::string>{"src/gui/a.cpp:2 has a function of 46 lines"});
    EXPECT_EQ(faults_of("src/gui/a.cpp", method),
              std::vector<std::string>{"src/gui/a.cpp:2 has a function of 46 lines"});
    EXPECT_TRUE(faults_of("src/gui/a.cpp", "enum A {" + body + "};\n").empty());
    EXPECT_TRUE(faults_of("tests/gui/a.cpp", function).empty());
    IncludeGraph graph;
    add_includes(graph, "src/gui/a.cpp", "#include \"gui/a.h\"\n#include \"gui/b.h\"\n");
    add_includes(graph, "src/gui/b.h", "#include \"state/c.h\"\n");
    EXPECT_EQ(circle_in(graph), "");
    add_includes(graph, "src/gui/b.cpp", "#include \"gui/d.h\"\n");
    add_includes(graph, "src/gui/d.cpp", "#include \"gui/b.h\"\n");
    EXPECT_EQ(circle_in(graph), "gui/b, gui/d, gui/b");
}

}  // namespace nubo
