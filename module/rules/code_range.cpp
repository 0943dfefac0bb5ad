// Code-range sections: numbered records between MinCode and MaxCode that add entries to a control's
// list. Read by the list fillers, the list-entry edit dialog and the texts of the conflicts dialog.
#include <algorithm>
#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <vector>

#include "rules/rule_text.h"
#include "rules/rules_file.h"
#include "sheet/rules_path.h"

namespace kvui {
namespace {

constexpr char kAbsent[] = "NON";
// Ranges up to this are probed key by key; wider ones by a look at the keys that exist, so that a
// range of billions written by mistake does not stop the page.
constexpr long long kProbedRange = 1024;

LONG TokenNumber(const char*& text) {
    char field[32];
    ReadToken(text, ',', field, sizeof field);
    return NumberOf(field);
}

void ParseCodeRecord(LONG code, const char* text, CodeRecord& record) {
    record = {};
    record.code = code;
    ReadToken(text, ',', record.name, sizeof record.name);
    record.unit = TokenNumber(text);
    for (LONG& parameter : record.parameters) parameter = TokenNumber(text);
    ReadToken(text, ',', record.firstText, sizeof record.firstText);
    ReadToken(text, ',', record.secondText, sizeof record.secondText);
    record.editFlag = TokenNumber(text);
    ReadToken(text, ',', record.thirdText, sizeof record.thirdText);
}

bool ReadBound(const char* section, const char* key, LONG& bound) {
    char text[128];
    GetPrivateProfileStringA(section, key, kAbsent, text, sizeof text, RulesFilePath());
    if (std::strcmp(text, kAbsent) == 0) return false;
    bound = NumberOf(text);
    return true;
}

bool ReadRecord(const char* section, LONG code, CodeRecord& record) {
    char key[16];
    std::snprintf(key, sizeof key, "%i", static_cast<int>(code));
    char text[256];
    GetPrivateProfileStringA(section, key, kAbsent, text, sizeof text, RulesFilePath());
    if (std::strcmp(text, kAbsent) == 0) return false;
    ParseCodeRecord(code, text, record);
    return true;
}

// The codes of the range that the section has keys for, ascending.
std::vector<LONG> PresentCodes(const char* section, LONG lowest, LONG highest) {
    std::vector<char> lines(32767);
    GetPrivateProfileSectionA(section, lines.data(), static_cast<DWORD>(lines.size()),
                              RulesFilePath());
    std::vector<LONG> codes;
    for (const char* line = lines.data(); *line != '\0'; line += std::strlen(line) + 1) {
        char* end = nullptr;
        const long long code = std::strtoll(line, &end, 10);
        if (end == line || code < lowest || code > highest) continue;
        codes.push_back(static_cast<LONG>(code));
    }
    std::sort(codes.begin(), codes.end());
    codes.erase(std::unique(codes.begin(), codes.end()), codes.end());
    return codes;
}

}  // namespace

bool HasCodeRange(const char* section) {
    LONG lowest = 0;
    return ReadBound(section, "MinCode", lowest);
}

int ReadCodeRange(const char* section, CodeRecord* records) {
    LONG lowest = 0;
    LONG highest = 0;
    if (!ReadBound(section, "MinCode", lowest) || !ReadBound(section, "MaxCode", highest)) return 0;
    if (lowest > highest) return 0;

    int count = 0;
    if (static_cast<long long>(highest) - lowest < kProbedRange) {
        for (long long code = lowest; code <= highest && count < kMaxCodeRecords; ++code) {
            if (ReadRecord(section, static_cast<LONG>(code), records[count])) ++count;
        }
        return count;
    }
    for (const LONG code : PresentCodes(section, lowest, highest)) {
        if (count == kMaxCodeRecords) break;
        // A key such as "007" is no code: the read by its plain spelling decides.
        if (ReadRecord(section, code, records[count])) ++count;
    }
    return count;
}

}  // namespace kvui
