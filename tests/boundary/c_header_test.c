// The headers as a C program sees them. Compiling is most of the test.
#include <morvl15/morvl15.h>

#include <stdio.h>

int main(void) {
    if (gpCRSECTMain != &gCRMainSect) return 1;
    if (sizeof(Number) != 13 || sizeof(DatDef) != 28) return 2;
    void* block = MemAlloc(16);
    if (block == NULL || MemSize(block) != 16) return 3;
    MemFree(block);
    puts("the headers compile as C");
    return 0;
}
