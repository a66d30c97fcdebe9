// Date pictures without memory.
#include <gtest/gtest.h>

#include <string>

#include <morvl15/host_native.h>

#include "elements.h"

namespace {

// Each allocation of a parse fails in its turn: the text is rejected, and no block is left.
void ExpectRejectedWithoutMemory(const char* text, int32_t mode) {
    const int64_t before = HostLiveBlocks();
    bool failed = true;
    uint32_t n = 0;
    while (failed) {
        HostFailAllocation(++n);
        DatePicElement* first = FMTParseDatePic(text, mode);
        failed = HostAllocationFailed();
        HostFailAllocation(0);
        EXPECT_EQ(first == nullptr, failed) << text << ", allocation " << n;
        FMTFreeDatePic(first);
        EXPECT_EQ(HostLiveBlocks(), before) << text << ", allocation " << n;
    }
    EXPECT_GT(n, 5U);
}

TEST(ParseDatePicFailure, NoMemory) {
    ExpectRejectedWithoutMemory("'a' MM 'bc'", kModePicture);
    ExpectRejectedWithoutMemory("Jan 2, 2003", kModeDate);
    ExpectRejectedWithoutMemory("December", kModeDate);
}

TEST(DatePicList, AllocatesNothingForCommonPictures) {
    HostFailAllocation(1);
    const DatePicList list("dddd, 'der' dd. MMMM yyyy hhhh:mm:ss.mmmmmm", kModePicture);
    EXPECT_FALSE(HostAllocationFailed());
    HostFailAllocation(0);
    EXPECT_EQ(DescribeList(list.First()), "dddd , _1 'der' _1 dd . _1 MMMM _1 yyyy _1 hhhh : mm : ss . mmmmmm");
}

TEST(DatePicList, LongListsWithoutMemoryAreNone) {
    std::string picture;
    for (int i = 0; i < 60; ++i) picture += "'text'd";
    for (const uint32_t n : {1U, 2U, 5U, 60U}) {
        HostFailAllocation(n);
        EXPECT_EQ(DatePicList(picture.c_str(), kModePicture).First(), nullptr);
        HostFailAllocation(0);
    }
}

}  // namespace
