// Version texts of modules.
#include <gtest/gtest.h>

#include <string>

#include <morvl15/frame.h>

#include "support/modules.h"

namespace {

// The text that a call gives; where there is none the buffer stays as it was.
std::string Text(int32_t(MORVL_CALL* call)(HMODULE, char*), HMODULE module) {
    char text[64] = "untouched";
    const int32_t result = call(module, text);
    EXPECT_EQ(result, std::string(text) != "untouched" ? 1 : 0);
    return text;
}

TEST(Version, OfLoadedModules) {
    const std::string rows[][3] = {
        {"version_unicode", "Unicode 1.2", "1.2.3 \"U\" \\build\\"},
        {"version_latin", "Latin 2.0", "2.0.1"},
        {"version_both", "Both, Unicode", "untouched"},  // the Unicode table counts
        {"version_none", "untouched", "untouched"},
    };
    for (const auto& [name, version, build] : rows) {
        const LoadedModule module(name + ".module");
        ASSERT_NE(module.Handle(), nullptr) << name;
        EXPECT_EQ(Text(VERGetVersionString, module.Handle()), version) << name;
        EXPECT_EQ(Text(VERGetBuildString, module.Handle()), build) << name;
    }
}

TEST(Version, OfTheProgram) {
    const std::string version = Text(VERGetVersionString, nullptr);
    EXPECT_TRUE(version != "" && version != "untouched");
    EXPECT_EQ(Text(VERGetBuildString, nullptr), version);  // the build gives its programs the same text twice
    EXPECT_EQ(VERGetVersionString(nullptr, nullptr), 0);
}

}  // namespace
