// What the sheet keeps of the rules in parsed form: each control's conflict rules, parsed at the
// first check of the control, and the gray-out index resolved to catalogue rows and fields. The
// caches do not change while the sheet is open, so parsing once gives what parsing each time would.
// Used by the conflict check and the gray-out; freed with the caches.
#pragma once

#include <windows.h>

#include <cstdint>
#include <memory>
#include <unordered_map>
#include <vector>

#include "rules/rule_grammar.h"
#include "rules/rules_cache.h"
#include "settings/item_field.h"
#include "sheet/sheet_context.h"

namespace kvui {

struct ParsedTarget {
    ItemField where;
    LONG negate;
    LONG all;
    LONG forcedValue;
    std::uint32_t firstGroup;  // in ControlRules::groups
    std::uint32_t groupCount;
    char additionalKey[64];
};

struct ParsedRule {
    LONG kind;
    LONG negate;
    std::uint32_t firstTarget;  // in ControlRules::targets
    std::uint32_t targetCount;
    ConditionSet trigger;
};

struct ControlRules {
    ItemField where;
    std::vector<ParsedRule> rules;
    std::vector<ParsedTarget> targets;
    std::vector<ConditionSet> groups;
};

// The gray-out index with its names resolved; positions are those of the index.
struct GrayOutPlan {
    struct Entry {
        ItemField target;  // the first row of the target's name
        bool optionsDecide;  // the rules file has a line of options for it
        ItemField triggers[kMaxGrayOutRecords];
    };
    std::int8_t entryOfRow[kMostCatalogueRows];  // by the row's gray-out key; -1 for none
    std::vector<Entry> entries;
};

struct ParsedRules {
    std::unordered_map<DWORD, ControlRules> controls;
    std::unique_ptr<GrayOutPlan> grayOut;
};

// Both answer null when the sheet has no caches yet.
const ControlRules* RulesOfControl(SheetContext& context, DWORD controlId);
const GrayOutPlan* GrayOutPlanOf(SheetContext& context, const GrayOutIndex& index);
void FreeParsedRules(SharedSheet& shared);

// The value that a target is set to: for paper sizes the regional default stands for every forced
// value but 0, and kForcedNothing for "H" in a gray-out rule.
LONG ForcedValueOf(SheetContext& context, const RuleTarget& target);

}  // namespace kvui
