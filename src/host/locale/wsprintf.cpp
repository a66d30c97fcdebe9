// wsprintfA: a small formatter of its own, not the C library's: 32-bit numbers whatever a long is here, no locale, and
// never more than 1,024 bytes.
#include <algorithm>
#include <cstdarg>
#include <cstring>

#include <morvl15/host.h>

namespace {

constexpr size_t kRoom = 1024;
constexpr int kNone = -1;

// Where the text goes: what doesn't fit is dropped.
class Output {
  public:
    explicit Output(char* buffer) : buffer_(buffer) {}

    void Put(const char* text, size_t length) {
        const size_t fits = std::min(length, kRoom - 1 - length_);
        std::memcpy(buffer_ + length_, text, fits);
        length_ += fits;
    }
    void Fill(char character, size_t count) {
        const size_t fits = std::min(count, kRoom - 1 - length_);
        std::memset(buffer_ + length_, character, fits);
        length_ += fits;
    }
    INT End() {
        buffer_[length_] = 0;
        return static_cast<INT>(length_);
    }

  private:
    char* buffer_;
    size_t length_ = 0;
};

// What stands between "%" and the conversion letter.
struct Field {
    bool left = false;    // "-"
    bool prefix = false;  // "#"
    bool zeros = false;   // "0"
    bool isShort = false;
    size_t width = 0;
    int precision = kNone;
    char conversion = 0;
};

// A decimal count, as far as it can matter.
int TakeCount(const char*& at) {
    int count = 0;
    for (; *at >= '0' && *at <= '9'; ++at) count = std::min(count * 10 + (*at - '0'), static_cast<int>(kRoom));
    return count;
}

// Reads the field behind a "%". Leaves `at` behind the conversion letter.
Field TakeField(const char*& at) {
    Field field;
    for (; *at == '-' || *at == '#'; ++at) (*at == '-' ? field.left : field.prefix) = true;
    for (; *at == '0'; ++at) field.zeros = true;
    field.width = static_cast<size_t>(TakeCount(at));
    if (*at == '.') field.precision = TakeCount(++at);
    if (*at == 'h' || *at == 'l') field.isShort = *at++ == 'h';
    field.conversion = *at;
    if (*at != 0) ++at;
    return field;
}

void PutText(Output& out, const Field& field, const char* text, size_t length) {
    const size_t fill = field.width > length ? field.width - length : 0;
    if (!field.left) out.Fill(' ', fill);
    out.Put(text, length);
    if (field.left) out.Fill(' ', fill);
}

void PutString(Output& out, const Field& field, const char* text) {
    if (text == nullptr) text = "(null)";
    const size_t most = field.precision == kNone ? kRoom : static_cast<size_t>(field.precision);
    PutText(out, field, text, strnlen(text, most));
}

// A number: sign or prefix, zeros, digits. Zeros fill up to the precision; without one, and if asked, to the width.
void PutNumber(Output& out, const Field& field, const char* sign, uint32_t value, uint32_t base, const char* digits) {
    char reversed[16];
    size_t count = 0;
    do {
        reversed[count++] = digits[value % base];
        value /= base;
    } while (value != 0);
    std::reverse(reversed, reversed + count);

    const size_t signLength = std::strlen(sign);
    size_t shown = field.precision == kNone ? count : std::max(count, static_cast<size_t>(field.precision));
    if (field.zeros && !field.left && field.precision == kNone && field.width > signLength + shown) {
        shown = field.width - signLength;
    }
    const size_t fill = field.width > signLength + shown ? field.width - signLength - shown : 0;
    if (!field.left) out.Fill(' ', fill);
    out.Put(sign, signLength);
    out.Fill('0', shown - count);
    out.Put(reversed, count);
    if (field.left) out.Fill(' ', fill);
}

void PutSigned(Output& out, const Field& field, int32_t value) {
    if (field.isShort) value = static_cast<int16_t>(value);
    const auto bits = static_cast<uint32_t>(value);
    PutNumber(out, field, value < 0 ? "-" : "", value < 0 ? 0 - bits : bits, 10, "0123456789");
}

void PutUnsigned(Output& out, const Field& field, uint32_t value) {
    if (field.isShort) value = static_cast<uint16_t>(value);
    switch (field.conversion) {
        case 'x': return PutNumber(out, field, field.prefix ? "0x" : "", value, 16, "0123456789abcdef");
        case 'X': return PutNumber(out, field, field.prefix ? "0X" : "", value, 16, "0123456789ABCDEF");
        default: return PutNumber(out, field, "", value, 10, "0123456789");
    }
}

}  // namespace

INT wsprintfA(LPSTR buffer, LPCSTR format, ...) {
    va_list arguments;
    va_start(arguments, format);
    Output out(buffer);
    for (const char* at = format; *at != 0;) {
        const char* literal = at;
        at += std::strcspn(at, "%");
        out.Put(literal, static_cast<size_t>(at - literal));
        if (*at == 0) break;
        const Field field = TakeField(++at);
        switch (field.conversion) {
            case 's': PutString(out, field, va_arg(arguments, const char*)); break;
            case 'c': {
                const auto character = static_cast<char>(va_arg(arguments, int));
                PutText(out, field, &character, 1);
                break;
            }
            case 'd':
            case 'i': PutSigned(out, field, va_arg(arguments, int32_t)); break;
            case 'u':
            case 'x':
            case 'X': PutUnsigned(out, field, va_arg(arguments, uint32_t)); break;
            case 0: break;
            default: out.Put(&field.conversion, 1); break;  // "%%", and any other letter stands for itself
        }
    }
    va_end(arguments);
    return out.End();
}
