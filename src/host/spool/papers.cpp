// The platform's papers.
#include "papers.h"

#include <cstdlib>

namespace {

// clang-format off
constexpr StandardPaper kPapers[] = {
    // id  name                     media name                    width  length
    {   1, "Letter",                "na_letter_8.5x11in",          2159,  2794 },
    {   3, "Tabloid",               "na_ledger_11x17in",           2794,  4318 },
    {   5, "Legal",                 "na_legal_8.5x14in",           2159,  3556 },
    {   6, "Statement",             "na_invoice_5.5x8.5in",        1397,  2159 },
    {   7, "Executive",             "na_executive_7.25x10.5in",    1842,  2667 },
    {   8, "A3",                    "iso_a3_297x420mm",            2970,  4200 },
    {   9, "A4",                    "iso_a4_210x297mm",            2100,  2970 },
    {  11, "A5",                    "iso_a5_148x210mm",            1480,  2100 },
    {  12, "B4 (JIS)",              "jis_b4_257x364mm",            2570,  3640 },
    {  13, "B5 (JIS)",              "jis_b5_182x257mm",            1820,  2570 },
    {  19, "Envelope #9",           "na_number-9_3.875x8.875in",    984,  2254 },
    {  20, "Envelope #10",          "na_number-10_4.125x9.5in",    1048,  2413 },
    {  27, "Envelope DL",           "iso_dl_110x220mm",            1100,  2200 },
    {  28, "Envelope C5",           "iso_c5_162x229mm",            1620,  2290 },
    {  31, "Envelope C6",           "iso_c6_114x162mm",            1140,  1620 },
    {  34, "Envelope B5",           "iso_b5_176x250mm",            1760,  2500 },
    {  37, "Envelope Monarch",      "na_monarch_3.875x7.5in",       984,  1905 },
    {  43, "Japanese Postcard",     "jpn_hagaki_100x148mm",        1000,  1480 },
    {  66, "A2",                    "iso_a2_420x594mm",            4200,  5940 },
    {  70, "A6",                    "iso_a6_105x148mm",            1050,  1480 },
    {  88, "B6 (JIS)",              "jis_b6_128x182mm",            1280,  1820 },
};
// clang-format on

constexpr int32_t kTolerance = 5;

}  // namespace

const StandardPaper* FindStandardPaper(int32_t width, int32_t length) {
    for (const StandardPaper& paper : kPapers)
        if (std::abs(paper.width - width) <= kTolerance && std::abs(paper.length - length) <= kTolerance) return &paper;
    return nullptr;
}
