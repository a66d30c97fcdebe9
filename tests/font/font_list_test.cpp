// Font lists and facts of faces, compared with what the platform tells.
#include <gtest/gtest.h>

#include <cstring>
#include <string>
#include <vector>

#include <morvl15/font.h>

namespace {

// An information context on the screen.
class Screen {
  public:
    Screen() : dc_(CreateICA("DISPLAY", nullptr, nullptr, nullptr)) {}
    ~Screen() { DeleteDC(dc_); }
    Screen(const Screen&) = delete;
    Screen& operator=(const Screen&) = delete;
    operator HDC() const { return dc_; }

  private:
    HDC dc_;
};

// Takes a list's records, whose sizes must fill it, and frees it.
template <class Record>
std::vector<Record> RecordsOf(HGLOBAL block) {
    if (block == nullptr) return {};
    const auto* bytes = static_cast<const char*>(GlobalLock(block));
    int16_t count = 0;
    std::memcpy(&count, bytes, sizeof count);
    std::vector<Record> records(static_cast<size_t>(count));
    EXPECT_EQ(GlobalSize(block), 2 + records.size() * sizeof(Record));
    std::memcpy(records.data(), bytes + 2, records.size() * sizeof(Record));
    GlobalUnlock(block);
    GlobalFree(block);
    return records;
}

// The platform's own answers.
struct ToldFont {
    LOGFONTA font;
    TEXTMETRICA metric;
    DWORD type;
};

INT CALLBACK TakeFont(const LOGFONTA* font, const TEXTMETRICA* metric, DWORD type, LPARAM value) {
    reinterpret_cast<std::vector<ToldFont>*>(value)->push_back({*font, *metric, type});
    return 1;
}

std::vector<ToldFont> ToldFonts(HDC dc, const char* face) {
    std::vector<ToldFont> fonts;
    EnumFontsA(dc, face, TakeFont, reinterpret_cast<LPARAM>(&fonts));
    return fonts;
}

template <class Record>
void ExpectTold(const Record& record, const ToldFont& told) {
    EXPECT_EQ(std::memcmp(&record.logFont, &told.font, 60), 0) << told.font.lfFaceName;
    EXPECT_EQ(std::memcmp(&record.textMetric, &told.metric, 53), 0) << told.font.lfFaceName;
}

TEST(FonLists, FacesAreThePlatforms) {
    const Screen dc;
    const std::vector<ToldFont> told = ToldFonts(dc, nullptr);
    ASSERT_FALSE(told.empty());
    const auto faces = RecordsOf<FonFaceRecord>(FonGetFontFaces(dc));
    const auto metrics = RecordsOf<FonMetricsRecord>(FonGetFontFaceMetrics(dc));
    ASSERT_EQ(faces.size(), told.size());
    ASSERT_EQ(metrics.size(), told.size());
    for (size_t i = 0; i < told.size(); ++i) {
        EXPECT_STREQ(faces[i].faceName, told[i].font.lfFaceName);
        ExpectTold(metrics[i], told[i]);
        EXPECT_EQ(uint16_t{metrics[i].fontType}, told[i].type);
    }
}

TEST(FonLists, SizesOfAFace) {
    const Screen dc;
    const std::vector<ToldFont> faces = ToldFonts(dc, nullptr);
    ASSERT_FALSE(faces.empty());
    const char* face = faces[0].font.lfFaceName;
    const std::vector<ToldFont> told = ToldFonts(dc, face);
    const auto sizes = RecordsOf<FonSizeRecord>(FonGetFontSizes(dc, face));
    ASSERT_EQ(sizes.size(), told.size());
    for (size_t i = 0; i < told.size(); ++i) ExpectTold(sizes[i], told[i]);
    EXPECT_EQ(RecordsOf<FonSizeRecord>(FonGetFontSizes(dc, nullptr)).size(), faces.size());
}

TEST(FonLists, NothingFromNowhere) {
    const Screen dc;
    EXPECT_EQ(FonGetFontFaces(nullptr), nullptr);
    EXPECT_EQ(FonGetFontSizes(nullptr, nullptr), nullptr);
    EXPECT_EQ(FonGetFontFaceMetrics(nullptr), nullptr);
    EXPECT_EQ(FonGetFontSizes(dc, "no such face"), nullptr);
}

// ---- the callbacks, with fonts of the tests' own ----------------------------------------------------------------

ToldFont MadeFont(const std::string& face) {
    ToldFont made = {};
    made.font.lfHeight = static_cast<LONG>(face.size());
    std::memcpy(made.font.lfFaceName, face.data(), face.size() < LF_FACESIZE ? face.size() : LF_FACESIZE);
    made.metric.tmCharSet = 77;
    return made;
}

LPARAM ValueOf(FonEnumState& state) {
    return reinterpret_cast<LPARAM>(&state);
}

TEST(FontEnum, RecordsStandWithoutGaps) {
    FonEnumState faces = {};
    FonEnumState sizes = {};
    for (const char* face : {"one", "three", "two"}) {
        const ToldFont made = MadeFont(face);
        EXPECT_EQ(FontEnumFaces(&made.font, &made.metric, 4, ValueOf(faces)), 1);
        EXPECT_EQ(FontEnumSizes(&made.font, &made.metric, 4, ValueOf(sizes)), 1);
    }
    EXPECT_EQ(int16_t{faces.count}, 3);
    EXPECT_GE(GlobalSize(faces.block), 98u);
    const auto* bytes = static_cast<const char*>(GlobalLock(faces.block));
    EXPECT_EQ(std::string(bytes, 2), std::string("\3\0", 2));
    EXPECT_STREQ(bytes + 2, "one");
    EXPECT_STREQ(bytes + 34, "three");
    EXPECT_STREQ(bytes + 66, "two");
    bytes = static_cast<const char*>(GlobalLock(sizes.block));
    EXPECT_EQ(bytes[115], 5);        // the second font's height
    EXPECT_EQ(bytes[175 + 52], 77);  // its metric's last field
    for (HGLOBAL block : {faces.block, sizes.block}) {
        GlobalUnlock(block);
        GlobalFree(block);
    }
}

TEST(FontEnum, RoomForEveryRecordAtEveryTime) {
    FonEnumState state = {};
    const ToldFont made = MadeFont("face");
    for (size_t count = 1; count <= 1000; ++count) {
        ASSERT_EQ(FontEnumSizes(&made.font, &made.metric, 0, ValueOf(state)), 1);
        ASSERT_GE(GlobalSize(state.block), 2 + count * 113);
    }
    GlobalFree(state.block);
}

TEST(FontEnum, FullListsStayAsTheyAre) {
    FonEnumState state = {};
    const ToldFont made = MadeFont("face");
    for (int count = 0; count < 32767; ++count) ASSERT_EQ(FontEnumFaces(&made.font, nullptr, 0, ValueOf(state)), 1);
    EXPECT_EQ(FontEnumFaces(&made.font, nullptr, 0, ValueOf(state)), 0);
    EXPECT_EQ(int16_t{state.count}, 32767);
    EXPECT_NE(HGLOBAL{state.block}, nullptr);
    GlobalFree(state.block);
}

TEST(FontEnum, LongNamesAreCut) {
    FonEnumState state = {};
    const ToldFont made = MadeFont(std::string(40, 'x'));
    EXPECT_EQ(FontEnumFaces(&made.font, nullptr, 0, ValueOf(state)), 1);
    EXPECT_EQ(std::string(static_cast<const char*>(GlobalLock(state.block)) + 2), std::string(31, 'x'));
    GlobalUnlock(state.block);
    GlobalFree(state.block);
    EXPECT_EQ(FontEnumFaces(nullptr, nullptr, 0, ValueOf(state)), 0);
    EXPECT_EQ(FontEnumSizes(&made.font, nullptr, 0, ValueOf(state)), 0);
    EXPECT_EQ(FontEnumFaces(&made.font, nullptr, 0, 0), 0);
}

// ---- single facts -------------------------------------------------------------------------------------------------

TEST(FonFacts, AreThoseOfTheFirstFont) {
    const Screen dc;
    for (const ToldFont& face : ToldFonts(dc, nullptr)) {
        const ToldFont first = ToldFonts(dc, face.font.lfFaceName).at(0);
        uint8_t charSet = 0xEE;
        uint8_t pitchAndFamily = 0xEE;
        EXPECT_EQ(FonGetFontCharSet(dc, face.font.lfFaceName, &charSet), 1);
        EXPECT_EQ(FonGetFontPitchAndFamily(dc, face.font.lfFaceName, &pitchAndFamily), 1);
        EXPECT_EQ(charSet, first.font.lfCharSet);
        EXPECT_EQ(pitchAndFamily, first.font.lfPitchAndFamily);
    }
}

TEST(FonFacts, StayWhereThereIsNoFace) {
    const Screen dc;
    uint8_t fact = 0xEE;
    EXPECT_EQ(FonGetFontCharSet(dc, "no such face", &fact), 1);
    EXPECT_EQ(FonGetFontPitchAndFamily(dc, "no such face", &fact), 1);
    EXPECT_EQ(FonGetFontCharSet(nullptr, nullptr, &fact), 0);
    EXPECT_EQ(FonGetFontPitchAndFamily(nullptr, nullptr, &fact), 0);
    EXPECT_EQ(fact, 0xEE);
    EXPECT_EQ(FonGetFontCharSet(dc, nullptr, nullptr), 1);
}

TEST(FonFacts, FixChangesTwoFields) {
    const Screen dc;
    const ToldFont face = ToldFonts(dc, nullptr).at(0);
    const ToldFont first = ToldFonts(dc, face.font.lfFaceName).at(0);
    LOGFONTA font;
    std::memset(&font, 0xEE, sizeof font);
    std::memcpy(font.lfFaceName, face.font.lfFaceName, sizeof font.lfFaceName);
    LOGFONTA wanted = font;
    wanted.lfCharSet = first.font.lfCharSet;
    wanted.lfPitchAndFamily = first.font.lfPitchAndFamily;
    EXPECT_EQ(FonFixLogfont(dc, &font), 1);
    EXPECT_EQ(std::memcmp(&font, &wanted, sizeof font), 0);

    std::memset(&font, 'x', sizeof font);  // a name without an end
    wanted = font;
    EXPECT_EQ(FonFixLogfont(dc, &font), 1);
    EXPECT_EQ(FonFixLogfont(nullptr, &font), 0);
    EXPECT_EQ(std::memcmp(&font, &wanted, sizeof font), 0);
    EXPECT_EQ(FonFixLogfont(dc, nullptr), 1);
}

}  // namespace
