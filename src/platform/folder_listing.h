#pragma once
// What a folder holds, as the file browser shows it.
#include <cstddef>
#include <string>
#include <string_view>
#include <vector>

namespace nubo {

/// Which files are offered: those that can be read, or those that may be written to.
enum OfferedFiles : int { OFFER_READABLE, OFFER_WRITABLE };

struct FolderEntry {
    std::string name;  // the bytes on disk
    bool is_folder = false;
    bool settled = false;  // looked at, and to be offered
};

/// The folder above, the folders and the files of a folder, each kind in the order of its letters, capitals like small
/// ones. Names that begin with a point stay out, and so does what is neither a file nor a folder.
///
/// Nor is what can't be read, or written to, as was asked for. To know that each must be looked at, which takes several
/// times as long as reading their names: so it is done for the rows that are about to be shown, by `settle`.
class FolderListing {
public:
    /// Reads the folder at `folder`; of its files those named by one of the `endings` ("GIF"), or all if there is none.
    /// False, with what stood before kept, if the folder can't be read; the cause is logged.
    bool read(const std::string& folder, const std::vector<std::string_view>& endings,
              OfferedFiles offered = OFFER_READABLE);

    std::size_t size() const { return entries_.size(); }
    const FolderEntry& operator[](std::size_t index) const { return entries_[index]; }

    /// Looks at `count` entries from `first` on. Those that aren't offered go, and later ones move up for them, until
    /// as many are settled or the listing ends.
    void settle(std::size_t first, std::size_t count);

    void clear() { entries_.clear(); }

private:
    bool is_offered(const FolderEntry& entry) const;

    std::string folder_;
    OfferedFiles offered_ = OFFER_READABLE;
    std::vector<FolderEntry> entries_;
};

/// True for a name that ends in a point and `ending`, in capitals or small letters.
bool has_ending(std::string_view name, std::string_view ending);

}  // namespace nubo
