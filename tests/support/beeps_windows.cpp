#include "support/beeps.h"

std::optional<int> TakeBeeps() {
    return std::nullopt;
}
