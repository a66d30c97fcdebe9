#include "masks.h"

#include <algorithm>
#include <vector>

#include <morvl15/host.h>
#include <morvl15/mask.h>

#include "command.h"
#include "picture.h"

namespace {

size_t LettersAndDigitsIn(std::string_view text) {
    return static_cast<size_t>(std::ranges::count_if(text, [](char byte) { return IsCharAlphaNumericA(byte) != 0; }));
}

std::string Mask(const std::string& text, const std::string& picture) {
    std::vector<char> room(text.size() + picture.size() + 1);
    return FMTMaskText(text.c_str(), room.data(), picture.c_str()) != 0 ? room.data() : "";
}

bool Unmask(const std::string& text, const std::string& picture, std::string* plain) {
    std::vector<char> room(text.size() + 1);
    FMTCntlBlock block{};
    FMTInitCntlBlock(&block);
    block.Picture = picture.c_str();
    block.Input = text.c_str();
    block.Output = room.data();
    if (FMTUnmaskInput(&block) == 0) return false;
    *plain = room.data();
    return true;
}

// How many letters and digits of a text a mask takes in at its input positions.
size_t TakenFrom(const std::string& text, const std::string& picture) {
    std::string plain;
    return Unmask(Mask(text, picture), picture, &plain) ? LettersAndDigitsIn(plain) : 0;
}

// The first letter or digit that the mask dropped; the end where there is none. One that the mask has as a literal
// counts as taken, and so does a mark of punctuation: "555 1234" is a good telephone number.
size_t FirstDropped(const std::string& text, const std::string& picture) {
    size_t taken = TakenFrom(text, picture);
    if (taken == LettersAndDigitsIn(text)) return text.size();
    taken = 0;
    for (size_t i = 0; i < text.size(); ++i) {
        if (IsCharAlphaNumericA(text[i]) == 0) continue;
        const size_t takenNow = TakenFrom(text.substr(0, i + 1), picture);
        if (takenNow == taken && picture.find(text[i]) == std::string::npos) return i;
        taken = takenNow;
    }
    return text.size();
}

class TextsMasked : public Conversion {
  public:
    explicit TextsMasked(const std::string& picture) : picture_(picture) {}

    bool Convert(const std::string& value, std::string* text, Fault* fault) override {
        *text = Mask(value, picture_);
        const size_t dropped = FirstDropped(value, picture_);
        if (dropped == value.size()) return true;
        *fault = {"doesn't fit the mask; what fits is shown", dropped};
        return false;
    }

  private:
    std::string picture_;
};

class TextsUnmasked : public Conversion {
  public:
    explicit TextsUnmasked(const std::string& picture) : picture_(picture) {}

    bool Convert(const std::string& value, std::string* text, Fault* fault) override {
        if (Unmask(value, picture_, text)) return true;
        *fault = {"doesn't fit the mask", FirstMisfit(value)};
        return false;
    }

  private:
    // The longest beginning that fits ends there.
    size_t FirstMisfit(const std::string& value) const {
        size_t end = value.size();
        for (std::string plain; end > 0 && !Unmask(value.substr(0, end), picture_, &plain);) --end;
        return end;
    }

    std::string picture_;
};

int MaskTexts(const Command& command, const Arguments& arguments) {
    const auto& operands = arguments.Operands();
    if (operands.empty()) return UsageError(command, "there is no mask");
    const auto picture = TakePicture(command, kMaskPicture, operands[0]);
    if (!picture) return kCannotRun;
    TextsMasked conversion(*picture);
    return ConvertValues(conversion, std::span(operands).subspan(1));
}

}  // namespace

std::unique_ptr<Conversion> MasksRead(const std::string& picture) {
    return std::make_unique<TextsUnmasked>(picture);
}

const Command kMaskCommand = {"mask",
                              "MASK [TEXT...]",
                              "put a mask on texts",
                              R"(Puts MASK on each TEXT, a line each; without one, on each line of standard input.

  morvl mask '(999) 999-9999' 5551234567    (555) 123-4567
  morvl mask AA-9999 ab12                   AB-12

A text may be shorter than the mask. A letter or digit that doesn't fit is left out and told on standard error;
punctuation is left out silently.
docs/masks.md tells the language.
)",
                              {},
                              MaskTexts};
