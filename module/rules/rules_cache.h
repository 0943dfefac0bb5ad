// The two sheet-wide caches made from the rules file: the raw sections (RulesCache) and the
// gray-out rules by target (GrayOutIndex). Built once per sheet by LoadSheetRules, then only read.
#pragma once

#include <windows.h>

#include "rules/condition_set.h"
#include "sheet/sheet_context.h"

namespace kvui {

struct RulesRecord {
    char key[64];  // empty ends the section
    char value[1024];
};
constexpr int kMaxRulesRecords = 255;  // one more slot holds the end marker
struct RulesSection {
    char name[64];  // empty ends the cache
    RulesRecord records[kMaxRulesRecords + 1];
};
constexpr int kMaxRulesSections = 64;
struct RulesCache {
    RulesSection sections[kMaxRulesSections];
};

struct GrayOutRecord {
    char ruleKey[64];
    LONG negate;
    ConditionSet trigger;
    LONG additionalCondition;
};
constexpr int kMaxGrayOutRecords = 16;
constexpr int kMaxGrayOutTargets = 64;
constexpr LONG kForcedNothing = -1;  // "H": disable without changing the value
struct GrayOutEntry {
    char targetName[64];
    LONG forcedValue;
    LONG recordCount;
    GrayOutRecord records[kMaxGrayOutRecords];
};
struct GrayOutIndex {
    LONG count;
    GrayOutEntry entries[kMaxGrayOutTargets];
};

// Allocates and fills what the sheet does not have yet.
void LoadRulesCache(SheetContext& context);
void BuildGrayOutIndex(SheetContext& context);
// Frees both caches and the parsed rules (sheet end).
void FreeRulesCaches(SharedSheet& shared);

// Copies `defaultText` to the output first, then the cached value when section and key are found by
// exact name. Output holds at least 1,024 bytes.
void LookupCachedValue(SheetContext& context, const char* section, const char* key,
                       const char* defaultText, char* value);

}  // namespace kvui
