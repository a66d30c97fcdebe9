// How a list of fonts grows: to twice its size whenever it is full, so that all of its moves together cost no more than
// its length; cut to its records when it is done.
#include "font_list.h"

#include <cstddef>
#include <cstring>

static_assert(sizeof(LOGFONTA) == 60 && sizeof(FonTextMetric) == 53);
static_assert(offsetof(TEXTMETRICA, tmCharSet) == 52 && offsetof(FonTextMetric, tmCharSet) == 52);
static_assert(sizeof(FonFaceRecord) == 32 && sizeof(FonSizeRecord) == 113 && sizeof(FonMetricsRecord) == 115);
static_assert(offsetof(FonMetricsRecord, textMetric) == 60 && offsetof(FonMetricsRecord, fontType) == 113);
static_assert(sizeof(FonEnumState) == 2 + sizeof(void*) && sizeof(FonMetricsState) == 6 + sizeof(void*));

namespace {

constexpr int16_t kFonMostRecords = INT16_MAX;

SIZE_T FonSizeOf(int32_t count, uint32_t size) {
    return kFonHeadSize + static_cast<SIZE_T>(count) * size;
}

// The block with room for one more record, or null, with the one before freed.
HGLOBAL FonMakeRoom(HGLOBAL block, int32_t count, UINT flags, uint32_t size) {
    if (block == nullptr) return GlobalAlloc(flags, FonSizeOf(1, size));
    if (GlobalSize(block) >= FonSizeOf(count + 1, size)) return block;
    const HGLOBAL grown = GlobalReAlloc(block, FonSizeOf(2 * (count + 1), size), flags);
    if (grown == nullptr) GlobalFree(block);
    return grown;
}

}  // namespace

INT FonAddRecord(FonEnumState* state, UINT flags, const void* record, uint32_t size) {
    const int16_t count = state->count;
    if (count < 0 || count == kFonMostRecords) return 0;
    const HGLOBAL block = FonMakeRoom(state->block, count, flags, size);
    state->block = block;
    if (block == nullptr) return 0;
    auto* bytes = static_cast<uint8_t*>(GlobalLock(block));
    if (bytes == nullptr) return 0;
    const auto raised = static_cast<int16_t>(count + 1);
    std::memcpy(bytes + FonSizeOf(count, size), record, size);
    std::memcpy(bytes, &raised, sizeof raised);
    state->count = raised;
    GlobalUnlock(block);
    return 1;
}

HGLOBAL FonFinishList(FonEnumState* state, UINT flags, uint32_t size) {
    const HGLOBAL block = state->block;
    const SIZE_T needed = FonSizeOf(state->count, size);
    if (block == nullptr || GlobalSize(block) == needed) return block;
    const HGLOBAL cut = GlobalReAlloc(block, needed, flags);
    if (cut == nullptr) GlobalFree(block);
    return cut;
}
