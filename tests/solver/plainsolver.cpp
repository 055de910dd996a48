// SPDX-License-Identifier: MIT
#include "solver/plainsolver.h"

#include <algorithm>
#include <array>
#include <cstdint>
#include <sstream>
#include <vector>

namespace plain {

long long stage1nodes, stage2nodes;

namespace {

// Names, and what a turn does to them

const std::string edge_names[] = {"UF", "UR", "UB", "UL", "DF", "DR",
                                  "DB", "DL", "FR", "FL", "BR", "BL"};
const std::string corner_names[] = {"UFR", "URB", "UBL", "ULF", "DRF", "DFL", "DLB", "DBR"};

// By face, in the order of the twists: where its turn carries the letters of the side faces.
const struct {
    char face;
    std::string from, to;
} turns[6] = {
    {'F', "URDL", "RDLU"},
    {'L', "UFDB", "FDBU"},
    {'U', "FLBR", "LBRF"},
    {'B', "ULDR", "LDRU"},
    {'R', "UBDF", "BDFU"},
    {'D', "FRBL", "RBLF"},
};

// Which name this is in any of its readings, and how far it is rotated; -1 if none.
struct reading {
    int cubie, rotation;
};

reading readingof(const std::string* names, int count, const std::string& name) {
    for (int i = 0; i < count; i++)
        for (std::size_t r = 0; r < names[i].size(); r++)
            if (names[i].substr(r) + names[i].substr(0, r) == name)
                return {i, static_cast<int>(r)};
    return {-1, 0};
}

// Where the turn of a face carries a position, and how the cubie is read there.
reading carried(const std::string* names, int count, int position, int face) {
    std::string name = names[position];
    if (name.find(turns[face].face) == std::string::npos)
        return {position, 0};
    for (char& letter : name)
        if (letter != turns[face].face)
            letter = turns[face].to[turns[face].from.find(letter)];
    return readingof(names, count, name);
}

cube quarterturned(const cube& c, int face) {
    static const auto motions = [] {
        std::vector<reading> all;
        for (int f = 0; f < 6; f++) {
            for (int i = 0; i < 12; i++)
                all.push_back(carried(edge_names, 12, i, f));
            for (int i = 0; i < 8; i++)
                all.push_back(carried(corner_names, 8, i, f));
        }
        return all;
    }();
    const reading* m = &motions[20 * face];
    cube out{};
    for (int i = 0; i < 12; i++, m++) {
        out.edge[m->cubie] = c.edge[i];
        out.flip[m->cubie] = (c.flip[i] + 2 - m->rotation) % 2;
    }
    for (int i = 0; i < 8; i++, m++) {
        out.corner[m->cubie] = c.corner[i];
        out.twist[m->cubie] = (c.twist[i] + 3 - m->rotation) % 3;
    }
    return out;
}

// Ranks in lexicographic order, a pair of inverses

int rankof(const int* p, int n) {
    int rank = 0;
    for (int i = 0; i < n; i++) {
        rank *= n - i;
        for (int j = i + 1; j < n; j++)
            rank += p[j] < p[i];
    }
    return rank;
}

void unrank(int rank, int* p, int n) {
    for (int i = n - 1; i >= 0; i--) {
        p[i] = rank % (n - i);
        rank /= n - i;
        for (int j = i + 1; j < n; j++)
            p[j] += p[j] >= p[i];
    }
}

int parity(const int* p, int n) {
    int odd = 0;
    for (int i = 0; i < n; i++)
        for (int j = i + 1; j < n; j++)
            odd ^= p[i] > p[j];
    return odd;
}

// The sets of four of n positions, in lexicographic order
struct foursets {
    int positions;
    std::vector<int> masks, indices; // index -> mask, mask -> index

