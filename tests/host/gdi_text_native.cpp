// Text: measured, placed and drawn; and the fonts of the machine.
#include <gtest/gtest.h>

#include <algorithm>
#include <cstring>
#include <string>
#include <tuple>
#include <vector>

#include "support/locale.h"
#include "support/picture_native.h"

namespace {

// A picture with a font in it, drawn without a background.
class TextPicture : public TestPicture {
  public:
    TextPicture(INT width, INT height, const LOGFONTA& font)
        : TestPicture(width, height), font_(*this, CreateFontIndirectA(&font)) {
        SetBkMode(*this, TRANSPARENT);
    }

    INT WidthOf(const std::string& text) const {
        SIZE size = {-1, -1};
        EXPECT_TRUE(GetTextExtentPoint32A(*this, text.data(), static_cast<INT>(text.size()), &size));
        return size.cx;
    }
    TEXTMETRICA Metric() const {
        TEXTMETRICA metric = {};
        EXPECT_TRUE(GetTextMetricsA(*this, &metric));
        return metric;
    }
    void Write(INT x, INT y, const std::string& text) const {
        EXPECT_TRUE(TextOutA(*this, x, y, text.data(), static_cast<INT>(text.size())));
    }
    POINT Position() const {
        POINT position;
        MoveToEx(*this, 0, 0, &position);
        return position;
    }

