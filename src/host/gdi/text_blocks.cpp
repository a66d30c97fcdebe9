// Text in rectangles and with tab stops.
#include <algorithm>
#include <string>
#include <utility>
#include <vector>

#include "../locale/code_page.h"
#include "drawing.h"
#include "mapping.h"
#include "text.h"

namespace {

// ---- lines of a rectangle -----------------------------------------------------------------------------------------

// Takes the first line off the front of a text: up to a line's end, which goes too.
std::string_view TakeLine(std::string_view& text) {
    const size_t end = std::min(text.find_first_of("\r\n"), text.size());
    const std::string_view line = text.substr(0, end);
    text.remove_prefix(end);
    if (text.starts_with("\r\n")) text.remove_prefix(1);
    if (!text.empty()) text.remove_prefix(1);
    return line;
}

// How much of a line fits into a width: whole words; where not even one does, whole characters, at least one.
size_t FittingBytes(RealisedFont& font, std::string_view line, INT width) {
    const CodePage& page = CurrentCodePage();
    size_t characters = 0;
    size_t words = 0;
    for (size_t at = 0; at < line.size();) {
        const size_t next = at + CharacterBytes(page, &line[at], line.size() - at);
        if (line[at] == ' ' && at > 0) words = at;
        const bool fits = font.Lay(line.substr(0, next), nullptr).width <= width;
        if (!fits && line[at] != ' ') return words > 0 ? words : std::max(characters, next - at);
        if (next - at == 2) words = next;  // a line may end behind any of these
        characters = next;
        at = next;
    }
    return line.size();
}

// A prefix sign marks the character behind it, which isn't underlined here; two of them are one.
std::string WithoutPrefixes(std::string_view text) {
    const CodePage& page = CurrentCodePage();
    std::string plain;
    for (size_t at = 0; at < text.size();) {
        if (text[at] == '&' && at + 1 < text.size()) ++at;
        const size_t bytes = CharacterBytes(page, &text[at], text.size() - at);
        plain += text.substr(at, bytes);
        at += bytes;
    }
    return plain;
}

std::vector<std::string_view> BreakLines(RealisedFont& font, std::string_view text, INT width, UINT format) {
    if ((format & DT_SINGLELINE) != 0) return {text};
    std::vector<std::string_view> lines;
    while (!text.empty()) {
        std::string_view line = TakeLine(text);
        while ((format & DT_WORDBREAK) != 0) {
            const size_t fitting = FittingBytes(font, line, width);
            if (fitting == line.size()) break;
            lines.push_back(line.substr(0, fitting));
            line.remove_prefix(fitting);
            while (line.starts_with(' ')) line.remove_prefix(1);
        }
        lines.push_back(line);
    }
    return lines;
}

INT WidestOf(RealisedFont& font, const std::vector<std::string_view>& lines) {
    INT widest = 0;
    for (const std::string_view line : lines) widest = std::max(widest, font.Lay(line, nullptr).width);
    return widest;
}

INT TopOf(const RECT& device, INT height, UINT format) {
    if ((format & DT_SINGLELINE) == 0) return device.top;
    if ((format & DT_VCENTER) != 0) return device.top + (device.bottom - device.top - height) / 2;
    return (format & DT_BOTTOM) != 0 ? device.bottom - height : device.top;
}

// Draws a line at a place in pixels, whatever the context's alignment.
void DrawPlaced(HDC dc, GdiContext& context, std::string_view line, POINT device, const RECT* clip) {
    const UINT align = std::exchange(context.state.textAlign, UINT{TA_LEFT | TA_TOP});
    const POINT at = HostToLogical(context, device);
    ExtTextOutA(dc, at.x, at.y, clip != nullptr ? ETO_CLIPPED : 0, clip, line.data(), static_cast<UINT>(line.size()),
                nullptr);
    context.state.textAlign = align;
}

INT LeftOf(const RECT& device, INT width, UINT format) {
    if ((format & DT_CENTER) != 0) return device.left + (device.right - device.left - width) / 2;
    return (format & DT_RIGHT) != 0 ? device.right - width : device.left;
}

// Makes a rectangle as large as a text: its height, and on a single line its width.
void FitRect(const GdiContext& context, RECT* rect, RECT device, INT width, INT height) {
    device.right = device.left + width;
    device.bottom = device.top + height;
    const POINT corner = HostToLogical(context, POINT{device.right, device.bottom});
    rect->right = corner.x;
    rect->bottom = corner.y;
}

// ---- tabs -----------------------------------------------------------------------------------------------------------

constexpr INT kDefaultTab = 8;  // average characters

// The next stop past a place, in pixels.
class TabStops {
  public:
    TabStops(const GdiContext& context, const RealisedFont& font, const INT* positions, INT count)
        : default_(std::max<INT>(1, kDefaultTab * font.Metric().tmAveCharWidth)) {
        for (INT i = 0; i < count; ++i) stops_.push_back(HostWidthToDevice(context, positions[i]));
        if (count == 1 && stops_[0] > 0) {  // a single one tells the distance of all
            default_ = stops_[0];
            stops_.clear();
        }
    }

