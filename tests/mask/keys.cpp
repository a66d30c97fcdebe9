#include "keys.h"

#include <map>

void Fill(EditField& field, std::string state) {
    const bool isCaret = state.find('|') != std::string::npos;
    const size_t start = state.find(isCaret ? '|' : '[');
    state.erase(start, 1);
    const size_t end = isCaret ? start : state.find(']');
    if (!isCaret) state.erase(end, 1);
    field.Fill(state.c_str(), static_cast<int32_t>(start), static_cast<int32_t>(end));
}

std::string StateOf(const EditField& field) {
    std::string state = field.Text();
    const auto start = static_cast<size_t>(field.Start());
    const auto end = static_cast<size_t>(field.End());
    if (start == end) return state.insert(start, "|");
    return state.insert(end, "]").insert(start, "[");
}

void Strike(EditField& field, const std::string& key) {
    static const std::map<std::string, int> kKeys = {
        {"Delete", VK_DELETE}, {"Left", VK_LEFT}, {"Right", VK_RIGHT}, {"Home", VK_HOME}, {"End", VK_END}};
    constexpr size_t kShift = sizeof "Shift+" - 1;
    const bool shift = key.starts_with("Shift+");
    if (key.size() == 1) {
        field.Type(key[0]);
    } else if (key == "Backspace") {
        field.Type('\b');
    } else {
        field.Press(kKeys.at(shift ? key.substr(kShift) : key), shift);
    }
}
