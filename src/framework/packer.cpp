#include "framework/packer.h"

#include <algorithm>
#include <array>
#include <cstring>

namespace nubo {
namespace {

using Bytes = std::vector<std::uint8_t>;
using ByteSpan = std::span<const std::uint8_t>;

constexpr std::array<std::uint8_t, 4> magic{'M', 'O', 'J', 'O'};
constexpr std::size_t literal_tail = 3;    // a chunk's last bytes, which no copy covers
constexpr std::size_t match_shortest = 4;  // no shorter copy is ever worth its bytes
constexpr std::size_t match_longest = 268435456;
constexpr unsigned group_bits = 7, group_more = 0x80, group_mask = 0x7f;

// ---- Numbers -------------------------------------------------------------------------------------------------------

void write_number(Bytes& out, std::size_t number) {
    unsigned shift = 0;
    while (number >> shift > group_mask) shift += group_bits;
    for (; shift > 0; shift -= group_bits)
        out.push_back(static_cast<std::uint8_t>((number >> shift & group_mask) | group_more));
    out.push_back(static_cast<std::uint8_t>(number & group_mask));
}

void write_word(Bytes& out, std::size_t word) {
    out.push_back(static_cast<std::uint8_t>(word >> 8));
    out.push_back(static_cast<std::uint8_t>(word & 0xff));
}

/// Walks bytes that may end anywhere.
class Reader {
public:
    explicit Reader(ByteSpan bytes) : bytes_(bytes) {}
    bool at_end() const { return at_ == bytes_.size(); }
    std::optional<std::uint8_t> byte() {
        if (at_end()) return std::nullopt;
        return bytes_[at_++];
    }
    std::optional<std::size_t> word() {
        const auto high = byte(), low = byte();
        if (!high || !low) return std::nullopt;
        return static_cast<std::size_t>(*high) << 8 | *low;
    }
    std::optional<ByteSpan> span(std::size_t size) {
        if (bytes_.size() - at_ < size) return std::nullopt;
        at_ += size;
        return bytes_.subspan(at_ - size, size);
    }
    /// A number of 7-bit groups whose first byte is `first`. Nothing beyond what a chunk can hold.
    std::optional<std::size_t> number(std::uint8_t first) {
        std::size_t value = first & group_mask;
        for (unsigned more = first & group_more; more != 0;) {
            const auto next = byte();
            if (!next) return std::nullopt;
            value = value << group_bits | (*next & group_mask);
            if (value > pack_chunk_size) return std::nullopt;
            more = *next & group_more;
        }
        return value;
    }

private:
    ByteSpan bytes_;
    std::size_t at_ = 0;
};

// ---- Packing -------------------------------------------------------------------------------------------------------

/// How many bytes from `a` and `b` on are equal, at most `limit`.
std::size_t common_length(const std::uint8_t* a, const std::uint8_t* b, std::size_t limit) {
    std::size_t length = 0;
    while (length + sizeof(std::uint64_t) <= limit) {
        std::uint64_t words[2];
        std::memcpy(&words[0], a + length, sizeof words[0]);
        std::memcpy(&words[1], b + length, sizeof words[1]);
        if (words[0] != words[1]) break;
        length += sizeof(std::uint64_t);
    }
    while (length < limit && a[length] == b[length]) ++length;
    return length;
}

struct Match {
    std::size_t length = 0, distance = 0;
};

/// Finds earlier places by the four bytes that stand there, through chains from each place to the one before it. So
/// only places are looked at that can give a match worth writing; the result is that of looking at every distance.
class MatchFinder {
public:
    explicit MatchFinder(ByteSpan chunk) : chunk_(chunk), before_(chunk.size(), none) { newest_.fill(none); }

    /// The longest match at `at`, the nearest among equals. No match is longer than its distance or reaches the tail.
    Match longest(std::size_t at) {
        const std::size_t room = chunk_.size() - literal_tail - at;
        Match best;
        if (room < match_shortest) return best;
        add_places_before(at);
        for (std::int32_t place = newest_[hash(at)]; place != none && best.length < room;
             place = before_[static_cast<std::size_t>(place)]) {
            const std::size_t distance = at - static_cast<std::size_t>(place), limit = std::min(distance, room);
            const std::uint8_t *const here = &chunk_[at], *const there = here - distance;
            // A longer match must agree where the best one so far ends.
            if (limit <= best.length || here[best.length] != there[best.length]) continue;
            const std::size_t length = common_length(here, there, limit);
            if (length > best.length) best = {length, distance};
        }
        return best;
    }

private:
    static constexpr std::int32_t none = -1;
    static constexpr unsigned hash_bits = 15;

    std::size_t hash(std::size_t at) const {
        std::uint32_t four;
        std::memcpy(&four, &chunk_[at], sizeof four);
        return four * 2654435761U >> (32 - hash_bits);
    }
    void add_places_before(std::size_t at) {
        for (; added_ < at; ++added_) {
            std::int32_t& newest = newest_[hash(added_)];
            before_[added_] = newest;
            newest = static_cast<std::int32_t>(added_);
        }
    }

