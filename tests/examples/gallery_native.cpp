// The gallery in docs is what the program writes today, and its pictures are there.
#include <gtest/gtest.h>

#include <filesystem>
#include <string>
#include <vector>

#include "program.h"

namespace {

const std::filesystem::path kDocs = std::filesystem::path(__FILE__).parent_path() / "../../docs";
constexpr uintmax_t kLargestPicture = 30000;

std::vector<std::string> PicturesIn(const std::string& page) {
    constexpr std::string_view kMark = "<img src=\"";
    std::vector<std::string> names;
    for (size_t at = page.find(kMark); at != std::string::npos; at = page.find(kMark, at)) {
        at += kMark.size();
        names.push_back(page.substr(at, page.find('"', at) - at));
    }
    return names;
}

TEST(Gallery, IsUpToDate) {
    const std::string page = ReadFile(kDocs / "gallery.html");
    std::string command = GALLERY_PROGRAM " --across 3";
    const std::vector<std::string> names = PicturesIn(page);
    EXPECT_EQ(names.size(), 6u);
    for (const std::string& name : names) {
        ASSERT_TRUE(std::filesystem::exists(kDocs / name)) << name;
        EXPECT_LT(std::filesystem::file_size(kDocs / name), kLargestPicture) << name;
        command += " " + name;
    }
    EXPECT_EQ(RunProgram(command).out, page) << "scripts/gallery.sh writes it anew";
}

TEST(Gallery, TellsHowItIsUsed) {
    EXPECT_EQ(RunProgram(GALLERY_PROGRAM " --across none sheet.png").status, 2);
    EXPECT_EQ(RunProgram(GALLERY_PROGRAM).out.find("<img"), std::string::npos);
}

}  // namespace
