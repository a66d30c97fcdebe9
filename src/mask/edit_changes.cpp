#include "edit_changes.h"

#include <algorithm>
#include <cstring>

#include <morvl15/memory.h>

#include "mask_picture.h"

namespace {

// A block of the process heap for a scope.
class WorkText {
  public:
    explicit WorkText(uint32_t size) : text_(static_cast<char*>(MemAlloc(size))) {}
    ~WorkText() { MemFree(text_); }
    WorkText(const WorkText&) = delete;
    WorkText& operator=(const WorkText&) = delete;
    operator char*() { return text_; }

  private:
    char* text_;
};

bool IsEndOrLiteral(const FMTEditContext& edit, int32_t position) {
    return position >= edit.pictureLength || FMTMaskIsLiteralAt(edit, position);
}

// The control's text taken apart for a change of its unmasked form, and room for what it becomes: `insertions`
// characters more.
class UnmaskedText {
  public:
    UnmaskedText(const FMTEditContext& edit, int32_t insertions)
        : edit_(edit),
          length_(FMTEditTextLength(edit)),
          raw_(static_cast<uint32_t>(length_ + insertions + 1)),
          masked_(std::max(FMTMaskRoomFor(edit.picture, length_ + insertions), static_cast<uint32_t>(length_ + 1))) {}

    bool HasMemory() { return raw_ != nullptr && masked_ != nullptr; }

    // Reads the text as it stands, no more of it than there was at first. False when it doesn't fit the picture.
    bool Read() {
        FMTEditReadText(edit_, masked_, length_ + 1);
        return FMTMaskRemove(masked_, raw_, edit_.picture) != 0;
    }

    int32_t Length() { return static_cast<int32_t>(std::strlen(raw_)); }

    void Insert(int32_t index, char ch) {
        const int32_t length = Length();
        index = std::min(index, length);
        std::memmove(raw_ + index + 1, raw_ + index, static_cast<size_t>(length - index) + 1);
        raw_[index] = ch;
    }

    // Both inclusive.
    void Remove(int32_t first, int32_t last) {
        const int32_t length = Length();
        last = std::min(last, length - 1);
        if (first > last) return;
        std::memmove(raw_ + first, raw_ + last + 1, static_cast<size_t>(length - last));
    }

    // Masks the unmasked form again and puts it in the control. False for a picture that isn't valid and no memory.
    bool PutBack(int32_t caret) {
        masked_[0] = 0;
        if (Length() > 0 && !FMTMaskApply(raw_, masked_, edit_.picture, 0)) return false;
        FMTStripTrailingBlanks(masked_);
        FMTMaskSetAndReport(edit_, masked_, caret);
        return true;
    }

  private:
    const FMTEditContext& edit_;
    int32_t length_;  // of the control's text
    WorkText raw_;
    WorkText masked_;
};

// Writes the literals from a position on, up to the next input position, which is the result; -1 where the picture
// ends.
int32_t WriteLiterals(const FMTEditContext& edit, int32_t position) {
    while (IsEndOrLiteral(edit, position)) {
        if (position >= edit.pictureLength) return -1;
        FMTMaskPutChar(edit, edit.picture[position], position);
        ++position;
    }
    return position;
}

// After a character: the caret goes to the next input position, or the field ends in its last literals.
void WalkOn(const FMTEditContext& edit, int32_t position) {
    int32_t next = 0;
    if (!FMTMaskNextInput(edit.picture, position, &next)) {
        for (; position < edit.pictureLength; ++position) FMTMaskPutChar(edit, edit.picture[position], position);
        return;
    }
    for (; position < next; ++position) FMTEditSetCaret(edit, position + 1);
}

// Puts a character into the text at a position, everything behind it moving on; a selection that reaches further is
// deleted first.
bool InsertInside(const FMTEditContext& edit, char ch, int32_t position, int32_t selectionEnd, bool push) {
    UnmaskedText text(edit, 1);
    if (!text.HasMemory()) return false;
    if (!push) FMTMaskDeleteSelection(edit, position, selectionEnd);
    if (!text.Read()) return false;
    text.Insert(FMTMaskRawPos(edit.picture, position), ch);
    return text.PutBack(position + 1);
}

}  // namespace

bool FMTMaskIsLiteralAt(const FMTEditContext& edit, int32_t position) {
    return position >= 0 && position < edit.pictureLength && !FMTIsMaskChar(edit.picture[position]);
}

