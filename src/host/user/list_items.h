// The entries of a list box or combo box.
#pragma once

#include <memory>
#include <set>
#include <string>
#include <string_view>
#include <vector>

#include <morvl15/host.h>

class HostListItems {
  public:
    explicit HostListItems(bool sorted) : sorted_(sorted) {}

    INT Count() const { return static_cast<INT>(items_.size()); }
    bool Has(WPARAM index) const { return index < items_.size(); }
    const std::string& Text(WPARAM index) const { return items_[index]->text; }
    LPARAM& Data(WPARAM index) { return items_[index]->data; }

    // Adds an entry in its place, or as the last one of a list that isn't sorted. Its index.
    INT Add(const char* text);
    // Puts an entry anywhere, the order notwithstanding; -1 stands for the end. Its index, -1 for a place there isn't.
    INT Insert(INT index, const char* text);
    void Delete(WPARAM index);
    void Clear();

    enum class Match : uint8_t { kBeginning, kWhole };
    // The first entry behind `after`, round the list, that begins with a text or is it, case aside; -1 for none. From
    // -1 the whole list is searched.
    INT Find(INT after, const char* text, Match match) const;

  private:
    struct Item {
        std::string text;
        std::string folded;  // the text without its case
        LPARAM data = 0;
    };
    struct ByFolded {
        using is_transparent = void;
        bool operator()(const Item* a, const Item* b) const {
            return a->folded != b->folded ? a->folded < b->folded : std::less<>()(a, b);
        }
        bool operator()(const Item* item, std::string_view text) const { return item->folded < text; }
    };

    INT Put(size_t index, const char* text);
    bool SomeBeginWith(std::string_view folded) const;
    size_t PlaceOf(const char* text, bool behindEqual) const;

    bool sorted_;
    bool inOrder_ = true;  // while nothing has been put elsewhere than in its place
    std::vector<std::unique_ptr<Item>> items_;
    std::set<const Item*, ByFolded> byFolded_;
};
