// The profile file: where it is, how it is read, how it is changed.
#pragma once

#include <functional>
#include <string>

#include <morvl15/host.h>

// The whole file. Empty where there is none, where it is no plain file, can't be read or is larger than any profile.
std::string ReadProfileFile();

// Lets `change` work on the text of the file and puts the outcome in the file's place. Whoever reads meanwhile sees the
// old file or the new one; whoever else changes it waits, in this process or another. A file that isn't there comes
// into being, with the folders above it.
// Result: ERROR_SUCCESS, or why the file stands as it was.
DWORD ChangeProfileFile(const std::function<void(std::string& text)>& change);

// Brings what was written before onto the disk.
void FlushProfileFile();
