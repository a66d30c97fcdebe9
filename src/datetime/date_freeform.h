// The free-form attempt: recognises a whole text by its shape, and chooses the picture to read it by.
#pragma once

#include <cstdint>

#include "picture_scanner.h"

// Room for the longest picture that can be chosen.
constexpr int32_t kGuessedPicSize = 40;

// Chooses the picture for a text.
//   kind         1 date, 2 time, 3 date and time
//   pictureText  out: kGuessedPicSize bytes, the picture; empty where none is chosen
//   allowUs      opens the shape 1/2/2003 with the month first
// 1 if a picture was chosen; 0 for a text of no known shape, and when there is no memory.
int32_t FMTGuessDatePic(const char* text, int32_t kind, char* pictureText, bool allowUs);

// The index of the date picture that a token of a date's shape asks for; -1 for a token whose words and numbers are of
// the wrong length.
int32_t FMTCheckDateShape(const DateToken& token);
