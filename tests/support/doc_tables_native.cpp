#include "support/doc_tables.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <filesystem>
#include <fstream>
#include <sstream>

namespace {

std::string WithoutMarks(const std::string& cell) {
    const bool isCode = cell.size() > 1 && cell.front() == '`' && cell.back() == '`';
    return isCode && std::ranges::count(cell, '`') == 2 ? cell.substr(1, cell.size() - 2) : cell;
}

DocRow CellsOf(const std::string& line) {
    DocRow cells;
    std::istringstream parts(line.substr(1));
    for (std::string part; std::getline(parts, part, '|');)
        cells.push_back(WithoutMarks(part.size() > 2 ? part.substr(1, part.size() - 2) : ""));
    return cells;
}

}  // namespace

DocTables::DocTables(const std::string& page) {
    const auto folder = std::filesystem::path(__FILE__).parent_path();
    std::ifstream text(folder / "../../docs" / page);
    std::string heading;
    for (std::string line; std::getline(text, line);) {
        if (line.empty() || line[0] != '|') {
            heading.clear();
        } else if (heading.empty()) {
            heading = line;
        } else if (line[1] != '-') {
            tables_[heading].push_back(CellsOf(line));
        }
    }
}

const std::vector<DocRow>& DocTables::Under(const std::string& heading) const {
    static const std::vector<DocRow> none;
    const auto table = tables_.find(heading);
    if (table != tables_.end()) return table->second;
    ADD_FAILURE() << "the page has no table " << heading;
    return none;
}

std::vector<std::string> CodesOf(const std::string& cell) {
    std::vector<std::string> codes;
    std::istringstream parts(cell);
    for (std::string text, code; std::getline(parts, text, '`') && std::getline(parts, code, '`');)
        codes.push_back(code);
    return codes.empty() ? std::vector{cell} : codes;
}
