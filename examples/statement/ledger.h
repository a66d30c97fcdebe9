// A ledger: lines of date, text and amount, as people write them in one country.
#pragma once

#include <functional>
#include <istream>
#include <string>

#include "conventions.h"

struct Entry {
    DatDef date;
    std::string text;  // UTF-8
    Number amount;
};

struct Totals {
    Number sum{};
    Number largest{};  // null until the first amount
    int32_t count = 0;
    DatDef first{};
    DatDef last{};

    Totals() { NumLongToNumber(&sum, 0); }
    void Add(const Entry& entry);
    // Exact to the last digit of a Number, then rounded half away from zero to two places.
    Number Average() const;
};

// Reads a ledger to its end, or to the entry after which `take` answers false. A line that can't be read is told on
// standard error. Result: the number of those lines.
int ReadLedger(std::istream& ledger, const Convention* convention, const std::function<bool(const Entry&)>& take);