    ByteSpan chunk_;
    std::vector<std::int32_t> before_;
    std::array<std::int32_t, 1U << hash_bits> newest_;
    std::size_t added_ = 0;
};

/// Whether a copy takes fewer bytes than what it stands for: a near one may be shorter.
bool is_worth_writing(const Match& match) {
    constexpr std::size_t always = 8;
    constexpr std::array<std::size_t, always> nearer_than{0, 0, 0, 0, 1U << 7, 1U << 14, 1U << 21, match_longest};
    return match.length >= always || match.distance < nearer_than[match.length];
}

std::uint8_t least_frequent_byte(ByteSpan chunk) {
    std::array<std::size_t, 256> counts{};
    for (const std::uint8_t byte : chunk) ++counts[byte];
    return static_cast<std::uint8_t>(std::min_element(counts.begin(), counts.end()) - counts.begin());
}

Bytes pack_chunk(ByteSpan chunk) {
    const std::uint8_t marker = least_frequent_byte(chunk);
    Bytes out{marker};
    MatchFinder finder(chunk);
    for (std::size_t at = 0; at < chunk.size();) {
        const Match match = at + literal_tail < chunk.size() ? finder.longest(at) : Match{};
        if (is_worth_writing(match)) {
            out.push_back(marker);
            write_number(out, match.length);
            write_number(out, match.distance);
            at += match.length;
        } else {
            out.push_back(chunk[at]);
            if (chunk[at] == marker) out.push_back(0);
            ++at;
        }
    }
    return out;
}

// ---- Unpacking -----------------------------------------------------------------------------------------------------

/// Appends what one marker stands for. False when it is no marker's sequence or reaches out of the chunk, whose bytes
/// begin at `start` of `out` and end at `end`.
bool unpack_marker(Reader& reader, std::uint8_t marker, Bytes& out, std::size_t start, std::size_t end) {
    const auto first = reader.byte();
    if (!first) return false;
    if (*first == 0) {
        out.push_back(marker);
        return out.size() <= end;
    }
    const auto length = reader.number(*first);
    const auto next = reader.byte();
    if (!length || !next) return false;
    const auto distance = reader.number(*next);
    if (!distance || *distance == 0 || *distance > out.size() - start || *length > end - out.size()) return false;
    for (std::size_t i = 0; i < *length; ++i) out.push_back(out[out.size() - *distance]);
    return true;
}

bool unpack_chunk(ByteSpan packed, std::size_t unpacked_size, Bytes& out) {
    Reader reader(packed);
    const auto marker = reader.byte();
    if (!marker) return false;
    const std::size_t start = out.size(), end = start + unpacked_size;
    while (!reader.at_end()) {
        if (out.size() >= end) return false;
        const std::uint8_t byte = *reader.byte();
        if (byte != *marker)
            out.push_back(byte);
        else if (!unpack_marker(reader, *marker, out, start, end))
            return false;
    }
    return out.size() == end;
}

}  // namespace

std::optional<std::vector<std::uint8_t>> pack_bytes(std::span<const std::uint8_t> source) {
    const std::size_t chunks = (source.size() + pack_chunk_size - 1) / pack_chunk_size;
    if (chunks > pack_chunks_max) return std::nullopt;
    Bytes out(magic.begin(), magic.end());
    out.push_back(static_cast<std::uint8_t>(chunks));
    for (std::size_t at = 0; at < source.size(); at += pack_chunk_size) {
        const ByteSpan chunk = source.subspan(at, std::min(pack_chunk_size, source.size() - at));
        const Bytes packed = pack_chunk(chunk);
        write_word(out, packed.size());
        write_word(out, chunk.size());
        out.insert(out.end(), packed.begin(), packed.end());
    }
    return out;
}

std::optional<std::vector<std::uint8_t>> unpack_bytes(std::span<const std::uint8_t> packed) {
    if (!has_pack_magic(packed)) return std::nullopt;
    Reader reader(packed.subspan(magic.size()));
    const auto chunks = reader.byte();
    if (!chunks) return std::nullopt;
    Bytes out;
    for (int left = *chunks; left > 0; --left) {
        const auto packed_size = reader.word(), unpacked_size = reader.word();
        if (!packed_size || !unpacked_size) return std::nullopt;
        const bool is_size_right =
            left > 1 ? *unpacked_size == pack_chunk_size : *unpacked_size > 0 && *unpacked_size <= pack_chunk_size;
        const auto bytes = reader.span(*packed_size);
        if (!is_size_right || !bytes || !unpack_chunk(*bytes, *unpacked_size, out)) return std::nullopt;
    }
    if (!reader.at_end()) return std::nullopt;
    return out;
}

bool has_pack_magic(std::span<const std::uint8_t> bytes) {
    return bytes.size() >= magic.size() && std::equal(magic.begin(), magic.end(), bytes.begin());
}

}  // namespace nubo
