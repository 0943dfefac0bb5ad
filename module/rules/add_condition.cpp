// Additional conditions ("AddCondition"): a second setting or the size of the current paper that
// decides whether a rule's target counts. Called by the conflict check and the gray-out.
#include <kvcore.h>

#include <cstdio>
#include <cstring>

#include "lists/paper_size.h"
#include "rules/conflicts.h"
#include "rules/rule_text.h"
#include "rules/rules_file.h"
#include "settings/item_field.h"
#include "sheet/rules_path.h"

namespace kvui {
namespace {

constexpr LONG kFirstPaperKey = 1000;
constexpr LONG kOutputPaperCode = 0x7FFFFFFF;  // bit 31 only says that an output paper is on
// Paper lines may name a further line; one that leads back to itself ends here.
constexpr int kMaxChainedLines = 16;

struct ControlLine {
    char name[kItemNameSize];
    ConditionSet set;
};

void ReadLine(const char* key, char (&line)[256]) {
    GetPrivateProfileStringA("AddCondition", key, "", line, sizeof line, RulesFilePath());
}

ControlLine ReadControlLine(const char* key) {
    char line[256];
    ReadLine(key, line);
    ControlLine result = {};
    if (std::strchr(line, ',') == nullptr) return result;
    const char* text = line;
    ReadToken(text, ',', result.name, sizeof result.name);
    if (*text == '(') ++text;
    char items[sizeof line];
    ReadToken(text, ')', items, sizeof items);
    for (const char* at = items; *at != '\0';) {
        char item[64];
        ReadToken(at, ',', item, sizeof item);
        ParseConditionItem(result.set, item);
    }
    return result;
}

bool IsSatisfied(const SheetContext& context, const ControlItem& item, const ConditionSet& set) {
    LONG value = 0;
    ReadItemField(context.settings, FieldOfItem(&item), &value);
    return MatchCondition(0, value, set, item);
}

// Whether one of the lines that an AND line lists is not satisfied.
bool AnyListedLineFails(const SheetContext& context, const ConditionSet& keys) {
    for (LONG i = 0; i < keys.count; ++i) {
        char key[16];
        std::snprintf(key, sizeof key, "%d", static_cast<int>(keys.values[i]));
        const ControlLine line = ReadControlLine(key);
        const ControlItem* item = ItemByName(line.name);
        if (item == nullptr || !IsSatisfied(context, *item, line.set)) return true;
    }
    return false;
}

bool EvaluateControlLine(const SheetContext& context, const char* key) {
    const ControlLine line = ReadControlLine(key);
    const ControlItem* item = line.name[0] != '\0' ? ItemByName(line.name) : nullptr;
    if (item != nullptr && item->controlId != 0) return !IsSatisfied(context, *item, line.set);
    if (lstrcmpiA(line.name, "AND") == 0) return AnyListedLineFails(context, line.set);
    return false;
}

struct PaperLine {
    LONG minWidth;
    LONG maxWidth;
    LONG minLength;
    LONG maxLength;
    LONG optionBit;  // 0 for none
    LONG nextKey;    // 0 for none
};

bool ReadPaperLine(const char* key, PaperLine& line) {
    char text[256];
    ReadLine(key, text);
    LONG numbers[7] = {};
    const int count = ReadCommaNumbers(text, numbers, 7);
    if (count < 4 || count > 6) return false;
    line = {numbers[0], numbers[1], numbers[2], numbers[3], numbers[4], numbers[5]};
    return true;
}

bool CurrentPaperSize(const SheetContext& context, PaperSizeInfo& size) {
    const DWORD output = context.privateSettings->mdmOutputPaper;
    const LONG code =
        output != 0 ? static_cast<LONG>(output & kOutputPaperCode) : context.settings->dmPaperSize;
    return PaperSizeOfCode(context, code, size);
}

bool Between(LONG low, LONG value, LONG high) {
    return low <= value && value <= high;
}

// Bounds are tenths of a millimetre; 254 of them make 100 hundredths of an inch.
LONG ToHundredthsOfInch(LONG tenths) {
    return static_cast<LONG>(static_cast<long long>(tenths) * 100 / 254);
}

bool PaperFits(const PaperLine& line, const PaperSizeInfo& size) {
    if (size.unit == kPaperUnitMillimetre) {
        return Between(line.minWidth, size.width, line.maxWidth) &&
               Between(line.minLength, size.length, line.maxLength);
    }
    if (size.unit == kPaperUnitInch) {
        return Between(ToHundredthsOfInch(line.minWidth), size.width,
                       ToHundredthsOfInch(line.maxWidth)) &&
               Between(ToHundredthsOfInch(line.minLength), size.length,
                       ToHundredthsOfInch(line.maxLength));
    }
    return false;
}

bool Evaluate(const SheetContext& context, const char* key, int chained);

bool EvaluatePaperLine(const SheetContext& context, const char* key, int chained) {
    PaperLine line;
    if (!ReadPaperLine(key, line)) return false;
    const DWORD options = context.privateSettings->mdmInstalledOptions;
    if (line.optionBit != 0 && ((options >> (static_cast<DWORD>(line.optionBit) % 32)) & 1) == 0) {
        return true;
    }
    if (line.nextKey != 0) {
        char next[16];
        std::snprintf(next, sizeof next, "%d", static_cast<int>(line.nextKey));
        if (Evaluate(context, next, chained + 1)) return true;
    }
    PaperSizeInfo size = {};
    return CurrentPaperSize(context, size) && PaperFits(line, size);
}

bool Evaluate(const SheetContext& context, const char* key, int chained) {
    if (*key == '\0' || chained == kMaxChainedLines) return false;
    return NumberOf(key) < kFirstPaperKey ? EvaluateControlLine(context, key)
                                          : EvaluatePaperLine(context, key, chained);
}

}  // namespace

bool EvaluateAddCondition(SheetContext& context, const char* key) {
    return Evaluate(context, key, 0);
}

}  // namespace kvui
