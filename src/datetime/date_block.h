// What reading dates needs of FMTCntlBlock: values of Type, bits of Flags.
#pragma once

#include "default_pictures.h"

constexpr int32_t kTypeDate = FMT_TYPE_DATE;
constexpr int32_t kTypeTime = FMT_TYPE_TIME;
constexpr int32_t kTypeDateTime = FMT_TYPE_DATE_TIME;

constexpr uint32_t kFlagNoFreeForm = FMT_PICTURES_ONLY;  // a time is read by its picture only
constexpr uint32_t kFlagDateSeen = FMT_FOUND_DATE;       // the last match: a day, month or year took a value
constexpr uint32_t kFlagTimeSeen = FMT_FOUND_TIME;       // the last match: a part of the time took a value

inline bool IsDateType(int32_t type) {
    return type >= kTypeDate && type <= kTypeDateTime;
}

inline bool HasFlag(const FMTCntlBlock* block, uint32_t flag) {
    return (block->Flags & flag) != 0;
}

inline void SetFlag(FMTCntlBlock* block, uint32_t flag, bool on) {
    block->Flags = on ? block->Flags | flag : block->Flags & ~flag;
}

// Under UseProfile every date operation needs the default time picture in force.
inline bool LacksTimePicture(const FMTCntlBlock* block) {
    return block->UseProfile != 0 && !HasFlag(block, kFlagTimePicture);
}
