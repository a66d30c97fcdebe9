#include "support/pictures.h"

#include <gtest/gtest.h>

#include <cstdlib>
#include <sstream>
#include <string>

#include "support/pdf_file.h"

namespace {

constexpr int kLikeness = 48;  // what the edge of a line may differ by

bool HasNeighbour(const Picture& picture, int x, int y, int value) {
    for (int dy = -1; dy <= 1; ++dy) {
        for (int dx = -1; dx <= 1; ++dx) {
            if (std::abs(picture.At(x + dx, y + dy) - value) <= kLikeness) return true;
        }
    }
    return false;
}

int CountMissing(const Picture& a, const Picture& b) {
    int count = 0;
    for (int y = 0; y < a.height; ++y) {
        for (int x = 0; x < a.width; ++x) count += HasNeighbour(b, x, y, a.At(x, y)) ? 0 : 1;
    }
    return count;
}

}  // namespace

Picture Picture::Cut(int left, int top, int w, int h) const {
    Picture part(w, h);
    part.Put(-left, -top, *this);
    return part;
}

void Picture::Put(int left, int top, const Picture& part) {
    for (int y = 0; y < part.height; ++y) {
        for (int x = 0; x < part.width; ++x) Set(left + x, top + y, part.At(x, y));
    }
}

Pictures PicturesOf(const std::string& file, int dpi) {
    std::istringstream pages(OutputOf("pdftoppm -gray -r " + std::to_string(dpi) + " '" + file + "'"));
    Pictures pictures;
    std::string kind;
    for (int width = 0, height = 0, most = 0; pages >> kind >> width >> height >> most;) {
        EXPECT_EQ(kind, "P5") << file;
        pages.get();
        auto& pixels = pictures.emplace_back(width, height).pixels;
        pages.read(reinterpret_cast<char*>(pixels.data()), static_cast<std::streamsize>(pixels.size()));
    }
    EXPECT_FALSE(pictures.empty()) << file;
    return pictures;
}

int CountDifferences(const Picture& a, const Picture& b) {
    return CountMissing(a, b) + CountMissing(b, a);
}
