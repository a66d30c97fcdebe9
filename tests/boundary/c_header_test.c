// The headers as a C program sees them, and the library that it links with: an operation of each family. On Windows it
// goes by the import library.
#include <morvl15/morvl15.h>

#include <stdio.h>
#include <string.h>

int main(void) {
    if (gpCRSECTMain != &gCRMainSect) return 1;
    if (sizeof(Number) != 13 || sizeof(DatDef) != 28) return 2;
    void* block = MemAlloc(16);
    if (block == NULL || MemSize(block) != 16) return 3;
    MemFree(block);

    Number sum, tenth;
    char text[32];
    NumLongToNumber(&sum, 3);
    NumAsciiToNumber(&tenth, "0.1");
    NumAddition(&sum, &sum, &tenth);
    if (NumToAscii(&sum, text, 30) != 3 || strcmp(text, "3.1") != 0) return 4;
    if (IntlStrLen(text) != 3 || IntlStrScan(text, ".%") != 1) return 5;
    if (FMTIsDatePicValid("dd.MM.yyyy") != 1 || FMTMaskText("1234", text, "99-99") != 1) return 6;
    puts("the headers compile as C");
    return 0;
}
