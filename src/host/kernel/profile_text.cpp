#include "profile_text.h"

#include <algorithm>

#include <morvl15/host.h>

namespace {

constexpr std::string_view kByteOrderMark = "\xEF\xBB\xBF";  // some editors put it before the first line
constexpr std::string_view kBlanks = " \t\n\v\f\r\x1A";

std::string_view WithoutBlanks(std::string_view text) {
    const size_t first = text.find_first_not_of(kBlanks);
    if (first == std::string_view::npos) return {};
    return text.substr(first, text.find_last_not_of(kBlanks) - first + 1);
}

std::string_view WithoutQuotes(std::string_view text) {
    const bool quoted =
        text.size() >= 2 && (text.front() == '"' || text.front() == '\'') && text.back() == text.front();
    return quoted ? text.substr(1, text.size() - 2) : text;
}

bool IsSameName(std::string_view first, std::string_view second) {
    if (first.size() != second.size()) return false;
    std::string a(first);
    std::string b(second);
    CharLowerBuffA(a.data(), static_cast<DWORD>(a.size()));
    CharLowerBuffA(b.data(), static_cast<DWORD>(b.size()));
    return a == b;
}

// ---- lines ------------------------------------------------------------------------------------------------------

enum class LineKind { kOther, kSection, kKey };

struct ProfileLine {
    LineKind kind = LineKind::kOther;
    std::string_view name;   // of the section or key
    std::string_view value;  // of a key
    bool isBlank = false;
    size_t start = 0;  // where the line stands in the text
    size_t end = 0;    // behind its line end
};

void ReadLine(std::string_view text, ProfileLine& line) {
    text = WithoutBlanks(text.substr(0, text.find('\0')));
    line.isBlank = text.empty();
    if (text.empty() || text.front() == ';') return;
    const size_t bracket = text.rfind(']');
    const size_t equals = text.find('=');
    if (text.front() == '[' && bracket != std::string_view::npos) {
        line.kind = LineKind::kSection;
        line.name = WithoutBlanks(text.substr(1, bracket - 1));
    } else if (equals != std::string_view::npos) {
        line.kind = LineKind::kKey;
        line.name = WithoutBlanks(text.substr(0, equals));
        line.value = WithoutBlanks(text.substr(equals + 1));
    }
}

size_t FirstLine(std::string_view text) {
    return text.substr(0, kByteOrderMark.size()) == kByteOrderMark ? kByteOrderMark.size() : 0;
}

// Walks a text line by line.
class Lines {
  public:
    explicit Lines(std::string_view text) : text_(text), next_(FirstLine(text)) {}

    bool Next(ProfileLine& line) {
        if (next_ >= text_.size()) return false;
        line = ProfileLine{};
        line.start = next_;
        const size_t feed = text_.find('\n', next_);
        line.end = feed != std::string_view::npos ? feed + 1 : text_.size();
        ReadLine(text_.substr(line.start, line.end - line.start), line);
        next_ = line.end;
        return true;
    }

    // Goes on to the line behind the heading of a section.
    bool FindSection(std::string_view name, ProfileLine& heading) {
        while (Next(heading)) {
            if (heading.kind == LineKind::kSection && IsSameName(heading.name, name)) return true;
        }
        return false;
    }

    // The next key of the section in which the walk stands.
    bool NextKey(ProfileLine& line) {
        while (Next(line) && line.kind != LineKind::kSection) {
            if (line.kind == LineKind::kKey) return true;
        }
        return false;
    }

    bool FindKey(std::string_view name, ProfileLine& line) {
        while (NextKey(line)) {
            if (IsSameName(line.name, name)) return true;
        }
        return false;
    }

