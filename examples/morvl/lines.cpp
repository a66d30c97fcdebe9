#include "lines.h"

#include <unistd.h>

#include <algorithm>
#include <cerrno>

namespace {

constexpr size_t kBufferSize = 65536;
constexpr std::string_view kByteOrderMark = "\xEF\xBB\xBF";

}  // namespace

Output::Output(int descriptor) : descriptor_(descriptor) {
    waiting_.reserve(2 * kBufferSize);
}

void Output::Line(std::string_view text) {
    waiting_ += text;
    waiting_ += '\n';
    if (waiting_.size() >= kBufferSize) Flush();
}

bool Output::Flush() {
    std::string_view rest = waiting_;
    while (isGood_ && !rest.empty()) {
        const ssize_t count = write(descriptor_, rest.data(), rest.size());
        if (count >= 0) {
            rest.remove_prefix(static_cast<size_t>(count));
        } else {
            isGood_ = errno == EINTR;
        }
    }
    waiting_.clear();
    return isGood_;
}

Lines::Lines(int descriptor, Output* output) : descriptor_(descriptor), output_(output), buffer_(kBufferSize) {}

bool Lines::Fill() {
    if (!output_->Flush()) return false;
    ssize_t count = 0;
    do {
        count = read(descriptor_, buffer_.data(), buffer_.size());
    } while (count < 0 && errno == EINTR);
    failed_ = count < 0;
    left_ = std::string_view(buffer_.data(), static_cast<size_t>(std::max<ssize_t>(count, 0)));
    return !left_.empty();
}

void Lines::Take(std::string* line, std::string_view piece) {
    const size_t room = kLongest - line->size();
    wasCut_ = wasCut_ || piece.size() > room;
    line->append(piece.substr(0, room));
}

bool Lines::Next(std::string* line) {
    line->clear();
    wasCut_ = false;
    if (left_.empty() && !Fill()) return false;
    for (;;) {
        const size_t end = left_.find('\n');
        Take(line, left_.substr(0, end));
        left_.remove_prefix(end == std::string_view::npos ? left_.size() : end + 1);
        if (end != std::string_view::npos || !Fill()) break;
    }
    if (++number_ == 1 && line->starts_with(kByteOrderMark)) line->erase(0, kByteOrderMark.size());
    if (line->ends_with('\r')) line->pop_back();
    return !failed_;
}
