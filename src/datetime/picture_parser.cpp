// From tokens to elements, and from elements to lists.
#include "picture_parser.h"

#include <cstddef>
#include <cstring>

#include <morvl15/memory.h>

namespace {

// ---- lists ----------------------------------------------------------------------------------------------------------

// Where elements and their texts are put: into the room that is given, then into blocks of MemAlloc.
class ElementRoom {
  public:
    ElementRoom(unsigned char* start, uint32_t size) : start_(start), size_(size) {}

    void* Take(uint32_t size) {
        const uint32_t whole = (size + kAlignment - 1) / kAlignment * kAlignment;
        if (whole > size_ - used_) return MemAlloc(size);
        used_ += whole;
        return start_ + used_ - whole;
    }

    void Release(void* taken) const {
        if (!Holds(taken)) MemFree(taken);
    }

  private:
    static constexpr uint32_t kAlignment = alignof(DatePicElement);

    bool Holds(const void* taken) const {
        return reinterpret_cast<uintptr_t>(taken) - reinterpret_cast<uintptr_t>(start_) < size_;
    }

    unsigned char* start_;
    uint32_t size_;
    uint32_t used_ = 0;
};

void ReleaseList(DatePicElement* first, const ElementRoom& room) {
    while (first != nullptr) {
        DatePicElement* next = first->Next;
        if (first->ElementType == DPE_TEXT) room.Release(first->Value.Text);
        room.Release(first);
        first = next;
    }
}

// A list element with the contents of `element`, not yet linked. Null when there is no memory.
DatePicElement* MakeElement(const DateElement& element, ElementRoom& room) {
    auto* made = static_cast<DatePicElement*>(room.Take(sizeof(DatePicElement)));
    if (made == nullptr) return nullptr;
    made->ElementType = element.type;
    made->Value.Number = element.number;
    if (element.type != DPE_TEXT) return made;
    made->Value.Text = static_cast<char*>(room.Take(element.length + 1));
    if (made->Value.Text == nullptr) {
        room.Release(made);
        return nullptr;
    }
    std::memcpy(made->Value.Text, element.text, element.length);
    made->Value.Text[element.length] = 0;
    return made;
}

// Reads a text once, as it stands.
DatePicElement* BuildList(const char* text, ScanState state, ElementRoom& room) {
    DateElementReader reader(text, state);
    DatePicElement* first = nullptr;
    DatePicElement* last = nullptr;
    DateElement element;
    while (reader.Read(&element)) {
        DatePicElement* made = MakeElement(element, room);
        if (made == nullptr) {
            ReleaseList(first, room);
            return nullptr;
        }
        made->Prev = last;
        made->Next = nullptr;
        (last == nullptr ? first : last->Next) = made;
        last = made;
    }
    if (reader.Accepted()) return first;
    ReleaseList(first, room);
    return nullptr;
}

// ---- a date without separators --------------------------------------------------------------------------------------

bool IsReadAgain(const char* text, const DatePicElement* first) {
    return first != nullptr && first->Next == nullptr && std::strlen(text) == kCompactLength;
}

DatePicElement* BuildCompactList(const char* text, ElementRoom& room) {
    const char spaced[] = {text[0], text[1], text[2], text[3], ' ', text[4], text[5], ' ', text[6], text[7], 0};
    return BuildList(spaced, ScanState::kValue, room);
}

DatePicElement* ParseInto(const char* text, int32_t mode, ElementRoom& room) {
    if (text == nullptr) return nullptr;  // as the empty text, which has no elements
    if (mode == kModePicture) return BuildList(text, ScanState::kPicture, room);
    if (mode < kModeDate || mode > kModeDateTime) return nullptr;
    DatePicElement* first = BuildList(text, ScanState::kValue, room);
    if (!IsReadAgain(text, first)) return first;
    ReleaseList(first, room);
    return BuildCompactList(text, room);
}

}  // namespace

DatePicElement* FMTParseDatePic(const char* text, int32_t mode) {
    ElementRoom none(nullptr, 0);
    return ParseInto(text, mode, none);
}

void FMTFreeDatePic(DatePicElement* first) {
    ReleaseList(first, ElementRoom(nullptr, 0));
}

DatePicList::DatePicList(const char* text, int32_t mode) {
    ElementRoom room(room_, kRoom);
    first_ = ParseInto(text, mode, room);
}

DatePicList::~DatePicList() {
    ReleaseList(first_, ElementRoom(room_, kRoom));
}
