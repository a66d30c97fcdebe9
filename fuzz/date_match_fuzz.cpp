// A raw picture and a raw text laid beside each other by the matcher: the quick match gives the definition's verdict
// and value wherever it doesn't decline, and a failure leaves the block alone.
#include "../tests/datetime/date_block.h"
#include "datetime/date_match.h"
#include "input.h"

namespace {

bool SameBytes(const FMTCntlBlock& a, const FMTCntlBlock& b) {
    return std::memcmp(&a, &b, sizeof a) == 0;
}

void MatchBothWays(const std::string& text, const std::string& picture, int32_t type) {
    const FMTCntlBlock before = DateBlock(type, text.c_str());
    FMTCntlBlock quick = before;
    FMTCntlBlock defined = before;
    const FMTRegion region(&before);
    const QuickVerdict verdict = QuickMatchDatePic(text.c_str(), picture.c_str(), &quick, region);

    DatePicElement* values = FMTParseDatePic(text.c_str(), type);
    DatePicElement* elements = FMTParseDatePic(picture.c_str(), kModePicture);
    const bool matches = FMTMatchDatePic(values, elements, &defined, region) != 0;
    FMTFreeDatePic(values);
    FMTFreeDatePic(elements);

    Require(matches || SameBytes(defined, before));
    if (verdict == QuickVerdict::kDeclined) return Require(SameBytes(quick, before));
    Require(matches == (verdict == QuickVerdict::kMatches) && SameBytes(quick, defined));
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size) {
    if (size < 1 || size > 400) return 0;
    SetLanguage((data[0] & 0x80) != 0 ? 0x0411 : 0x0409);
    const auto [picture, text] = SplitAt('\n', data + 1, size - 1);
    const int32_t type = data[0] % 3 + 1;
    MatchBothWays(text, picture, type);

    FMTCntlBlock block = DateBlock(type, text.c_str());
    block.Picture = picture.c_str();
    FMTUnformatDateTimeStr(&block);
    FMTIsValidDateString(&block);
    return 0;
}
