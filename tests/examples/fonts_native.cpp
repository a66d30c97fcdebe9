// The specimen sheet, as a user runs it.
#include <gtest/gtest.h>

#include <cstdlib>
#include <string>

#include "program.h"
#include "support/pdf_file.h"

namespace {

TEST(Fonts, SpecimensOfEachFace) {
    const TestFolder folder;
    const std::string file = folder.Path() + "/fonts.pdf";
    const Outcome outcome = RunProgram(FONTS_PROGRAM " --pdf " + file + " Specimen");
    EXPECT_GT(std::atoi(outcome.out.c_str()), 0) << outcome.out;
    ExpectTexts(PdfText(file), {"Faces, page 1", "DejaVu Sans Mono, fixed pitch", "Specimen"});
    for (const std::string& path : {std::string("/nowhere/at/all.pdf"), std::string(300, 'n')}) {
        EXPECT_EQ(RunProgram(FONTS_PROGRAM " --pdf " + path).status, 1);
    }
}

}  // namespace
