// Handles of drawing objects: a slot of a table and a count that tells its users of different times apart. Stock
// objects are made at the first call for one, and stay.
#include "objects.h"

#include <array>
#include <cstring>
#include <mutex>
#include <vector>

#include "font.h"

namespace {

constexpr size_t kMostObjects = 0xFFFF;

struct Slot {
    std::shared_ptr<GdiObject> object;
    uint32_t generation = 1;  // so that no handle is 0
};

struct ObjectTable {
    std::mutex lock;
    std::vector<Slot> slots;
    std::vector<size_t> freeSlots;
};

ObjectTable& Objects() {
    static auto* table = new ObjectTable;  // outlives whoever draws while the process ends
    return *table;
}

HGDIOBJ HandleOf(size_t slot, uint32_t generation) {
    return reinterpret_cast<HGDIOBJ>(static_cast<uintptr_t>(generation) << 16 | slot);
}

// Null for what is no handle. The table is locked.
Slot* SlotOf(ObjectTable& table, HGDIOBJ handle) {
    const auto value = reinterpret_cast<uintptr_t>(handle);
    const size_t index = value & 0xFFFF;
    if (index >= table.slots.size()) return nullptr;
    Slot& slot = table.slots[index];
    return slot.object != nullptr && slot.generation == value >> 16 ? &slot : nullptr;
}

std::shared_ptr<GdiObject> StockFont(LONG points, BYTE pitchAndFamily) {
    LOGFONTA font = {};
    font.lfHeight = -MulDiv(points, 96, 72);
    font.lfWeight = FW_NORMAL;
    font.lfPitchAndFamily = pitchAndFamily;
    return std::make_shared<GdiFont>(font);
}

std::shared_ptr<GdiObject> MakeStockObject(INT object) {
    switch (object) {
        case WHITE_BRUSH: return std::make_shared<GdiBrush>(false, RGB(255, 255, 255));
        case LTGRAY_BRUSH: return std::make_shared<GdiBrush>(false, RGB(192, 192, 192));
        case GRAY_BRUSH: return std::make_shared<GdiBrush>(false, RGB(128, 128, 128));
        case DKGRAY_BRUSH: return std::make_shared<GdiBrush>(false, RGB(64, 64, 64));
        case BLACK_BRUSH: return std::make_shared<GdiBrush>(false, RGB(0, 0, 0));
        case NULL_BRUSH: return std::make_shared<GdiBrush>(true, RGB(0, 0, 0));
        case WHITE_PEN: return std::make_shared<GdiPen>(PS_SOLID, 0, RGB(255, 255, 255));
        case BLACK_PEN: return std::make_shared<GdiPen>(PS_SOLID, 0, RGB(0, 0, 0));
        case NULL_PEN: return std::make_shared<GdiPen>(PS_NULL, 0, RGB(0, 0, 0));
        case ANSI_FIXED_FONT: return StockFont(10, FIXED_PITCH | FF_MODERN);
        case ANSI_VAR_FONT: return StockFont(9, VARIABLE_PITCH | FF_SWISS);
        case SYSTEM_FONT:
        case DEVICE_DEFAULT_FONT: return StockFont(10, VARIABLE_PITCH | FF_SWISS);
        case DEFAULT_GUI_FONT: return StockFont(8, VARIABLE_PITCH | FF_SWISS);
        default: return nullptr;
    }
}

constexpr INT kStockObjects = DEFAULT_GUI_FONT + 1;

std::array<HGDIOBJ, kStockObjects> MakeStockObjects() {
    std::array<HGDIOBJ, kStockObjects> handles = {};
    for (INT object = 0; object < kStockObjects; ++object) {
        const std::shared_ptr<GdiObject> made = MakeStockObject(object);
        if (made == nullptr) continue;
        made->isStock = true;
        handles[static_cast<size_t>(object)] = HostOpenGdiObject(made);
    }
    return handles;
}

}  // namespace

HGDIOBJ HostOpenGdiObject(std::shared_ptr<GdiObject> object) {
    ObjectTable& table = Objects();
    const std::lock_guard guard(table.lock);
    if (table.freeSlots.empty()) {
        if (table.slots.size() >= kMostObjects) {
            SetLastError(ERROR_NOT_ENOUGH_MEMORY);
            return nullptr;
        }
        table.freeSlots.push_back(table.slots.size());
        table.slots.emplace_back();
    }
    const size_t index = table.freeSlots.back();
    table.freeSlots.pop_back();
    Slot& slot = table.slots[index];
    object->handle = HandleOf(index, slot.generation);
    slot.object = std::move(object);
    return slot.object->handle;
}

std::shared_ptr<GdiObject> HostFindGdiObject(HGDIOBJ handle) {
    ObjectTable& table = Objects();
    const std::lock_guard guard(table.lock);
    const Slot* slot = SlotOf(table, handle);
    if (slot != nullptr) return slot->object;
    SetLastError(ERROR_INVALID_HANDLE);
    return nullptr;
}

std::shared_ptr<GdiObject> HostFindGdiObject(HGDIOBJ handle, GdiKind kind) {
    std::shared_ptr<GdiObject> object = HostFindGdiObject(handle);
    if (object != nullptr && object->kind != kind) {
        SetLastError(ERROR_INVALID_HANDLE);
        return nullptr;
    }
    return object;
}

bool HostCloseGdiObject(HGDIOBJ handle) {
    ObjectTable& table = Objects();
    std::shared_ptr<GdiObject> last;  // its end may take a while, and may need the table
    const std::lock_guard guard(table.lock);
    Slot* slot = SlotOf(table, handle);
    if (slot == nullptr) return false;
    last.swap(slot->object);
    ++slot->generation;
    table.freeSlots.push_back(static_cast<size_t>(slot - table.slots.data()));
    return true;
}

HGDIOBJ GetStockObject(INT object) {
    static const std::array<HGDIOBJ, kStockObjects> handles = MakeStockObjects();
    return object >= 0 && object < kStockObjects ? handles[static_cast<size_t>(object)] : nullptr;
}

HPEN CreatePen(INT style, INT width, COLORREF color) {
    return static_cast<HPEN>(HostOpenGdiObject(std::make_shared<GdiPen>(style, width, color)));
}

HBRUSH CreateSolidBrush(COLORREF color) {
    return static_cast<HBRUSH>(HostOpenGdiObject(std::make_shared<GdiBrush>(false, color)));
}

HFONT CreateFontIndirectA(const LOGFONTA* font) {
    if (font == nullptr) return nullptr;
    return static_cast<HFONT>(HostOpenGdiObject(std::make_shared<GdiFont>(*font)));
}

BOOL DeleteObject(HGDIOBJ handle) {
    const std::shared_ptr<GdiObject> object = HostFindGdiObject(handle);
    if (object == nullptr || object->kind == GdiKind::kContext) return FALSE;
    if (!object->isStock) HostCloseGdiObject(handle);
    return TRUE;
}

INT GetObjectA(HGDIOBJ handle, INT bytes, LPVOID record) {
    const std::shared_ptr<GdiFont> font = HostFindGdi<GdiFont>(handle);
    constexpr INT kSize = sizeof(LOGFONTA);
    if (font == nullptr || bytes < 0) return 0;
    if (record == nullptr) return kSize;
    const INT copied = bytes < kSize ? bytes : kSize;
    std::memcpy(record, &font->logicalFont, static_cast<size_t>(copied));
    return copied;
}
