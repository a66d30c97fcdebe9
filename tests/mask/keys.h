// Keys on a masked field, for tests. The state of a field is its text with the caret, "(55|5", or the selection,
// "(5[55]", in it.
#pragma once

#include <string>

#include "support/edit_field.h"

void Fill(EditField& field, std::string state);
std::string StateOf(const EditField& field);

// A character, or the name of a key: Backspace, Delete, Left, Right, Home, End, "Shift+" before it for Shift.
void Strike(EditField& field, const std::string& key);
