// The octree quantiser (Gervautz and Purgathofer, 1988): the colours seen are the leaves of a tree that halves each
// channel at each level, and as soon as there are more than the palette holds, the deepest node's leaves become one.
#include "codecs/png_octree.h"

#include <algorithm>
#include <array>
#include <new>

namespace nubo {
namespace {

constexpr int tree_depth = 6;  // the bits of a palette's channel: a leaf at full depth is one colour of a palette
constexpr int most_leaves = 256;
// Every leaf, and the one that is just too many, has its chain of nodes from the root.
constexpr int node_slots = (most_leaves + 1) * (tree_depth + 1);
constexpr int no_node = -1, root = 0;

struct Node {
    std::array<std::int16_t, 8> child;
    std::int16_t next;   // of the nodes of one level that have children, or of the free ones
    std::int16_t index;  // in the palette
    bool leaf;
    std::uint32_t pixels;  // of a leaf, and the sums of their channels
    std::uint64_t red, green, blue;
};

struct Components {
    int red, green, blue;
};

Components components(Color pixel) {
    const int color = static_cast<int>(pixel);
    return {getr32(color), getg32(color), getb32(color)};
}

class Octree {
public:
    Octree() {
        inner_.fill(no_node);
        for (int i = 0; i < node_slots; ++i)
            nodes_[static_cast<std::size_t>(i)].next = static_cast<std::int16_t>(i + 1);
        take_node(0);
    }

    void add(Color pixel) {
        const Components color = components(pixel);
        int at = root;
        for (int level = 0; !node(at).leaf; ++level) {
            const std::size_t branch = branch_of(color, level);
            if (node(at).child[branch] == no_node) {
                const std::int16_t fresh = take_node(level + 1);
                node(at).child[branch] = fresh;
            }
            at = node(at).child[branch];
        }
        node(at).pixels += 1;
        node(at).red += static_cast<unsigned>(color.red);
        node(at).green += static_cast<unsigned>(color.green);
        node(at).blue += static_cast<unsigned>(color.blue);
        while (leaves_ > most_leaves) merge_deepest();
    }

    /// Gives each leaf its place in the palette, and the palette the mean of the leaf's pixels.
    void fill_palette(RGB* palette) {
        std::fill_n(palette, most_leaves, RGB{});
        int entries = 0;
        name_leaves(root, palette, entries);
    }

    std::uint8_t index_of(Color pixel) const {
        const Components color = components(pixel);
        int at = root;
        for (int level = 0; !node(at).leaf; ++level) at = node(at).child[branch_of(color, level)];
        return static_cast<std::uint8_t>(node(at).index);
    }

private:
    Node& node(int at) { return nodes_[static_cast<std::size_t>(at)]; }
    const Node& node(int at) const { return nodes_[static_cast<std::size_t>(at)]; }

    static std::size_t branch_of(const Components& color, int level) {
        const int bit = 7 - level;
        return static_cast<std::size_t>((color.red >> bit & 1) << 2 | (color.green >> bit & 1) << 1 |
                                        (color.blue >> bit & 1));
    }

    std::int16_t take_node(int level) {
        const std::int16_t taken = free_;
        Node& fresh = node(taken);
        free_ = fresh.next;
        fresh = Node{};
        fresh.child.fill(no_node);
        fresh.leaf = level == tree_depth;
        if (fresh.leaf) {
            ++leaves_;
        } else {
            fresh.next = inner_[static_cast<std::size_t>(level)];
            inner_[static_cast<std::size_t>(level)] = taken;
        }
        return taken;
    }

    /// Makes a leaf of the node made last on the deepest level that has one; its children are leaves all.
    void merge_deepest() {
        std::size_t level = tree_depth - 1;
        while (inner_[level] == no_node) --level;
        Node& merged = node(inner_[level]);
        inner_[level] = merged.next;
        for (const std::int16_t child : merged.child) {
            if (child == no_node) continue;
            Node& gone = node(child);
            merged.pixels += gone.pixels;
            merged.red += gone.red;
            merged.green += gone.green;
            merged.blue += gone.blue;
            gone.next = free_;
            free_ = child;
            --leaves_;
        }
        merged.leaf = true;
        ++leaves_;
    }

    void name_leaves(int at, RGB* palette, int& entries) {
        Node& here = node(at);
        if (here.leaf) {
            const auto mean = [&](std::uint64_t sum) { return static_cast<unsigned char>(sum / here.pixels >> 2); };
            palette[entries] = RGB{mean(here.red), mean(here.green), mean(here.blue), 0};
            here.index = static_cast<std::int16_t>(entries++);
            return;
        }
        for (const std::int16_t child : here.child)
            if (child != no_node) name_leaves(child, palette, entries);
    }

    std::array<Node, node_slots> nodes_{};
    std::array<std::int16_t, tree_depth> inner_{};  // the first node with children of each level
    std::int16_t free_ = 0;
    int leaves_ = 0;
};

}  // namespace

OwnedBitmap octree_reduce(const BITMAP* source, RGB* palette) {
    const std::unique_ptr<Octree> tree(new (std::nothrow) Octree);
    OwnedBitmap reduced(create_bitmap_ex(8, source->w, source->h));
    if (!tree || !reduced) return nullptr;
    const auto row = [&](int y) { return reinterpret_cast<const Color*>(source->line[y]); };
    for (int y = 0; y < source->h; ++y)
        for (int x = 0; x < source->w; ++x) tree->add(row(y)[x]);
    tree->fill_palette(palette);
    for (int y = 0; y < source->h; ++y)
        for (int x = 0; x < source->w; ++x) reduced->line[y][x] = tree->index_of(row(y)[x]);
    return reduced;
}

}  // namespace nubo
