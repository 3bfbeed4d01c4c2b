#pragma once
// The history of the Frame in memory, as it lies beside the Frame's file: "history.NNN". It is added to when the Frame
// is stored and before each rescue, and is on the disk before either; never on the way of a stroke. What can't be
// written is told in a word, and nothing else suffers. Main flow only, but for `HistoryWrite::carry_out`.
#include "base/bitmap.h"
#include "paint/undo.h"
#include "workspace/frame_slot.h"
#include "workspace/history_format.h"
#include <optional>
#include <string>
#include <vector>

namespace nubo {

inline constexpr std::size_t histories_max = std::size_t{64} << 20;  // bytes on disk of a Workspace, as in memory

/// The histories of a new run of the program: each remembers where it stands.
void begin_history_run();

/// The Frame that came into memory from the file of `slot` has the history that lies beside it, if that leads to its
/// picture; one that doesn't is set aside, told once.
void open_history(const FrameSlot& slot);

/// What leads to `picture`, which isn't the Frame in memory yet; none if there is no such history. For the rescue of a
/// slot.
bool has_history_of(const FrameSlot& slot, BITMAP* picture);

/// The Frame in memory is a new one, without a file of its history.
void begin_history();

// ---- Writing -------------------------------------------------------------------------------------------------------

/// What is to be added to the file of a history, apart from the main flow.
struct HistoryWrite {
    struct NumberedStep {
        int number = 0;
        Step step{};
    };
    std::string path;                                 // empty: nothing is to be written
    std::size_t keep = 0;                             // bytes of the file that stay, 0 for a new one
    std::uint64_t sum = 0;                            // behind them; the salt of a new file
    int first = 0;                                    // of a new file
    std::optional<HistoryPlace> loaded, before_hole;  // places before the steps, and before the last of them
    std::optional<int> start;                         // where `run` began
    std::uint64_t run = 0;
    std::vector<NumberedStep> steps;
    HistoryPlace place;

    std::size_t written_end = 0;  // 0 after a failure
    /// On whatever thread.
    void carry_out();
};

/// What is to be written before the Frame in memory is stored in `slot` or rescued. As far as they are known, `saved`
/// is the print of what the Frame's file holds so far, and `print` its own.
HistoryWrite history_to_write(const FrameSlot& slot, std::optional<Print> saved,
                              std::optional<Print> print = std::nullopt);

/// It was carried out.
void take_written(HistoryWrite& write);

/// The Frame has been stored with that: the files are held to `histories_max`. Those that were written longest ago keep
/// their last steps alone, in the end this one too.
void keep_histories_in_bounds(const FrameSlot& slot);
/// For tests: to another bound.
void limit_histories(std::size_t bytes);

// ---- Forgetting ----------------------------------------------------------------------------------------------------

/// The Frame in memory begins anew, and its file goes. No rescue is under way.
void forget_history(const FrameSlot& slot);
/// All of a Workspace.
void forget_all_histories(const Folder& folder);

}  // namespace nubo
