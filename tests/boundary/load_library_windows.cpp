// The DLL as a program sees it that loads it by name: each export is found, one operation of each family answers, the
// end of a thread is served, and the library can go again.
#include <gtest/gtest.h>

#include <thread>
#include <vector>

#include <morvl15/morvl15.h>

#include "version.h"

namespace {

constexpr const char* kExports[] = {
#define EXPORT(name) #name,
#include "exports.def"
#undef EXPORT
};

class LoadedLibrary : public testing::Test {
  protected:
    void SetUp() override {
        library_ = LoadLibraryA("morvl15.dll");
        ASSERT_NE(library_, nullptr) << GetLastError();
    }
    void TearDown() override {
        EXPECT_TRUE(FreeLibrary(library_));
        EXPECT_EQ(GetModuleHandleA("morvl15.dll"), nullptr) << "still loaded";
    }

    // The export of a name, with the type that its header gives it.
    template <typename Export>
    Export* Find(const char* name) {
        auto* address = reinterpret_cast<Export*>(reinterpret_cast<void*>(GetProcAddress(library_, name)));
        EXPECT_NE(address, nullptr) << name;
        return address;
    }

    HMODULE library_ = nullptr;
};

#define FIND(name) Find<decltype(name)>(#name)

TEST_F(LoadedLibrary, HasEachNameOfTheList) {
    for (const char* name : kExports) EXPECT_NE(GetProcAddress(library_, name), nullptr) << name;
}

TEST_F(LoadedLibrary, HasTheLockMade) {
    CRSect* lock = FIND(gCRMainSect);
    EXPECT_EQ(*FIND(gpCRSECTMain), lock);
    EXPECT_EQ(FIND(CR_LockCount)(lock), 0);
    EnterCriticalSection(&lock->section);
    ++lock->lockCount;
    EXPECT_EQ(FIND(CR_Unwind)(lock), 1);
}

TEST_F(LoadedLibrary, AllocatesMemory) {
    void* block = FIND(MemAlloc)(40);
    EXPECT_EQ(FIND(MemSize)(block), 40u);
    FIND(MemFree)(block);
}

TEST_F(LoadedLibrary, ComputesAndFormats) {
    Number sum;
    Number tenth;
    char text[32];
    FIND(NumLongToNumber)(&sum, -3);
    FIND(NumAsciiToNumber)(&tenth, "0.1");
    FIND(NumAddition)(&sum, &sum, &tenth);
    EXPECT_EQ(FIND(NumToAscii)(&sum, text, sizeof text - 1), 4);
    EXPECT_STREQ(text, "-2.9");
    EXPECT_EQ(FIND(IntlStrLen)("four"), 4);
    EXPECT_EQ(FIND(IntlStrScan)("a picture", "p%e"), 2);

    // The names of months were loaded with the library, from its own resources.
    FMTCntlBlock block;
    FIND(FMTInitCntlBlock)(&block);
    block.Type = 1;
    block.LongDatePic = "d MMMM yyyy";
    block.Month = 2;
    block.Day = 29;
    block.Year = 2024;
    block.Output = text;
    EXPECT_EQ(FIND(FMTFormatDateTime)(&block), 1);
    EXPECT_STREQ(text, "29 February 2024");
    EXPECT_EQ(FIND(FMTMaskText)("5551234", text, "999-9999"), 1);
    EXPECT_STREQ(text, "555-1234");
}

uintptr_t cleanedUp;
void MORVL_CALL CleanUp(uintptr_t value) {
    cleanedUp += value;
}

TEST_F(LoadedLibrary, FreesTheSlotsOfAThreadThatEnds) {
    cleanedUp = 0;
    const auto setItem = FIND(TLS_SetItem);
    const int32_t slot = FIND(TLS_AllocIndex)();
    std::thread([&] { EXPECT_EQ(setItem(slot, 7, CleanUp), 7u); }).join();
    EXPECT_EQ(cleanedUp, 7u);
}

TEST_F(LoadedLibrary, DoesNotServeTheSlotsOfTheThreadThatUnloadsIt) {
    cleanedUp = 0;
    const int32_t slot = FIND(TLS_AllocIndex)();
    FIND(TLS_SetItem)(slot, 9, CleanUp);
    TearDown();
    EXPECT_EQ(cleanedUp, 0u);
    SetUp();
    EXPECT_EQ(FIND(TLS_AllocIndex)(), slot) << "a library loaded anew starts anew";
}

TEST_F(LoadedLibrary, HoldsItsVersionInUsEnglish) {
    char path[MAX_PATH];
    ASSERT_NE(GetModuleFileNameA(library_, path, sizeof path), 0u);
    DWORD unused = 0;
    const DWORD size = GetFileVersionInfoSizeA(path, &unused);
    ASSERT_NE(size, 0u);
    std::vector<char> block(size);
    ASSERT_TRUE(GetFileVersionInfoA(path, 0, size, block.data()));
    for (const char* key : {"\\StringFileInfo\\040904b0\\ProductVersion", "\\StringFileInfo\\040904b0\\FileVersion"}) {
        void* text = nullptr;
        UINT length = 0;
        ASSERT_TRUE(VerQueryValueA(block.data(), key, &text, &length)) << key;
        EXPECT_STREQ(static_cast<const char*>(text), MORVL15_VERSION_TEXT);
    }
}

}  // namespace
