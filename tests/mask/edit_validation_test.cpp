// Typing, deleting, caret keys and whole texts in a masked edit control.
#include <gtest/gtest.h>

#include <random>
#include <string>

#include <morvl15/mask.h>

#include "keys.h"
#include "support/beeps.h"

namespace {

constexpr char kPhone[] = "(999) 999-9999";

struct KeyCase {
    const char *before, *key, *after;
    int beeps = 0;
};

void ExpectKey(const char* picture, const KeyCase& c) {
    const testing::ScopedTrace row(__FILE__, __LINE__, std::string(c.before) + " and " + c.key);
    EditField field(picture);
    Fill(field, c.before);
    TakeBeeps();
    Strike(field, c.key);
    EXPECT_EQ(StateOf(field), c.after);
    EXPECT_EQ(TakeBeeps().value_or(c.beeps), c.beeps);
}

TEST(EditKeys, Characters) {
    static constexpr KeyCase kRows[] = {
        {"(5|", "\t", "(5|"},
        {"|", "(", "(|"},
        {"|", "x", "(|", 1},  // the literal stays
        {"(55|5) 1", "9", "(559) |51"},
        {"(555|) 1", ")", "(555) |1"},
        {"(555|) 1", "7", "(555) 7|1"},
        {"(555) 1|", "x", "(555) 1|", 1},
    };
    for (const KeyCase& c : kRows) ExpectKey(kPhone, c);
    ExpectKey(kPhone, {"(55[5) 12]3-4567", "9", "(559) |345-67"});
    ExpectKey(kPhone, {"(55|5) 123-4567", "1", "(55|5) 123-4567", 1});  // full, no selection
    ExpectKey("AA", {"[A]B", "x", "X|B"});
    ExpectKey("AA", {"[AB]", "x", "X|"});
    ExpectKey("AA", {"|A", "x", "X|A"});
    ExpectKey("A----A", {"|A", "b", "B----|A"});  // grows by four literals
    ExpectKey("(99)", {"(1|", "2", "(12)|"});
    ExpectKey("(99)", {"(12)|", "3", "(12)|", 1});
    ExpectKey("^(99)", {"(1|", "2", "(12)|"});
    ExpectKey("^^99", {"|", "1", "^1|"});  // one prefix only
}

TEST(EditKeys, Deletions) {
    static constexpr KeyCase kRows[] = {
        {"(5|55) 123-4567", "Delete", "(5|51) 234-567"},     {"(55|5) 123-4567", "Backspace", "(5|51) 234-567"},
        {"(555) |123-4567", "Backspace", "(55|1) 234-567"},  {"(|555) 123-4567", "Backspace", "(|555) 123-4567"},
        {"|(555) 123-4567", "Backspace", "|(555) 123-4567"}, {"(5[55) 1]23-4567", "Delete", "(5|23) 456-7"},
        {"(555)| 123-4567", "Delete", "(555)| 123-4567"},  // on a literal, on literals only
        {"(555[) ]123-4567", "Delete", "(555) |123-4567"},
    };
    for (const KeyCase& c : kRows) ExpectKey(kPhone, c);
    ExpectKey(kPhone, {"[(555) 123-4567]", "Backspace", "|"});
    ExpectKey("XX-XX", {"a[b-c]d", "Delete", "a|d-"});
    ExpectKey("XX-XX", {"ab-|", "Backspace", "a|"});
}

TEST(EditKeys, CaretKeys) {
    static constexpr KeyCase kRows[] = {
        {"(|555) 123-4567", "Left", "(|555) 123-4567"},       {"(555) |123-4567", "Left", "(55|5) 123-4567"},
        {"(555) |123-4567", "Shift+Left", "(55|5) 123-4567"},  // always a caret
        {"(55|5) 123-4567", "Right", "(555) |123-4567"},      {"(555)| 123-4567", "Home", "(|555) 123-4567"},
        {"(555)| 123-4567", "End", "(555) 123-4567|"},        {"(555)| 123-4567", "Shift+Home", "[(555)] 123-4567"},
        {"(555)| 123-4567", "Shift+End", "(555)[ 123-4567]"},
    };
    for (const KeyCase& c : kRows) ExpectKey(kPhone, c);
}

// Behind the end of its picture a field takes anything, and overwrites.
TEST(EditKeys, UnlimitedFields) {
    static constexpr KeyCase kRows[] = {
        {"AB-cdef|", "g", "AB-cdefg|"},   {"AB-cd|ef", "z", "AB-cdz|f"},     {"AB-c[de]f", "Delete", "AB-c|f"},
        {"AB-cde|f", "Left", "AB-cd|ef"}, {"AB-cde|f", "Delete", "AB-cde|"},
    };
    for (const KeyCase& c : kRows) ExpectKey("AA-*", c);
}

// The literals come with the next input character.
TEST(EditKeys, TypingAWholeNumber) {
    std::string states;
    EditField field(kPhone);
    for (const char digit : std::string("55512345678")) {
        field.Type(digit);
        states += StateOf(field) + '\n';
    }
    EXPECT_EQ(states,
              "(5|\n(55|\n(555|\n(555) 1|\n(555) 12|\n(555) 123|\n(555) 123-4|\n(555) 123-45|\n(555) 123-456|\n"
              "(555) 123-4567|\n(555) 123-4567|\n");
}

TEST(EditKeys, ADeletionIsReportedAndMarksTheControl) {
    EditField field(kPhone);
    Fill(field, "(5|55) 123-4567");
    Strike(field, "Delete");
    EXPECT_TRUE(field.IsModified());
    EXPECT_GE(field.Changes(), 1);
}

TEST(EditKeys, WhatTheMaskDoesNotSee) {
    EditField field("99-99");
    Fill(field, "[12]-34");
    FMTCntlBlock& block = field.block;
    constexpr UINT kMessages[] = {WM_CUT, WM_KEYDOWN, WM_SETTEXT, WM_PASTE, EM_REPLACESEL, FMT_MASK_SHOW_TEXT};
    for (const UINT message : kMessages) {
        block.Message = message;
        block.WParam = message == WM_KEYDOWN ? 'A' : 0;
        block.LParam = reinterpret_cast<LPARAM>("1");
        block.Result = 77;
        EXPECT_EQ(FMTValidateInput(&block), 0) << message;
        EXPECT_EQ(LRESULT{block.Result}, 77) << message;
    }
    EXPECT_EQ(field.Text(), "12-34");
    block.Picture = nullptr;
    block.Message = WM_CHAR;
    EXPECT_EQ(FMTValidateInput(&block), 0);
    EXPECT_EQ(FMTValidateInput(nullptr), 0);
}

TEST(EditKeys, ClearActsAsDelete) {
    EditField field("XX-XX");
    Fill(field, "a[b-c]d");
    field.Send(WM_CLEAR);
    EXPECT_EQ(field.Text(), "ad-");
    Fill(field, "a|b-cd");
    field.Send(WM_CHAR, VK_BACK, 0);  // a delete in the guise of a character
    EXPECT_EQ(field.Text(), "ac-d");
}

// Leaves it empty for an empty text.
void PutOnClipboard(HWND owner, const std::string& text) {
    ASSERT_TRUE(OpenClipboard(owner));
    EmptyClipboard();
    if (!text.empty()) {
        HGLOBAL block = GlobalAlloc(GHND, text.size() + 1);
        text.copy(static_cast<char*>(GlobalLock(block)), text.size());
        GlobalUnlock(block);
        SetClipboardData(CF_TEXT, block);
    }
    CloseClipboard();
}

TEST(EditTexts, WholeTextsAreMaskedAgain) {
    EditField field("99-99", FMT_MASK_REAPPLY);
    field.Fill("", 0, 0);
    PutOnClipboard(field.Window(), "12ab34");
    field.Send(WM_PASTE);
    EXPECT_EQ(field.Text(), "12-3");  // five bytes are read, two of them don't fit
    EXPECT_EQ(field.Start(), 0);
    PutOnClipboard(field.Window(), "");

    field.Fill("", 0, 0);
    EXPECT_NE(field.Send(WM_SETTEXT, 0, reinterpret_cast<LPARAM>("1234")), 0);
    EXPECT_EQ(field.Text(), "12-34");
    field.Fill("", 0, 0);
    field.Send(EM_REPLACESEL, 0, reinterpret_cast<LPARAM>("12"));
    EXPECT_EQ(field.Text(), "12-");
}

void SetText(EditField& field, const char* text) {
    field.Send(WM_SETTEXT, 0, reinterpret_cast<LPARAM>(text));
}

// A control that keeps its text and reports nothing, so that the library's own report can be counted.
TEST(EditTexts, OneReportWhenAskedFor) {
    EditField silent("99-99", FMT_MASK_REAPPLY | FMT_MASK_NOTIFY, "STATIC");
    SetText(silent, "1234");
    EXPECT_EQ(silent.Text(), "12-34");
    EXPECT_EQ(silent.Changes(), 1);

    EditField field("99-99", FMT_MASK_REAPPLY | FMT_MASK_NOTIFY);
    SetText(field, "1234");
    EXPECT_TRUE(field.IsModified());
    EditField quiet("99-99", FMT_MASK_REAPPLY);
    SetText(quiet, "1234");
    EXPECT_FALSE(quiet.IsModified());
}

std::string Shown(const char* picture, const char* text, uint32_t flags = FMT_MASK_REAPPLY | FMT_MASK_NOTIFY) {
    EditField field(picture, flags);
    field.Send(FMT_MASK_SHOW_TEXT, 0, reinterpret_cast<LPARAM>(text));
    return field.Shown();
}

TEST(EditTexts, ATextToShowIsPadded) {
    EXPECT_EQ(Shown("99-99", "1"), "1 -");
    EXPECT_EQ(Shown("99-99", "123"), "12-3");
    EXPECT_EQ(Shown("99-A*", "12xyz"), "12-Xyz");
    EXPECT_EQ(Shown("99-99", ""), "");
    for (const uint32_t flag : {FMT_MASK_REAPPLY, FMT_MASK_NOTIFY}) EXPECT_EQ(Shown("99-99", "1", flag), "1");
}

// ---- a walk of random keys --------------------------------------------------------------------------------------

// The same numbers on every host.
class Dice {
  public:
    size_t Roll(size_t sides) { return engine_() % sides; }
    char AnyOf(const std::string& characters) { return characters[Roll(characters.size())]; }

