// The format control block.
#include <cstddef>
#include <type_traits>

#include <morvl15/format.h>

static_assert(std::is_trivially_copyable_v<FMTCntlBlock>);
static_assert(sizeof(FMTCntlBlock) == 115 + 13 * sizeof(void*));
static_assert(offsetof(FMTCntlBlock, Input) == 4 && offsetof(FMTCntlBlock, ShortDatePic) == 4 + 2 * sizeof(void*));
static_assert(offsetof(FMTCntlBlock, Month) == 16 + 7 * sizeof(void*));
static_assert(offsetof(FMTCntlBlock, Picture) == 48 + 7 * sizeof(void*));
static_assert(offsetof(FMTCntlBlock, DoubleValue) == 50 + 8 * sizeof(void*));
static_assert(offsetof(FMTCntlBlock, Flags) == 86 + 9 * sizeof(void*));
static_assert(offsetof(FMTCntlBlock, Value) == 90 + 9 * sizeof(void*));
static_assert(offsetof(FMTCntlBlock, Message) == 103 + 10 * sizeof(void*));
static_assert(offsetof(FMTCntlBlock, Result) == 107 + 12 * sizeof(void*));
static_assert(sizeof(void*) != 4 || (sizeof(FMTCntlBlock) == 167 && offsetof(FMTCntlBlock, Flags) == 122));

namespace {

constexpr uint32_t kFlagsTouched = 0x1FFF;  // bits 0 to 12
constexpr uint32_t kFlagsAtStart = FMT_DEFAULT_TIME | FMT_MICROSECONDS | FMT_USABLE;

void InitTexts(FMTCntlBlock* block) {
    block->Input = nullptr;
    block->Output = nullptr;
    block->ShortDatePic = nullptr;
    block->LongDatePic = nullptr;
    block->TimeSep = nullptr;
    block->AMString = nullptr;
    block->PMString = nullptr;
    block->Picture = nullptr;
}

void InitRegion(FMTCntlBlock* block) {
    block->UseProfile = 0;
    block->TimeIs24Hour = 0;
    block->TimeLZero = 0;
    block->DateForm = 0;
    block->ThousandSep = 0;
    block->DecimalSep = 0;
    block->LeadingZero = 0;
    block->Digits = 0;
    block->Country = 1;
    block->EmpDateBoundryCheck = 0;
}

void InitValues(FMTCntlBlock* block) {
    block->Month = 0;
    block->Day = 0;
    block->Year = 0;
    block->Hour = 0;
    block->Minute = 0;
    block->Second = 0;
    block->Microsecond = 0;
    block->DoubleValue = 0;
    NumWordToNumber(&block->Value, 0);
}

void InitMessage(FMTCntlBlock* block) {
    block->Window = nullptr;
    block->Message = 0;
    block->WParam = 0;
    block->LParam = 0;
}

}  // namespace

void MORVL_CALL FMTInitCntlBlock(FMTCntlBlock* block) {
    block->Type = FMT_TYPE_NONE;
    block->Flags = (block->Flags & ~kFlagsTouched) | kFlagsAtStart;
    InitTexts(block);
    InitRegion(block);
    InitValues(block);
    InitMessage(block);
}