    explicit foursets(int n) : positions(n), indices(std::size_t{1} << n) {
        for (int a = 0; a < n; a++)
            for (int b = a + 1; b < n; b++)
                for (int c = b + 1; c < n; c++)
                    for (int d = c + 1; d < n; d++) {
                        const int mask = 1 << a | 1 << b | 1 << c | 1 << d;
                        indices[mask] = static_cast<int>(masks.size());
                        masks.push_back(mask);
                    }
    }
};

const foursets of12(12), of8(8);

// Where the edges first, first + step, ... (four of them) are among the positions, and in which
// order; -1 if not all four are there. 495 or 70 places times 24 orders.
int get_four(const cube& c, int first, int step, const foursets& sets) {
    int mask = 0;
    int order[4];
    int found = 0;
    for (int i = 0; i < sets.positions; i++) {
        const int offset = c.edge[i] - first;
        if (offset < 0 || offset % step != 0 || offset / step > 3)
            continue;
        mask |= 1 << i;
        order[found++] = offset / step;
    }
    if (found < 4)
        return -1;
    return sets.indices[mask] + static_cast<int>(sets.masks.size()) * rankof(order, 4);
}

// A cube that has them there; its other edges are -1.
cube set_four(int x, int first, int step, const foursets& sets) {
    const int size = static_cast<int>(sets.masks.size());
    cube c = solvedcube();
    int order[4];
    unrank(x / size, order, 4);
    for (int i = 0, found = 0; i < 12; i++)
        c.edge[i] = sets.masks[x % size] >> i & 1 ? first + step * order[found++] : -1;
    return c;
}

// The coordinates: what each is of a cube, and a cube that has a given one

int get_corner(const cube& c) {
    int x = 0;
    for (int i = 6; i >= 0; i--)
        x = 3 * x + c.twist[i];
    return x;
}

cube set_corner(int x) {
    cube c = solvedcube();
    int sum = 0;
    for (int i = 0; i < 7; i++, x /= 3)
        sum += c.twist[i] = x % 3;
    c.twist[7] = (21 - sum) % 3;
    return c;
}

int get_eflip(const cube& c) {
    int x = 0;
    for (int i = 10; i >= 0; i--)
        x = 2 * x + c.flip[i];
    return x;
}

cube set_eflip(int x) {
    cube c = solvedcube();
    int sum = 0;
    for (int i = 0; i < 11; i++, x /= 2)
        sum += c.flip[i] = x % 2;
    c.flip[11] = sum % 2;
    return c;
}

int get_slice(const cube& c) {
    return get_four(c, 8, 1, of12);
}

cube set_slice(int x) {
    return set_four(x, 8, 1, of12);
}

int get_eloc(const cube& c) {
    return get_slice(c) % 495;
}

int get_cornerperm(const cube& c) {
    return rankof(c.corner, 8);
}

cube set_cornerperm(int x) {
    cube c = solvedcube();
    unrank(x, c.corner, 8);
    return c;
}

int get_edgeperm(const cube& c) {
    return rankof(c.edge, 8);
}

cube set_edgeperm(int x) {
    cube c = solvedcube();
    unrank(x, c.edge, 8);
    return c;
}

int get_midperm(const cube& c) {
    int p[4];
    for (int i = 0; i < 4; i++)
        p[i] = c.edge[8 + i] - 8;
    return rankof(p, 4);
}

cube set_midperm(int x) {
    cube c = solvedcube();
    unrank(x, c.edge + 8, 4);
    for (int i = 8; i < 12; i++)
        c.edge[i] += 8;
    return c;
}

// Twists

using twistlist = std::vector<int>;

const char* const texts[18] = {"F", "FF", "f", "L", "LL", "l", "U", "UU", "u",
                               "B", "BB", "b", "R", "RR", "r", "D", "DD", "d"};
const twistlist stage1 = {0, 1, 2, 3, 4, 5, 6, 7, 8, 9, 10, 11, 12, 13, 14, 15, 16, 17};
const twistlist stage2 = {1, 4, 6, 7, 8, 10, 13, 15, 16, 17};

const int lengths[18] = {1, 2, 1, 1, 2, 1, 1, 2, 1, 1, 2, 1, 1, 2, 1, 1, 2, 1};

// What may follow: rows face F L U B R D, columns the state before, 0 for forbidden. States: 1 at
// the start, 2..7 after that face, 8 after F B, 9 after R L, 10 after U D.
const int follow[6][11] = {
    {0, 2, 0, 2, 2,  0, 2, 2, 0, 2, 2}, // F
    {0, 3, 3, 0, 3,  3, 9, 3, 3, 0, 3}, // L
    {0, 4, 4, 4, 0,  4, 4, 0, 4, 4, 0}, // U
    {0, 5, 8, 5, 5,  0, 5, 5, 0, 5, 5}, // B
    {0, 6, 6, 0, 6,  6, 0, 6, 6, 0, 6}, // R
    {0, 7, 7, 7, 10, 7, 7, 0, 7, 7, 0}, // D
};

// Move tables, [twist][value]

template <typename entry> using table = std::array<std::vector<entry>, 18>;

table<int> move_corner, move_eflip, move_eloc, move_midperm;
table<std::uint16_t> move_cornerperm, move_slice, move_edgeperm;

// The rows of the generators from cubes, the others from those: U2 and U' are U twice and thrice.
template <typename entry>
table<entry> moves(int size, const twistlist& generators, int (*get)(const cube&),
                   cube (*set)(int)) {
    table<entry> out;
    for (const int g : generators)
        out[g].resize(size);
    for (int x = 0; x < size; x++) {
        const cube c = set(x);
        for (const int g : generators)
            out[g][x] = static_cast<entry>(get(turned(c, g)));
    }
    for (const int g : generators)
        for (int t = g + 1; g % 3 == 0 && t < g + 3; t++) {
            out[t].resize(size);
            for (int x = 0; x < size; x++)
                out[t][x] = out[g][out[t - 1][x]];
        }
    return out;
}

const twistlist stage1generators = {0, 3, 6, 9, 12, 15};
const twistlist stage2generators = {1, 4, 6, 10, 13, 15};

// From the slices of stage 1 to the permutations of stage 2; impossible ones are marked

constexpr int impossible = 54321;

std::vector<int> slice_to_half, slice_to_mid;
std::vector<std::uint16_t> halves_to_edgeperm; // [1680 * even half + odd half]

// Edges 0 2 4 6 of one cube, 1 3 5 7 of the other.
int joined(const cube& even, const cube& odd) {
    int p[8];
    for (int i = 0; i < 8; i++) {
        if (even.edge[i] >= 0 && odd.edge[i] >= 0)
            return impossible;
        p[i] = std::max(even.edge[i], odd.edge[i]);
    }
    return rankof(p, 8);
}

void buildjunction() {
    slice_to_half.assign(11880, impossible);
    slice_to_mid.assign(11880, impossible);
    for (int x = 0; x < 11880; x++) {
        const cube c = set_slice(x);
        const int mask = of12.masks[x % 495];
        if (mask >> 8 == 0)
            slice_to_half[x] = get_four(c, 8, 1, of8);
        if (mask == 0xF00)
            slice_to_mid[x] = get_midperm(c);
    }
    std::vector<cube> evens, odds;
    for (int h = 0; h < 1680; h++) {
        evens.push_back(set_four(h, 0, 2, of8));
        odds.push_back(set_four(h, 1, 2, of8));
    }
    halves_to_edgeperm.clear();
    for (const cube& even : evens)
        for (const cube& odd : odds)
            halves_to_edgeperm.push_back(static_cast<std::uint16_t>(joined(even, odd)));
}

// Distances, [columns * row + column]

std::vector<std::uint8_t> corner_eflip, corner_eloc, eflip_eloc;
std::vector<std::uint8_t> cornerperm_alone, mid_corner, mid_edge;

// Layer by layer from the goal; a half turn reaches over two layers.
template <typename rowentry, typename columnentry>
std::vector<std::uint8_t> distances(const table<rowentry>& row, const table<columnentry>& column,
                                    const twistlist& twists, int goal) {
    const int rows = static_cast<int>(row[1].size());
    const int columns = static_cast<int>(column[1].size());
    std::vector<std::uint8_t> out(std::size_t{1} * rows * columns, 181);
    out[goal] = 0;
    for (int d = 1, changed = 1; changed != 0; d++) {
        changed = 0;
        for (int r = 0, x = 0; r < rows; r++)
            for (int c = 0; c < columns; c++, x++) {
                if (out[x] < d - 2 || out[x] >= d)
                    continue;
                for (const int t : twists) {
                    if (out[x] + lengths[t] != d)
                        continue;
                    const int y = columns * row[t][r] + column[t][c];
                    if (out[y] > d) {
                        out[y] = static_cast<std::uint8_t>(d);
                        changed++;
                    }
                }
            }
    }
    return out;
}

// The search

struct node {
    int remaining, twist, state, x, y, z;
};

struct {
    int cornerperm, slices[3];
} input;

int best, allotment;
std::string answer;

// Both stacks' twists, each up to the node that has nothing remaining.
void keep(const node* one, const node* two) {
    best = one->remaining + two->remaining;
    allotment = two->remaining - 2;
    answer.clear();
    for (; one->remaining > 0; one++)
        answer += texts[one[1].twist];
    for (; two->remaining > 0; two++)
        answer += texts[two[1].twist];
}

bool search2(const node* one, const node* two, node* n) {
    stage2nodes++;
    if (n->remaining == 0) {
        keep(one, two);
        return true;
    }
    for (const int t : stage2) {
        const int state = follow[t / 3][n->state];
        const int remaining = n->remaining - lengths[t];
        if (state == 0)
            continue;
        const int mid = move_midperm[t][n->z];
        const int corners = move_cornerperm[t][n->x];
        if (mid_corner[40320 * mid + corners] > remaining)
            continue;
        const int edges = move_edgeperm[t][n->y];
        if (mid_edge[40320 * mid + edges] > remaining)
            continue;
        n[1] = {remaining, t, state, corners, edges, mid};
        if (search2(one, two, n + 1))
            return true;
    }
    return false;
}

template <typename entry> int replayed(const table<entry>& move, const node* one, int x) {
    for (; one->remaining > 0; one++)
        x = move[one[1].twist][x];
    return x;
}

void junction(const node* one) {
    const int corners = replayed(move_cornerperm, one, input.cornerperm);
    if (cornerperm_alone[corners] > allotment)
        return;
    const int mid = slice_to_mid[replayed(move_slice, one, input.slices[0])];
    const int d1 = mid_corner[40320 * mid + corners];
    if (d1 > allotment)
        return;
    const int even = slice_to_half[replayed(move_slice, one, input.slices[1])];
    const int odd = slice_to_half[replayed(move_slice, one, input.slices[2])];
    const int edges = halves_to_edgeperm[1680 * even + odd];
    const int d2 = mid_edge[40320 * mid + edges];
    if (d2 > allotment)
        return;
    for (int e = std::max(d1, d2); e <= allotment; e += 2) {
        node two[184];
        two[0] = {e, -1, 1, corners, edges, mid};
        search2(one, two, two);
    }
}

void search1(const node* one, node* n) {
    stage1nodes++;
    if (n->remaining == 0) {
        // A twist of stage 2 at the end is left to stage 2, but for U'.
        const bool flagged = n->twist != 8 && std::count(stage2.begin(), stage2.end(), n->twist);
        if (n == one || !flagged)
            junction(one);
        return;
    }
    for (const int t : stage1) {
        const int state = follow[t / 3][n->state];
        const int remaining = n->remaining - lengths[t];
        if (state == 0)
            continue;
        const int corner = move_corner[t][n->x];
        const int eflip = move_eflip[t][n->y];
        if (corner_eflip[2048 * corner + eflip] > remaining)
            continue;
        const int eloc = move_eloc[t][n->z];
        if (corner_eloc[495 * corner + eloc] > remaining ||
            eflip_eloc[495 * eflip + eloc] > remaining)
            continue;
        n[1] = {remaining, t, state, corner, eflip, eloc};
        search1(one, n + 1);
    }
}

// The slice coordinate of four edges: as if they were the slice edges.
int slice_of(const cube& c, int first, int step) {
    return get_four(c, first, step, of12);
}

} // namespace

cube solvedcube() {
    cube c{};
    for (int i = 0; i < 12; i++)
        c.edge[i] = i;
    for (int i = 0; i < 8; i++)
        c.corner[i] = i;
    return c;
}

bool parse(const std::string& text, cube& out) {
    std::istringstream words(text);
    std::string word;
    for (int i = 0; i < 20; i++) {
        words >> word;
        const reading r =
            i < 12 ? readingof(edge_names, 12, word) : readingof(corner_names, 8, word);
        if (!words || r.cubie < 0)
            return false;
        (i < 12 ? out.edge[i] : out.corner[i - 12]) = r.cubie;
        (i < 12 ? out.flip[i] : out.twist[i - 12]) = r.rotation;
    }
    return !(words >> word);
}

std::string listing(const cube& c) {
    std::string text;
    for (int i = 0; i < 20; i++) {
        const std::string name = i < 12 ? edge_names[c.edge[i]] : corner_names[c.corner[i - 12]];
        const int rotation = i < 12 ? c.flip[i] : c.twist[i - 12];
        text += name.substr(rotation) + name.substr(0, rotation) + ' ';
    }
    return text;
}

cube turned(const cube& c, int twist) {
    cube out = c;
    for (int i = 0; i <= twist % 3; i++)
        out = quarterturned(out, twist / 3);
    return out;
}

bool solvable(const cube& c) {
    int flips = 0;
    int twists = 0;
    for (const int flip : c.flip)
        flips += flip;
    for (const int twist : c.twist)
        twists += twist;
    return flips % 2 == 0 && twists % 3 == 0 && parity(c.edge, 12) == parity(c.corner, 8);
}

void buildmovetables() {
    move_corner = moves<int>(2187, stage1generators, get_corner, set_corner);
    move_eflip = moves<int>(2048, stage1generators, get_eflip, set_eflip);
    move_eloc = moves<int>(495, stage1generators, get_eloc, set_slice);
    move_cornerperm = moves<std::uint16_t>(40320, stage1generators, get_cornerperm, set_cornerperm);
    move_edgeperm = moves<std::uint16_t>(40320, stage2generators, get_edgeperm, set_edgeperm);
    move_midperm = moves<int>(24, stage2generators, get_midperm, set_midperm);
    move_slice = moves<std::uint16_t>(11880, stage1generators, get_slice, set_slice);
    buildjunction();
}

void builddistances() {
    corner_eflip = distances(move_corner, move_eflip, stage1, 0);
    corner_eloc = distances(move_corner, move_eloc, stage1, 494);
    eflip_eloc = distances(move_eflip, move_eloc, stage1, 494);
    table<int> nothing;
    nothing.fill({0});
    cornerperm_alone = distances(nothing, move_cornerperm, stage2, 0);
    mid_corner = distances(move_midperm, move_cornerperm, stage2, 0);
    mid_edge = distances(move_midperm, move_edgeperm, stage2, 0);
}

void build() {
    buildmovetables();
    builddistances();
}

std::string solve(const cube& c, int depth) {
    const int corner = get_corner(c);
    const int eflip = get_eflip(c);
    const int eloc = get_eloc(c);
    input = {
        get_cornerperm(c), {get_slice(c), slice_of(c, 0, 2), slice_of(c, 1, 2)}
    };
    answer.clear();
    stage1nodes = stage2nodes = 0;
    best = parity(c.corner, 8) != 0 ? 181 : 182;
    for (int d = std::max({corner_eflip[2048 * corner + eflip], corner_eloc[495 * corner + eloc],
                           eflip_eloc[495 * eflip + eloc]});
         ; d++) {
        allotment = best - d - 2;
        if (allotment < 0)
            break;
        node one[184];
        one[0] = {d, -1, 1, corner, eflip, eloc};
        search1(one, one);
        if (d == depth)
            break;
    }
    return answer;
}

} // namespace plain
