#include "framework/packer.h"
#include "harness/harness.h"

namespace nubo {
namespace {

using Bytes = std::vector<std::uint8_t>;

Bytes bytes_of(std::string_view text) { return {text.begin(), text.end()}; }

Bytes operator+(Bytes a, const Bytes& b) {
    a.insert(a.end(), b.begin(), b.end());
    return a;
}

/// The container's rule word by word: at each place every distance is tried, the nearest first. For one chunk.
Bytes packed_by_every_distance(const Bytes& chunk) {
    const auto number = [](Bytes& out, std::size_t n) {
        if (n >= 128 * 128) out.push_back(static_cast<std::uint8_t>(n / (128 * 128) + 128));
        if (n >= 128) out.push_back(static_cast<std::uint8_t>(n / 128 % 128 + 128));
        out.push_back(static_cast<std::uint8_t>(n % 128));
    };
    std::array<int, 256> counts{};
    for (const std::uint8_t byte : chunk) ++counts[byte];
    const auto marker = static_cast<std::uint8_t>(std::min_element(counts.begin(), counts.end()) - counts.begin());
    Bytes out{marker};
    for (std::size_t at = 0; at < chunk.size();) {
        std::size_t length = 0, distance = 0;
        for (std::size_t d = 3; d <= at; ++d) {
            std::size_t n = 0;
            while (n < d && at + n + 3 < chunk.size() && chunk[at + n] == chunk[at + n - d]) ++n;
            if (n > length) length = n, distance = d;
        }
        if (length >= 6 || (length == 5 && distance < 16384) || (length == 4 && distance < 128)) {
            out.push_back(marker);
            number(out, length);
            number(out, distance);
            at += length;
        } else {
            out.push_back(chunk[at]);
            if (chunk[at] == marker) out.push_back(0);
            ++at;
        }
    }
    const std::size_t sizes[] = {out.size(), chunk.size()};
    Bytes file = bytes_of("MOJO") + Bytes{1};
    for (const std::size_t size : sizes)
        file = file + Bytes{static_cast<std::uint8_t>(size / 256), static_cast<std::uint8_t>(size % 256)};
    return file + out;
}

/// Bytes from 0 to `values` - 1 that repeat earlier runs now and then.
Bytes repetitive_bytes(std::size_t size, int values, int run_odds) {
    Bytes bytes;
    while (bytes.size() < size) {
        if (bytes.size() > 8 && UA_random(run_odds) == 0) {
            std::size_t from = static_cast<std::size_t>(UA_random(static_cast<int>(bytes.size()))),
                        run = static_cast<std::size_t>(UA_random(300));
            while (run-- > 0 && bytes.size() < size) bytes.push_back(bytes[from++]);
        } else {
            bytes.push_back(static_cast<std::uint8_t>(UA_random(values)));
        }
    }
    return bytes;
}

TEST(Packer, WritesCopiesAndLeavesTheTailLiteral) {
    // Marker 0, the lowest byte that doesn't occur. The second "ABCDEFGH" is 8 bytes from 8 back; the last three bytes
    // of the chunk are never part of a copy.
    const Bytes expected =
        bytes_of("MOJO") + Bytes{1, 0, 15, 0, 19, 0} + bytes_of("ABCDEFGH") + Bytes{0, 8, 8} + bytes_of("xyz");
    EXPECT_EQ(pack_bytes(bytes_of("ABCDEFGHABCDEFGHxyz")), expected);
    EXPECT_EQ(unpack_bytes(expected), bytes_of("ABCDEFGHABCDEFGHxyz"));
    EXPECT_EQ(pack_bytes(Bytes{}), bytes_of("MOJO") + Bytes{0});
}

TEST(Packer, GivesTheBytesOfTryingEveryDistance) {
    for (const int values : {1, 2, 3, 20, 256})
        for (const std::size_t size : {1U, 4U, 7U, 50U, 3000U}) {
            const Bytes source = repetitive_bytes(size, values, 40);
            EXPECT_EQ(pack_bytes(source), packed_by_every_distance(source))
                << values << " values, " << size << " bytes";
        }
    Bytes far = repetitive_bytes(20000, 256, 1 << 20);  // five equal bytes too far back for a copy, six not
    std::copy_n(far.begin(), 5, far.begin() + 19000);
    std::copy_n(far.begin() + 10, 6, far.begin() + 19500);
    EXPECT_EQ(pack_bytes(far), packed_by_every_distance(far));
}

TEST(Packer, RoundTripsAcrossChunks) {
    for (const std::size_t size : {32767U, 32768U, 32769U, 100000U}) {
        const Bytes source = repetitive_bytes(size, 256, 30);
        const auto packed = pack_bytes(source);
        ASSERT_TRUE(packed);
        EXPECT_EQ((*packed)[4], (size + 32767) / 32768);
        EXPECT_TRUE(unpack_bytes(*packed) == source) << size;
    }
    EXPECT_FALSE(pack_bytes(Bytes(pack_chunk_size * pack_chunks_max + 1)));
}

TEST(Packer, RefusesWhatIsNoWholeContainer) {
    const auto chunk = [](int unpacked, const Bytes& packed) {
        return bytes_of("MOJO") +
               Bytes{1, 0, static_cast<std::uint8_t>(packed.size()), 0, static_cast<std::uint8_t>(unpacked)} + packed;
    };
    ASSERT_TRUE(unpack_bytes(chunk(6, Bytes{0, 'a', 'b', 0, 4, 2})));  // the sound one of which the others are twists
    const Bytes hostile[] = {
        chunk(6, Bytes{0, 'a', 'b', 0, 4, 3}),              // from before the chunk
        chunk(6, Bytes{0, 'a', 'b', 0, 4, 0}),              // from nowhere
        chunk(6, Bytes{0, 'a', 'b', 0, 5, 2}),              // beyond the chunk's end
        chunk(7, Bytes{0, 'a', 'b', 0, 4, 2}),              // short of it
        chunk(6, Bytes{0, 'a', 'b', 0, 4}),                 // a copy without a distance
        chunk(6, Bytes{0, 'a', 'b', 0}),                    // a marker without anything
        chunk(6, Bytes{0, 'a', 'b', 0, 0x84, 0x80, 0x80}),  // a number without an end
        chunk(6, Bytes{0, 'a', 'b', 0, 0xff, 0xff, 0xff, 0xff, 0xff, 0xff, 0xff, 0xff, 0xff, 0xff, 0x7f, 1}),
        chunk(6, Bytes{0, 'a', 'b', 0, 4, 2}) + Bytes{0},  // something left over
        chunk(0, Bytes{0}),
        chunk(0, Bytes{}),
        bytes_of("MOJ"),
        bytes_of("MOJO"),
        bytes_of("MOJP") + Bytes{0}};
    for (const Bytes& file : hostile) EXPECT_FALSE(unpack_bytes(file)) << testing::PrintToString(file);
}

TEST(Packer, ReadsCutAndFlippedContainersWithoutHarm) {
    const Bytes packed = *pack_bytes(repetitive_bytes(40000, 6, 20));
    for (std::size_t size = 0; size < packed.size(); size += 1 + size / 16)
        EXPECT_FALSE(unpack_bytes(std::span(packed).first(size))) << "cut to " << size;
    for (std::size_t at = 0; at < packed.size(); at += 1 + at / 64)
        for (const std::uint8_t flip : {0x01, 0x80, 0xff}) {
            Bytes twisted = packed;
            twisted[at] ^= flip;
            const auto source = unpack_bytes(twisted);
            EXPECT_TRUE(!source || source->size() <= 2 * pack_chunk_size) << "flipped at " << at;
        }
}

}  // namespace
}  // namespace nubo
