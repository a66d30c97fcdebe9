// Thread-local indexes.
#include <gtest/gtest.h>

#include <future>
#include <thread>
#include <vector>

#include <morvl15/host.h>

namespace {

int one = 1;
int two = 2;

TEST(ThreadLocalIndex, EachThreadHasItsOwnValue) {
    const DWORD index = TlsAlloc();
    EXPECT_EQ(TlsGetValue(index), nullptr);
    EXPECT_TRUE(TlsSetValue(index, &one));
    std::thread([index] {
        EXPECT_EQ(TlsGetValue(index), nullptr);
        EXPECT_TRUE(TlsSetValue(index, &two));
        EXPECT_EQ(TlsGetValue(index), &two);
    }).join();
    EXPECT_EQ(TlsGetValue(index), &one);
    EXPECT_TRUE(TlsFree(index));
}

TEST(ThreadLocalIndex, WhoTakesAnIndexFindsItEmptyInEveryThread) {
    const DWORD index = TlsAlloc();
    std::promise<void> valueIsSet;
    std::promise<void> indexIsTakenAgain;
    std::thread other([&] {
        TlsSetValue(index, &two);
        valueIsSet.set_value();
        indexIsTakenAgain.get_future().wait();
        EXPECT_EQ(TlsGetValue(index), nullptr);
        EXPECT_TRUE(TlsSetValue(index, &one));
        EXPECT_EQ(TlsGetValue(index), &one);
    });
    valueIsSet.get_future().wait();
    TlsSetValue(index, &one);
    EXPECT_TRUE(TlsFree(index));
    EXPECT_EQ(TlsAlloc(), index);
    EXPECT_EQ(TlsGetValue(index), nullptr);
    indexIsTakenAgain.set_value();
    other.join();
    TlsFree(index);
}

TEST(ThreadLocalIndex, RunOutAndComeBack) {
    std::vector<DWORD> taken;
    for (DWORD index = TlsAlloc(); index != TLS_OUT_OF_INDEXES; index = TlsAlloc()) taken.push_back(index);
    EXPECT_GE(taken.size(), 32u);
    EXPECT_LE(taken.size(), 64u);
    EXPECT_TRUE(TlsFree(taken.back()));
    EXPECT_EQ(TlsAlloc(), taken.back());
    for (const DWORD index : taken) EXPECT_TRUE(TlsFree(index));
    for (const DWORD refused : {taken.back(), DWORD{64}, TLS_OUT_OF_INDEXES}) {
        SetLastError(ERROR_SUCCESS);
        EXPECT_FALSE(TlsSetValue(refused, &one));
        EXPECT_EQ(GetLastError(), ERROR_INVALID_PARAMETER);
        EXPECT_EQ(TlsGetValue(refused), nullptr);
        EXPECT_FALSE(TlsFree(refused));
    }
}

}  // namespace