  private:
    std::string_view text_;
    size_t next_;
};

bool FindKey(std::string_view text, std::string_view section, std::string_view key, ProfileLine& line) {
    Lines lines(text);
    return lines.FindSection(WithoutBlanks(section), line) && lines.FindKey(WithoutBlanks(key), line);
}

void AddName(std::string& names, std::string_view name) {
    names.append(name).push_back('\0');
}

// ---- changes ----------------------------------------------------------------------------------------------------

// The line end that the text is written with.
std::string_view LineEndOf(std::string_view text) {
    const size_t feed = text.find('\n');
    return feed != std::string_view::npos && feed > 0 && text[feed - 1] == '\r' ? "\r\n" : "\n";
}

std::string KeyLine(std::string_view key, std::string_view value, std::string_view lineEnd) {
    std::string line(WithoutBlanks(key));
    return line.append("=").append(WithoutBlanks(value)).append(lineEnd);
}

// Where a new line of a section belongs: behind its last line that isn't blank.
size_t EndOfSection(std::string_view text, const ProfileLine& heading) {
    Lines lines(text);
    ProfileLine line;
    while (lines.Next(line) && line.start < heading.start) {
    }
    size_t end = heading.end;
    while (lines.Next(line) && line.kind != LineKind::kSection) {
        if (!line.isBlank) end = line.end;
    }
    return end;
}

void InsertLine(std::string& text, size_t at, const std::string& line, std::string_view lineEnd) {
    const bool behindOpenLine = at > FirstLine(text) && text[at - 1] != '\n';
    text.insert(at, behindOpenLine ? std::string(lineEnd).append(line) : line);
}

}  // namespace

std::optional<std::string> FindProfileValue(std::string_view text, std::string_view section, std::string_view key) {
    ProfileLine line;
    if (!FindKey(text, section, key, line)) return std::nullopt;
    return std::string(WithoutQuotes(line.value));
}

std::string ListProfileSections(std::string_view text) {
    std::string names;
    Lines lines(text);
    for (ProfileLine line; lines.Next(line);) {
        if (line.kind == LineKind::kSection && !line.name.empty()) AddName(names, line.name);
    }
    return names;
}

std::string ListProfileKeys(std::string_view text, std::string_view section) {
    std::string names;
    Lines lines(text);
    ProfileLine line;
    if (!lines.FindSection(WithoutBlanks(section), line)) return names;
    while (lines.NextKey(line)) {
        if (!line.name.empty()) AddName(names, line.name);
    }
    return names;
}

bool IsProfileSectionName(std::string_view name) {
    return !WithoutBlanks(name).empty() && IsProfileValue(name);
}

bool IsProfileKeyName(std::string_view name) {
    const std::string_view key = WithoutBlanks(name);
    return !key.empty() && key.front() != '[' && key.front() != ';' && key.find('=') == std::string_view::npos &&
           IsProfileValue(name);
}

bool IsProfileValue(std::string_view value) {
    return value.find_first_of("\r\n") == std::string_view::npos;
}

void SetProfileValue(std::string& text, std::string_view section, std::string_view key, std::string_view value) {
    const std::string_view lineEnd = LineEndOf(text);
    const std::string keyLine = KeyLine(key, value, lineEnd);
    Lines lines(text);
    ProfileLine heading;
    if (!lines.FindSection(WithoutBlanks(section), heading)) {
        std::string added = "[";
        added.append(WithoutBlanks(section)).append("]").append(lineEnd).append(keyLine);
        InsertLine(text, text.size(), added, lineEnd);
        return;
    }
    ProfileLine line;
    if (lines.FindKey(WithoutBlanks(key), line)) {
        text.replace(line.start, line.end - line.start, KeyLine(line.name, value, lineEnd));
    } else {
        InsertLine(text, EndOfSection(text, heading), keyLine, lineEnd);
    }
}

void RemoveProfileKey(std::string& text, std::string_view section, std::string_view key) {
    Lines lines(text);
    ProfileLine line;
    if (!lines.FindSection(WithoutBlanks(section), line)) return;
    std::string left = text.substr(0, line.end);
    size_t done = line.end;
    while (lines.FindKey(WithoutBlanks(key), line)) {
        left.append(text, done, line.start - done);
        done = line.end;
    }
    text = left.append(text, done);
}

void RemoveProfileSection(std::string& text, std::string_view section) {
    std::string left = text.substr(0, FirstLine(text));
    bool inside = false;
    Lines lines(text);
    for (ProfileLine line; lines.Next(line);) {
        if (line.kind == LineKind::kSection) inside = IsSameName(line.name, WithoutBlanks(section));
        if (!inside) left.append(text, line.start, line.end - line.start);
    }
    text = left;
}
