// A page of tables, written as HTML.
#pragma once

#include <cstdint>
#include <ostream>
#include <string>
#include <string_view>
#include <vector>

// Text of a code page as UTF-8; what the code page doesn't hold makes it "?".
std::string ToUtf8(std::string_view text, const char* codePage);

class Page {
  public:
    static constexpr size_t kNone = SIZE_MAX;

    Page(std::ostream& out, std::string_view title, std::string_view introduction);
    ~Page();
    Page(const Page&) = delete;
    Page& operator=(const Page&) = delete;

    void Section(std::string_view heading, std::string_view introduction);

    // A table's cells are texts in UTF-8; blanks in them are kept. Cells of one column, counted from 0,
    // are set as code.
    void BeginTable(const std::vector<std::string>& heads, size_t codeColumn = kNone);
    void Row(const std::vector<std::string>& cells);
    void EndTable();

    // Pictures side by side, named from the page's folder.
    void Pictures(const std::vector<std::string>& files, size_t across);

  private:
    std::ostream& out_;
    size_t codeColumn_ = kNone;
};
