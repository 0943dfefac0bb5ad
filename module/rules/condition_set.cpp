// Parsing of condition items and the test of a value against a condition set. Called for every rule
// that is checked, so the test neither allocates nor calls out.
#include "rules/condition_set.h"

#include <cstring>

#include "rules/rule_text.h"

namespace kvui {
namespace {

constexpr char kBlanks[] = " \t";
constexpr LONG kOpenEnd = 32767;  // "20-" means 20 to this

bool HasRange(const ConditionSet& set) {
    return set.high != 0;
}

bool InRange(LONG value, const ConditionSet& set) {
    return set.low <= value && value <= set.high;
}

bool MatchesWholeValue(LONG value, const ConditionSet& set) {
    if (HasRange(set) && InRange(value, set)) return true;
    for (LONG i = 0; i < set.count; ++i) {
        if (set.values[i] == value) return true;
    }
    return false;
}

bool MatchesBitNumbers(LONG value, const ConditionSet& set) {
    if (HasRange(set)) return InRange(value, set);
    for (LONG i = 0; i < set.count; ++i) {
        if ((static_cast<DWORD>(value) >> (static_cast<DWORD>(set.values[i]) % 32)) & 1)
            return true;
    }
    return false;
}

}  // namespace

void ParseConditionItem(ConditionSet& set, const char* text) {
    const char* hyphen = std::strchr(text, '-');
    if (hyphen != nullptr) {
        // A number stops at the hyphen by itself, so the text before it needs no copy; but blanks
        // alone are no number, and the hyphen must not become its sign.
        set.low = text + std::strspn(text, kBlanks) == hyphen ? 0 : NumberOf(text);
        set.high = hyphen[1] == '\0' ? kOpenEnd : NumberOf(hyphen + 1);
        return;
    }
    if (set.count < kMaxConditionValues) set.values[set.count++] = NumberOf(text);
}

bool MatchCondition(LONG negate, LONG value, const ConditionSet& set, const ControlItem& item) {
    bool satisfied = false;
    switch (item.type) {
        case kItemEdit:
        case kItemCombo:
        case kItemRadio:
        case kItemCheck:
        case kItemList:
        case kItemSavedCombo:
            satisfied = item.maskMode == kMaskWholeField || item.maskMode == kMaskValues
                            ? MatchesWholeValue(value, set)
                            : MatchesBitNumbers(value, set);
            break;
        case kItemMaskList:
        case kItemSavedList:
            satisfied = (value & set.low) != 0;
            break;
        default:
            return false;  // also when negated: such a control has no value to speak of
    }
    return satisfied != (negate != 0);
}

}  // namespace kvui
