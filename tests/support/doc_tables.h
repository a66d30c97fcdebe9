// The tables of the guides in docs/, for tests that hold them against the library.
#pragma once

#include <map>
#include <string>
#include <vector>

using DocRow = std::vector<std::string>;

class DocTables {
  public:
    // A page by the name of its file, "masks.md".
    explicit DocTables(const std::string& page);

    // The rows of all tables under a heading, which is the line as it stands in the page. Fails where there are none. A
    // cell that is code as a whole comes without its marks.
    const std::vector<DocRow>& Under(const std::string& heading) const;

  private:
    std::map<std::string, std::vector<DocRow>> tables_;
};

// The pieces of code of a cell with several of them; the cell itself where there are no marks.
std::vector<std::string> CodesOf(const std::string& cell);
