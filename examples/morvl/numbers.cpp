#include "numbers.h"

#include <algorithm>
#include <vector>

#include <morvl15/format.h>
#include <morvl15/intl.h>
#include <morvl15/number.h>

#include "command.h"
#include "picture.h"

namespace {

// A Number has at most 100 digits in front of the decimal point and 102 behind it.
constexpr int32_t kMostDigits = 100;
constexpr size_t kPlainRoom = 128;

FMTCntlBlock BlockUnderProfile(int32_t type) {
    FMTCntlBlock block{};
    FMTInitCntlBlock(&block);
    block.UseProfile = 1;
    block.Type = type;
    return block;
}

// The library's own plain form, the whole of it.
bool ReadPlain(const std::string& value, Number* number, Fault* fault) {
    const int32_t read = NumAsciiToNumber(number, value.c_str());
    if (read == -1) *fault = {"is too large", {}};
    if (read == -2) *fault = {"is too small", {}};
    if (read < 0) return false;
    const size_t rest = value.find_first_not_of(" \t", static_cast<size_t>(read));
    if (read > 0 && rest == std::string::npos) return true;
    *fault = {"is no plain number such as -1234.5; --local reads numbers as people write them",
              std::min(rest, value.find_first_not_of(" \t"))};
    if (read > 0) fault->at = rest;
    return false;
}

// As a person writes it under the settings in force.
bool ReadLocal(const std::string& value, Number* number, Fault* fault) {
    FMTCntlBlock block = BlockUnderProfile(FMT_TYPE_CURRENCY);
    block.Input = value.c_str();
    if (FMTValidateNumber(&block) == 0) {
        *fault = {"is no number or amount under the settings in force (morvl profile shows them)", {}};
        return false;
    }
    *number = block.Value;
    return true;
}

class NumbersShown : public Conversion {
  public:
    NumbersShown(const std::string& picture, bool local)
        : picture_(picture),
          read_(local ? ReadLocal : ReadPlain),
          room_(RoomForNumber(picture)),
          block_(BlockUnderProfile(FMT_TYPE_PICTURE)) {
        block_.Picture = picture_.c_str();
        block_.Output = room_.data();
    }

    bool Convert(const std::string& value, std::string* text, Fault* fault) override {
        Number number{};
        if (!read_(value, &number, fault)) return false;
        block_.Value = number;
        if (FMTFormatNumber(&block_) == 0) {
            *fault = {"is too large or too small to be shown", {}};
            return false;
        }
        text->assign(room_.data());
        return true;
    }

  private:
    std::string picture_;
    bool (*read_)(const std::string&, Number*, Fault*);
    std::vector<char> room_;
    FMTCntlBlock block_;
};

class NumbersUnformatted : public Conversion {
  public:
    explicit NumbersUnformatted(const std::string& picture)
        : picture_(picture), block_(BlockUnderProfile(FMT_TYPE_PICTURE)) {
        block_.Picture = picture_.c_str();
    }

    bool Convert(const std::string& value, std::string* text, Fault* fault) override {
        room_.resize(std::max(value.size() + 1, kPlainRoom));
        block_.Input = value.c_str();
        block_.Output = room_.data();
        if (FMTUnformatNumberStr(&block_) == 0) {
            *fault = {"can't be read by the picture", {}};
            return false;
        }
        text->assign(room_.data());
        return true;
    }

  private:
    std::string picture_;
    std::vector<char> room_;
    FMTCntlBlock block_;
};

constexpr Option kOptions[] = {{"--local", false}};

int ShowNumbers(const Command& command, const Arguments& arguments) {
    const auto& operands = arguments.Operands();
    if (operands.empty()) return UsageError(command, "there is no picture");
    const auto picture = TakePicture(command, kNumberPicture, operands[0]);
    if (!picture) return kCannotRun;
    NumbersShown conversion(*picture, arguments.Has("--local"));
    return ConvertValues(conversion, std::span(operands).subspan(1));
}

}  // namespace

// The library's bound doesn't foresee the places of an empty picture, nor a few bytes that rounding and signs add.
size_t RoomForNumber(const std::string& picture) {
    constexpr int32_t kSlack = 256;
    FMTIntlSettings settings;
    FMTGetProfileIntl(&settings);
    const int32_t places = settings.iDigits;
    const int32_t bound = FMTGetMaxFormattedNumLen(picture.c_str(), kMostDigits, 0);
    return static_cast<size_t>(bound) + static_cast<size_t>(std::max(places, 0)) + kSlack;
}

std::unique_ptr<Conversion> NumbersRead(const std::string& picture) {
    return std::make_unique<NumbersUnformatted>(picture);
}

const Command kNumberCommand = {"number",
                                "[--local] PICTURE [VALUE...]",
                                "show numbers by a number picture",
                                R"(Shows each VALUE by PICTURE, a line each; without one, each line of standard input.

  morvl number '#,##0.00;(#,##0.00)' -1234.5     (1,234.50)
  morvl number '0.0%' 0.125                      12.5%
  morvl number '$' 1234.5                        the currency layout of the settings in force
  morvl number '' 1234.5                         their number layout

A VALUE is plain: digits, a point, a sign, an exponent (-1234.5, 1e6). An empty one stays empty.
  --local   a VALUE is as people write it under the settings in force: 1,234.50-, ($12)

The picture is written in the separators of the settings in force, which "morvl profile" shows.
docs/number-pictures.md tells the language.
)",
                                kOptions,
                                ShowNumbers};
