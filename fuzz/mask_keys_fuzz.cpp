// Raw keys, selections and texts on a masked edit control under a raw picture: the caret stays inside the text, and
// nothing is read or written outside.
#include "input.h"
#include "support/edit_field.h"

namespace {

constexpr int kKeys[] = {VK_LEFT, VK_RIGHT, VK_HOME, VK_END, VK_DELETE, VK_TAB};

// One step: a byte that says what, and one that says which.
void Step(EditField& field, uint8_t what, uint8_t which) {
    const std::string text(which % 24, static_cast<char>('0' + which % 64));
    const auto wholeText = reinterpret_cast<LPARAM>(text.c_str());
    switch (what % 8) {
        case 3: field.Press(kKeys[which % std::size(kKeys)], what >= 128); break;
        case 4: field.Send(EM_SETSEL, which % 16, which / 16); break;
        case 5: field.Type('\b'); break;
        case 6: field.Send(what >= 128 ? WM_SETTEXT : EM_REPLACESEL, 0, wholeText); break;
        case 7: field.Send(FMT_MASK_SHOW_TEXT, 0, wholeText); break;
        default: field.Type(static_cast<char>(which)); break;
    }
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size) {
    if (size == 0) return 0;
    const uint32_t flags = (data[0] & 3u) * FMT_MASK_REAPPLY;
    const auto* end = static_cast<const uint8_t*>(std::memchr(data, '\n', size));
    if (end == nullptr || end == data || end - data > 40 || size > 400) return 0;
    const std::string picture(data + 1, end);
    EditField field(picture.c_str(), flags);
    for (const uint8_t* step = end + 1; step + 1 < data + size; step += 2) {
        Step(field, step[0], step[1]);
        Require(field.Start() <= field.End() && field.End() <= static_cast<int32_t>(field.Text().size()));
    }
    return 0;
}
