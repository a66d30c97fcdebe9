// The statement on paper.
#pragma once

#include <vector>

#include "ledger.h"

struct Statement {
    std::vector<Entry> entries;
    Totals totals;
};

// Prints the statement into a PDF file, which appears when all of it is printed. Asked before each page, `isInterrupted`
// may cancel it. Result: null; what has gone wrong when there is no file.
const char* PrintPages(const Statement& statement, const char* pdf, bool (*isInterrupted)());
