// Product name and version in their controls.
#include "support/product_texts.h"

#include <printer_block.h>

#include <cstdio>
#include <cstring>
#include <string>

#include "resources/resource.h"
#include "sheet/fixed_text.h"

namespace kvui {
namespace {

constexpr char kFontProperty[] = "KVProductFont";
constexpr char kBrand[] = "Tessora";
constexpr int kNamePoints = 10;
constexpr int kPointsPerInch = 72;

constexpr WORD kVersion = 1;  // the id of every version resource

// In a version resource the numbers follow this signature: the structure's version, the file's
// version and the product's, each of two words from high to low.
constexpr DWORD kNumbersSignature = 0xFEEF04BD;
constexpr DWORD kProductHigh = 4;
constexpr DWORD kProductLow = 5;

bool ReadProductVersion(HMODULE module, DWORD& high, DWORD& low) {
    const HRSRC found = FindResourceA(module, MAKEINTRESOURCEA(kVersion), RT_VERSION);
    const HGLOBAL loaded = found != nullptr ? LoadResource(module, found) : nullptr;
    const auto* bytes =
        static_cast<const BYTE*>(loaded != nullptr ? LockResource(loaded) : nullptr);
    const DWORD size = bytes != nullptr ? SizeofResource(module, found) : 0;
    for (DWORD at = 0; at + (kProductLow + 1) * sizeof(DWORD) <= size; at += sizeof(DWORD)) {
        DWORD numbers[kProductLow + 1];
        std::memcpy(numbers, bytes + at, sizeof numbers);
        if (numbers[0] != kNumbersSignature) continue;
        high = numbers[kProductHigh];
        low = numbers[kProductLow];
        return true;
    }
    return false;
}

void ShowVersion(const SheetContext& context, HWND dialog) {
    DWORD high = 0;
    DWORD low = 0;
    char format[64] = "";
    if (!ReadProductVersion(context.resources, high, low) ||
        LoadStringA(context.strings, IDC_ST_VERSION, format, sizeof format) == 0) {
        return;
    }
    char text[128];
    std::snprintf(text, sizeof text, format, HIWORD(high), LOWORD(high), HIWORD(low), LOWORD(low));
    SetDlgItemTextA(dialog, IDC_ST_VERSION, text);
}

void ShowName(const SheetContext& context, HWND control) {
    std::string name = context.printer->modelName;
    const std::size_t brand = name.find(kBrand);
    if (brand != std::string::npos) name.insert(brand + sizeof kBrand - 1, "(R)");
    SetWindowTextA(control, name.c_str());
}

void EnlargeName(HWND dialog, HWND control) {
    LOGFONTA font{};
    const auto own = reinterpret_cast<HFONT>(SendMessageA(control, WM_GETFONT, 0, 0));
    if (GetObjectA(own, sizeof font, &font) == 0) return;
    const HDC dc = GetDC(control);
    font.lfHeight = -MulDiv(kNamePoints, GetDeviceCaps(dc, LOGPIXELSY), kPointsPerInch);
    ReleaseDC(control, dc);
    font.lfWeight = FW_BOLD;
    CopyText(font.lfFaceName, "MS Sans Serif");
    const HFONT bold = CreateFontIndirectA(&font);
    if (bold == nullptr) return;
    SetPropA(dialog, kFontProperty, bold);
    SendMessageA(control, WM_SETFONT, reinterpret_cast<WPARAM>(bold), TRUE);
}

}  // namespace

void ShowProductTexts(const SheetContext& context, HWND dialog) {
    ShowVersion(context, dialog);
    const HWND name = GetDlgItem(dialog, IDC_ST_PRODUCT_NAME);
    if (name == nullptr) return;
    ShowName(context, name);
    if (GetPropA(dialog, kFontProperty) == nullptr) EnlargeName(dialog, name);
}

void ReleaseProductTexts(HWND dialog) {
    const auto font = static_cast<HFONT>(RemovePropA(dialog, kFontProperty));
    if (font != nullptr) DeleteObject(font);
}

}  // namespace kvui
