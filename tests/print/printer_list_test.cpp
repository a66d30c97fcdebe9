// The ports of a printer, one line of the setup dialog's list each.
#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "print/printer_list.h"
#include "support/locale.h"

namespace {

using Ports = std::vector<std::string>;

Ports PortsOf(const char* field) {
    Ports ports;
    while (*field != '\0') {
        const char* port = nullptr;
        const size_t length = PrintNextPort(&field, &port);
        ports.emplace_back(port, length);
    }
    return ports;
}

TEST(PrinterPorts, AreParted) {
    EXPECT_EQ(PortsOf("LPT1:"), Ports{"LPT1:"});
    EXPECT_EQ(PortsOf("LPT1:,LPT2:"), (Ports{"LPT1:", "LPT2:"}));
    EXPECT_EQ(PortsOf("LPT1:, \tLPT2: COM1:"), (Ports{"LPT1:", "LPT2:", "COM1:"}));
    EXPECT_EQ(PortsOf(",A:,,B: ,"), (Ports{"", "A:", "", "B:", ""}));  // an empty one gives no line
    EXPECT_EQ(PortsOf(""), Ports{});
}

TEST(PrinterPortsJapanese, KeepDoubleByteCharactersWhole) {
    const TestLanguage language(kJapanese);
    EXPECT_EQ(PortsOf("\x83\x2C\x83\x20,B:"), (Ports{"\x83\x2C\x83\x20", "B:"}));
    EXPECT_EQ(PortsOf("\x83\x5C,B:"), (Ports{"\x83\x5C", "B:"}));
}

TEST(PrinterEntry, IsCutAtItsFirstOn) {
    char entry[] = "Lamp on desk on D:";
    EXPECT_TRUE(PrintCutEntry(entry));
    EXPECT_STREQ(entry, "Lamp");
    EXPECT_FALSE(PrintCutEntry(entry));
}

}  // namespace
