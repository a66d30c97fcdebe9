// The library's texts are in the ANSI code page of the system; the amounts here are within Windows-1252, and Japanese
// dates are Shift-JIS.
#include "conventions.h"

#include "encoding.h"

namespace {

// A control block that takes its regional values from a convention and not from the user's profile.
FMTCntlBlock BlockFor(const Convention& convention, int32_t type) {
    FMTCntlBlock block{};
    FMTInitCntlBlock(&block);
    block.Type = type;
    block.UseProfile = 0;
    block.ThousandSep = convention.thousandSeparator;
    block.DecimalSep = convention.decimalSeparator;
    block.Digits = 2;
    block.LeadingZero = 1;
    block.Currency = convention.currency;
    block.CurrencyPos = convention.currencyPosition;
    block.NegCurrency = convention.negativeLayout;
    block.ShortDatePic = convention.shortDate;
    block.LongDatePic = convention.longDate;
    return block;
}

constexpr int32_t kTypeDate = 1;
constexpr int32_t kTypeCurrency = 5;
constexpr int32_t kTypePicture = 6;

constexpr int32_t kShortForm = 1;

std::string DateText(const DatDef& date, const Convention& convention, int32_t form) {
    char text[128] = {};
    FMTCntlBlock block = BlockFor(convention, kTypeDate);
    block.DateForm = form;
    block.Month = date.Month;
    block.Day = date.Day;
    block.Year = date.Year;
    block.Output = text;
    if (!FMTFormatDateTime(&block)) return "?";
    return text;
}

std::string WesternToUtf8(const std::string& text) {
    static Converter converter("WINDOWS-1252", "UTF-8");
    return converter.Convert(text).value_or("?");
}

std::string JapaneseToUtf8(const std::string& text) {
    static Converter converter("SHIFT_JIS", "UTF-8");
    return converter.Convert(text).value_or("?");
}

}  // namespace

const Convention* FindConvention(std::string_view name) {
    for (const Convention& convention : kConventions) {
        if (name == convention.name) return &convention;
    }
    return nullptr;
}

std::optional<Number> ReadAmount(const std::string& text, const Convention& convention) {
    FMTCntlBlock block = BlockFor(convention, kTypeCurrency);
    block.Input = text.c_str();
    if (!FMTValidateNumber(&block)) return std::nullopt;
    return block.Value;
}

std::string ShowAmount(const Number& amount, const Convention& convention) {
    char text[128] = {};
    FMTCntlBlock block = BlockFor(convention, kTypePicture);
    block.Picture = convention.picture;
    block.Value = amount;
    block.Output = text;
    if (!FMTFormatNumber(&block)) return "?";
    return WesternToUtf8(text);
}

std::optional<DatDef> ReadDate(const std::string& text, const Convention& convention) {
    FMTCntlBlock block = BlockFor(convention, kTypeDate);
    block.Input = text.c_str();
    if (!FMTValidateDateTime(&block)) return std::nullopt;
    return DatDef{block.Month, block.Day, block.Year, 0, 0, 0, 0};
}

std::string ShowDate(const DatDef& date, const Convention& convention) {
    return WesternToUtf8(DateText(date, convention, kShortForm));
}

std::string ShowLongDate(const DatDef& date, const Convention& convention) {
    const std::string text = DateText(date, convention, convention.longForm);
    return convention.longForm == 0 ? WesternToUtf8(text) : JapaneseToUtf8(text);
}
