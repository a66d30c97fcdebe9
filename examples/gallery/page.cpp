#include "page.h"

#include <iconv.h>

namespace {

constexpr std::string_view kStyle = R"(
body { font: 15px/1.5 "DejaVu Sans", "Noto Sans CJK JP", sans-serif; color: #222; max-width: 64em; margin: 3em auto; padding: 0 1em }
h1 { font-size: 2em; margin-bottom: 0 }
h2 { margin-top: 2.2em; border-bottom: 2px solid #2a6; padding-bottom: .2em }
p { max-width: 46em }
table { border-collapse: collapse; margin: 1em 0 }
th { text-align: left; font-weight: normal; color: #666; border-bottom: 1px solid #bbb; padding: .2em 1.2em .2em 0 }
td { padding: .2em 1.2em .2em 0; border-bottom: 1px solid #eee; white-space: pre }
td.code { font-family: "DejaVu Sans Mono", monospace; color: #06683a; font-size: .92em }
.sheets { display: inline-grid; gap: 6px; background: #999; padding: 6px }
.sheets img { width: 220px; display: block; background: white }
)";

std::string Escaped(std::string_view text) {
    std::string escaped;
    for (const char c : text) {
        switch (c) {
            case '&': escaped += "&amp;"; break;
            case '<': escaped += "&lt;"; break;
            case '>': escaped += "&gt;"; break;
            case '"': escaped += "&quot;"; break;
            default: escaped += c;
        }
    }
    return escaped;
}

}  // namespace

std::string ToUtf8(std::string_view text, const char* codePage) {
    std::string source(text);
    std::string utf8(4 * text.size() + 1, '\0');
    iconv_t converter = iconv_open("UTF-8", codePage);
    char* in = source.data();
    char* out = utf8.data();
    size_t inLeft = source.size();
    size_t outLeft = utf8.size();
    const bool converted = iconv(converter, &in, &inLeft, &out, &outLeft) != static_cast<size_t>(-1);
    iconv_close(converter);
    if (!converted) return "?";
    utf8.resize(utf8.size() - outLeft);
    return utf8;
}

Page::Page(std::ostream& out, std::string_view title, std::string_view introduction) : out_(out) {
    out_ << "<!DOCTYPE html>\n<html lang=\"en\">\n<meta charset=\"utf-8\">\n<title>" << title << "</title>\n<style>"
         << kStyle << "</style>\n<h1>" << title << "</h1>\n<p>" << introduction << "</p>\n";
}

Page::~Page() {
    out_ << "</html>\n";
}

void Page::Section(std::string_view heading, std::string_view introduction) {
    out_ << "\n<h2>" << heading << "</h2>\n<p>" << introduction << "</p>\n";
}

void Page::BeginTable(const std::vector<std::string>& heads, size_t codeColumn) {
    codeColumn_ = codeColumn;
    out_ << "<table>\n<tr>";
    for (const std::string& head : heads) out_ << "<th>" << Escaped(head) << "</th>";
    out_ << "</tr>\n";
}

void Page::Row(const std::vector<std::string>& cells) {
    out_ << "<tr>";
    for (size_t i = 0; i < cells.size(); ++i) {
        out_ << (i == codeColumn_ ? "<td class=\"code\">" : "<td>") << Escaped(cells[i]) << "</td>";
    }
    out_ << "</tr>\n";
}

void Page::EndTable() {
    out_ << "</table>\n";
}

void Page::Pictures(const std::vector<std::string>& files, size_t across) {
    out_ << "<div class=\"sheets\" style=\"grid-template-columns: repeat(" << across << ", auto)\">\n";
    for (const std::string& file : files) out_ << "<img src=\"" << Escaped(file) << "\" alt=\"a sheet\">\n";
    out_ << "</div>\n";
}
