// The examples of docs/number-pictures.md.
#include "number_block.h"
#include "support/doc_tables.h"

namespace {

const DocTables& Page() {
    static const DocTables page("number-pictures.md");
    return page;
}

std::string Tokenize(const TestRegion& region, const std::string& picture) {
    return ConvertPicture(FMTTokenizeNumberPic, BlockOf(region), picture);
}
std::string UnTokenize(const TestRegion& region, const std::string& picture) {
    return ConvertPicture(FMTUnTokenizeNumberPic, BlockOf(region), picture);
}

TEST(NumberPicturesPage, WhatIsShown) {
    for (const DocRow& row : Page().Under("| value | picture | text |")) {
        EXPECT_EQ(NumberBlock(kUS).Format(row[0], row[1].c_str()), row[2]) << row[0] << " by " << row[1];
    }
}

TEST(NumberPicturesPage, WhatIsValid) {
    for (const DocRow& row : Page().Under("| picture | valid | why |")) {
        NumberBlock block(kUS);
        block->Picture = row[0].c_str();
        EXPECT_EQ(FMTIsNumberPicValid(block.Get()), row[1] == "yes" ? 1 : 0) << row[0];
    }
}

TEST(NumberPicturesPage, TwoForms) {
    for (const DocRow& row : Page().Under("| US | Germany (`.`, `,`, `1 DM`, `-1 DM`) |")) {
        EXPECT_EQ(UnTokenize(kGermany, Tokenize(kUS, row[0])), row[1]);
        EXPECT_EQ(UnTokenize(kUS, Tokenize(kGermany, row[1])), row[0]);
    }
}

TEST(NumberPicturesPage, TheOldNotation) {
    for (const DocRow& row : Page().Under("| old | text form |")) {
        EXPECT_EQ(ConvertPicture(FMTCnvOldNumberPic, BlockOf(kUS), row[0]), row[1]);
    }
}

}  // namespace
