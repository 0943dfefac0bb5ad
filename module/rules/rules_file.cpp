// How the values of the rules file are taken apart, and the sections that are read at each use.
#include "rules/rules_file.h"

#include <cstring>

#include "rules/rule_text.h"
#include "sheet/rules_path.h"

namespace kvui {

void ReadToken(const char*& text, char stop, char* field, size_t fieldSize) {
    const char* end = std::strchr(text, stop);
    const size_t length = end != nullptr ? static_cast<size_t>(end - text) : std::strlen(text);
    if (fieldSize > 0) {
        const size_t copied = length < fieldSize ? length : fieldSize - 1;
        std::memcpy(field, text, copied);
        field[copied] = '\0';
    }
    text += length + (end != nullptr ? 1 : 0);
}

int ReadCommaNumbers(const char* text, LONG* numbers, int capacity) {
    int count = 0;
    while (count < capacity) {
        const char* comma = std::strchr(text, ',');
        const LONG number = NumberOf(text);  // stops at the comma by itself
        if (comma == nullptr) {
            if (number != 0) numbers[count++] = number;
            break;
        }
        numbers[count++] = number;
        text = comma + 1;
    }
    return count;
}

BOOL ReadEditAttribute(const char* controlName, LONG* maxCharacters, LONG* minimum, LONG* maximum) {
    char line[256];
    GetPrivateProfileStringA("EditAttribute", controlName, "", line, sizeof line, RulesFilePath());
    LONG numbers[4];
    if (ReadCommaNumbers(line, numbers, 4) != 3) return FALSE;
    *maxCharacters = numbers[0];
    *minimum = numbers[1];
    *maximum = numbers[2];
    return TRUE;
}

}  // namespace kvui
