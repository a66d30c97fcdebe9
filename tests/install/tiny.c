/* A C program against the installed library: exact decimal arithmetic. */
#include <stdio.h>
#include <string.h>

#include <morvl15/morvl15.h>

int main(void) {
    Number price, tax, total;
    char text[32];
    NumAsciiToNumber(&price, "19.99");
    NumAsciiToNumber(&tax, "1.19");
    NumMultiply(&total, &price, &tax);
    NumToAscii(&total, text, 30);
    puts(text);
    return strcmp(text, "23.7881") == 0 ? 0 : 1;
}
