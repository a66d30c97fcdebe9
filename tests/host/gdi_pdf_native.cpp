// Text in a PDF file: what is read there is what was written, in characters too.
#include <gtest/gtest.h>

#include <unistd.h>

#include <string>
#include <tuple>

#include "support/locale.h"
#include "support/pdf_file.h"
#include "support/picture_native.h"

namespace {

constexpr uint16_t kGreek = 0x0408;

// Writes a line, and one below it, and reads the file. The letters are in the code page in force.
std::string PrintAndRead(const std::string& line) {
    const std::string file = testing::TempDir() + "morvl15-gdi-" + std::to_string(getpid()) + ".pdf";
    HDC dc = CreateDCA("PDF", "PDF", ("FILE:" + file).c_str(), nullptr);
    {
        const LOGFONTA logical = FontOf("DejaVu Sans", -200);
        const Selected font(dc, CreateFontIndirectA(&logical));
        const DOCINFOA document = {sizeof document, "Text", nullptr, nullptr, 0};
        EXPECT_GT(StartDocA(dc, &document), 0);
        StartPage(dc);
        TextOutA(dc, 300, 300, line.data(), static_cast<INT>(line.size()));
        TextOutA(dc, 300, 900, "below", 5);
        EndPage(dc);
        EXPECT_GT(EndDoc(dc), 0);
    }
    DeleteDC(dc);
    const std::string text = PdfText(file);
    EXPECT_EQ(unlink(file.c_str()), 0);
    EXPECT_NE(text.find("below"), std::string::npos) << text;
    return text;
}

TEST(GdiPdf, KeepsTheCharactersOfTexts) {
    const std::tuple<uint16_t, const char*, const char*> kTexts[] = {
        {kEnglish, "caf\xE9", "caf\xC3\xA9"},
        // Two characters of one glyph: the micro sign, the Greek letter.
        {kEnglish, "5 \xB5m", "5 \xC2\xB5m"},
        {kGreek, "5 \xECm", "5 \xCE\xBCm"},
    };
    for (const auto& [language, written, read] : kTexts) {
        const TestLanguage inForce(language);
        const std::string text = PrintAndRead(written);
        EXPECT_NE(text.find(read), std::string::npos) << text;
    }
}

// What is no text is drawn all the same, and does the page no harm.
TEST(GdiPdf, GoesOnBehindControlCharacters) {
    for (const std::string& odd : {std::string("a\0b", 3), std::string("\x01"), std::string("\x81\x8D")})
        PrintAndRead(odd);
}

}  // namespace
