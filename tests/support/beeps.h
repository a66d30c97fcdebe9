// Refusal sounds.
#pragma once

#include <optional>

// How often the calling thread has beeped since the last call; none where the host can't tell.
std::optional<int> TakeBeeps();
