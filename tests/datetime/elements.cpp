#include "elements.h"

#include <gtest/gtest.h>

namespace {

std::string DescribeElement(int32_t type, uint32_t number, const std::string& text) {
    static constexpr const char* kLetters[] = {"d",    "dd", "ddd",  "dddd", "M",  "MM",     "MMM",  "MMMM", "yy",
                                               "yyyy", "hh", "hhhh", "mm",   "ss", "mmmmmm", "AMPM", "h",    "hhh"};
    switch (type) {
        case DPE_NUMBER:
            return (number & kFullYearMark) == kFullYearMark ? std::to_string(number & ~kFullYearMark) + "!"
                                                             : std::to_string(number);
        case DPE_TEXT: return "'" + text + "'";
        case DPE_SEPARATOR: return std::string(1, static_cast<char>(number));
        case DPE_SPACE: return "_" + std::to_string(number);
        default: return type >= DPE_DAY && type <= DPE_HOUR24 ? kLetters[type - DPE_DAY] : "?";
    }
}

void Append(std::string& all, const std::string& element) {
    if (!all.empty()) all += ' ';
    all += element;
}

std::string DescribeRead(const std::string& text, ScanState state) {
    DateElementReader reader(text.c_str(), state);
    DateElement element;
    std::string all;
    while (reader.Read(&element)) {
        Append(all, DescribeElement(element.type, element.number, std::string(element.text, element.length)));
    }
    return reader.Accepted() ? all : "none";
}

}  // namespace

std::string DescribeList(const DatePicElement* first) {
    if (first == nullptr) return "none";
    std::string all;
    const DatePicElement* before = nullptr;
    for (const DatePicElement* element = first; element != nullptr; element = element->Next) {
        EXPECT_EQ(element->Prev, before);
        before = element;
        const bool isText = element->ElementType == DPE_TEXT;
        Append(all, DescribeElement(element->ElementType, isText ? 0 : element->Value.Number,
                                    isText ? element->Value.Text : ""));
    }
    return all;
}

std::string DescribeText(const std::string& text, int32_t mode) {
    DatePicElement* first = FMTParseDatePic(text.c_str(), mode);
    const std::string all = DescribeList(first);
    FMTFreeDatePic(first);
    EXPECT_EQ(DescribeList(DatePicList(text.c_str(), mode).First()), all);
    const bool mayBeReadAgain = mode != kModePicture && text.size() == 8;
    if (mode >= kModeDate && mode <= kModePicture && !mayBeReadAgain) {
        EXPECT_EQ(DescribeRead(text, mode == kModePicture ? ScanState::kPicture : ScanState::kValue), all);
    }
    return all;
}
