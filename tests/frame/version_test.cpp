// Version texts of modules.
#include <gtest/gtest.h>

#include <string>

#include <morvl15/frame.h>

#include "support/modules.h"

namespace {

constexpr char kUntouched[] = "untouched";

struct VersionCase {
    int line;
    const char* module;
    const char* version;  // null for none
    const char* build;
};
constexpr VersionCase kVersions[] = {
    // clang-format off
    //          module             version          build
    { __LINE__, "version_unicode", "Unicode 1.2",   "1.2.3 \"U\" \\build\\" },
    { __LINE__, "version_latin",   "Latin 2.0",     "2.0.1"                 },
    { __LINE__, "version_both",    "Both, Unicode", nullptr                 },  // the Unicode table counts
    { __LINE__, "version_none",    nullptr,         nullptr                 },
    // clang-format on
};

using VersionCall = int32_t(MORVL_CALL*)(HMODULE, char*);

void ExpectText(VersionCall call, HMODULE module, const char* want) {
    char text[64] = "untouched";
    EXPECT_EQ(call(module, text), want != nullptr ? 1 : 0);
    EXPECT_STREQ(text, want != nullptr ? want : kUntouched);
}

TEST(Version, OfLoadedModules) {
    for (const VersionCase& c : kVersions) {
        testing::ScopedTrace row(__FILE__, c.line, c.module);
        const LoadedModule module(std::string(c.module) + ".module");
        ASSERT_NE(module.Handle(), nullptr);
        ExpectText(VERGetVersionString, module.Handle(), c.version);
        ExpectText(VERGetBuildString, module.Handle(), c.build);
    }
}

TEST(Version, OfTheProgram) {
    char version[64] = "";
    EXPECT_EQ(VERGetVersionString(nullptr, version), 1);
    EXPECT_NE(version[0], '\0');
    ExpectText(VERGetBuildString, nullptr, version);  // the build gives its programs the same text twice
    EXPECT_EQ(VERGetVersionString(nullptr, nullptr), 0);
}

}  // namespace
