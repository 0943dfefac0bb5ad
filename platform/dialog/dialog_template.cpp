// The layout of binary dialog templates. All numbers are little-endian, texts are UTF-16 with a
// terminator, and every item begins on a multiple of four bytes.
#include <platform/dialog/dialog.h>
#include <platform/dialog/dialog_template.h>
#include <platform/resource/code_page.h>

#include <algorithm>

namespace kv {
namespace {

constexpr WORD kOrdinalFollows = 0xFFFF;
constexpr WORD kExtendedVersion = 1;
constexpr WORD kExtendedSignature = 0xFFFF;

struct ClassOrdinal {
    WORD ordinal;
    const char* name;
};
constexpr ClassOrdinal kClassOrdinals[] = {
    {0x0080, "BUTTON"},  {0x0081, "EDIT"},      {0x0082, "STATIC"},
    {0x0083, "LISTBOX"}, {0x0084, "SCROLLBAR"}, {0x0085, "COMBOBOX"},
};

}  // namespace

bool DialogTemplateReader::Take(size_t count) {
    if (!broken_ && bytes_.size() - position_ >= count) return true;
    broken_ = true;
    return false;
}

BYTE DialogTemplateReader::Byte() {
    return Take(1) ? bytes_[position_++] : BYTE{0};
}

WORD DialogTemplateReader::Word() {
    if (!Take(2)) return 0;
    const WORD value = MAKEWORD(bytes_[position_], bytes_[position_ + 1]);
    position_ += 2;
    return value;
}

DWORD DialogTemplateReader::Dword() {
    const WORD low = Word();
    return low | (DWORD{Word()} << 16);
}

RECT DialogTemplateReader::Units() {
    RECT units{};
    units.left = Signed();
    units.top = Signed();
    units.right = units.left + Signed();
    units.bottom = units.top + Signed();
    return units;
}

void DialogTemplateReader::Align() {
    const size_t padding = (4 - position_ % 4) % 4;
    if (Take(padding)) position_ += padding;
}

void DialogTemplateReader::Text(std::string& text) {
    text.clear();
    while (const WORD unit = Word()) text.push_back(CodePageCharacter(unit));
}

void DialogTemplateReader::NameOrOrdinal(std::string& text, Ordinals ordinals) {
    if (!Take(2)) return;
    if (MAKEWORD(bytes_[position_], bytes_[position_ + 1]) != kOrdinalFollows) return Text(text);
    Word();
    const WORD ordinal = Word();
    if (ordinals == Ordinals::kResource) {
        text = "#";
        text += std::to_string(ordinal);
        return;
    }
    for (const ClassOrdinal& entry : kClassOrdinals) {
        if (entry.ordinal == ordinal) {
            text = entry.name;
            return;
        }
    }
    broken_ = true;
}

void DialogTemplateReader::Font(DialogHeader& header) {
    header.hasFont = true;
    header.pointSize = Word();
    if (extended_) {
        header.weight = Word();
        header.italic = Byte() != 0;
        header.charset = Byte();
    }
    Text(header.faceName);
}

bool DialogTemplateReader::ReadHeader(DialogHeader& header) {
    if (!Take(4)) return false;
    extended_ = MAKEWORD(bytes_[0], bytes_[1]) == kExtendedVersion &&
                MAKEWORD(bytes_[2], bytes_[3]) == kExtendedSignature;
    if (extended_) {
        Dword();  // version and signature
        Dword();  // help identifier
        header.exStyle = Dword();
        header.style = Dword();
    } else {
        header.style = Dword();
        header.exStyle = Dword();
    }
    header.itemCount = Word();
    header.units = Units();
    std::string menu;
    NameOrOrdinal(menu, Ordinals::kResource);
    NameOrOrdinal(header.className, Ordinals::kResource);
    // The only class that a number may name is the dialog class itself.
    if (header.className.empty() || header.className == "#32770") header.className = kDialogClass;
    Text(header.title);
    if ((header.style & DS_SETFONT) != 0) Font(header);
    return !broken_;
}

bool DialogTemplateReader::ReadItem(DialogItem& item) {
    Align();
    if (extended_) {
        Dword();  // help identifier
        item.exStyle = Dword();
        item.style = Dword();
    } else {
        item.style = Dword();
        item.exStyle = Dword();
    }
    item.units = Units();
    item.id = extended_ ? Dword() : Word();
    NameOrOrdinal(item.className, Ordinals::kClass);
    NameOrOrdinal(item.title, Ordinals::kResource);
    // The classic layout counts the length word in, the extended one does not.
    size_t length = Word();
    if (!extended_ && length >= 2) length -= 2;
    if (!Take(length)) return false;
    item.creationData = bytes_.subspan(position_, length);
    position_ += length;
    return true;
}

bool IsWholeTemplate(std::span<const BYTE> bytes) {
    DialogTemplateReader reader(bytes);
    DialogHeader header;
    if (!reader.ReadHeader(header)) return false;
    DialogItem item;
    for (int i = 0; i < header.itemCount; ++i) {
        if (!reader.ReadItem(item)) return false;
    }
    return true;
}

}  // namespace kv
