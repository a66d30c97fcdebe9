// Rectangles, and the division that the mapping rests on.
#include <algorithm>
#include <limits>

#include <morvl15/host.h>

BOOL SetRect(RECT* rect, INT left, INT top, INT right, INT bottom) {
    if (rect == nullptr) return FALSE;
    *rect = {left, top, right, bottom};
    return TRUE;
}

BOOL SetRectEmpty(RECT* rect) {
    return SetRect(rect, 0, 0, 0, 0);
}

BOOL IsRectEmpty(const RECT* rect) {
    return rect == nullptr || rect->left >= rect->right || rect->top >= rect->bottom ? TRUE : FALSE;
}

BOOL OffsetRect(RECT* rect, INT dx, INT dy) {
    if (rect == nullptr) return FALSE;
    return SetRect(rect, rect->left + dx, rect->top + dy, rect->right + dx, rect->bottom + dy);
}

BOOL InflateRect(RECT* rect, INT dx, INT dy) {
    if (rect == nullptr) return FALSE;
    return SetRect(rect, rect->left - dx, rect->top - dy, rect->right + dx, rect->bottom + dy);
}

BOOL IntersectRect(RECT* result, const RECT* a, const RECT* b) {
    if (result == nullptr || a == nullptr || b == nullptr) return FALSE;
    const RECT both = {std::max(a->left, b->left), std::max(a->top, b->top), std::min(a->right, b->right),
                       std::min(a->bottom, b->bottom)};
    if (IsRectEmpty(a) || IsRectEmpty(b) || IsRectEmpty(&both)) {
        SetRectEmpty(result);
        return FALSE;
    }
    *result = both;
    return TRUE;
}

INT MulDiv(INT value, INT numerator, INT denominator) {
    if (denominator == 0) return -1;
    const int64_t product = static_cast<int64_t>(value) * numerator;
    const int64_t divisor = denominator;
    const int64_t magnitude = product < 0 ? -product : product;
    const int64_t by = divisor < 0 ? -divisor : divisor;
    const int64_t quotient = (magnitude + by / 2) / by;
    const int64_t result = (product < 0) != (divisor < 0) ? -quotient : quotient;
    return result < -std::numeric_limits<INT>::max() || result > std::numeric_limits<INT>::max()
               ? -1
               : static_cast<INT>(result);
}
