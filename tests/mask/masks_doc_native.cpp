// The tables of docs/masks.md.
#include <gtest/gtest.h>

#include <cstdlib>
#include <string>

#include <morvl15/mask.h>

#include "keys.h"
#include "support/doc_tables.h"

namespace {

const DocTables& Page() {
    static const DocTables page("masks.md");
    return page;
}

TEST(MasksPage, OnFinishedTexts) {
    for (const DocRow& row : Page().Under("| text | picture | `FMTMaskText` | `FMTUnmaskInput` |")) {
        const std::string& text = row[0];
        char out[64] = {};
        EXPECT_EQ(FMTMaskText(text.c_str(), out, row[1].c_str()), 1);
        EXPECT_EQ(out, row[2]) << text << " under " << row[1];

        FMTCntlBlock block{};
        FMTInitCntlBlock(&block);
        block.Input = text.c_str();
        block.Picture = row[1].c_str();
        block.Output = out;
        const bool fits = row[3] != "doesn't fit";
        EXPECT_EQ(FMTUnmaskInput(&block), fits ? 1 : 0) << text << " under " << row[1];
        if (fits) {
            EXPECT_EQ(out, row[3]);
        }
    }
}

TEST(MasksPage, WhileAPersonTypes) {
    for (const DocRow& row : Page().Under("| text | caret or selection | key | text after it | caret |")) {
        const int start = std::atoi(row[1].c_str());
        const size_t to = row[1].find(" to ");
        const int end = to == std::string::npos ? start : std::atoi(row[1].c_str() + to + 4);
        EditField field("(999) 999-9999");
        field.Fill(row[0].c_str(), start, end);
        Strike(field, row[2]);
        EXPECT_EQ(field.Text(), row[3] == "the same" ? row[0] : row[3]) << row[0] << ", " << row[1] << ", " << row[2];
        EXPECT_EQ(field.End(), std::atoi(row[4].c_str())) << row[0] << ", " << row[1] << ", " << row[2];
    }
}

}  // namespace
