// The entries of a list, in their order, with a second way to them by their texts without case: a search for a text
// that no entry begins with, which is what adding distinct texts asks for all the time, doesn't walk the list.
#include "list_items.h"

#include <algorithm>

namespace {

std::string Fold(const char* text) {
    std::string folded = text;
    CharUpperBuffA(folded.data(), static_cast<DWORD>(folded.size()));
    return folded;
}

}  // namespace

// Where a text belongs in a sorted list.
size_t HostListItems::PlaceOf(const char* text, bool behindEqual) const {
    const auto isBefore = [&](const std::unique_ptr<Item>& item) {
        const INT order = lstrcmpiA(item->text.c_str(), text);
        return order < 0 || (behindEqual && order == 0);
    };
    return static_cast<size_t>(std::partition_point(items_.begin(), items_.end(), isBefore) - items_.begin());
}

INT HostListItems::Put(size_t index, const char* text) {
    auto item = std::make_unique<Item>(Item{text, Fold(text)});
    byFolded_.insert(item.get());
    items_.insert(items_.begin() + static_cast<ptrdiff_t>(index), std::move(item));
    return static_cast<INT>(index);
}

INT HostListItems::Add(const char* text) {
    return Put(sorted_ ? PlaceOf(text, true) : items_.size(), text);
}

INT HostListItems::Insert(INT index, const char* text) {
    if (index < -1 || index > Count()) return LB_ERR;
    inOrder_ = false;
    return Put(index == -1 ? items_.size() : static_cast<size_t>(index), text);
}

void HostListItems::Delete(WPARAM index) {
    byFolded_.erase(items_[index].get());
    items_.erase(items_.begin() + static_cast<ptrdiff_t>(index));
}

void HostListItems::Clear() {
    byFolded_.clear();
    items_.clear();
    inOrder_ = true;
}

bool HostListItems::SomeBeginWith(std::string_view folded) const {
    const auto found = byFolded_.lower_bound(folded);
    return found != byFolded_.end() && (*found)->folded.starts_with(folded);
}

INT HostListItems::Find(INT after, const char* text, Match match) const {
    const std::string folded = Fold(text);
    if (!SomeBeginWith(folded)) return LB_ERR;
    const auto count = items_.size();
    size_t at = after < 0 || after >= Count() ? count - 1 : static_cast<size_t>(after);
    // In a sorted list no text stands before one that it begins with.
    if (after < 0 && sorted_ && inOrder_) at = (PlaceOf(text, false) + count - 1) % count;
    for (size_t step = 0; step < count; ++step) {
        at = (at + 1) % count;
        const std::string& candidate = items_[at]->folded;
        if (match == Match::kWhole ? candidate == folded : candidate.starts_with(folded)) return static_cast<INT>(at);
    }
    return LB_ERR;
}
