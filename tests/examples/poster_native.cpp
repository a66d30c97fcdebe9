// The poster, as a user runs it.
#include <gtest/gtest.h>

#include <algorithm>
#include <string>

#include "program.h"
#include "support/pictures.h"

namespace {

int RunPoster(const std::string& arguments) {
    return RunProgram(POSTER_PROGRAM " " + arguments).status;
}

bool HasInk(const Picture& picture) {
    return std::any_of(picture.pixels.begin(), picture.pixels.end(), [](uint8_t grey) { return grey < 100; });
}

TEST(Poster, IsPrintedOverSeveralSheets) {
    constexpr std::pair<const char*, size_t> kSheets[] = {
        {"", 6},  // of A4
        {"--size 11.6x16.5 --paper 8", 1},
        {"--size 11.6x16.5 --paper 11", 4},
        {"--size 11x8 --paper 1 --landscape --copies 2 Small", 2},
    };
    const TestFolder folder;
    const std::string file = folder.Path() + "/poster.pdf";
    for (const auto& [arguments, count] : kSheets) {
        EXPECT_EQ(RunPoster("--pdf " + file + " " + arguments), 0);
        const Pictures sheets = PicturesOf(file, 20);
        EXPECT_EQ(sheets.size(), count) << arguments;
        EXPECT_TRUE(std::all_of(sheets.begin(), sheets.end(), HasInk)) << arguments;
    }
}

// Four sheets of A5, joined, beside the same poster on one of A3.
TEST(Poster, JoinsToTheWhole) {
    constexpr int kDpi = 127;  // five pixels a millimetre
    constexpr int kAcross = 740;
    constexpr int kDown = 1050;
    const TestFolder folder;
    const std::string file = folder.Path() + "/poster.pdf";
    EXPECT_EQ(RunPoster("--size 11.6x16.5 --paper 11 --pdf " + file), 0);
    const Pictures tiles = PicturesOf(file, kDpi);
    EXPECT_EQ(RunPoster("--size 11.6x16.5 --paper 8 --pdf " + file), 0);
    const Pictures whole = PicturesOf(file, kDpi);
    ASSERT_EQ(tiles.size(), 4u);
    ASSERT_EQ(whole.size(), 1u);
    Picture joined(2 * kAcross, 2 * kDown);
    for (int i = 0; i < 4; ++i) {
        joined.Put(i % 2 * kAcross, i / 2 * kDown, tiles[static_cast<size_t>(i)].Cut(0, 0, kAcross, kDown));
    }
    const Picture large = whole[0].Cut(0, 0, joined.width, joined.height);
    EXPECT_EQ(CountDifferences(joined, large), 0);
    EXPECT_GT(CountDifferences(joined.Cut(3, 0, joined.width, joined.height), large), 1000);
}

TEST(Poster, TellsWhatIsWrong) {
    EXPECT_EQ(RunPoster("--pdf /nowhere/at/all/poster.pdf"), 1);
    for (const char* wrong : {"--printer 'no such printer'", "--size 3", "--size 0x4", "--size 9x9999", "--size 3x4y",
                              "--nonsense 1", "--pdf"}) {
        EXPECT_EQ(RunPoster(wrong), 2) << wrong;
    }
}

}  // namespace
