// How three countries write money and dates.
#pragma once

#include <optional>
#include <string>
#include <string_view>

#include <morvl15/datetime.h>
#include <morvl15/format.h>
#include <morvl15/number.h>

struct Convention {
    const char* name;
    char thousandSeparator;
    char decimalSeparator;
    const char* currency;
    int32_t currencyPosition;  // 0 $1, 1 1$, 2 $ 1, 3 1 $
    int32_t negativeLayout;    // the place of sign, symbol and amount, 0 to 10
    const char* picture;       // of amounts, in this country's own separators
    const char* shortDate;
    const char* longDate;
    int32_t longForm;  // of dates: 0 by the long picture, 3 in the Japanese era form
};

constexpr Convention kConventions[] = {
    {"US", ',', '.', "$", 0, 0, "$#,##0.00;($#,##0.00)", "M/d/yyyy", "dddd, MMMM dd, yyyy", 0},
    {"German", '.', ',', "DM", 3, 8, "#.##0,00 DM;-#.##0,00 DM", "dd.MM.yyyy", "dddd, d. MMMM yyyy", 0},
    {"Japanese", ',', '.', "\xA5", 0, 1, "\xA5#,##0;-\xA5#,##0", "yyyy/MM/dd", "", 3},
};

// Null for a name that none has.
const Convention* FindConvention(std::string_view name);

// Reading takes ASCII; what is shown is UTF-8.
std::optional<Number> ReadAmount(const std::string& text, const Convention& convention);
std::optional<DatDef> ReadDate(const std::string& text, const Convention& convention);
std::string ShowAmount(const Number& amount, const Convention& convention);
std::string ShowDate(const DatDef& date, const Convention& convention);
std::string ShowLongDate(const DatDef& date, const Convention& convention);
