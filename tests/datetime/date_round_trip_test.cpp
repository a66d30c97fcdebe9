// What is written by a picture with enough fields is read back by it, and by any of the ways of reading; many threads at
// once do so with blocks of their own.
#include <gtest/gtest.h>

#include <algorithm>
#include <random>
#include <string>
#include <thread>
#include <vector>

#include "date_block.h"
#include "datetime/calendar.h"

namespace {

using Parts = std::vector<std::string>;

std::string AnyOf(const Parts& choices, std::mt19937& random) {
    return choices[random() % choices.size()];
}

// Fields in any order, separated so that no two run into each other; words stand between them now and then.
std::string Separated(Parts fields, std::mt19937& random) {
    std::shuffle(fields.begin(), fields.end(), random);
    std::string picture;
    for (const std::string& field : fields) {
        if (!picture.empty()) picture += AnyOf({"/", "-", ".", " - ", ", ", " 'of' ", " "}, random);
        picture += field;
    }
    return picture;
}

std::string DatePicture(std::mt19937& random) {
    Parts fields = {AnyOf({"d", "dd"}, random), AnyOf({"M", "MM", "MMM", "MMMM"}, random), "yyyy"};
    if (random() % 3 == 0) fields.push_back(AnyOf({"ddd", "dddd"}, random));
    return Separated(fields, random);
}

// The fields of a time keep their order: AM and PM turn an hour that has been read.
std::string TimePicture(std::mt19937& random) {
    const bool is24Hour = random() % 2 == 0;
    std::string picture = AnyOf(is24Hour ? Parts{"hhhh", "hhh"} : Parts{"hh", "h"}, random);
    for (const char* field : {"mm", "ss", "mmmmmm"}) picture += AnyOf({":", "."}, random) + field;
    return is24Hour ? picture : picture + " AMPM";
}

FMTCntlBlock RandomMoment(int32_t type, const std::string& picture, std::mt19937& random) {
    const auto upTo = [&random](int32_t sides) {
        return static_cast<int32_t>(random() % static_cast<uint32_t>(sides));
    };
    DatDef moment = {0, 0, 0, upTo(24), upTo(60), upTo(60), upTo(1000000)};
    constexpr int32_t kFirst = 1721426;  // 1 January of the year 1
    FMTDayNumberToDate(kFirst + upTo(3652059), &moment);
    FMTCntlBlock block = DateBlock(type, "");
    SetMoment(&block, moment);
    block.TimeIs24Hour = 1;
    block.ShortDatePic = block.LongDatePic = block.Picture = picture.c_str();
    if (type == FMT_TYPE_TIME) block.Flags &= ~FMT_DEFAULT_TIME;  // the picture and not the default one
    return block;
}

// Written and read back, the block's value is the same, but for what it has no fields for.
void ExpectReadBack(ReadOperation operation, FMTCntlBlock block) {
    const std::string text = WriteValue(&block);
    FMTCntlBlock read = block;
    read.Input = text.c_str();
    SetMoment(&read, {77, 77, 77, 77, 77, 77, 77});
    EXPECT_EQ(operation(&read), 1) << text << " by " << block.Picture;
    if (block.Type == FMT_TYPE_DATE) block.Hour = block.Minute = block.Second = block.Microsecond = 0;
    if (block.Type == FMT_TYPE_TIME) block.Month = block.Day = 1, block.Year = 1900;
    block.Flags = read.Flags = 0;
    EXPECT_EQ(DescribeValue(read), DescribeValue(block)) << text << " by " << block.Picture;
}

void ExpectAnyReadBack(std::mt19937& random) {
    const std::string date = DatePicture(random);
    const std::string time = TimePicture(random);
    for (const ReadOperation operation : {FMTUnformatDateTimeStr, FMTValidateDateTime}) {
        ExpectReadBack(operation, RandomMoment(FMT_TYPE_DATE, date, random));
        ExpectReadBack(operation, RandomMoment(FMT_TYPE_TIME, time, random));
    }
    ExpectReadBack(FMTValidateDateTime, RandomMoment(FMT_TYPE_DATE_TIME, date, random));
}

TEST(DateRoundTrip, WhatIsWrittenIsReadBack) {
    std::mt19937 random(1989);
    for (int i = 0; i < 3000 && !testing::Test::HasFailure(); ++i) ExpectAnyReadBack(random);
}

TEST(DateRoundTrip, ThreadsHaveTheirOwnBlocks) {
    std::vector<std::thread> threads;
    for (uint32_t seed = 1; seed <= 4; ++seed) {
        threads.emplace_back([seed] {
            std::mt19937 random(seed);
            for (int i = 0; i < 200; ++i) ExpectAnyReadBack(random);
        });
    }
    threads.emplace_back([] {
        for (int i = 0; i < 50; ++i) FMTWinIniChanged();
    });
    for (std::thread& thread : threads) thread.join();
}

}  // namespace
