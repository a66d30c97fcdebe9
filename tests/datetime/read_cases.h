// Tables of texts and of what comes of reading them.
#pragma once

#include <gtest/gtest.h>

#include <initializer_list>
#include <span>

#include "date_block.h"

struct ReadCase {
    const char* text;
    const char* want;  // of ReadValue
};

inline void ExpectRead(FMTCntlBlock block, const char* text, const char* want) {
    block.Input = text;
    EXPECT_EQ(ReadValue(FMTValidateDateTime, block), want) << text;
}

inline void ExpectRead(const FMTCntlBlock& block, std::span<const ReadCase> rows) {
    for (const ReadCase& c : rows) ExpectRead(block, c.text, c.want);
}

inline void ExpectRefused(const FMTCntlBlock& block, std::initializer_list<const char*> texts) {
    for (const char* text : texts) ExpectRead(block, text, "0");
}
