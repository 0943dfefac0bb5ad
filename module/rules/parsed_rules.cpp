// Parses the conflict rules of a control from the cache, and resolves the gray-out index.
#include "rules/parsed_rules.h"

#include "rules/gray_out.h"
#include "sheet/rules_path.h"

#include <cstdio>
#include <cstring>


namespace kvui {
namespace {

constexpr char kAbsent[] = "NON";
constexpr char kConflictSection[] = "ConflictConditions";

bool IsPaperTarget(const char* name) {
    return std::strcmp(name, "ComboPaperSize") == 0 || std::strcmp(name, "CBOutPaper") == 0;
}

// A conflict rule has no "H": its text reads as the number 0.
LONG ConflictForcedValue(SheetContext& context, const RuleTarget& target) {
    return target.forcedText == ForcedText::kDisableOnly ? 0 : ForcedValueOf(context, target);
}

void AddTarget(SheetContext& context, ControlRules& into, const RuleTarget& target) {
    ParsedTarget parsed = {};
    parsed.where = FieldOfItem(ItemByName(target.name));
    parsed.negate = target.negate;
    parsed.all = target.all;
    parsed.forcedValue = ConflictForcedValue(context, target);
    parsed.firstGroup = static_cast<std::uint32_t>(into.groups.size());
    parsed.groupCount = static_cast<std::uint32_t>(target.groups.size());
    std::memcpy(parsed.additionalKey, target.additionalKey, sizeof parsed.additionalKey);
    into.groups.insert(into.groups.end(), target.groups.begin(), target.groups.end());
    into.targets.push_back(parsed);
}

void AddRule(SheetContext& context, ControlRules& into, const char* text) {
    const RuleHead head = ReadRuleHead(text);
    ParsedRule rule = {};
    rule.kind = head.kind;
    rule.negate = head.negate;
    rule.trigger = head.trigger;
    rule.firstTarget = static_cast<std::uint32_t>(into.targets.size());
    RuleTarget target = {};
    while (rule.targetCount < kMaxTargetsOfRule && ReadRuleTarget(text, target)) {
        AddTarget(context, into, target);
        ++rule.targetCount;
    }
    into.rules.push_back(rule);
}

void ParseRulesOfControl(SheetContext& context, ControlRules& into) {
    const char* conflictKey = into.where.item->conflictKey;
    if (*conflictKey == '\0') return;
    for (int number = 0; number < kMaxRulesOfControl; ++number) {
        char key[kItemNameSize + 16];
        std::snprintf(key, sizeof key, "%s%d", conflictKey, number);
        char value[sizeof RulesRecord::value];
        LookupCachedValue(context, kConflictSection, key, kAbsent, value);
        if (std::strcmp(value, kAbsent) == 0) return;
        AddRule(context, into, value);
    }
}

ParsedRules& ParsedRulesOf(SharedSheet& shared) {
    if (shared.rules.parsed == nullptr) shared.rules.parsed = new ParsedRules;
    return *shared.rules.parsed;
}

bool IsPrefix(const char* prefix, const char* text) {
    return std::strncmp(text, prefix, std::strlen(prefix)) == 0;
}

// A rule key is the trigger's conflict key and a number, so the trigger is the first row whose name
// the key begins with.
const ControlItem* TriggerOfRuleKey(const char* ruleKey) {
    for (const ControlItem& item : kCatalogue) {
        if (IsPrefix(item.controlName, ruleKey)) return &item;
    }
    return nullptr;
}

std::int8_t EntryNamed(const GrayOutIndex& index, const char* name) {
    for (LONG i = 0; i < index.count; ++i) {
        if (std::strcmp(index.entries[i].targetName, name) == 0) return static_cast<std::int8_t>(i);
    }
    return -1;
}

void ResolveIndex(const GrayOutIndex& index, GrayOutPlan& plan) {
    for (size_t row = 0; row < kCatalogue.size(); ++row) {
        plan.entryOfRow[row] = EntryNamed(index, kCatalogue[row].grayOutKey);
    }
    plan.entries.resize(static_cast<size_t>(index.count));
    for (LONG i = 0; i < index.count; ++i) {
        const GrayOutEntry& entry = index.entries[i];
        GrayOutPlan::Entry& resolved = plan.entries[static_cast<size_t>(i)];
        resolved.target = FieldOfItem(ItemByName(entry.targetName));
        const ControlItem* target = resolved.target.item;
        resolved.optionsDecide = target == nullptr || HasOptionLine(target->optionKey);
        for (LONG k = 0; k < entry.recordCount; ++k) {
            resolved.triggers[k] = FieldOfItem(TriggerOfRuleKey(entry.records[k].ruleKey));
        }
    }
}

}  // namespace

static_assert(kMaxGrayOutTargets <= 127, "entryOfRow holds positions in a byte");

LONG ForcedValueOf(SheetContext& context, const RuleTarget& target) {
    if (target.forcedText == ForcedText::kDisableOnly) return kForcedNothing;
    if (target.forcedValue != 0 && IsPaperTarget(target.name)) {
        return RegionalDefaultPaper(context.printer);
    }
    return target.forcedValue;
}

const ControlRules* RulesOfControl(SheetContext& context, DWORD controlId) {
    if (context.shared == nullptr || context.shared->rules.cache == nullptr) return nullptr;
    ParsedRules& parsed = ParsedRulesOf(*context.shared);
    const auto found = parsed.controls.find(controlId);
    if (found != parsed.controls.end()) return &found->second;
    ControlRules& rules = parsed.controls[controlId];
    rules.where = FieldOfItem(ItemById(controlId));
    if (rules.where.item != nullptr) ParseRulesOfControl(context, rules);
    return &rules;
}

const GrayOutPlan* GrayOutPlanOf(SheetContext& context, const GrayOutIndex& index) {
    if (context.shared == nullptr) return nullptr;
    ParsedRules& parsed = ParsedRulesOf(*context.shared);
    if (parsed.grayOut == nullptr) {
        parsed.grayOut = std::make_unique<GrayOutPlan>();
        ResolveIndex(index, *parsed.grayOut);
    }
    return parsed.grayOut.get();
}

void FreeParsedRules(SharedSheet& shared) {
    delete shared.rules.parsed;
    shared.rules.parsed = nullptr;
}

}  // namespace kvui
