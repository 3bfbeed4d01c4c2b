#pragma once
// The bytes of a Frame's history, as docs/program-folder.md tells them: a header, then records that are only ever
// added. The sum behind each carries on from the one before, as in the log of a database: the file holds up to the
// first record that doesn't match, so that a torn end needs no repair, and what was cut off can't come back.
#include "paint/history.h"
#include "workspace/picture_print.h"
#include <cstdint>
#include <optional>
#include <span>
#include <vector>

namespace nubo {

/// Where undo and redo meet, and the picture that is seen there.
struct HistoryPlace {
    int position = 0;
    int width = 0, height = 0;
    Print print = 0;
    bool operator==(const HistoryPlace&) const = default;
};

/// Makes the bytes to be added to a file. Throws without memory.
class HistoryWriter {
public:
    /// Begins a file: the header, of a history whose oldest step is `first`.
    HistoryWriter(std::uint64_t salt, int first);
    /// Goes on behind a record with that sum.
    explicit HistoryWriter(std::uint64_t sum) : sum_(sum) {}

    /// A step of that number, in the place of all from it on.
    void step(int number, const Step& step);
    void place(const HistoryPlace& place);
    /// The run `run` of the program began with the Frame at `position`.
    void start(int position, std::uint64_t run);

    const std::vector<std::uint8_t>& bytes() const { return bytes_; }
    std::uint64_t sum() const { return sum_; }

private:
    void record(char kind);
    void end_record();

    std::vector<std::uint8_t> bytes_;
    std::uint64_t sum_;
    std::size_t record_ = 0;
};

/// A file up to the newest place of a picture.
struct ReadHistory {
    History history;        // with that position; all in reach
    std::size_t end = 0;    // behind the record of the place
    std::uint64_t sum = 0;  // there
    std::uint64_t run = 0;  // the last run that said it had begun, 0 none; `history.started` is its position
    HistoryPlace place;
};

/// The sum behind bytes that follow others with the sum `sum`; 0 in front of all.
std::uint64_t history_sum(std::uint64_t sum, std::span<const std::uint8_t> bytes);

/// None where there is no place of such a picture, or the bytes aren't a history. Nothing that they claim is believed
/// without a look. Throws without memory.
std::optional<ReadHistory> read_history(std::span<const std::uint8_t> bytes, int width, int height, Print print);
/// The same of the newest place, whatever its picture.
std::optional<ReadHistory> read_newest_history(std::span<const std::uint8_t> bytes);

}  // namespace nubo
