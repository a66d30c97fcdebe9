// The tables behind the vectors of digit pairs: which byte goes to which lane, and what is added there.
#pragma once

#include <cstdint>

struct alignas(16) VectorRow {
    uint8_t lanes[16];
};

// L and the sign of a Number as one index: L, plus 16 for a positive value.
constexpr int kForms = 32;
constexpr int kPositiveForm = 16;

// How the data bytes of one form become pairs: shuffled, complemented, added to.
struct TakeApartRow {
    VectorRow shuffle;
    VectorRow flip;
    VectorRow add;
    VectorRow toOrder;  // for comparison alone
};

struct TakeApartRows {
    TakeApartRow of[kForms];
};

// How pairs become the data bytes of one sign: shuffled into memory order, rounded, complemented, added to. The sizes
// are powers of two, which makes the rows cheap to find.
struct FinishRow {
    VectorRow add;
    VectorRow dataLanes;  // those of all data bytes
};

struct alignas(1024) PackRows {
    FinishRow finish[16];    // by the number of pairs
    VectorRow toMemory[16];  // by the lane of the first pair
    VectorRow roundUp[2];    // 1 for the last pair that fits
    VectorRow flip;
};

// How an operand is brought under one of a greater exponent.
struct alignas(512) AlignRows {
    VectorRow shift[16];  // by places
    VectorRow flip;
    VectorRow add;
};

// How a value is rounded to a number of digits.
struct RoundRow {
    VectorRow add;       // half of the last digit that stays
    VectorRow keep;      // the pairs that stay whole
    VectorRow keepTens;  // the pair of which the first digit stays
};

struct RoundRows {
    RoundRow of[23];  // by the number of digits that stay
};

// Sums of pairs are made with this on top, so that bit 7 tells the ones above 99.
constexpr int kSumBias = 28;

