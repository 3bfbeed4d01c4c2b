#pragma once
// A folder is a value that goes to whoever opens, writes or lists: nothing depends on where the process stands.
#include <string>
#include <utility>

namespace nubo {

class Folder {
public:
    /// `path` is whole, without a separator at its end.
    explicit Folder(std::string path) : path_(std::move(path)) {}

    const std::string& path() const { return path_; }
    /// The path of a file in it.
    std::string file(const std::string& name) const { return path_ + "/" + name; }
    Folder inside(const std::string& name) const { return Folder(file(name)); }

private:
    std::string path_;
};

}  // namespace nubo
