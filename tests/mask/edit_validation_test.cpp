// Typing, deleting, caret keys and whole texts in a masked edit control.
#include <gtest/gtest.h>

#include <random>
#include <string>

#include <morvl15/mask.h>

#include "support/beeps.h"
#include "support/edit_field.h"

namespace {

constexpr char kPhone[] = "(999) 999-9999";
constexpr char kFull[] = "(555) 123-4567";

// A key of the table: a character, or a key of the keyboard with or without Shift.
struct Key {
    enum Kind { kType, kPress, kPressShift } kind;
    int code;
};

constexpr Key Char(char c) {
    return {Key::kType, static_cast<unsigned char>(c)};
}
constexpr Key kDelete = {Key::kPress, VK_DELETE};
constexpr Key kBackspace = {Key::kType, VK_BACK};
constexpr Key kLeft = {Key::kPress, VK_LEFT};
constexpr Key kRight = {Key::kPress, VK_RIGHT};
constexpr Key kHome = {Key::kPress, VK_HOME};
constexpr Key kEnd = {Key::kPress, VK_END};
constexpr Key kShiftHome = {Key::kPressShift, VK_HOME};
constexpr Key kShiftEnd = {Key::kPressShift, VK_END};
constexpr Key kShiftLeft = {Key::kPressShift, VK_LEFT};

void Strike(EditField& field, Key key) {
    if (key.kind == Key::kType) {
        field.Type(static_cast<char>(key.code));
    } else {
        field.Press(key.code, key.kind == Key::kPressShift);
    }
}

struct KeyCase {
    int line;
    const char* picture;
    const char* text;
    int32_t start, end;
    Key key;
    const char* newText;
    int32_t newStart, newEnd;
    int beeps;
};

// clang-format off
constexpr KeyCase kKeyCases[] = {
    //         picture     text       selection key       new text         selection beeps
    {__LINE__, kPhone,     kFull,     3, 3,  Char('1'),   kFull,           3, 3,   1},  // full, no selection
    {__LINE__, kPhone,     "(555) 1", 3, 3,  Char('9'),   "(559) 51",      6, 6,   0},
    {__LINE__, kPhone,     "(555) 1", 7, 7,  Char('x'),   "(555) 1",       7, 7,   1},
    {__LINE__, kPhone,     kFull,     3, 8,  Char('9'),   "(559) 345-67",  6, 6,   0},
    {__LINE__, kPhone,     "(555) 1", 4, 4,  Char(')'),   "(555) 1",       6, 6,   0},
    {__LINE__, kPhone,     "(555) 1", 4, 4,  Char('7'),   "(555) 71",      7, 7,   0},
    {__LINE__, kPhone,     "",        0, 0,  Char('x'),   "(",             1, 1,   1},  // the literal stays
    {__LINE__, kPhone,     "",        0, 0,  Char('('),   "(",             1, 1,   0},
    {__LINE__, kPhone,     "(5",      2, 2,  Char('\t'),  "(5",            2, 2,   0},
    {__LINE__, kPhone,     kFull,     5, 5,  kDelete,     kFull,           5, 5,   0},  // on a literal
    {__LINE__, kPhone,     kFull,     2, 2,  kDelete,     "(551) 234-567", 2, 2,   0},
    {__LINE__, kPhone,     kFull,     3, 3,  kBackspace,  "(551) 234-567", 2, 2,   0},
    {__LINE__, kPhone,     kFull,     6, 6,  kBackspace,  "(551) 234-567", 3, 3,   0},
    {__LINE__, kPhone,     kFull,     1, 1,  kBackspace,  kFull,           1, 1,   0},
    {__LINE__, kPhone,     kFull,     0, 0,  kBackspace,  kFull,           0, 0,   0},
    {__LINE__, kPhone,     kFull,     0, 14, kBackspace,  "",              0, 0,   0},
    {__LINE__, kPhone,     kFull,     2, 7,  kDelete,     "(523) 456-7",   2, 2,   0},
    {__LINE__, kPhone,     kFull,     4, 6,  kDelete,     kFull,           6, 6,   0},  // literals only
    {__LINE__, kPhone,     kFull,     1, 1,  kLeft,       kFull,           1, 1,   0},
    {__LINE__, kPhone,     kFull,     6, 6,  kLeft,       kFull,           3, 3,   0},
    {__LINE__, kPhone,     kFull,     6, 6,  kShiftLeft,  kFull,           3, 3,   0},  // always a caret
    {__LINE__, kPhone,     kFull,     3, 3,  kRight,      kFull,           6, 6,   0},
    {__LINE__, kPhone,     kFull,     5, 5,  kHome,       kFull,           1, 1,   0},
    {__LINE__, kPhone,     kFull,     5, 5,  kEnd,        kFull,           14, 14, 0},
    {__LINE__, kPhone,     kFull,     5, 5,  kShiftHome,  kFull,           0, 5,   0},
    {__LINE__, kPhone,     kFull,     5, 5,  kShiftEnd,   kFull,           5, 14,  0},
    {__LINE__, "(99)",     "(1",      2, 2,  Char('2'),   "(12)",          4, 4,   0},
    {__LINE__, "(99)",     "(12)",    4, 4,  Char('3'),   "(12)",          4, 4,   1},
    {__LINE__, "AA",       "AB",      0, 1,  Char('x'),   "XB",            1, 1,   0},
    {__LINE__, "AA",       "AB",      0, 2,  Char('x'),   "X",             1, 1,   0},
    {__LINE__, "AA",       "A",       0, 0,  Char('x'),   "XA",            1, 1,   0},
    {__LINE__, "XX-XX",    "ab-cd",   1, 4,  kDelete,     "ad-",           1, 1,   0},
    {__LINE__, "XX-XX",    "ab-",     3, 3,  kBackspace,  "a",             1, 1,   0},
    {__LINE__, "AA-*",     "AB-cdef", 7, 7,  Char('g'),   "AB-cdefg",      8, 8,   0},
    {__LINE__, "AA-*",     "AB-cdef", 5, 5,  Char('z'),   "AB-cdzf",       6, 6,   0},  // overwrites there
    {__LINE__, "AA-*",     "AB-cdef", 4, 6,  kDelete,     "AB-cf",         4, 4,   0},
    {__LINE__, "AA-*",     "AB-cdef", 6, 6,  kLeft,       "AB-cdef",       5, 5,   0},
    {__LINE__, "AA-*",     "AB-cdef", 6, 6,  kDelete,     "AB-cde",        6, 6,   0},
    {__LINE__, "A----A",   "A",       0, 0,  Char('b'),   "B----A",        5, 5,   0},  // grows by four literals
    {__LINE__, "^(99)",    "(1",      2, 2,  Char('2'),   "(12)",          4, 4,   0},
    {__LINE__, "^^99",     "",        0, 0,  Char('1'),   "^1",            2, 2,   0},  // one prefix only
};
// clang-format on

TEST(EditKeys, EachKeyOnItsText) {
    for (const KeyCase& c : kKeyCases) {
        const testing::ScopedTrace row(__FILE__, c.line, c.picture);
        EditField field(c.picture);
        field.Fill(c.text, c.start, c.end);
        TakeBeeps();
        Strike(field, c.key);
        EXPECT_EQ(field.Text(), c.newText);
        EXPECT_EQ(field.Start(), c.newStart);
        EXPECT_EQ(field.End(), c.newEnd);
        EXPECT_EQ(TakeBeeps().value_or(c.beeps), c.beeps);
    }
}

TEST(EditKeys, TypingAWholeNumber) {
    struct {
        int line;
        const char* keys;
        const char* text;
        int32_t caret;
    } const cases[] = {
        {__LINE__, "5", "(5", 2},
        {__LINE__, "5", "(55", 3},
        {__LINE__, "5", "(555", 4},  // the literals come with the next input character
        {__LINE__, "1", "(555) 1", 7},
        {__LINE__, "23", "(555) 123", 9},
        {__LINE__, "4", "(555) 123-4", 11},
        {__LINE__, "567", "(555) 123-4567", 14},
        {__LINE__, "8", "(555) 123-4567", 14},
    };
    EditField field(kPhone);
    for (const auto& c : cases) {
        const testing::ScopedTrace row(__FILE__, c.line, c.keys);
        for (const char* key = c.keys; *key != 0; ++key) field.Type(*key);
        EXPECT_EQ(field.Text(), c.text);
        EXPECT_EQ(field.Start(), c.caret);
        EXPECT_EQ(field.End(), c.caret);
    }
}

TEST(EditKeys, ADeletionIsReportedAndMarksTheControl) {
    EditField field(kPhone);
    field.Fill(kFull, 2, 2);
    field.Press(VK_DELETE);
    EXPECT_TRUE(field.IsModified());
    EXPECT_GE(field.Changes(), 1);
}

TEST(EditKeys, WhatTheMaskDoesNotSee) {
    EditField field("99-99");
    field.Fill("12-34", 0, 2);
    FMTCntlBlock& block = field.block;
    struct {
        int line;
        UINT message;
        WPARAM wParam;
    } const cases[] = {
        {__LINE__, WM_CUT, 0},   {__LINE__, WM_KEYDOWN, 'A'},  {__LINE__, WM_SETTEXT, 0},
        {__LINE__, WM_PASTE, 0}, {__LINE__, EM_REPLACESEL, 0}, {__LINE__, FMT_MASK_SHOW_TEXT, 0},
    };
    for (const auto& c : cases) {
        const testing::ScopedTrace row(__FILE__, c.line, "");
        block.Message = c.message;
        block.WParam = c.wParam;
        block.LParam = reinterpret_cast<LPARAM>("1");
        block.Result = 77;
        EXPECT_EQ(FMTValidateInput(&block), 0);
        EXPECT_EQ(LRESULT{block.Result}, 77);
    }
    EXPECT_EQ(field.Text(), "12-34");
    block.Picture = nullptr;
    block.Message = WM_CHAR;
    EXPECT_EQ(FMTValidateInput(&block), 0);
}

TEST(EditKeys, ClearActsAsDelete) {
    EditField field("XX-XX");
    field.Fill("ab-cd", 1, 4);
    field.Send(WM_CLEAR);
    EXPECT_EQ(field.Text(), "ad-");
    field.Fill("ab-cd", 1, 1);
    field.Send(WM_CHAR, VK_BACK, 0);  // a delete in the guise of a character
    EXPECT_EQ(field.Text(), "ac-d");
}

void PutOnClipboard(HWND owner, const std::string& text) {
    HGLOBAL block = GlobalAlloc(GHND, text.size() + 1);
    text.copy(static_cast<char*>(GlobalLock(block)), text.size());
    GlobalUnlock(block);
    ASSERT_TRUE(OpenClipboard(owner));
    EmptyClipboard();
    SetClipboardData(CF_TEXT, block);
    CloseClipboard();
}

void ClearClipboard(HWND owner) {
    OpenClipboard(owner);
    EmptyClipboard();
    CloseClipboard();
}

TEST(EditTexts, WholeTextsAreMaskedAgain) {
    EditField field("99-99", FMT_MASK_REAPPLY);
    field.Fill("", 0, 0);
    PutOnClipboard(field.Window(), "12ab34");
    field.Send(WM_PASTE);
    EXPECT_EQ(field.Text(), "12-3");  // five bytes are read, two of them don't fit
    EXPECT_EQ(field.Start(), 0);
    ClearClipboard(field.Window());

    field.Fill("", 0, 0);
    EXPECT_NE(field.Send(WM_SETTEXT, 0, reinterpret_cast<LPARAM>("1234")), 0);
    EXPECT_EQ(field.Text(), "12-34");
    field.Fill("", 0, 0);
    field.Send(EM_REPLACESEL, 0, reinterpret_cast<LPARAM>("12"));
    EXPECT_EQ(field.Text(), "12-");
}

// A control that keeps its text and reports nothing, so that the library's own report can be counted.
TEST(EditTexts, OneReportWhenAskedFor) {
    EditField silent("99-99", FMT_MASK_REAPPLY | FMT_MASK_NOTIFY, "STATIC");
    silent.Send(WM_SETTEXT, 0, reinterpret_cast<LPARAM>("1234"));
    EXPECT_EQ(silent.Text(), "12-34");
    EXPECT_EQ(silent.Changes(), 1);

    EditField field("99-99", FMT_MASK_REAPPLY | FMT_MASK_NOTIFY);
    field.Send(WM_SETTEXT, 0, reinterpret_cast<LPARAM>("1234"));
    EXPECT_TRUE(field.IsModified());
    EditField quiet("99-99", FMT_MASK_REAPPLY);
    quiet.Send(WM_SETTEXT, 0, reinterpret_cast<LPARAM>("1234"));
    EXPECT_FALSE(quiet.IsModified());
}

TEST(EditTexts, ATextToShowIsPadded) {
    struct {
        int line;
        const char* picture;
        const char* text;
        const char* shown;
    } const cases[] = {
        {__LINE__, "99-99", "1", "1 -"},
        {__LINE__, "99-99", "123", "12-3"},
        {__LINE__, "99-A*", "12xyz", "12-Xyz"},
        {__LINE__, "99-99", "", ""},
    };
    for (const auto& c : cases) {
        const testing::ScopedTrace row(__FILE__, c.line, c.picture);
        EditField field(c.picture, FMT_MASK_REAPPLY | FMT_MASK_NOTIFY);
        field.Send(FMT_MASK_SHOW_TEXT, 0, reinterpret_cast<LPARAM>(c.text));
        EXPECT_EQ(field.Shown(), c.shown);
    }
}

// ---- a walk of random keys --------------------------------------------------------------------------------------

// The same numbers on every host.
class Dice {
  public:
    explicit Dice(uint32_t seed) : engine_(seed) {}
    int Roll(int sides) { return static_cast<int>(engine_() % static_cast<uint32_t>(sides)); }

