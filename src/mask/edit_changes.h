// Changes of a masked text in an edit control: inserting, deleting, masking again. A change inside the text is made on
// the unmasked form, so that the characters behind it close up across the literals.
#pragma once

#include "edit_control.h"

// The picture has a literal at the position; positions behind its end are input positions.
bool FMTMaskIsLiteralAt(const FMTEditContext& edit, int32_t position);

// Whether the picture has an input position as far as the text reaches.
bool FMTMaskHasInput(const FMTEditContext& edit);

// Types a character. 1 when it is dealt with, 0 when it is refused.
int32_t FMTMaskInsertChar(const FMTEditContext& edit, char ch);

// Narrows a selection to the input positions in it and deletes them.
void FMTMaskDeleteSelection(const FMTEditContext& edit, int32_t start, int32_t end);

// Deletes the positions `from` to `to`, both inclusive.
void FMTMaskDeleteRange(const FMTEditContext& edit, int32_t from, int32_t to);

// Masks the control's text again, after the control has taken a whole new one.
void FMTMaskRefresh(const FMTEditContext& edit);

// A masked text in which the positions of a short text stay blank. `out` holds the picture's length + 1 bytes, for an
// unlimited picture FMTMaskMaxLen + 1.
void FMTMaskPadText(const char* text, char* out, const char* picture);

// The bytes that a text needs, terminator included, masked by the picture from any text of `length` bytes.
uint32_t FMTMaskRoomFor(const char* picture, int32_t length);
