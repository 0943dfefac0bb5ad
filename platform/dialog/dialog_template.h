// Reader of binary dialog templates, both the classic and the extended layout. Dialog creation
// reads every template through it twice: once to see that it is whole, once to create the controls.
#pragma once

#include <windows.h>

#include <span>
#include <string>

namespace kv {

struct DialogHeader {
    DWORD style = 0;
    DWORD exStyle = 0;
    int itemCount = 0;
    RECT units{};  // position and extent in dialog units
    std::string className;
    std::string title;
    bool hasFont = false;
    int pointSize = 0;
    int weight = 0;
    bool italic = false;
    BYTE charset = DEFAULT_CHARSET;
    std::string faceName;
};

struct DialogItem {
    DWORD style = 0;
    DWORD exStyle = 0;
    UINT id = 0;
    RECT units{};
    std::string className;
    std::string title;  // "#123" for a resource given by its number
    std::span<const BYTE> creationData;
};

class DialogTemplateReader {
 public:
    // Reads never leave `bytes`.
    explicit DialogTemplateReader(std::span<const BYTE> bytes) : bytes_(bytes) {}

    // False when the template is cut short or malformed; then nothing more can be read.
    bool ReadHeader(DialogHeader& header);
    bool ReadItem(DialogItem& item);

 private:
    enum class Ordinals { kClass, kResource };

    bool Take(size_t count);
    BYTE Byte();
    WORD Word();
    DWORD Dword();
    int Signed() { return static_cast<SHORT>(Word()); }
    RECT Units();
    void Align();
    void Text(std::string& text);
    void NameOrOrdinal(std::string& text, Ordinals ordinals);
    void Font(DialogHeader& header);

    std::span<const BYTE> bytes_;
    size_t position_ = 0;
    bool extended_ = false;
    bool broken_ = false;
};

// True when header and every item can be read.
bool IsWholeTemplate(std::span<const BYTE> bytes);

}  // namespace kv
