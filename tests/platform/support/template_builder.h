// Builds binary dialog templates in memory, in the classic or the extended layout. Used by tests
// that need a dialog without compiled resources.
#pragma once

#include <windows.h>

#include <string_view>
#include <vector>

namespace kv {

class TemplateBuilder {
 public:
    enum class Layout { kClassic, kExtended };

    explicit TemplateBuilder(DWORD style, std::string_view title = "", DWORD exStyle = 0,
                             Layout layout = Layout::kClassic, SIZE units = {200, 100})
        : layout_(layout) {
        if (layout_ == Layout::kExtended) {
            Word(1).Word(0xFFFF).Dword(0).Dword(exStyle).Dword(style);
        } else {
            Dword(style).Dword(exStyle);
        }
        countAt_ = bytes_.size();
        Word(0).Word(10).Word(20).Word(units.cx).Word(units.cy);
        Word(0).Word(0).Text(title);  // no menu, the usual class
        if ((style & DS_SETFONT) == 0) return;
        Word(9);
        if (layout_ == Layout::kExtended) Word(FW_BOLD).Word(0);
        Text("Liberation Sans");
    }

    // `data` is what the control finds behind its creation parameter.
    TemplateBuilder& Add(std::string_view className, std::string_view title, UINT id, DWORD style,
                         RECT units = {4, 8, 44, 22}, DWORD exStyle = 0,
                         const std::vector<BYTE>& data = {}) {
        BeginItem(style, exStyle, units, id);
        return Text(className).Text(title).Data(data);
    }
    TemplateBuilder& AddOrdinal(WORD classOrdinal, WORD titleOrdinal, UINT id, DWORD style) {
        BeginItem(style, 0, {0, 0, 20, 20}, id);
        return Word(0xFFFF).Word(classOrdinal).Word(0xFFFF).Word(titleOrdinal).Data({});
    }

    const std::vector<BYTE>& Bytes() const { return bytes_; }

    // The indirect call is not told the length, so the bytes must outlive it only.
    HWND Create(HWND parent, DLGPROC procedure, LPARAM param = 0) const {
        return CreateDialogIndirectParamA(
            nullptr, reinterpret_cast<const DLGTEMPLATE*>(bytes_.data()), parent, procedure, param);
    }

 private:
    void BeginItem(DWORD style, DWORD exStyle, RECT units, UINT id) {
        while (bytes_.size() % 4 != 0) bytes_.push_back(0);
        style |= WS_CHILD | WS_VISIBLE;
        if (layout_ == Layout::kExtended) {
            Dword(0).Dword(exStyle).Dword(style);
        } else {
            Dword(style).Dword(exStyle);
        }
        Word(units.left).Word(units.top).Word(units.right - units.left);
        Word(units.bottom - units.top);
        layout_ == Layout::kExtended ? Dword(id) : Word(static_cast<LONG>(id));
        ++bytes_[countAt_];
    }
    TemplateBuilder& Word(LONG value) {
        bytes_.push_back(static_cast<BYTE>(value));
        bytes_.push_back(static_cast<BYTE>(value >> 8));
        return *this;
    }
    TemplateBuilder& Dword(DWORD value) {
        return Word(static_cast<LONG>(value & 0xFFFF)).Word(static_cast<LONG>(value >> 16));
    }
    TemplateBuilder& Text(std::string_view text) {
        for (char letter : text) Word(static_cast<unsigned char>(letter));
        return Word(0);
    }
    TemplateBuilder& Data(const std::vector<BYTE>& data) {
        const auto counted = layout_ == Layout::kClassic && !data.empty() ? 2 : 0;
        Word(static_cast<LONG>(data.size()) + counted);
        bytes_.insert(bytes_.end(), data.begin(), data.end());
        return *this;
    }

    Layout layout_;
    std::vector<BYTE> bytes_;
    size_t countAt_ = 0;
};

}  // namespace kv
