// The character pairs of the width conversion, Shift-JIS. The way back is made from the tables of the way there.
#pragma once

#include <cstdint>

constexpr uint8_t kVoicedMark = 0xDE;
constexpr uint8_t kSemiVoicedMark = 0xDF;

// ---- half-width to full-width -------------------------------------------------------------------------------------

constexpr uint8_t kFirstLatin = 0x20;
constexpr uint8_t kLastLatin = 0x7E;
constexpr uint8_t kFirstKana = 0xA1;
constexpr uint8_t kLastKana = 0xDF;
constexpr uint8_t kFirstSemiVoiced = 0xCA;
constexpr uint8_t kLastSemiVoiced = 0xCE;

// clang-format off
constexpr uint16_t kLatinToFull[kLastLatin - kFirstLatin + 1] = {
    /* 20 */ 0x8140, 0x8149, 0x8168, 0x8194, 0x8190, 0x8193, 0x8195, 0x8166,
    /* 28 */ 0x8169, 0x816A, 0x8196, 0x817B, 0x8143, 0x817C, 0x8144, 0x815E,
    /* 30 */ 0x824F, 0x8250, 0x8251, 0x8252, 0x8253, 0x8254, 0x8255, 0x8256,
    /* 38 */ 0x8257, 0x8258, 0x8146, 0x8147, 0x8183, 0x8181, 0x8184, 0x8148,
    /* 40 */ 0x8197, 0x8260, 0x8261, 0x8262, 0x8263, 0x8264, 0x8265, 0x8266,
    /* 48 */ 0x8267, 0x8268, 0x8269, 0x826A, 0x826B, 0x826C, 0x826D, 0x826E,
    /* 50 */ 0x826F, 0x8270, 0x8271, 0x8272, 0x8273, 0x8274, 0x8275, 0x8276,
    /* 58 */ 0x8277, 0x8278, 0x8279, 0x816D, 0x818F, 0x816E, 0x814F, 0x8151,
    /* 60 */ 0x8165, 0x8281, 0x8282, 0x8283, 0x8284, 0x8285, 0x8286, 0x8287,
    /* 68 */ 0x8288, 0x8289, 0x828A, 0x828B, 0x828C, 0x828D, 0x828E, 0x828F,
    /* 70 */ 0x8290, 0x8291, 0x8292, 0x8293, 0x8294, 0x8295, 0x8296, 0x8297,
    /* 78 */ 0x8298, 0x8299, 0x829A, 0x816F, 0x8162, 0x8170, 0x8160,
};

constexpr uint16_t kKanaToFull[kLastKana - kFirstKana + 1] = {
    /* A1 */         0x8142, 0x8175, 0x8176, 0x8141, 0x8145, 0x8392, 0x8340,
    /* A8 */ 0x8342, 0x8344, 0x8346, 0x8348, 0x8383, 0x8385, 0x8387, 0x8362,
    /* B0 */ 0x815B, 0x8341, 0x8343, 0x8345, 0x8347, 0x8349, 0x834A, 0x834C,
    /* B8 */ 0x834E, 0x8350, 0x8352, 0x8354, 0x8356, 0x8358, 0x835A, 0x835C,
    /* C0 */ 0x835E, 0x8360, 0x8363, 0x8365, 0x8367, 0x8369, 0x836A, 0x836B,
    /* C8 */ 0x836C, 0x836D, 0x836E, 0x8371, 0x8374, 0x8377, 0x837A, 0x837D,
    /* D0 */ 0x837E, 0x8380, 0x8381, 0x8382, 0x8384, 0x8386, 0x8388, 0x8389,
    /* D8 */ 0x838A, 0x838B, 0x838C, 0x838D, 0x838F, 0x8393, 0x814A, 0x814B,
};
// clang-format on

struct VoicedKana {
    uint8_t base;
    uint16_t full;
};
constexpr VoicedKana kVoicedKana[] = {
    {0xB3, 0x8394}, {0xB6, 0x834B}, {0xB7, 0x834D}, {0xB8, 0x834F}, {0xB9, 0x8351}, {0xBA, 0x8353}, {0xBB, 0x8355},
    {0xBC, 0x8357}, {0xBD, 0x8359}, {0xBE, 0x835B}, {0xBF, 0x835D}, {0xC0, 0x835F}, {0xC1, 0x8361}, {0xC2, 0x8364},
    {0xC3, 0x8366}, {0xC4, 0x8368}, {0xCA, 0x836F}, {0xCB, 0x8372}, {0xCC, 0x8375}, {0xCD, 0x8378}, {0xCE, 0x837B},
};

constexpr uint16_t kSemiVoicedToFull[] = {0x8370, 0x8373, 0x8376, 0x8379, 0x837C};

constexpr bool IsLatin(uint32_t byte) {
    return byte >= kFirstLatin && byte <= kLastLatin;
}

constexpr bool IsKana(uint32_t byte) {
    return byte >= kFirstKana && byte <= kLastKana;
}

// The full-width code of a kana with the mark that follows it; 0 where the mark doesn't go with the kana.
constexpr uint16_t MarkedKanaToFull(uint32_t base, uint32_t mark) {
    if (mark == kSemiVoicedMark && base >= kFirstSemiVoiced && base <= kLastSemiVoiced) {
        return kSemiVoicedToFull[base - kFirstSemiVoiced];
    }
    if (mark != kVoicedMark) return 0;
    for (const VoicedKana& kana : kVoicedKana) {
        if (kana.base == base) return kana.full;
    }
    return 0;
}

// ---- full-width to half-width -------------------------------------------------------------------------------------

// Small kana without a small half-width form. They don't come back.
struct SmallKana {
    uint16_t full;
    uint8_t half;
};
constexpr SmallKana kSmallKana[] = {{0x838E, 0xDC}, {0x8395, 0xB6}, {0x8396, 0xB9}};

constexpr uint16_t kFirstFull = 0x8140;
constexpr uint16_t kLastFull = 0x8396;

// The half-width pair of each full-width code from kFirstFull to kLastFull, 0 where there is none.
struct FullToHalfTable {
    uint16_t half[kLastFull - kFirstFull + 1];

    constexpr void Set(uint16_t full, uint32_t base, uint32_t mark) {
        half[full - kFirstFull] = static_cast<uint16_t>(base << 8 | mark);
    }
};

constexpr FullToHalfTable MakeFullToHalfTable() {
    FullToHalfTable table = {};
    for (uint32_t byte = kFirstLatin; byte <= kLastLatin; ++byte) table.Set(kLatinToFull[byte - kFirstLatin], byte, 0);
    for (uint32_t byte = kFirstKana; byte <= kLastKana; ++byte) table.Set(kKanaToFull[byte - kFirstKana], byte, 0);
    for (const VoicedKana& kana : kVoicedKana) table.Set(kana.full, kana.base, kVoicedMark);
    for (uint32_t byte = kFirstSemiVoiced; byte <= kLastSemiVoiced; ++byte) {
        table.Set(kSemiVoicedToFull[byte - kFirstSemiVoiced], byte, kSemiVoicedMark);
    }
    for (const SmallKana& kana : kSmallKana) table.Set(kana.full, kana.half, 0);
    return table;
}

inline constexpr FullToHalfTable kFullToHalf = MakeFullToHalfTable();
