// The tables of docs/date-pictures.md.
#include <gtest/gtest.h>

#include <algorithm>
#include <sstream>
#include <string>
#include <vector>

#include "date_block.h"
#include "support/doc_tables.h"

namespace {

const DocTables& Page() {
    static const DocTables page("date-pictures.md");
    return page;
}

std::string Show(FMTCntlBlock block, const std::string& picture) {
    block.LongDatePic = picture.c_str();
    return WriteValue(&block);
}

TEST(DatePicturesPage, WhatIsShown) {
    FMTCntlBlock block = DateBlock(FMT_TYPE_DATE, "");
    SetMoment(&block, {1, 2, 2003, 9, 5, 7, 0});
    for (const DocRow& row : Page().Under("| Picture | 2 January 2003, 9:05:07 |")) {
        EXPECT_EQ(Show(block, row[0]), row[1]) << row[0];
    }
}

void ExpectValid(const std::string& cell, int32_t valid) {
    for (const std::string& picture : CodesOf(cell)) EXPECT_EQ(FMTIsDatePicValid(picture.c_str()), valid) << picture;
}

TEST(DatePicturesPage, WhatIsAPicture) {
    for (const DocRow& row : Page().Under("| Accepted | as | Rejected | because |")) {
        ExpectValid(row[0], 1);
        ExpectValid(row[2], 0);
    }
    // Each element in a picture of its own, and every separator.
    for (const DocRow& row : Page().Under("| Text | Element |")) {
        if (!row[0].starts_with("blanks")) ExpectValid(row[0], 1);
    }
}

// What an outcome begins with, as the page writes it: the date, the time, or an hour that no clock shows.
std::string OutcomeOf(const FMTCntlBlock& block) {
    if ((block.Flags & FMT_FOUND_DATE) != 0) return Show(block, "d MMMM yyyy");
    const int32_t hour = block.Hour;
    return hour == 24 ? "hour 24" : Show(block, "hhhh:mm:ss");
}

TEST(DatePicturesPage, HowTextIsReadByAPicture) {
    for (const DocRow& row : Page().Under("| Text | Picture | Outcome |")) {
        FMTCntlBlock block = DateBlock(FMT_TYPE_DATE, row[0].c_str());
        block.Picture = row[1].c_str();
        const bool reads = FMTUnformatDateTimeStr(&block) == 1;
        EXPECT_EQ(reads, !row[2].starts_with("fails")) << row[0] << " by " << row[1];
        if (reads) {
            EXPECT_EQ(row[2].substr(0, OutcomeOf(block).size()), OutcomeOf(block)) << row[0];
        }
    }
}

// "a; b (remark)" are a and b.
std::vector<std::string> ShapesOf(const std::string& cell) {
    std::istringstream list(cell.substr(0, cell.find(" (")));
    std::vector<std::string> shapes;
    for (std::string shape; std::getline(list >> std::ws, shape, ';');) shapes.push_back(shape);
    return shapes;
}

bool Belongs(const std::string& shape, const std::string& picture) {
    FMTCntlBlock block = DateBlock(FMT_TYPE_DATE, shape.c_str());
    block.Picture = picture.c_str();
    if (FMTIsValidDateString(&block) == 1) return true;
    block.Type = FMT_TYPE_TIME;
    return FMTIsValidDateString(&block) == 1;
}

// Each shape is read by one picture of its row, and by none of another row.
TEST(DatePicturesPage, FreeForm) {
    const std::vector<DocRow>& rows = Page().Under("| Shape | Picture |");
    for (const DocRow& row : rows) {
        for (const std::string& shape : ShapesOf(row[0])) {
            for (const DocRow& other : rows) {
                const auto fits = [&shape](const std::string& picture) { return Belongs(shape, picture); };
                const auto fitting = std::ranges::count_if(CodesOf(other[1]), fits);
                EXPECT_EQ(fitting, &other == &row ? 1 : 0) << shape << " by " << other[1];
            }
        }
    }
}

}  // namespace
