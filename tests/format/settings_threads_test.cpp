// The regional settings under several threads at once; run it under the thread sanitizer too.
#include <gtest/gtest.h>

#include <atomic>
#include <set>
#include <string>
#include <thread>
#include <vector>

#include <morvl15/host.h>

#include "datetime/calendar.h"
#include "format/picture_tokens.h"
#include "number_block.h"
#include "support/profile.h"

namespace {

constexpr int32_t kReaders = 4;

// "#,##0.00" as the profile writes it. Each separator is taken by a step of its own on the way.
std::string PictureUnderProfile() {
    return ConvertPicture(FMTUnTokenizeNumberPic, BlockOfProfile(), "\x0F#\x01##0\x02\x30\x30\x10");
}

void Write(const char* thousand, const char* decimal) {
    WriteProfileStringA("intl", "sThousand", thousand);
    WriteProfileStringA("intl", "sDecimal", decimal);
    FMTWinIniChanged();
    FMTRefreshIntl();  // nobody reads the profile while it is being written
}

TEST(SettingsThreads, NoOperationSeesHalfAChange) {
    const TestProfile profile({{"intl", "sThousand", ","}, {"intl", "sDecimal", "."}});
    std::atomic<bool> stop{false};
    std::atomic<int32_t> started{0};
    std::vector<std::set<std::string>> seen(kReaders);
    std::vector<std::thread> readers;
    for (auto& mine : seen) {
        readers.emplace_back([&] {
            mine.insert(PictureUnderProfile());
            ++started;
            while (!stop) mine.insert(PictureUnderProfile());
        });
    }
    while (started < kReaders) std::this_thread::yield();
    for (int32_t round = 0; round < 8; ++round) {
        Write(".", ",");
        EXPECT_EQ(PictureUnderProfile(), "#.##0,00");  // a thread sees its own change at once
        Write(",", ".");
        EXPECT_EQ(PictureUnderProfile(), "#,##0.00");
    }
    stop = true;
    for (std::thread& reader : readers) reader.join();
    for (const auto& mine : seen) {
        for (const std::string& picture : mine) EXPECT_TRUE(picture == "#,##0.00" || picture == "#.##0,00") << picture;
    }
}

TEST(SettingsThreads, FirstCallersShareOneLoad) {
    const TestProfile profile({{"intl", "sCurrency", "DM"}, {"intl", "iCurrency", "3"}});
    gFMTCurrencyBuilt = false;
    gFMTNamesLoaded = false;
    std::atomic<int32_t> wrong{0};
    std::vector<std::thread> threads;
    for (int32_t i = 0; i < kReaders; ++i) {
        threads.emplace_back([&wrong] {
            const std::string tokens = ConvertPicture(FMTTokenizeNumberPic, BlockOfProfile(), "# DM");
            if (tokens != "\x0F#\x10\x04" || FMTFindMonthName("may") != 5) ++wrong;
        });
    }
    for (std::thread& thread : threads) thread.join();
    EXPECT_EQ(wrong, 0);
    gFMTCurrencyBuilt = false;
}

}  // namespace