  private:
    std::mt19937 engine_;
};

std::string RandomPicture(Dice& dice) {
    static constexpr char kBody[] = "9aAnNX!99--() /";
    std::string picture;
    for (int length = 1 + dice.Roll(9); length > 0; --length) picture += kBody[dice.Roll(sizeof kBody - 1)];
    picture += "9";
    if (dice.Roll(4) == 0) picture += "*";
    if (dice.Roll(8) == 0) picture.insert(0, "^");
    return picture;
}

void RandomStep(EditField& field, Dice& dice) {
    static constexpr char kCharacters[] = "0123456789abcXYZ-() /";
    static constexpr Key kKeys[] = {kDelete, kBackspace, kLeft, kRight, kHome, kEnd, kShiftHome, kShiftEnd, kBackspace};
    const int what = dice.Roll(10);
    if (what < 6) {
        field.Type(kCharacters[dice.Roll(sizeof kCharacters - 1)]);
    } else if (what < 9) {
        Strike(field, kKeys[dice.Roll(std::size(kKeys))]);
    } else {
        const int length = static_cast<int>(field.Text().size());
        const int first = dice.Roll(length + 1);
        SendMessageA(field.Window(), EM_SETSEL, static_cast<WPARAM>(first), first + dice.Roll(length - first + 1));
    }
}

uint32_t Mix(uint32_t hash, const std::string& text) {
    for (const char c : text) hash = (hash ^ static_cast<unsigned char>(c)) * 16777619u;
    return hash;
}

// What was masked once comes back by masking again, and the caret stands inside the text.
void ExpectInShape(const EditField& field, const char* picture) {
    const std::string text = field.Text();
    std::string unmasked(text.size() + 1, 0);
    FMTCntlBlock block{};
    block.Input = text.c_str();
    block.Output = unmasked.data();
    block.Picture = picture;
    EXPECT_EQ(FMTUnmaskInput(&block), 1) << '"' << text << "\" under " << picture;
    EXPECT_LE(field.End(), static_cast<int32_t>(text.size()));
    EXPECT_LE(field.Start(), field.End());
}

TEST(EditWalk, TheTextKeepsItsShapeAndIsTheSameOnEveryHost) {
    Dice dice(20260101);
    uint32_t hash = 2166136261u;
    for (int walk = 0; walk < 60; ++walk) {
        const std::string picture = RandomPicture(dice);
        EditField field(picture.c_str());
        for (int step = 0; step < 80; ++step) {
            RandomStep(field, dice);
            ExpectInShape(field, picture.c_str());
            if (HasFailure()) FAIL() << "walk " << walk << ", step " << step;
            hash = Mix(hash, field.Text() + '\n' + std::to_string(field.Start()) + ' ' + std::to_string(field.End()));
        }
    }
    EXPECT_EQ(hash, 135717303u) << "recorded on the native host; the other host must give the same";
}

}  // namespace
