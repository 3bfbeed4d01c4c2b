#pragma once
// The one way to write a file, but for those that are only added to (platform/append_file.h): to a hidden new name in
// the same folder, flushed and synced, then renamed over the old one. Whatever fails, the old file is as it was.
// Renaming and removing go by here too.
#include <cerrno>
#include <cstddef>
#include <cstdint>
#include <functional>
#include <memory>
#include <string>

namespace nubo {

/// Whose unfinished files: of everybody in a folder that is the program's own and locked; elsewhere of processes of
/// this machine that have ended.
enum UnfinishedFiles : int { UNFINISHED_BY_ALL, UNFINISHED_BY_ENDED };

/// Removes what a crash left of files that were being written in a folder.
void remove_unfinished_files(const std::string& folder, UnfinishedFiles which = UNFINISHED_BY_ALL);

/// When a new file is made to last through a loss of power: at once; its bytes at once and its name with the next file
/// that is put into the same folder; or both by `sync_disk`, which takes many files together.
enum FileSync : int { SYNC_NOW, SYNC_NAME_WITH_NEXT, SYNC_WITH_DISK };

/// A file being written beside its place. Goes without a trace unless `commit` has succeeded. No lack of memory keeps
/// it from being written.
class SafeFile {
public:
    /// A link at `path` stays a link: what it points to is replaced, or made. An existing file's permissions are kept;
    /// what is no regular file, as a folder, a pipe or a device, is left alone.
    explicit SafeFile(const std::string& path);
    ~SafeFile();
    SafeFile(const SafeFile&) = delete;
    SafeFile& operator=(const SafeFile&) = delete;

    /// Has the system keep room for `size` bytes in all. A failure is remembered like one of `write`.
    void reserve(std::size_t size);

    /// Appends bytes. A failure is remembered and makes `commit` fail.
    void write(const void* bytes, std::size_t size);

    /// Waits until the bytes have reached the disk. `commit` does that itself; two files take the time of one where
    /// each has been synced before by a thread of its own. All is written by then.
    void sync();

    /// Puts the file in its place. False after a failure of any step; the cause is logged once, with the path.
    bool commit(FileSync when = SYNC_NOW);

    /// True as long as nothing has failed; after a failure the cause is logged.
    bool is_sound() const;

    /// True if it has failed since the disk is full, or a quota used up.
    bool lacks_room() const { return fault_ == ENOSPC || fault_ == EDQUOT; }

private:
    void open_beside();
    void take_permissions();
    void flush();
    void pass_on(const std::uint8_t* bytes, std::size_t size);
    void finish(bool lasting);
    void fail(const char* step);

    std::string path_, unfinished_;
    std::unique_ptr<std::uint8_t[]> buffer_;  // null without memory for it: then each piece goes to the system at once
    std::size_t buffered_ = 0;
    std::size_t size_ = 0;  // of what was written so far
    int file_ = -1;
    bool exists_ = false;  // under its unfinished name
    std::string failure_;  // empty: all went well
    int fault_ = 0;        // the `errno` of it
};

/// Writes a whole file of `size` bytes by `SafeFile`.
bool write_file(const std::string& path, const void* bytes, std::size_t size);

/// False, after a log line with the cause, when a folder takes no new file of `size` bytes: it is missing or read-only,
/// or the disk is full.
bool has_room_for(const std::string& folder, std::size_t size);

/// Moves a file within the program's folders, over one that has that name. False after a log line with the cause.
bool rename_file(const std::string& from, const std::string& to);

/// Removes a file. True when there is none afterwards; false after a log line with the cause.
bool remove_file(const std::string& path);

/// Makes renames and removals in a folder last through a loss of power. A failure is logged; nothing can be done.
void sync_folder(const std::string& folder);

/// Makes all that was written to the disk of a folder last: for many files far quicker than each by itself. Waits for
/// the disk. False after a log line with the cause.
bool sync_disk(const std::string& folder);

/// True if anything has that name, a link to nowhere included.
bool file_exists(const std::string& path);

/// True for a file that isn't to be written to: nobody may, or not this user. `SafeFile`, which needs only the folder's
/// leave, would replace it all the same, and a stranger's would become the user's.
bool is_write_protected(const std::string& path);

// ---- Waiting for the disk ------------------------------------------------------------------------------------------

/// Runs `wait`, which waits until so many bytes are on the disk, to its end: beside a picture that goes on, say.
using DiskWaiter = std::function<void(const std::function<void()>& wait, std::size_t bytes)>;

/// As long as it lives, this thread waits for the disk by `waiter`; by an empty one as if there were none.
class DiskWaits {
public:
    explicit DiskWaits(DiskWaiter waiter);
    ~DiskWaits();
    DiskWaits(const DiskWaits&) = delete;
    DiskWaits& operator=(const DiskWaits&) = delete;

private:
    DiskWaiter waiter_;
    const DiskWaiter* before_;
};

}  // namespace nubo
