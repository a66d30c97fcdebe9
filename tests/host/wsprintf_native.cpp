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
        int line;
        const char* format;
        int32_t value;
        const char* want;
    } const kRows[] = {
        {__LINE__, "%d", 0, "0"},
        {__LINE__, "%i", -42, "-42"},
        {__LINE__, "%ld", INT32_MIN, "-2147483648"},
        {__LINE__, "%u", -1, "4294967295"},
        {__LINE__, "%lu", 7, "7"},
        {__LINE__, "%x|", 0xBEEF, "beef|"},
        {__LINE__, "%lX", -1, "FFFFFFFF"},
        {__LINE__, "%#x", 255, "0xff"},
        {__LINE__, "%#X", 255, "0XFF"},
        {__LINE__, "%hd", 0x12345, "9029"},
        {__LINE__, "%hd", 0xFFFF, "-1"},
        {__LINE__, "%hu", -1, "65535"},
        {__LINE__, "%hx", -1, "ffff"},
        {__LINE__, "%5d|", 42, "   42|"},
        {__LINE__, "%-5d|", 42, "42   |"},
        {__LINE__, "%05d", -42, "-0042"},
        {__LINE__, "%-05d|", 42, "42   |"},
        {__LINE__, "%02d", 123, "123"},
        {__LINE__, "%.4d", -42, "-0042"},
        {__LINE__, "%7.4d|", -42, "  -0042|"},
        {__LINE__, "%07.4d|", 42, "   0042|"},  // a precision turns zeros off
        {__LINE__, "%#08x", 255, "0x0000ff"},
        {__LINE__, "%#8x|", 255, "    0xff|"},
        {__LINE__, "%.0d", 0, "0"},
        {__LINE__, "%c", 'x', "x"},
        {__LINE__, "%3c|", 'x', "  x|"},
        {__LINE__, "%-3c|", 'x', "x  |"},
    };
    for (const auto& c : kRows) {
        testing::ScopedTrace row(__FILE__, c.line, c.format);
        EXPECT_EQ(Printed(c.format, c.value), c.want);
    }
}

TEST(WsPrintf, Texts) {
    struct {
        int line;
        const char* format;
        const char* text;
        const char* want;
    } const kRows[] = {
        {__LINE__, "[%s]", "abc", "[abc]"},    {__LINE__, "[%s]", "", "[]"},
        {__LINE__, "[%5s]", "abc", "[  abc]"}, {__LINE__, "[%-5s]", "abc", "[abc  ]"},
        {__LINE__, "[%.2s]", "abc", "[ab]"},   {__LINE__, "[%4.1s]", "abc", "[   a]"},
        {__LINE__, "[%.0s]", "abc", "[]"},     {__LINE__, "[%s]", nullptr, "[(null)]"},
        {__LINE__, "100%%", "", "100%"},       {__LINE__, "%q %s", "abc", "q abc"},
        {__LINE__, "%s%", "abc", "abc"},       {__LINE__, "%s%-05.3l", "abc", "abc"},
    };
    for (const auto& c : kRows) {
        testing::ScopedTrace row(__FILE__, c.line, c.format);
        EXPECT_EQ(Printed(c.format, c.text), c.want);
    }
    EXPECT_EQ(Printed("%d/%s/%c/%x", 1, "two", '3', 4), "1/two/3/4");
}

TEST(WsPrintf, NeverMoreThan1024Bytes) {
    const std::string longText(2000, 'x');
    EXPECT_EQ(Printed("%s", longText.c_str()), std::string(1023, 'x'));
    EXPECT_EQ(Printed(longText.c_str()), std::string(1023, 'x'));
    EXPECT_EQ(Printed("%5000d", 1), std::string(1023, ' '));
    EXPECT_EQ(Printed("%.99999999999d", 1), std::string(1023, '0'));
    EXPECT_EQ(Printed("%1022dx%d", 1, 5), std::string(1021, ' ') + "1x");
    EXPECT_EQ(Printed("%-1022sxyz", "a"), "a" + std::string(1021, ' ') + "x");
}

}  // namespace