bool FMTMaskHasInput(const FMTEditContext& edit) {
    int32_t index = 0;
    return FMTMaskNextInput(edit.picture, 0, &index) && index < FMTEditTextLength(edit);
}

uint32_t FMTMaskRoomFor(const char* picture, int32_t length) {
    const auto pictureLength = static_cast<int32_t>(std::strlen(picture));
    return static_cast<uint32_t>(FMTIsPicUnlimited(picture) ? pictureLength + length : pictureLength) + 1;
}

int32_t FMTMaskInsertChar(const FMTEditContext& edit, char ch) {
    const auto [start, end] = FMTEditGetSelection(edit);
    if (start >= edit.pictureLength) {
        if (!FMTIsPicUnlimited(edit.picture)) return 0;
        FMTMaskPutChar(edit, ch, start);
        return 1;
    }

    const int32_t length = FMTEditTextLength(edit);
    const bool insideText = length > start && start == end;
    if (insideText && length == edit.pictureLength) return 0;  // a full field takes no more
    const bool literalTyped = FMTMaskIsLiteralAt(edit, start) && edit.picture[start] == ch;
    const bool push = insideText && !literalTyped;

    const int32_t position = WriteLiterals(edit, start);
    if (position < 0) return 0;
    auto code = static_cast<uint16_t>(static_cast<uint8_t>(ch));
    if (!literalTyped && !FMTMaskCharTest(edit.picture[position], &code)) return 0;
    ch = static_cast<char>(code);

    const bool selectsBeyond = end > position + 1;
    if (selectsBeyond || push) {
        if (!InsertInside(edit, ch, position, end, push)) return 0;
    } else if (!literalTyped) {
        FMTMaskPutChar(edit, ch, position);
    }
    WalkOn(edit, position + 1);
    return 1;
}

void FMTMaskDeleteSelection(const FMTEditContext& edit, int32_t start, int32_t end) {
    if (end - start != FMTEditTextLength(edit) && FMTMaskHasInput(edit)) {
        while (start < end && FMTMaskIsLiteralAt(edit, start)) ++start;
        if (start == end) {
            FMTEditSetCaret(edit, end);
            return;
        }
        if (end < edit.pictureLength) {
            while (end > 0 && FMTMaskIsLiteralAt(edit, end - 1)) --end;
        }
    }
    FMTMaskDeleteRange(edit, start, end - 1);
}

void FMTMaskDeleteRange(const FMTEditContext& edit, int32_t from, int32_t to) {
    const int32_t length = FMTEditTextLength(edit);
    if (from >= length || to >= length) return;
    if (to - from == length - 1) {
        FMTMaskSetAndReport(edit, "", from);
        return;
    }
    UnmaskedText text(edit, 0);
    if (!text.HasMemory() || !text.Read()) return;
    text.Remove(FMTMaskRawPos(edit.picture, from), FMTMaskRawPos(edit.picture, to));
    text.PutBack(from);
}

void FMTMaskRefresh(const FMTEditContext& edit) {
    const int32_t length = FMTEditTextLength(edit);
    const int32_t readable = FMTIsPicUnlimited(edit.picture) ? length : edit.pictureLength;
    WorkText text(static_cast<uint32_t>(readable) + 1);
    WorkText masked(FMTMaskRoomFor(edit.picture, readable));
    if (text == nullptr || masked == nullptr) return;
    FMTEditReadText(edit, text, readable + 1);
    if (*text == 0) return;
    FMTMaskLayAll(text, masked, edit.picture, 1);
    FMTStripTrailingBlanks(masked);
    FMTEditPassOn(edit, WM_SETTEXT, 0, reinterpret_cast<LPARAM>(static_cast<char*>(masked)));
}

void FMTMaskPadText(const char* text, char* out, const char* picture) {
    if (*text == 0) {
        *out = 0;
        return;
    }
    const auto [at, rest] = FMTMaskLayText(text, out, picture, 1);
    if (FMTIsPicUnlimited(picture)) {
        std::strcpy(out + at, rest);
    } else {
        int32_t position = at;
        for (; picture[position] != 0; ++position)
            out[position] = FMTIsMaskChar(picture[position]) ? ' ' : picture[position];
        out[position] = 0;
    }
    FMTStripTrailingBlanks(out);
}
