// The rules file KVUIMOD.ini: the sections that are read from it at each use.
#pragma once

#include <windows.h>

#include <memory>

#include "sheet/sheet_context.h"

namespace kvui {

// Override of an edit's length and range ("EditAttribute"): TRUE when one of exactly three numbers
// was read.
BOOL ReadEditAttribute(const char* controlName, LONG* maxCharacters, LONG* minimum, LONG* maximum);

// One numbered record of a code-range section.
struct CodeRecord {
    LONG code;
    char name[256];
    LONG unit;
    LONG parameters[8];
    char firstText[256];
    char secondText[256];
    LONG editFlag;
    char thirdText[128];
};
constexpr int kMaxCodeRecords = 64;

// Reads the records of a section between its MinCode and MaxCode; answers how many (at most
// kMaxCodeRecords; `records` has room for that many).
int ReadCodeRange(const char* section, CodeRecord* records);
bool HasCodeRange(const char* section);

// The records of a control's list name, to walk once; none without a name. Room for the records is
// left as it comes: most controls have no list, most lists a few records.
class CodeRecords {
 public:
    explicit CodeRecords(const char* section) {
        if (*section == '\0' || !HasCodeRange(section)) return;
        records_ = std::make_unique_for_overwrite<CodeRecord[]>(kMaxCodeRecords);
        count_ = ReadCodeRange(section, records_.get());
    }
    const CodeRecord* begin() const { return records_.get(); }
    const CodeRecord* end() const { return records_.get() + count_; }

 private:
    std::unique_ptr<CodeRecord[]> records_;
    int count_ = 0;
};

// A comma number list: each field followed by a comma counts, the last only when non-zero.
int ReadCommaNumbers(const char* text, LONG* numbers, int capacity);

// Reading a value from left to right: copies up to `stop` (or the rest), skips it, advances `text`.
// `field` is always terminated; longer fields are cut.
void ReadToken(const char*& text, char stop, char* field, size_t fieldSize);

}  // namespace kvui
