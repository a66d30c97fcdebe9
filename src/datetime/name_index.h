// Finds a name by its letters alone, without asking the host to compare texts.
//
// It knows names of 1 to 15 letters A to Z, and gives for such a text what a comparison without regard to case gives.
// Where a name or the text has any other character, it declines.
#pragma once

#include <cstddef>
#include <cstdint>

// A name in small letters, the first one in the highest bits: eight letters in the head, the others in the tail.
struct NameLetters {
    uint64_t head = 0;
    uint64_t tail = 0;

    bool operator==(const NameLetters&) const = default;
    uint32_t First() const { return static_cast<uint32_t>(head >> 56) - 'a'; }

    // False if the text isn't 1 to 15 letters.
    bool Read(const char* text) {
        size_t length = 0;
        for (; text[length] != 0; ++length) {
            const uint64_t letter = static_cast<uint8_t>(text[length]) | 0x20u;
            if (letter - 'a' > 'z' - 'a' || length == 15) return false;
            if (length < 8) {
                head |= letter << (56 - 8 * length);
            } else {
                tail |= letter << (56 - 8 * (length - 8));
            }
        }
        return length != 0;
    }
};

template <int32_t kNames>
class NameIndex {
  public:
    void Clear() { *this = NameIndex(); }

    // Takes a name in. Of equal names the first counts.
    void Add(const char* name, int32_t value) {
        Entry& entry = entries_[count_++];
        if (!entry.letters.Read(name)) {
            knowsAll_ = false;
            return;
        }
        entry.value = value;
        uint8_t* link = &first_[entry.letters.First()];
        while (*link != 0) link = &entries_[*link - 1].next;
        *link = static_cast<uint8_t>(count_);
    }

    // The value of a name, 0 for none. False, and no value, if it declines.
    bool Find(const char* text, int32_t* value) const {
        NameLetters letters;
        if (!knowsAll_ || !letters.Read(text)) return false;
        *value = 0;
        for (uint8_t at = first_[letters.First()]; at != 0; at = entries_[at - 1].next) {
            if (entries_[at - 1].letters != letters) continue;
            *value = entries_[at - 1].value;
            break;
        }
        return true;
    }

  private:
    struct Entry {
        NameLetters letters;
        int32_t value = 0;
        uint8_t next = 0;  // the next entry of the same first letter, counted from 1; 0 for none
    };
    Entry entries_[kNames];
    uint8_t first_['z' - 'a' + 1] = {};
    int32_t count_ = 0;
    bool knowsAll_ = true;
};
