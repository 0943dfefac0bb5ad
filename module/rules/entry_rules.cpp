// Rules of the list-entry edit dialogs: the conflict check over a code record's values, and the
// "GrayOutConditions" that leave values out of a control's list.
#include "rules/entry_rules.h"

#include <cstdio>
#include <cstring>
#include <vector>

#include "rules/conflict_check.h"
#include "rules/entry_values.h"
#include "rules/gray_out.h"
#include "rules/rule_text.h"

namespace kvui {
namespace {

constexpr char kAbsent[] = "NON";
constexpr char kEntrySection[] = "GrayOutConditions";
constexpr int kMaxEntryRules = 32;
constexpr int kMaxEntryTargets = 32;
constexpr size_t kMaxEntryGroups = 32;
constexpr LONG kHideControl = 1;

// ---- Conflicts ------------------------------------------------------------------------------

class EntryDialogValues final : public ConflictValues {
 public:
    EntryDialogValues(HWND dialog, CodeRecord* entries) : dialog_(dialog), entries_(entries) {}

    bool Read(const ItemField& where, LONG* value) const override {
        *value = ReadEntryValue(dialog_, *where.item, entries_);
        return true;
    }
    void Write(const ItemField& where, LONG value) override {
        WriteEntryValue(dialog_, *where.item, entries_, value);
    }
    bool Applies(const ParsedRule& /*rule*/) const override { return true; }
    bool IsWaived(const ParsedTarget& /*target*/) const override { return false; }
    void AfterForcing() override {}

 private:
    HWND dialog_;
    CodeRecord* entries_;
};

// ---- Values that may not be offered ---------------------------------------------------------

struct GrayOutTarget {
    char name[32];
    std::vector<ConditionSet> grayed;
    std::vector<ConditionSet> fallback;
    LONG hide;
};

struct GrayOutRule {
    ConditionSet trigger;
    LONG negate;
    std::vector<GrayOutTarget> targets;
};

LONG ReadNumber(const char*& text, char stop) {
    char field[64];
    ReadToken(text, stop, field, sizeof field);
    return NumberOf(field);
}

// A number of items and that many items; surplus ones are read over.
void ReadGroups(const char*& text, std::vector<ConditionSet>& groups) {
    const LONG count = ReadNumber(text, ',');
    for (LONG i = 0; i < count && *text != '\0'; ++i) {
        char item[64];
        ReadToken(text, ',', item, sizeof item);
        if (groups.size() < kMaxEntryGroups) {
            ParseConditionItem(groups.emplace_back(ConditionSet{}), item);
        }
    }
}

void ReadTargets(const char* text, LONG count, std::vector<GrayOutTarget>& targets) {
    for (LONG i = 0; i < count && i < kMaxEntryTargets; ++i) {
        const char* open = std::strchr(text, '(');
        if (open == nullptr) return;
        text = open + 1;
        GrayOutTarget& target = targets.emplace_back();
        ReadToken(text, ',', target.name, sizeof target.name);
        ReadGroups(text, target.grayed);
        ReadGroups(text, target.fallback);
        target.hide = ReadNumber(text, ')');
    }
}

GrayOutRule ParseGrayOutRule(const char* text) {
    GrayOutRule rule = {};
    char item[64];
    ReadToken(text, ',', item, sizeof item);
    const char* begin = item[0] == '(' ? item + 1 : item;
    const size_t length = std::strlen(item);
    if (length > 0 && item[length - 1] == ')') item[length - 1] = '\0';
    ParseConditionItem(rule.trigger, begin);
    rule.negate = ReadNumber(text, ',');
    const LONG count = ReadNumber(text, ',');
    ReadTargets(text, count, rule.targets);
    return rule;
}

bool AnyGroupHolds(const std::vector<ConditionSet>& groups, LONG value, const ControlItem& item) {
    for (const ConditionSet& group : groups) {
        if (MatchCondition(0, value, group, item)) return true;
    }
    return groups.empty();
}

struct Verdict {
    bool refused;
    LONG replacement;
};

Verdict Judge(const GrayOutTarget& target, const ControlItem& item, LONG value, LONG current) {
    switch (item.type) {
        case kItemText:
            return {true, 0};
        case kItemEdit:
        case kItemCombo:
        case kItemRadio:
        case kItemCheck:
        case kItemList:
        case kItemMaskList:
            if (!AnyGroupHolds(target.grayed, value, item)) return {false, 0};
            return {true, AnyGroupHolds(target.fallback, current, item) ? current
                                                                        : target.fallback[0].low};
        default:
            return {false, 0};
    }
}

// The refusal by one rule of row `row`, if there is one.
bool RefusedByRule(const GrayOutRule& rule, const ControlItem& row, LONG rowValue,
                   const ControlItem& item, LONG value, LONG current, LONG* replacement,
                   LONG* hideCounter) {
    if (!MatchCondition(rule.negate, rowValue, rule.trigger, row)) return false;
    for (const GrayOutTarget& target : rule.targets) {
        if (std::strcmp(target.name, item.controlName) != 0) continue;
        const Verdict verdict = Judge(target, item, value, current);
        if (!verdict.refused) continue;
        *replacement = verdict.replacement;
        if (target.hide == kHideControl) ++*hideCounter;
        return true;
    }
    return false;
}

}  // namespace

int ResolveEntryConflicts(HWND dialog, SheetContext& context, DWORD controlId,
                          CodeRecord* entries) {
    EntryDialogValues values(dialog, entries);
    return CheckConflicts(context, values, controlId, dialog);
}

int IsEntryValueAllowed(SheetContext& context, HWND dialog, DWORD controlId, LONG value,
                        LONG* replacement, LONG* hideCounter, const CodeRecord* entries) {
    const ControlItem* item = ItemById(controlId);
    if (item == nullptr) return 1;
    const LONG current = ReadEntryValue(dialog, *item, entries);
    for (const ControlItem& row : kCatalogue) {
        if (row.grayOutKey[0] == '\0') continue;
        LONG rowValue = 0;
        for (int number = 0; number < kMaxEntryRules; ++number) {
            char key[kItemNameSize + 16];
            std::snprintf(key, sizeof key, "%s%d", row.grayOutKey, number);
            char text[1024];
            LookupCachedValue(context, kEntrySection, key, kAbsent, text);
            if (std::strcmp(text, kAbsent) == 0) break;
            if (number == 0) rowValue = ReadEntryValue(dialog, row, entries);
            if (RefusedByRule(ParseGrayOutRule(text), row, rowValue, *item, value, current,
                              replacement, hideCounter)) {
                return 0;
            }
        }
    }
    return 1;
}

}  // namespace kvui