namespace vector_tables {

constexpr uint8_t kNoByte = 0x80;  // a shuffle gives 0 there
constexpr int kMostPairs = 11;

// Pairs of a form; none for what is null or too short for its sign, and what fits for an invalid L.
constexpr int PairsOf(int form) {
    const int pairs = (form & 15) - (form >= kPositiveForm ? 1 : 2);
    return pairs < 0 ? 0 : pairs > kMostPairs ? kMostPairs : pairs;
}

// 100 - b is ~b + 101; where no byte goes, ~0 + 1 is 0.
constexpr TakeApartRow PlacePairs(int form, int firstLane) {
    TakeApartRow row{};
    const bool negative = form < kPositiveForm;
    for (int lane = 0; lane < 16; ++lane) {
        const int pair = firstLane - lane;
        const bool used = pair >= 0 && pair < PairsOf(form);
        row.shuffle.lanes[lane] = static_cast<uint8_t>(used ? 1 + pair : kNoByte);
        row.flip.lanes[lane] = negative ? 0xFF : 0;
        row.add.lanes[lane] = static_cast<uint8_t>(negative ? (used ? 101 : 1) : 0);
    }
    return row;
}

// The rows that put the first pair in a lane.
constexpr TakeApartRows PlaceRows(int firstLane) {
    TakeApartRows rows{};
    for (int form = 0; form < kForms; ++form) rows.of[form] = PlacePairs(form, firstLane);
    return rows;
}

// The pairs from lane 14 down, and the first byte in lane 15, so that unsigned bytes order from there down as the
// values do. A complement taken twice leaves the first byte as it is, and turns the pairs of a negative value into
// complements, which fall as the magnitude grows. Null is below and zero between all others: their lanes are made here.
// An invalid length has 0 where the others have their first pair.
constexpr TakeApartRow SortRow(int form) {
    const int length = form & 15;
    const int pairs = PairsOf(form);
    if (pairs > 0 && length <= 12) {
        TakeApartRow row = PlacePairs(form, 14);
        row.shuffle.lanes[15] = 0;
        row.add.lanes[15] = 0;
        row.toOrder = row.flip;
        return row;
    }
    TakeApartRow row{};
    for (uint8_t& lane : row.shuffle.lanes) lane = kNoByte;
    row.add.lanes[15] = length == 0 ? 0 : 0x7F;
    row.add.lanes[14] = length <= 12 ? 1 : 0;
    row.toOrder.lanes[14] = length == 0 ? 0 : 0xFE;
    return row;
}

constexpr TakeApartRows SortRows() {
    TakeApartRows rows{};
    for (int form = 0; form < kForms; ++form) rows.of[form] = SortRow(form);
    return rows;
}

// From a first pair in `lane`: pair i goes to lane 1 + i, up to the last one that fits.
constexpr VectorRow ToMemory(int lane, int limit) {
    VectorRow row{};
    for (int to = 0; to < 16; ++to) {
        const int from = lane - (to - 1);
        const bool used = to >= 1 && to <= limit && from >= 0;
        row.lanes[to] = static_cast<uint8_t>(used ? from : kNoByte);
    }
    return row;
}

// Lane 0 is the first byte. 100 - d is ~d + 101; behind the last pair, ~0 + 102 is the terminator.
constexpr PackRows Pack(bool negative) {
    PackRows rows{};
    const int limit = kMostPairs - (negative ? 1 : 0);
    rows.roundUp[1].lanes[limit] = 1;
    for (int lane = 0; lane < 16; ++lane) {
        rows.toMemory[lane] = ToMemory(lane, limit);
        rows.flip.lanes[lane] = negative ? 0xFF : 0;
        for (int count = 0; count < 16; ++count) {
            const int add = lane == 0 ? 0 : lane == count + 1 ? 102 : 101;
            rows.finish[count].add.lanes[lane] = static_cast<uint8_t>(negative ? add : 0);
            rows.finish[count].dataLanes.lanes[lane] = lane < count + 1 + (negative ? 1 : 0) ? 0xFF : 0;
        }
    }
    return rows;
}

// What lies beyond the positions of the operation goes: twelve, from lane 14 down, for a difference, eleven for a sum.
// To subtract is to add the nines' complement, ~d + 100, and 1.
constexpr AlignRows Align(bool subtract) {
    AlignRows rows{};
    const int lastLane = subtract ? 3 : 4;
    for (int lane = 0; lane < 16; ++lane) {
        for (int places = 0; places < 16; ++places) {
            const int from = lane + places;
            const bool used = from <= 14 && lane >= lastLane;
            rows.shift[places].lanes[lane] = static_cast<uint8_t>(used ? from : kNoByte);
        }
        rows.flip.lanes[lane] = subtract ? 0xFF : 0;
        rows.add.lanes[lane] = static_cast<uint8_t>(kSumBias + (subtract ? 100 : 0));
    }
    return rows;
}

// `kept` digits stay, counted from the first digit of the pair in lane 14.
constexpr RoundRow Round(int kept) {
    RoundRow row{};
    const int cutLane = 14 - kept / 2;
    const bool cutInside = kept % 2 != 0;
    for (int lane = 0; lane < 16; ++lane) {
        const int half = lane != cutLane ? 0 : cutInside ? 5 : 50;
        row.add.lanes[lane] = static_cast<uint8_t>(kSumBias + half);
        row.keep.lanes[lane] = lane > cutLane ? 0xFF : 0;
        row.keepTens.lanes[lane] = cutInside && lane == cutLane ? 0xFF : 0;
    }
    return row;
}

constexpr RoundRows MakeRoundRows() {
    RoundRows rows{};
    for (int kept = 0; kept <= 2 * kMostPairs; ++kept) rows.of[kept] = Round(kept);
    return rows;
}

}  // namespace vector_tables

// The first pair in lane 15, in lane 14 (with room for a carry above), and the first byte above it.
alignas(64) inline constexpr TakeApartRows kFromLane15 = vector_tables::PlaceRows(15);
alignas(64) inline constexpr TakeApartRows kFromLane14 = vector_tables::PlaceRows(14);
alignas(64) inline constexpr TakeApartRows kToSort = vector_tables::SortRows();

inline constexpr PackRows kToPack[2] = {vector_tables::Pack(false), vector_tables::Pack(true)};
inline constexpr AlignRows kToAlign[2] = {vector_tables::Align(false), vector_tables::Align(true)};
alignas(64) inline constexpr RoundRows kToRound = vector_tables::MakeRoundRows();
