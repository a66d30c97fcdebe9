// From formatted text back to plain values.
#include <algorithm>
#include <iterator>
#include <memory>

#include "command.h"
#include "dates.h"
#include "masks.h"
#include "numbers.h"
#include "picture.h"

namespace {

struct Kind {
    std::string_view name;
    const PictureKind* picture;
    std::unique_ptr<Conversion> (*reader)(const std::string& picture);
};
const Kind kKinds[] = {
    {"number", &kNumberPicture, NumbersRead},
    {"date", &kDatePicture, DatesRead},
    {"mask", &kMaskPicture, MasksRead},
};

int Unformat(const Command& command, const Arguments& arguments) {
    const auto& operands = arguments.Operands();
    const auto* kind = operands.empty() ? std::end(kKinds) : std::ranges::find(kKinds, operands[0], &Kind::name);
    if (kind == std::end(kKinds)) return UsageError(command, "the first argument is number, date or mask");
    if (operands.size() < 2) return UsageError(command, "there is no picture");
    const auto picture = TakePicture(command, *kind->picture, operands[1]);
    if (!picture) return kCannotRun;
    return ConvertValues(*kind->reader(*picture), std::span(operands).subspan(2));
}

}  // namespace

const Command kUnformatCommand = {
    "unformat",
    "number|date|mask PICTURE [TEXT...]",
    "read what was made by a picture",
    R"(Reads each TEXT by PICTURE and shows the plain value, a line each; without one, each line of standard input.

  morvl unformat number '#,##0.00;(#,##0.00)' '(1,234.50)'     -1234.5
  morvl unformat date 'M/d/yyyy hh:mm AMPM' '1/2/2003 9:05 PM' 2003-01-02 21:05:00
  morvl unformat mask '(999) 999-9999' '(555) 123-4567'        5551234567

docs/number-pictures.md, docs/date-pictures.md and docs/masks.md tell the languages.
)",
    {},
    Unformat};
