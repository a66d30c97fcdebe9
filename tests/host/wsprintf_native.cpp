// wsprintfA.
#include <gtest/gtest.h>

#include <cstdint>
#include <string>

#include <morvl15/host.h>

namespace {

template <typename... Arguments>
std::string Printed(const char* format, Arguments... arguments) {
    char buffer[1024 + 8];
    std::fill(std::begin(buffer), std::end(buffer), '#');
    const INT length = wsprintfA(buffer, format, arguments...);
    EXPECT_EQ(static_cast<size_t>(length), strnlen(buffer, sizeof buffer));
    EXPECT_EQ(std::string(buffer + 1024, 8), "########");
    return std::string(buffer, static_cast<size_t>(length));
}

TEST(WsPrintf, Numbers) {
    struct {
        const char* format;
        int32_t value;
        const char* want;
    } const kRows[] = {
        {"%d", 0, "0"},           {"%i", -42, "-42"},      {"%lu", 7, "7"},          {"%x|", 0xBEEF, "beef|"},
        {"%#x", 255, "0xff"},     {"%#X", 255, "0XFF"},    {"%hx", -1, "ffff"},      {"%hu", -1, "65535"},
        {"%hd", 0x12345, "9029"}, {"%hd", 0xFFFF, "-1"},   {"%u", -1, "4294967295"}, {"%lX", -1, "FFFFFFFF"},
        {"%05d", -42, "-0042"},   {"%02d", 123, "123"},    {"%.4d", -42, "-0042"},   {"%.0d", 0, "0"},
        {"%5d|", 42, "   42|"},   {"%-5d|", 42, "42   |"}, {"%-05d|", 42, "42   |"},
    };
    for (const auto& c : kRows) EXPECT_EQ(Printed(c.format, c.value), c.want) << c.format;
    EXPECT_EQ(Printed("%ld", INT32_MIN), "-2147483648");
    EXPECT_EQ(Printed("%7.4d|%07.4d|%#08x|%#8x", -42, 42, 255, 255), "  -0042|   0042|0x0000ff|    0xff");
    EXPECT_EQ(Printed("%c|%3c|%-3c|", 'x', 'y', 'z'), "x|  y|z  |");
}

TEST(WsPrintf, Texts) {
    constexpr const char* kRows[][3] = {
        {"[%s]", "abc", "[abc]"},    {"[%s]", "", "[]"},
        {"[%5s]", "abc", "[  abc]"}, {"[%-5s]", "abc", "[abc  ]"},
        {"[%.2s]", "abc", "[ab]"},   {"[%4.1s]", "abc", "[   a]"},
        {"[%.0s]", "abc", "[]"},     {"[%s]", nullptr, "[(null)]"},
        {"100%%", "", "100%"},       {"%q %s", "abc", "q abc"},
        {"%s%", "abc", "abc"},       {"%s%-05.3l", "abc", "abc"},
    };
    for (const auto& [format, text, want] : kRows) EXPECT_EQ(Printed(format, text), want) << format;
    EXPECT_EQ(Printed("%d/%s/%c/%x", 1, "two", '3', 4), "1/two/3/4");
}

TEST(WsPrintf, NeverMoreThan1024Bytes) {
    const std::string longText(2000, 'x');
    EXPECT_EQ(Printed("%s", longText.c_str()), std::string(1023, 'x'));
    EXPECT_EQ(Printed(longText.c_str()), std::string(1023, 'x'));
    EXPECT_EQ(Printed("%5000d", 1), std::string(1023, ' '));
    EXPECT_EQ(Printed("x%5000d", 1), "x" + std::string(1022, ' '));
    EXPECT_EQ(Printed("%.99999999999d", 1), std::string(1023, '0'));
    EXPECT_EQ(Printed("%1022dx%d", 1, 5), std::string(1021, ' ') + "1x");
    EXPECT_EQ(Printed("%-1022sxyz", "a"), "a" + std::string(1021, ' ') + "x");
}

}  // namespace
