// Date pictures and date text in every scanner state. The first byte chooses the state; a list, where there is one,
// must be what the reader gives element by element.
#include "datetime/picture_parser.h"
#include "input.h"

namespace {

bool SameElement(const DatePicElement& listed, const DateElement& read) {
    if (listed.ElementType != read.type) return false;
    if (listed.ElementType != DPE_TEXT) return listed.Value.Number == read.number || read.type >= DPE_DAY;
    return std::string(listed.Value.Text) == std::string(read.text, read.length);
}

void ReadAsElements(const char* text, int32_t mode) {
    DatePicElement* first = FMTParseDatePic(text, mode);
    DateElementReader reader(text, mode == kModePicture ? ScanState::kPicture : ScanState::kValue);
    const DatePicElement* listed = first;
    DateElement read;
    const bool mayBeReadAgain = mode != kModePicture && std::string(text).size() == 8;
    while (!mayBeReadAgain && reader.Read(&read)) {
        if (first == nullptr) continue;
        Require(listed != nullptr && SameElement(*listed, read));
        listed = listed->Next;
    }
    Require(mayBeReadAgain || (listed == nullptr && reader.Accepted() == (first != nullptr)));
    FMTFreeDatePic(first);
}

void ReadAsTokens(const char* text, ScanState state) {
    DateScanner scanner(text, state);
    const char* end = text;
    for (DateToken token = scanner.Next(); token.kind != ScanToken::kEnd; token = scanner.Next()) {
        Require(token.start >= end && token.length >= 1 && token.length <= DateScanner::kMaxTokenLength);
        end = token.start + token.length;
        Require(scanner.State() >= ScanState::kValue && scanner.State() <= ScanState::kDateTimeShape);
    }
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size) {
    if (size == 0) return 0;
    const std::string text(reinterpret_cast<const char*>(data + 1), size - 1);
    const int choice = data[0] % 5 + 1;
    ReadAsTokens(text.c_str(), static_cast<ScanState>(choice));
    if (choice <= kModePicture) ReadAsElements(text.c_str(), choice);
    return 0;
}
