// What a PDF file holds. Native host only.
#pragma once

#include <string>

// All that a command writes.
std::string OutputOf(const std::string& command);

// What pdfinfo tells: the value of one of its lines, as "Pages"; empty for none.
std::string PdfValue(const std::string& path, const std::string& name);

// What pdftotext reads: the text in UTF-8, line by line.
std::string PdfText(const std::string& path);