  private:
    const Selected font_;
};

TEST(GdiText, WidthsAddUp) {
    const TextPicture picture(10, 10, FontOf("DejaVu Sans", -24));
    EXPECT_EQ(picture.WidthOf(""), 0);
    EXPECT_GT(picture.WidthOf("W"), picture.WidthOf("i"));
    EXPECT_EQ(picture.WidthOf("Wim"), picture.WidthOf("W") + picture.WidthOf("i") + picture.WidthOf("m"));
    const TextPicture fixed(10, 10, FontOf("DejaVu Sans Mono", -24));
    EXPECT_EQ(fixed.WidthOf("WWW"), fixed.WidthOf("iii"));
}

TEST(GdiText, HeightsAreTheCellsOrTheCharacters) {
    const TEXTMETRICA cell = TextPicture(10, 10, FontOf("DejaVu Sans", 50)).Metric();
    EXPECT_NEAR(cell.tmHeight, 50, 1);
    EXPECT_EQ(cell.tmHeight, cell.tmAscent + cell.tmDescent);
    const TEXTMETRICA characters = TextPicture(10, 10, FontOf("DejaVu Sans", -50)).Metric();
    EXPECT_EQ(characters.tmHeight - characters.tmInternalLeading, 50);
    const TEXTMETRICA usual = TextPicture(10, 10, FontOf("DejaVu Sans", 0)).Metric();
    EXPECT_EQ(usual.tmHeight - usual.tmInternalLeading, 16);  // 12 points at 96 dots an inch
}

TEST(GdiText, MeasuredInTheMappingModesUnits) {
    const TextPicture picture(10, 10, FontOf("DejaVu Sans", -1000));
    SetMapMode(picture, MM_HIENGLISH);
    const TEXTMETRICA metric = picture.Metric();
    EXPECT_NEAR(metric.tmHeight - metric.tmInternalLeading, 1000, 20);  // an inch, to a pixel or two
    SIZE size;
    GetTextExtentPoint32A(picture, "mm", 2, &size);
    EXPECT_EQ(size.cy, metric.tmHeight);
    EXPECT_GT(size.cx, 1500);
}

TEST(GdiText, WidthStretches) {
    LOGFONTA font = FontOf("DejaVu Sans", -20);
    const TextPicture plain(1, 1, font);
    font.lfWidth = 2 * plain.Metric().tmAveCharWidth;
    EXPECT_NEAR(TextPicture(1, 1, font).WidthOf("stretched"), 2 * plain.WidthOf("stretched"), 12);
}

TEST(GdiText, StandsWhereItsAlignmentSays) {
    // The ink begins so many halves of its width and heights of the cell beside the reference point.
    constexpr INT kAlignments[][3] = {
        {TA_LEFT | TA_TOP, 0, 0},
        {TA_RIGHT | TA_TOP, -2, 0},
        {TA_CENTER | TA_TOP, -1, 0},
        {TA_LEFT | TA_BOTTOM, 0, -1},
    };
    for (const auto& [align, across, down] : kAlignments) {
        const TextPicture picture(200, 200, FontOf("DejaVu Sans", -30));
        SetBkMode(picture, OPAQUE);
        SetBkColor(picture, RGB(0, 0, 255));
        SetTextAlign(picture, align);
        picture.Write(100, 100, "II");
        const INT width = picture.WidthOf("II");
        const INT left = 100 + across * (width / 2);
        const INT top = 100 + down * picture.Metric().tmHeight;
        EXPECT_EQ(picture.Inked(), (RECT{left, top, left + width, top + picture.Metric().tmHeight})) << align;
    }
}

TEST(GdiText, BaseLineCarriesLetters) {
    const TextPicture picture(100, 100, FontOf("DejaVu Sans", -40));
    SetTextAlign(picture, TA_BASELINE);
    picture.Write(10, 60, "H");
    EXPECT_NEAR(picture.Inked().bottom, 60, 1);
    EXPECT_NEAR(picture.Inked().top, 60 - 29, 2);
}

TEST(GdiText, CurrentPositionMovesAlong) {
    const TextPicture picture(200, 50, FontOf("DejaVu Sans", -20));
    SetTextAlign(picture, TA_UPDATECP);
    MoveToEx(picture, 10, 10, nullptr);
    picture.Write(999, 999, "one");
    EXPECT_EQ(picture.Position(), (POINT{10 + picture.WidthOf("one"), 10}));
}

TEST(GdiText, OptionsFillAndClip) {
    const TextPicture picture(100, 100, FontOf("DejaVu Sans", -40));
    SetBkColor(picture, RGB(255, 0, 0));
    const RECT rect = {20, 20, 40, 40};
    EXPECT_TRUE(ExtTextOutA(picture, 0, 5, ETO_OPAQUE | ETO_CLIPPED, &rect, "MMMM", 4, nullptr));
    EXPECT_EQ(picture.Inked(), rect);
}

TEST(GdiText, AdvancesOfTheCallersOwn) {
    const TextPicture picture(300, 40, FontOf("DejaVu Sans", -20));
    const INT advances[] = {100, 100, 0};
    ExtTextOutA(picture, 10, 5, 0, nullptr, "III", 3, advances);
    EXPECT_GT(picture.Inked().right, 210);
    EXPECT_LT(picture.Inked().right, 225);
}

TEST(GdiText, TurnedText) {
    LOGFONTA font = FontOf("DejaVu Sans", -20);
    font.lfEscapement = 900;
    const TextPicture picture(100, 200, font);
    picture.Write(50, 150, "upward");
    const RECT inked = picture.Inked();
    EXPECT_LE(inked.bottom, 150);
    EXPECT_GT(inked.bottom - inked.top, inked.right - inked.left);
}

TEST(GdiText, RulesUnderAndThrough) {
    LOGFONTA font = FontOf("DejaVu Sans", -32);
    font.lfUnderline = 1;
    font.lfStrikeOut = 1;
    const TextPicture picture(100, 60, font);
    picture.Write(10, 5, "   ");
    EXPECT_EQ(picture.Inked().left, 10);
    EXPECT_EQ(picture.Inked().right, 10 + picture.WidthOf("   "));
}

TEST(GdiTextJapanese, DoubleByteCharactersAreOne) {
    const TestLanguage language(kJapanese);
    const TextPicture picture(10, 10, FontOf("DejaVu Sans", -20));
    const std::string twoCharacters = "\x83\x41\x82\xA0";
    const INT advances[] = {7, 8, 9, 10};
    SetTextAlign(picture, TA_UPDATECP);
    ExtTextOutA(picture, 0, 0, 0, nullptr, twoCharacters.data(), 4, advances);
    EXPECT_EQ(picture.Position(), (POINT{34, 0}));
    EXPECT_EQ(picture.WidthOf(twoCharacters), picture.WidthOf("\x83\x41") + picture.WidthOf("\x82\xA0"));
    EXPECT_GT(picture.WidthOf("\x83"), 0);  // half a character is one of its own
}

// ---- blocks and tabs --------------------------------------------------------------------------------------------

TEST(GdiDrawText, MeasuresBrokenLines) {
    const TextPicture picture(10, 10, FontOf("DejaVu Sans", -20));
    const INT word = picture.WidthOf("word");
    const std::tuple<const char*, INT, UINT, INT, const char*> kCases[] = {
        {"word word", 1000, DT_WORDBREAK, 1, "word word"},
        {"word word", word + 2, DT_WORDBREAK, 2, "word"},
        {"word\r\nword\nword", 1000, DT_LEFT, 3, "word"},
        {"word word", 5, DT_LEFT, 1, "word word"},
        {"word\nword", 1000, DT_SINGLELINE, 1, "word\nword"},
        {"www", 1, DT_WORDBREAK, 3, "w"},  // a character at least
        {"&word", 1000, DT_SINGLELINE, 1, "word"},
        {"&&", 1000, DT_SINGLELINE, 1, "&"},
        {"&word", 1000, DT_NOPREFIX, 1, "&word"},
        {"", 1000, DT_WORDBREAK, 0, ""},
    };
    for (const auto& [text, width, format, lines, widest] : kCases) {
        RECT rect = {100, 200, 100 + width, 300};
        const INT height = lines * picture.Metric().tmHeight;
        EXPECT_EQ(DrawTextA(picture, text, -1, &rect, format | DT_CALCRECT), height) << text;
        EXPECT_EQ(rect, (RECT{100, 200, 100 + picture.WidthOf(widest), 200 + height})) << text << ' ' << width;
    }
    EXPECT_EQ(picture.Inked().right, 0);
}

TEST(GdiDrawText, PlacesALine) {
    const TextPicture picture(200, 100, FontOf("DejaVu Sans", -20));
    RECT rect = {10, 10, 190, 90};
    DrawTextA(picture, "Mid", 3, &rect, DT_SINGLELINE | DT_CENTER | DT_VCENTER);
    const RECT inked = picture.Inked();
    EXPECT_NEAR((inked.left + inked.right) / 2, 100, 3);
    EXPECT_NEAR((inked.top + inked.bottom) / 2, 50, 4);
}

TEST(GdiTabs, StopsAndTheirAbsence) {
    const TextPicture picture(10, 10, FontOf("DejaVu Sans", -20));
    const auto extent = [&](const std::string& text, const std::vector<INT>& stops) {
        const DWORD size = GetTabbedTextExtentA(picture, text.data(), static_cast<INT>(text.size()),
                                                static_cast<INT>(stops.size()), stops.data());
        return POINT{LOWORD(size), HIWORD(size)};
    };
    const INT b = picture.WidthOf("b");
    const INT height = picture.Metric().tmHeight;
    EXPECT_EQ(extent("a\tb", {}), (POINT{8 * picture.Metric().tmAveCharWidth + b, height}));
    EXPECT_EQ(extent("a\tb", {100}), (POINT{100 + b, height}));
    EXPECT_EQ(extent("a\t\tb", {100}), (POINT{200 + b, height}));  // a single stop is a distance
    EXPECT_EQ(extent("a\t\tb", {100, 150}), (POINT{150 + b, height}));
    EXPECT_EQ(extent("ab", {100}), (POINT{picture.WidthOf("ab"), height}));
}

// ---- fonts ----------------------------------------------------------------------------------------------------------

struct TakenFont {
    LOGFONTA font;
    TEXTMETRICA metric;
    DWORD type;
};

INT CALLBACK Take(const LOGFONTA* font, const TEXTMETRICA* metric, DWORD type, LPARAM fonts) {
    reinterpret_cast<std::vector<TakenFont>*>(fonts)->push_back({*font, *metric, type});
    return 1;
}

std::vector<TakenFont> TakeFonts(const char* face) {
    std::vector<TakenFont> fonts;
    const TestPicture picture(1, 1);
    EXPECT_EQ(EnumFontsA(picture, face, Take, reinterpret_cast<LPARAM>(&fonts)), 1);
    return fonts;
}

// Counts down, and so stops.
INT CALLBACK CountDown(const LOGFONTA* /*font*/, const TEXTMETRICA* /*metric*/, DWORD /*type*/, LPARAM count) {
    return --*reinterpret_cast<INT*>(count);
}

TEST(GdiFonts, FacesStandOnceAndInOrder) {
    const std::vector<TakenFont> fonts = TakeFonts(nullptr);
    ASSERT_FALSE(fonts.empty());
    const auto before = [](const TakenFont& a, const TakenFont& b) {
        return strcasecmp(a.font.lfFaceName, b.font.lfFaceName) >= 0;
    };
    EXPECT_EQ(std::adjacent_find(fonts.begin(), fonts.end(), before), fonts.end());
    for (const TakenFont& taken : fonts) {
        EXPECT_GT(taken.metric.tmHeight, 0);
        EXPECT_EQ(taken.metric.tmHeight, taken.font.lfHeight);
        EXPECT_EQ(taken.metric.tmCharSet, taken.font.lfCharSet);
    }
    EXPECT_EQ(TakeFonts("").size(), fonts.size());
}

TEST(GdiFonts, AFaceHasItsStyles) {
    const std::vector<TakenFont> fonts = TakeFonts("dejavu sans mono");
    ASSERT_GE(fonts.size(), 2u);
    EXPECT_EQ(fonts[0].font.lfWeight, FW_NORMAL);
    EXPECT_EQ(fonts.back().font.lfWeight, FW_BOLD);
    for (const TakenFont& taken : fonts) {
        EXPECT_STREQ(taken.font.lfFaceName, "DejaVu Sans Mono");
        EXPECT_EQ(taken.font.lfPitchAndFamily, FIXED_PITCH | FF_MODERN);
        EXPECT_EQ(taken.metric.tmPitchAndFamily, TMPF_VECTOR | TMPF_TRUETYPE | FF_MODERN);
        EXPECT_EQ(taken.font.lfCharSet, ANSI_CHARSET);
        EXPECT_EQ(taken.type, static_cast<DWORD>(TRUETYPE_FONTTYPE));
    }
    EXPECT_EQ(TakeFonts("DejaVu Serif").at(0).font.lfPitchAndFamily, VARIABLE_PITCH | FF_ROMAN);
}

TEST(GdiFonts, StopsWhenTheCallbackSaysSo) {
    const TestPicture picture(1, 1);
    for (const char* face : {static_cast<const char*>(nullptr), "DejaVu Sans Mono"}) {
        INT count = 1;
        EXPECT_EQ(EnumFontsA(picture, face, CountDown, reinterpret_cast<LPARAM>(&count)), 0);
        EXPECT_EQ(count, 0);
    }
    EXPECT_EQ(TakeFonts("no such face").size(), 0u);
    EXPECT_EQ(EnumFontsA(picture, nullptr, nullptr, 0), 0);
    EXPECT_EQ(EnumFontsA(nullptr, nullptr, Take, 0), 0);
}

TEST(GdiFonts, ALogicalFontFindsItsFace) {
    char name[LF_FACESIZE];
    const TextPicture exact(1, 1, FontOf("DejaVu Sans Mono", -20));
    EXPECT_EQ(GetTextFaceA(exact, sizeof name, name), 16);
    EXPECT_STREQ(name, "DejaVu Sans Mono");
    EXPECT_EQ(GetTextFaceA(exact, 0, nullptr), 17);
    LOGFONTA fixed = FontOf("no such face", -20);
    fixed.lfPitchAndFamily = FIXED_PITCH | FF_MODERN;
    const TextPicture stand(1, 1, fixed);
    EXPECT_EQ(stand.WidthOf("i"), stand.WidthOf("W"));
    LOGFONTA bold = FontOf("DejaVu Sans", -20);
    bold.lfWeight = FW_BOLD;
    EXPECT_GT(TextPicture(1, 1, bold).WidthOf("weight"),
              TextPicture(1, 1, FontOf("DejaVu Sans", -20)).WidthOf("weight"));
}

}  // namespace
