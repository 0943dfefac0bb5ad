// The text of one "ConflictConditions" line taken apart: trigger, kind and targets. Used by the
// parser of a control's rules and by the builder of the gray-out index.
#pragma once

#include <windows.h>

#include <vector>

#include "rules/condition_set.h"

namespace kvui {

constexpr int kMaxRulesOfControl = 64;
constexpr int kMaxTargetsOfRule = 64;
constexpr int kMaxGroupsOfTarget = 64;
constexpr LONG kKindGrayOut = 1;

struct RuleHead {
    ConditionSet trigger;
    LONG negate;
    LONG kind;
};

enum class ForcedText { kNumber, kDisableOnly };  // the forced value was "H"

struct RuleTarget {
    char name[64];
    LONG negate;
    LONG all;
    LONG forcedValue;
    ForcedText forcedText;
    char additionalKey[64];
    std::vector<ConditionSet> groups;
};

// Reads trigger, negate and kind; `text` then stands at the targets.
RuleHead ReadRuleHead(const char*& text);
// Reads the next target; false when there is none left. Reuses the groups' memory of `target`.
bool ReadRuleTarget(const char*& text, RuleTarget& target);

}  // namespace kvui
