// The examples of docs/number-pictures.md.
#include <gtest/gtest.h>

#include <filesystem>
#include <fstream>
#include <map>
#include <string>
#include <vector>

#include "private_region.h"

namespace {

constexpr TestRegion kGermany = {'.', ',', "DM", 3, 8};

using Row = std::vector<std::string>;

// The cells of a line of a table, without the marks of code.
Row CellsOf(const std::string& line) {
    Row cells;
    size_t start = line.find('|');
    for (size_t end = line.find('|', start + 1); end != std::string::npos; end = line.find('|', start + 1)) {
        std::string cell = line.substr(start + 2, end - start - 3);
        if (cell.size() > 1 && cell.front() == '`' && cell.back() == '`') cell = cell.substr(1, cell.size() - 2);
        cells.push_back(cell);
        start = end;
    }
    return cells;
}

// All tables, rows of the same heading together.
const std::map<std::string, std::vector<Row>>& Tables() {
    static const std::map<std::string, std::vector<Row>> tables = [] {
        std::map<std::string, std::vector<Row>> read;
        const auto folder = std::filesystem::path(__FILE__).parent_path();
        std::ifstream page(folder / "../../docs/number-pictures.md");
        std::string heading;
        for (std::string line; std::getline(page, line);) {
            if (line.empty() || line[0] != '|') {
                heading.clear();
            } else if (heading.empty()) {
                heading = line;
            } else if (line[1] != '-') {
                read[heading].push_back(CellsOf(line));
            }
        }
        return read;
    }();
    return tables;
}

const std::vector<Row>& TableOf(const std::string& heading) {
    return Tables().at(heading);
}

using Conversion = int32_t(MORVL_CALL*)(FMTCntlBlock*);

std::string Convert(Conversion conversion, const TestRegion& region, const std::string& picture) {
    char output[128] = {};
    FMTCntlBlock block = BlockOf(region);
    block.Picture = picture.c_str();
    block.Output = output;
    return conversion(&block) == 1 ? output : "failed";
}

TEST(NumberPicturesPage, WhatIsShown) {
    for (const Row& row : TableOf("| value | picture | text |")) {
        char output[128] = {};
        FMTCntlBlock block = BlockOf({});
        block.Type = FMT_TYPE_PICTURE;
        block.Picture = row[1].c_str();
        block.Output = output;
        ASSERT_GT(NumAsciiToNumber(&block.Value, row[0].c_str()), 0) << row[0];
        EXPECT_EQ(FMTFormatNumber(&block), 1) << row[1];
        EXPECT_EQ(output, row[2]) << row[0] << " by " << row[1];
    }
}

TEST(NumberPicturesPage, WhatIsValid) {
    for (const Row& row : TableOf("| picture | valid | why |")) {
        FMTCntlBlock block = BlockOf({});
        block.Picture = row[0].c_str();
        EXPECT_EQ(FMTIsNumberPicValid(&block), row[1] == "yes" ? 1 : 0) << row[0];
    }
}

TEST(NumberPicturesPage, TwoForms) {
    for (const Row& row : TableOf("| US | Germany (`.`, `,`, `1 DM`, `-1 DM`) |")) {
        EXPECT_EQ(Convert(FMTUnTokenizeNumberPic, kGermany, Convert(FMTTokenizeNumberPic, {}, row[0])), row[1]);
        EXPECT_EQ(Convert(FMTUnTokenizeNumberPic, {}, Convert(FMTTokenizeNumberPic, kGermany, row[1])), row[0]);
    }
}

TEST(NumberPicturesPage, TheOldNotation) {
    for (const Row& row : TableOf("| old | text form |")) {
        EXPECT_EQ(Convert(FMTCnvOldNumberPic, {}, row[0]), row[1]);
    }
}

}  // namespace
