#pragma once
// What every test stands on, with the headers that nearly all of them use.
#include "base/bitmap.h"
#include "base/color.h"
#include "base/log.h"
#include "base/random.h"
#include <algorithm>
#include <array>
#include <cstdlib>
#include <cstring>
#include <filesystem>
#include <fstream>
#include <gtest/gtest.h>
#include <iterator>
#include <map>
#include <optional>
#include <random>
#include <set>
#include <sstream>
#include <string>
#include <string_view>
#include <vector>

namespace nubo {

/// Starts Allegro under SYSTEM_NONE with 32-bit colour in the order of a window, and seeds both random generators with
/// fixed words. By the tests' main.
void start_without_display();

/// A new empty folder that goes at the end of the test; the process stands in it meanwhile.
class ScratchFolder {
public:
    ScratchFolder();
    ~ScratchFolder();
    ScratchFolder(const ScratchFolder&) = delete;
    ScratchFolder& operator=(const ScratchFolder&) = delete;
    const std::string& path() const { return path_; }

private:
    std::string path_, before_;
};

/// All bytes of a file; none if it can't be read.
std::string bytes_of(const std::filesystem::path& path);

/// The log's text so far, when the test has opened the log in its scratch folder; for looking for lines.
std::string log_text();

}  // namespace nubo