  private:
    std::mt19937 engine_{20260101};
};

std::string RandomPicture(Dice& dice) {
    std::string picture;
    for (size_t length = 1 + dice.Roll(9); length > 0; --length) picture += dice.AnyOf("9aAnNX!99--() /");
    picture += "9";
    if (dice.Roll(4) == 0) picture += "*";
    if (dice.Roll(8) == 0) picture.insert(0, "^");
    return picture;
}

void RandomStep(EditField& field, Dice& dice) {
    static constexpr const char* kKeys[] = {"Delete", "Backspace",  "Left",      "Right",    "Home",
                                            "End",    "Shift+Home", "Shift+End", "Backspace"};
    const size_t what = dice.Roll(10);
    if (what < 6) {
        field.Type(dice.AnyOf("0123456789abcXYZ-() /"));
    } else if (what < 9) {
        Strike(field, kKeys[dice.Roll(std::size(kKeys))]);
    } else {
        const size_t length = field.Text().size();
        const size_t first = dice.Roll(length + 1);
        const size_t last = first + dice.Roll(length - first + 1);
        SendMessageA(field.Window(), EM_SETSEL, first, static_cast<LPARAM>(last));
    }
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
    Dice dice;
    uint32_t hash = 2166136261u;
    for (int walk = 0; walk < 60; ++walk) {
        const std::string picture = RandomPicture(dice);
        EditField field(picture.c_str());
        for (int step = 0; step < 80; ++step) {
            RandomStep(field, dice);
            ExpectInShape(field, picture.c_str());
            if (HasFailure()) FAIL() << "walk " << walk << ", step " << step;
            const std::string caret = std::to_string(field.Start()) + ' ' + std::to_string(field.End());
            for (const char c : field.Text() + '\n' + caret) hash = (hash ^ static_cast<unsigned char>(c)) * 16777619u;
        }
    }
    EXPECT_EQ(hash, 135717303u) << "recorded on the native host; the other host must give the same";
}

}  // namespace
