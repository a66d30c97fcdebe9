#include "support/pdf_file.h"

#include <cstdio>

std::string OutputOf(const std::string& command) {
    std::FILE* output = popen(command.c_str(), "r");
    if (output == nullptr) return "";
    std::string text;
    char bytes[4096];
    for (size_t count = 0; (count = std::fread(bytes, 1, sizeof bytes, output)) > 0;) text.append(bytes, count);
    pclose(output);
    return text;
}

std::string PdfValue(const std::string& path, const std::string& name) {
    const std::string lines = "\n" + OutputOf("pdfinfo '" + path + "' 2>/dev/null");
    const size_t line = lines.find("\n" + name + ":");
    if (line == std::string::npos) return "";
    const size_t value = lines.find_first_not_of(' ', line + name.size() + 2);
    return lines.substr(value, lines.find('\n', value) - value);
}

std::string PdfText(const std::string& path) {
    return OutputOf("pdftotext '" + path + "' -");
}
