// A gallery of what the library writes: a page of tables, each cell of which comes from the library.
//
//     gallery [--across N] [SHEET.png...] > gallery.html
//
// The pictures named, if any, are shown as a poster's sheets, two side by side, or N.
#include <cstdlib>
#include <cstring>
#include <iostream>
#include <string>
#include <vector>

#include <morvl15/morvl15.h>

#include "page.h"

namespace {

// ---- regions ----------------------------------------------------------------------------------------------------

// How a country writes numbers and amounts, its symbol in the code page of the country.
struct Region {
    const char* name;
    const char* codePage;
    char thousandSeparator;
    char decimalSeparator;
    const char* currency;
    int32_t currencyPosition;
    int32_t negativeLayout;
};

constexpr Region kRegions[] = {
    {"United States", "WINDOWS-1252", ',', '.', "$", 0, 0},
    {"Germany", "WINDOWS-1252", '.', ',', "\x80", 3, 8},
    {"Switzerland", "WINDOWS-1252", '\'', '.', "Fr.", 2, 2},
    {"Sweden", "WINDOWS-1252", '\xA0', ',', "kr", 3, 8},
    {"Japan", "SHIFT_JIS", ',', '.', "\\", 0, 1},
};

FMTCntlBlock BlockFor(const Region& region, int32_t type) {
    FMTCntlBlock block{};
    FMTInitCntlBlock(&block);
    block.Type = type;
    block.ThousandSep = region.thousandSeparator;
    block.DecimalSep = region.decimalSeparator;
    block.LeadingZero = 1;
    block.Digits = 2;
    block.Currency = region.currency;
    block.CurrencyPos = region.currencyPosition;
    block.NegCurrency = region.negativeLayout;
    return block;
}

Number NumberFrom(const char* text) {
    Number number{};
    NumAsciiToNumber(&number, text);
    return number;
}

std::string Plain(const Number& number) {
    char text[160];
    NumToAscii(&number, text, sizeof text - 1);
    return text;
}

// A picture written under US conventions, in another region's.
std::string PictureFor(const char* picture, const Region& region) {
    char tokens[64];
    char text[64];
    FMTCntlBlock from = BlockFor(kRegions[0], FMT_TYPE_PICTURE);
    from.Picture = picture;
    from.Output = tokens;
    FMTTokenizeNumberPic(&from);
    FMTCntlBlock to = BlockFor(region, FMT_TYPE_PICTURE);
    to.Picture = tokens;
    to.Output = text;
    FMTUnTokenizeNumberPic(&to);
    return text;
}

std::string Shown(const char* value, const std::string& picture, const Region& region) {
    char text[256] = "";
    FMTCntlBlock block = BlockFor(region, FMT_TYPE_PICTURE);
    block.Picture = picture.c_str();
    block.Value = NumberFrom(value);
    block.Output = text;
    FMTFormatNumber(&block);
    return ToUtf8(text, region.codePage);
}

// ---- numbers ----------------------------------------------------------------------------------------------------

void ShowNumbers(Page& page) {
    page.Section("Numbers", "Exact decimal digits: 22 of them, in 13 bytes. What a person would work out on paper.");
    page.BeginTable({"a", "", "b", "result"});
    struct Row {
        const char* a;
        char sign;
        const char* b;
        int32_t(MORVL_CALL* operation)(Number*, const Number*, const Number*);
    };
    constexpr Row kRows[] = {
        {"0.1", '+', "0.2", NumAddition},
        {"19.99", '*', "1.19", NumMultiply},
        {"1", '/', "3", NumDivide},
        {"9999999999999999.99", '+', "0.01", NumAddition},
        {"123456789.123456789", '*', "1000000000", NumMultiply},
    };
    for (const Row& row : kRows) {
        const Number a = NumberFrom(row.a);
        const Number b = NumberFrom(row.b);
        Number result{};
        row.operation(&result, &a, &b);
        page.Row({row.a, std::string(1, row.sign), row.b, Plain(result)});
    }
    page.EndTable();
}

void ShowPictures(Page& page) {
    page.Section("Number pictures by country",
                 "A picture is kept in tokens, so that it shows itself, and the numbers, in the conventions of each "
                 "reader: separators, symbol, the way a negative amount is written.");
    constexpr const char* kPictures[] = {"#,##0.00", "$#,##0.00;($#,##0.00)", "0.0%;-0.0%", "#,##0;-#,##0;'none'"};
    constexpr const char* kValues[] = {"1234567.891", "-1234.5", "0"};
    for (const char* picture : kPictures) {
        page.BeginTable({"country", "picture", kValues[0], kValues[1], kValues[2]}, 1);
        for (const Region& region : kRegions) {
            const std::string own = PictureFor(picture, region);
            std::vector<std::string> cells = {region.name, ToUtf8(own, region.codePage)};
            for (const char* value : kValues) cells.push_back(Shown(value, own, region));
            page.Row(cells);
        }
        page.EndTable();
    }
    page.Section("Scientific pictures", "The mantissa's places are its digits, the exponent's are at least.");
    page.BeginTable({"picture", "123.45", "0.00123", "-1234.5"}, 0);
    for (const char* picture : {"0.00E+00", "0.##e-00", "0.0e-0", "0.###E+0"}) {
        page.Row({picture, Shown("123.45", picture, kRegions[0]), Shown("0.00123", picture, kRegions[0]),
                  Shown("-1234.5", picture, kRegions[0])});
    }
    page.EndTable();
}

// ---- dates ------------------------------------------------------------------------------------------------------

enum DateForm { kLongPicture, kShortPicture, kJapaneseMarks, kJapaneseEra };

std::string DateText(const DatDef& date, DateForm form, const char* picture) {
    char text[128] = "";
    FMTCntlBlock block = BlockFor(kRegions[0], FMT_TYPE_DATE);
    block.DateForm = form;
    block.LongDatePic = block.ShortDatePic = picture;
    block.Month = date.Month;
    block.Day = date.Day;
    block.Year = date.Year;
    block.Output = text;
    FMTFormatDateTime(&block);
    return ToUtf8(text, form >= kJapaneseMarks ? "SHIFT_JIS" : "WINDOWS-1252");
}

constexpr DatDef Date(int32_t year, int32_t month, int32_t day) {
    return {month, day, year, 0, 0, 0, 0};
}

void ShowDates(Page& page) {
    page.Section("Date pictures", "The same three days through pictures.");
    constexpr DatDef kDates[] = {Date(2003, 1, 2), Date(1999, 12, 31), Date(2024, 2, 29)};
    page.BeginTable({"picture", "", "", ""}, 0);
    for (const char* picture : {"dddd, MMMM dd, yyyy", "ddd d MMM yy", "M/d/yyyy", "dd.MM.yyyy", "yyyy-MM-dd",
                                "yyyyMMdd", "d'. 'MMMM yyyy", "MMMM 'in' yyyy"}) {
        std::vector<std::string> cells = {picture};
        for (const DatDef& date : kDates) cells.push_back(DateText(date, kLongPicture, picture));
        page.Row(cells);
    }
    page.EndTable();

    page.Section("Era dates",
                 "Japanese dates, in the Gregorian calendar and in the eras, on both sides of their changes.");
    page.BeginTable({"date", "marks", "era"});
    for (const DatDef& date :
         {Date(1868, 9, 28), Date(1868, 9, 29), Date(1912, 7, 29), Date(1912, 7, 30), Date(1926, 12, 24),
          Date(1926, 12, 25), Date(1989, 1, 7), Date(1989, 1, 8), Date(2003, 1, 2)}) {
        page.Row({DateText(date, kShortPicture, "yyyy-MM-dd"), DateText(date, kJapaneseMarks, ""),
                  DateText(date, kJapaneseEra, "")});
    }
    page.EndTable();
}

void ShowReading(Page& page) {
    page.Section("Dates as people type them", "Read without a picture, under US conventions.");
    page.BeginTable({"typed", "read as"}, 0);
    for (const char* typed : {"1/2/03", "2003-01-02", "Jan 2, 2003", "2 January, 2003", "2-Jan-2003", "2/29/2003",
                              "Friday, January 02, 2003"}) {
        FMTCntlBlock block = BlockFor(kRegions[0], FMT_TYPE_DATE);
        block.ShortDatePic = "M/d/yy";
        block.LongDatePic = "dddd, MMMM dd, yyyy";
        block.DateForm = kShortPicture;
        block.Input = typed;
        const bool good = FMTValidateDateTime(&block) != 0;
        const DatDef date = Date(block.Year, block.Month, block.Day);
        page.Row({typed, good ? DateText(date, kLongPicture, "dddd, MMMM dd, yyyy") : "no date"});
    }
    page.EndTable();
}

// ---- masks ------------------------------------------------------------------------------------------------------

void ShowMasks(Page& page) {
    page.Section("Masks", "What is typed, kept in shape, and taken out of it again.");
    page.BeginTable({"picture", "typed", "masked", "without the mask"}, 0);
    struct Row {
        const char* picture;
        const char* typed;
    };
    for (const Row& row : {Row{"(999) 999-9999", "5551234567"},
                           {"(999) 999-9999", "555"},
                           {"AA-9999-N", "ab12x34c"},
                           {"9999-99-99", "20030102"},
                           {"!!!*", "hello, world"},
                           {"99:99", "7x30"}}) {
        char masked[64] = "";
        char unmasked[64] = "";
        FMTMaskText(row.typed, masked, row.picture);
        FMTCntlBlock block = BlockFor(kRegions[0], FMT_TYPE_NONE);
        block.Input = masked;
        block.Output = unmasked;
        block.Picture = row.picture;
        const bool fits = FMTUnmaskInput(&block) != 0;
        page.Row({row.picture, row.typed, masked, fits ? unmasked : "doesn't fit"});
    }
    page.EndTable();
}

void ShowSheets(Page& page, const std::vector<std::string>& files, size_t across) {
    if (files.empty()) return;
    page.Section(
        "A poster's sheets",
        "A document larger than the paper, printed by <code>examples/poster</code>: each sheet shows its part, "
        "and laid edge to edge they show the whole.");
    page.Pictures(files, across);
}

}  // namespace

int main(int argc, char** argv) {
    int first = 1;
    int across = 2;
    if (argc > 2 && std::strcmp(argv[1], "--across") == 0) {
        across = std::atoi(argv[2]);
        first = 3;
    }
    if (across < 1) {
        std::cerr << "usage: gallery [--across N] [SHEET.png...]\n";
        return 2;
    }
    Page page(std::cout, "morvl15, a gallery",
              "Every cell of these tables was written by the library; <code>examples/gallery</code> is the program.");
    ShowNumbers(page);
    ShowPictures(page);
    ShowDates(page);
    ShowReading(page);
    ShowMasks(page);
    ShowSheets(page, std::vector<std::string>(argv + first, argv + argc), static_cast<size_t>(across));
    return 0;
}