    INT After(INT place) const {
        for (const INT stop : stops_) {
            if (stop > place) return stop;
        }
        return (place / default_ + 1) * default_;
    }

  private:
    std::vector<INT> stops_;
    INT default_;
};

INT TabbedWidth(RealisedFont& font, std::string_view text, const TabStops& stops) {
    INT width = 0;
    for (;;) {
        const size_t tab = std::min(text.find('\t'), text.size());
        width += font.Lay(text.substr(0, tab), nullptr).width;
        if (tab == text.size()) return width;
        width = stops.After(width);
        text.remove_prefix(tab + 1);
    }
}

}  // namespace

INT DrawTextA(HDC dc, LPCSTR text, INT bytes, RECT* rect, UINT format) {
    const auto context = HostFindContext(dc);
    if (context == nullptr || text == nullptr || rect == nullptr) return 0;
    RealisedFont* font = HostRealiseFont(*context);
    if (font == nullptr) return 0;
    const std::string_view whole = HostTextOf(text, bytes);
    const std::string plain = (format & DT_NOPREFIX) != 0 ? std::string(whole) : WithoutPrefixes(whole);
    const RECT device = HostToDevice(*context, *rect);
    const auto lines = BreakLines(*font, plain, device.right - device.left, format);
    const INT lineHeight = font->Metric().tmHeight;
    const INT height = lineHeight * static_cast<INT>(lines.size());
    if ((format & DT_CALCRECT) != 0) {
        FitRect(*context, rect, device, WidestOf(*font, lines), height);
    } else {
        const RECT logical = *rect;
        INT top = TopOf(device, height, format);
        for (const std::string_view line : lines) {
            const INT left = LeftOf(device, font->Lay(line, nullptr).width, format);
            DrawPlaced(dc, *context, line, {left, top}, (format & DT_NOCLIP) != 0 ? nullptr : &logical);
            top += lineHeight;
        }
    }
    return HostHeightToLogical(*context, height);
}

DWORD GetTabbedTextExtentA(HDC dc, LPCSTR text, INT bytes, INT stops, const INT* positions) {
    const auto context = HostFindContext(dc);
    if (context == nullptr || text == nullptr || bytes < 0 || (stops > 0 && positions == nullptr)) return 0;
    RealisedFont* font = HostRealiseFont(*context);
    if (font == nullptr) return 0;
    const TabStops tabs(*context, *font, positions, std::max(0, stops));
    const INT width = HostWidthToLogical(*context, TabbedWidth(*font, HostTextOf(text, bytes), tabs));
    const INT height = HostHeightToLogical(*context, font->Metric().tmHeight);
    return static_cast<DWORD>(width & 0xFFFF) | static_cast<DWORD>(height & 0xFFFF) << 16;
}
