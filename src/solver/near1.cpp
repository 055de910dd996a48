// SPDX-License-Identifier: MIT
#include "solver/near1.h"

#include "shell.h"

#include <algorithm>
#include <array>
#include <bit>
#include <cassert>

namespace {

// By length: the buckets, and the bits of the greatest number, whose class lies within the length.
constexpr int log_buckets[near1_ordinary + 1] = {4, 4, 4, 6, 8, 10, 13, 16, 18};
constexpr int key_bits[near1_ordinary + 1] = {12, 14, 15, 17, 19, 22, 25, 27, 28};

static_assert(1u << key_bits[near1_ordinary] >= edge_class_count * a_corner_size); // any number

constexpr int tag_bits = 32 - lead_bits;
constexpr int spare_buckets = 16; // behind each table, so that nothing need wrap round

constexpr int shift_of(int length) {
    return key_bits[length] - log_buckets[length];
}

constexpr std::size_t cells_before(int length) {
    std::size_t buckets = 0;
    for (int n = 0; n < length; n++) {
        buckets += (std::size_t{1} << log_buckets[n]) + spare_buckets;
    }
    return buckets * bucket_size;
}

// State

alignas(64) std::uint32_t cells[cells_before(near1_ordinary + 1)];

constexpr lead_table table_of(int length) {
    return {cells + cells_before(length), (1u << key_bits[length]) - 1, shift_of(length),
            log_buckets[length]};
}

// How many buckets from where it belongs a member may lie: as many as the overlap tells apart.
constexpr std::uint32_t reach(const lead_table& table) {
    return std::min(1u << (tag_bits - table.shift), std::uint32_t{spare_buckets});
}

struct state {
    std::uint16_t edge_class, corner;
};

// Makes the numbers out of their hashes again.
constexpr std::uint32_t inverse_factor = [] {
    std::uint32_t inverse = 1;
    for (int i = 0; i < 5; i++) {
        inverse *= 2 - 0x9E3779B1u * inverse; // doubles the bits that are right
    }
    return inverse;
}();
static_assert(inverse_factor * 0x9E3779B1u == 1);

std::uint32_t number_of_cell(const lead_table& table, std::uint32_t bucket, std::uint32_t cell) {
    const std::uint32_t tag = cell >> lead_bits;
    const std::uint32_t told = (1u << (tag_bits - table.shift)) - 1;
    const std::uint32_t first = bucket - ((bucket - (tag >> table.shift)) & told);
    const std::uint32_t hash = first << table.shift | (tag & ((1u << table.shift) - 1));
    return (hash * inverse_factor) & table.key_mask;
}

void add(const lead_table& table, std::uint32_t hash, std::uint32_t leads) {
    const std::uint32_t tag = hash << lead_bits;
    const std::uint32_t first = hash >> table.shift;
    std::uint32_t* cell = table.cells + std::size_t{first} * bucket_size;
    const std::uint32_t* end = cell + std::size_t{reach(table)} * bucket_size;
    while (*cell != 0 && (*cell ^ tag) > lead_mask) {
        cell++;
        assert(cell < end); // beyond, the cell would not tell the number
    }
    *cell |= tag | leads;
}

// Adds to the tables many at a time: a cell is fetched from memory while others are added to.
class lead_filler {
  public:
    explicit lead_filler(const lead_table& filled) : table(filled) {}

    lead_filler(const lead_filler&) = delete;
    lead_filler& operator=(const lead_filler&) = delete;

    ~lead_filler() {
        for (const entry& e : waiting) {
            flush(e);
        }
    }

    void operator()(state x, int lead) {
        const std::uint32_t number = near1_number(x.edge_class, x.corner);
        assert(number <= table.key_mask);
        entry& e = waiting[next++ % waiting.size()];
        flush(e);
        e = {lead_hash(table, number), 1u << lead};
        __builtin_prefetch(lead_bucket(table, e.hash), 1);
    }

  private:
    struct entry {
        std::uint32_t hash, leads;
    };

    void flush(const entry& e) const {
        if (e.leads != 0) {
            add(table, e.hash, e.leads);
        }
    }

    lead_table table;
    unsigned next = 0;
    std::array<entry, 32> waiting{};
};

// The same for the bits of the greatest length.
class bit_filler {
  public:
    bit_filler() = default;
    bit_filler(const bit_filler&) = delete;
    bit_filler& operator=(const bit_filler&) = delete;

