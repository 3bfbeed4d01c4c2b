#pragma once
// The one way to write a file of the program's own: to a new name in the same folder, flushed and synced, then renamed
// over the old one. Whatever fails, the old file is as it was.
#include <cstddef>
#include <string>

namespace nubo {

/// A file being written beside its place. Goes without a trace unless `commit` has succeeded.
class SafeFile {
public:
    explicit SafeFile(const std::string& path);
    ~SafeFile();
    SafeFile(const SafeFile&) = delete;
    SafeFile& operator=(const SafeFile&) = delete;

    /// Appends bytes. A failure is remembered and makes `commit` fail.
    void write(const void* bytes, std::size_t size);

    /// Puts the file in its place. False after a failure of any step; the cause is logged once, with the path.
    bool commit();
};

}  // namespace nubo
