// A C++ program against the installed library: an amount through a picture.
#include <cstdio>
#include <cstring>

#include <morvl15/morvl15.h>

int main() {
    Number amount{};
    NumAsciiToNumber(&amount, "-1234.5");
    FMTCntlBlock block{};
    FMTInitCntlBlock(&block);
    char text[64] = "";
    block.Type = FMT_TYPE_PICTURE;
    block.UseProfile = 1;
    block.Picture = "#,##0.00;(#,##0.00)";
    block.Value = amount;
    block.Output = text;
    FMTFormatNumber(&block);
    std::puts(text);
    return std::strcmp(text, "(1,234.50)") == 0 ? 0 : 1;
}
