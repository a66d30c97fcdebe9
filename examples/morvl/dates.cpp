#include "dates.h"

#include <algorithm>
#include <cstdio>
#include <optional>
#include <vector>

#include <morvl15/datetime.h>
#include <morvl15/host.h>

#include "command.h"
#include "picture.h"

namespace {

constexpr size_t kSlack = 256;
constexpr size_t kMostGrowth = 4;  // of a picture's letters when they become names

FMTCntlBlock BlockUnderProfile(const std::string& input) {
    FMTCntlBlock block{};
    FMTInitCntlBlock(&block);
    block.UseProfile = 1;
    block.Input = input.c_str();
    return block;
}

DatDef ValueOf(const FMTCntlBlock& block) {
    return {block.Month, block.Day, block.Year, block.Hour, block.Minute, block.Second, block.Microsecond};
}

// In whatever form it has: a date, a date and a time, a time.
std::optional<DatDef> ReadFreely(const std::string& value) {
    for (const int32_t type : {FMT_TYPE_DATE, FMT_TYPE_DATE_TIME, FMT_TYPE_TIME}) {
        FMTCntlBlock block = BlockUnderProfile(value);
        block.Type = type;
        if (FMTValidateDateTime(&block) != 0) return ValueOf(block);
    }
    return std::nullopt;
}

std::optional<DatDef> ReadByPicture(const std::string& value, const std::string& picture, uint32_t* found) {
    FMTCntlBlock block = BlockUnderProfile(value);
    block.Picture = picture.c_str();
    if (FMTUnformatDateTimeStr(&block) == 0) return std::nullopt;
    *found = block.Flags & (FMT_FOUND_DATE | FMT_FOUND_TIME);
    return ValueOf(block);
}

// Dates and times shown by a picture of one's own: it goes into a block that takes the long date picture, and all else
// of the settings in force, from itself.
class DatesShown : public Conversion {
  public:
    DatesShown(const std::string& picture, const std::optional<std::string>& from)
        : picture_(picture), from_(from), room_(kMostGrowth * picture.size() + kSlack) {
        FMTGetProfileIntl(&settings_);
    }

    bool Convert(const std::string& value, std::string* text, Fault* fault) override {
        uint32_t found = 0;
        const std::optional<DatDef> date = from_ ? ReadByPicture(value, *from_, &found) : ReadFreely(value);
        if (!date) {
            *fault = {from_ ? "can't be read by the picture of --from"
                            : "is no date or time that can be read under the settings in force (docs/date-pictures.md "
                              "tells the forms; --from reads by a picture)",
                      {}};
            return false;
        }
        if (!Show(*date)) {
            *fault = {"can't be shown by the picture", {}};
            return false;
        }
        text->assign(room_.data());
        return true;
    }

    // Japanese eras have their names in Shift-JIS, whatever the code page.
    Charset& Decoder() override {
        static Charset shiftJis("UTF-8", "CP932");
        return picture_ == "E" || picture_ == "ED" ? shiftJis : ToUtf8();
    }

  private:
    bool Show(const DatDef& date) {
        FMTCntlBlock block{};
        FMTInitCntlBlock(&block);
        block.Type = FMT_TYPE_DATE;
        block.LongDatePic = picture_.c_str();
        block.TimeIs24Hour = settings_.iTime;
        block.TimeLZero = settings_.iTLZero;
        block.TimeSep = settings_.sTime;
        block.AMString = settings_.s1159;
        block.PMString = settings_.s2359;
        block.Month = date.Month;
        block.Day = date.Day;
        block.Year = date.Year;
        block.Hour = date.Hour;
        block.Minute = date.Minute;
        block.Second = date.Second;
        block.Microsecond = date.Microsecond;
        block.Output = room_.data();
        return FMTFormatDateTime(&block) != 0;
    }

    std::string picture_;
    std::optional<std::string> from_;
    std::vector<char> room_;
    FMTIntlSettings settings_{};
};

class DatesUnformatted : public Conversion {
  public:
    explicit DatesUnformatted(const std::string& picture) : picture_(picture) {}

    bool Convert(const std::string& value, std::string* text, Fault* fault) override {
        uint32_t found = 0;
        const std::optional<DatDef> date = ReadByPicture(value, picture_, &found);
        if (!date) {
            *fault = {"can't be read by the picture", {}};
            return false;
        }
        if ((found & FMT_FOUND_DATE) != 0) Append(text, "%04d-%02d-%02d", date->Year, date->Month, date->Day);
        if ((found & FMT_FOUND_TIME) == 0) return true;
        if (!text->empty()) *text += ' ';
        Append(text, "%02d:%02d:%02d", date->Hour, date->Minute, date->Second);
        if (date->Microsecond > 0) Append(text, ".%06d", date->Microsecond);
        return true;
    }

  private:
    template <typename... Values>
    static void Append(std::string* text, const char* format, Values... values) {
        char piece[40];
        std::snprintf(piece, sizeof piece, format, values...);
        *text += piece;
    }

    std::string picture_;
};

constexpr Option kOptions[] = {{"--from", true}};

int ShowDates(const Command& command, const Arguments& arguments) {
    const auto& operands = arguments.Operands();
    if (operands.empty()) return UsageError(command, "there is no picture");
    const auto picture = TakePicture(command, kDatePicture, operands[0]);
    if (!picture) return kCannotRun;
    std::optional<std::string> from;
    if (const std::string* given = arguments.ValueOf("--from")) {
        from = TakePicture(command, kDatePicture, *given);
        if (!from) return kCannotRun;
    }
    DatesShown conversion(*picture, from);
    return ConvertValues(conversion, std::span(operands).subspan(1));
}

}  // namespace

std::unique_ptr<Conversion> DatesRead(const std::string& picture) {
    return std::make_unique<DatesUnformatted>(picture);
}

const Command kDateCommand = {"date",
                              "[--from PICTURE] PICTURE [VALUE...]",
                              "show dates and times by a date picture",
                              R"(Shows each VALUE by PICTURE, a line each; without one, each line of standard input.

  morvl date 'dddd, MMMM dd, yyyy' '2 Jan 2003'                Thursday, January 02, 2003
  morvl date --from yyyyMMdd M/d/yy 20030102                   1/2/03
  morvl date "yyyy-MM-dd'T'hhhh:mm:ss" 'Jan 2, 2003 9:05 PM'   2003-01-02T21:05:00

A VALUE is a date, a time or both, in any form that the library reads: the short or the long picture of the settings in
force, 2 Jan 2003, January 2, 2003, 2003-01-02, 9:05 PM. An empty one stays empty.
  --from PICTURE   a VALUE is read by this picture alone

In the place of a picture: S and L, the short and the long one of the settings in force ("morvl profile" shows them), ''
their default, T their time, ED and E a date in the Japanese era form without and with a time.
docs/date-pictures.md tells the language.
)",
                              kOptions,
                              ShowDates};
