// The walks over blocks stay inside the page of the text: behind the terminator lies memory that can't be read.
#include <gtest/gtest.h>
#include <sys/mman.h>
#include <unistd.h>

#include <cstring>

#include "support/locale.h"
#include "walks.h"

namespace {

TEST(WalkJapanese, StayInThePage) {
    const TestLanguage language(kJapanese);
    const auto page = static_cast<size_t>(sysconf(_SC_PAGESIZE));
    void* pages = mmap(nullptr, 2 * page, PROT_READ | PROT_WRITE, MAP_PRIVATE | MAP_ANONYMOUS, -1, 0);
    ASSERT_NE(pages, MAP_FAILED);
    char* end = static_cast<char*>(pages) + page;
    ASSERT_EQ(mprotect(end, page, PROT_NONE), 0);
    end[-1] = '\0';
    for (size_t length = 0; length < 200; ++length) {
        char* text = end - 1 - length;
        if (length > 0) *text = "\x82\xA0z\x82"[length % 4];
        ExpectSameWalks(text);
    }
    munmap(pages, 2 * page);
}

}  // namespace
