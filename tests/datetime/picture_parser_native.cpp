// Date pictures without memory.
#include <gtest/gtest.h>

#include <string>

#include <morvl15/host_native.h>

#include "elements.h"

namespace {

// Each allocation of a parse fails in its turn: the text is rejected, and no block is left.
TEST(ParseDatePicFailure, NoMemory) {
    struct Case {
        const char* text;
        int32_t mode;
    };
    for (const Case& c : {Case{"'a' MM 'bc'", kModePicture}, {"Jan 2, 2003", kModeDate}, {"December", kModeDate}}) {
        const int64_t before = HostLiveBlocks();
        for (uint32_t n = 1;; ++n) {
            HostFailAllocation(n);
            DatePicElement* first = FMTParseDatePic(c.text, c.mode);
            const bool failed = HostAllocationFailed();
            HostFailAllocation(0);
            EXPECT_EQ(first == nullptr, failed) << c.text << ", allocation " << n;
            FMTFreeDatePic(first);
            EXPECT_EQ(HostLiveBlocks(), before) << c.text << ", allocation " << n;
            if (!failed) {
                EXPECT_GT(n, 5U);
                break;
            }
        }
    }
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
