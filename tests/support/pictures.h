// Pictures of PDF pages, and what tells two of them apart.
#pragma once

#include <cstdint>
#include <string>
#include <vector>

// Grey values, row by row.
struct Picture {
    Picture() = default;
    Picture(int w, int h) : width(w), height(h), pixels(static_cast<size_t>(w) * static_cast<size_t>(h), 255) {}

    uint8_t At(int x, int y) const {  // white beyond the edges
        return x < 0 || y < 0 || x >= width || y >= height ? uint8_t{255} : pixels[Index(x, y)];
    }
    void Set(int x, int y, uint8_t value) {
        if (x >= 0 && y >= 0 && x < width && y < height) pixels[Index(x, y)] = value;
    }
    Picture Cut(int left, int top, int w, int h) const;
    void Put(int left, int top, const Picture& part);

    int width = 0;
    int height = 0;
    std::vector<uint8_t> pixels;

  private:
    size_t Index(int x, int y) const {
        return static_cast<size_t>(y) * static_cast<size_t>(width) + static_cast<size_t>(x);
    }
};
using Pictures = std::vector<Picture>;

// The pages of a PDF file (pdftoppm).
Pictures PicturesOf(const std::string& file, int dpi);

// How many pixels of one picture have none like them in the other, at the same place or next to it, in either
// direction.
int CountDifferences(const Picture& a, const Picture& b);
