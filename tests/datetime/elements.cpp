#include "elements.h"

#include <gtest/gtest.h>

#include <cstring>

#include "datetime/picture_elements.h"

namespace {

std::string DescribeElement(const DateElement& element) {
    static constexpr const char* kLetters[] = {"d",    "dd", "ddd",  "dddd", "M",  "MM",     "MMM",  "MMMM", "yy",
                                               "yyyy", "hh", "hhhh", "mm",   "ss", "mmmmmm", "AMPM", "h",    "hhh"};
    const uint32_t number = element.number;
    switch (element.type) {
        case DPE_NUMBER:
            return (number & kFullYearMark) == kFullYearMark ? std::to_string(number & ~kFullYearMark) + "!"
                                                             : std::to_string(number);
        case DPE_TEXT: return "'" + std::string(element.text, element.length) + "'";
        case DPE_SEPARATOR: return std::string(1, static_cast<char>(number));
        case DPE_SPACE: return "_" + std::to_string(number);
        default: return IsDateField(element.type) || IsTimeField(element.type) ? kLetters[element.type - DPE_DAY] : "?";
    }
}

void Append(std::string& all, const DateElement& element) {
    if (!all.empty()) all += ' ';
    all += DescribeElement(element);
}

std::string DescribeRead(const std::string& text, ScanState state) {
    DateElementReader reader(text.c_str(), state);
    DateElement element;
    std::string all;
    while (reader.Read(&element)) Append(all, element);
    return reader.Accepted() ? all : "none";
}

// Nothing for a picture that isn't kept.
std::string DescribeKept(const std::string& picture) {
    const PictureElements* kept = FMTPictureElements(picture.c_str());
    if (kept == nullptr) {
        EXPECT_GT(picture.size(), static_cast<size_t>(PictureElements::kMost)) << picture;
        return {};
    }
    std::string all;
    for (int32_t i = 0; i < kept->count; ++i) Append(all, kept->elements[i]);
    return kept->accepted ? all : "none";
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
        const char* text = isText ? element->Value.Text : "";
        const auto length = static_cast<uint32_t>(std::strlen(text));
        Append(all, {element->ElementType, isText ? 0 : element->Value.Number, text, length});
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
    if (mode == kModePicture) {
        const std::string kept = DescribeKept(text);
        EXPECT_TRUE(kept.empty() || kept == all) << text << ": " << kept;
    }
    return all;
}