    ~bit_filler() {
        for (const entry& e : waiting) {
            *e.word |= e.bit;
        }
    }

    void operator()(state x, int /*lead*/) {
        const std::uint32_t number = near1_number(x.edge_class, x.corner);
        entry& e = waiting[next++ % waiting.size()];
        *e.word |= e.bit;
        e = {near1_greatest_bits + number / 64, std::uint64_t{1} << number % 64};
        __builtin_prefetch(e.word, 1);
    }

  private:
    struct entry {
        std::uint64_t* word = near1_greatest_bits;
        std::uint64_t bit = 0;
    };

    unsigned next = 0;
    std::array<entry, 32> waiting;
};

// Calls visit for each state from which the inverse of t leads to x, with that inverse as the state
// sees it. The symmetries of a class make several out of one.
template <typename visitor> void before(state x, int t, visitor& visit) {
    const classified_edges step = edge_class_steps[x.edge_class].after(t);
    const int corner = symmetry_on_corner[a_corner_steps[x.corner].after[t]][step.symmetry];
    const int lead = symmetry_on_twist[step.symmetry][3 * (t / 3) + 2 - t % 3];
    for (unsigned rest = edge_class_stabilizer[step.edge_class]; rest != 0; rest &= rest - 1) {
        const int s = std::countr_zero(rest);
        visit(state{step.edge_class, symmetry_on_corner[corner][s]}, symmetry_on_twist[s][lead]);
    }
}

// Calls visit for each state and lead so that the lead, which has that cost, leads to a member of a
// length from which another face leads on. false when interrupted.
template <typename visitor> bool before_length(int length, int cost, visitor& visit) {
    constexpr std::uint32_t cells_a_question = 1 << 18;
    const lead_table& table = near1_leads[length];
    const std::uint32_t count = ((1u << table.log_buckets) + spare_buckets) * bucket_size;
    for (std::uint32_t position = 0; position < count; position++) {
        if (position % cells_a_question == cells_a_question - 1 && alt_q() != 0) {
            return false;
        }
        const std::uint32_t cell = table.cells[position];
        if (cell == 0) {
            continue;
        }
        const std::uint32_t number = number_of_cell(table, position / bucket_size, cell);
        const state x = {static_cast<std::uint16_t>(number / a_corner_size),
                         static_cast<std::uint16_t>(number % a_corner_size)};
        for (int t = 0; t < a_twist_count; t++) {
            const std::uint32_t same_face = 7u << (t / 3 * 3);
            if (a_metric_length[t] == cost && (cell & lead_mask & ~same_face) != 0) {
                before(x, t, visit);
            }
        }
    }
    return true;
}

// Length 1: the quarter turns into the subgroup from outside. Up and down are not among them, nor
// does a half turn lead there.
void fill_first() {
    lead_filler filler(near1_leads[1]);
    const auto enter = [&](state x, int lead) {
        if (near1_number(x.edge_class, x.corner) != 0) {
            filler(x, lead);
        }
    };
    for (int t = 0; t < a_twist_count; t++) {
        if (a_metric_length[t] == 1) {
            before({0, 0}, t, enter);
        }
    }
}

bool fill_leads(int length) {
    lead_filler filler(near1_leads[length]);
    return before_length(length - 1, 1, filler) && before_length(length - 2, 2, filler);
}

bool fill_greatest() {
    bit_filler filler;
    return before_length(near1_greatest - 1, 1, filler) &&
           before_length(near1_greatest - 2, 2, filler);
}

} // namespace

constinit const lead_table near1_leads[near1_ordinary + 1] = {
    table_of(0), table_of(1), table_of(2), table_of(3), table_of(4),
    table_of(5), table_of(6), table_of(7), table_of(8),
};

constinit std::uint64_t near1_greatest_bits[edge_class_count * a_corner_size / 64 + 1] = {};

constinit int near1_length = -1;

bool near1_extend(int length) {
    assert(length >= near1_initial && length <= near1_greatest && metric == quarter_turn_metric);
    if (near1_length < 0) {
        fill_first();
        near1_length = 1;
    }
    while (near1_length < length) {
        const int next = near1_length + 1;
        if (!(next < near1_greatest ? fill_leads(next) : fill_greatest())) {
            return false;
        }
        near1_length = next;
    }
    return true;
}
