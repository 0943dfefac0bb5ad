// Builds and reads the two sheet-wide caches of the rules file. LoadSheetRules fills them once per
// sheet; the readers of conflict rules and gray-out rules only read.
#include "rules/rules_cache.h"

#include <cstring>
#include <iterator>

#include "rules/parsed_rules.h"
#include "rules/rule_grammar.h"
#include "rules/rule_text.h"
#include "rules/rules_file.h"
#include "sheet/locked_block.h"
#include "sheet/rules_path.h"

namespace kvui {
namespace {

constexpr DWORD kSectionBufferSize = 32767;
constexpr const char* kCachedSections[] = {"ShowItemAccordingToOption", "ConflictConditions"};
// Only the sections in use get memory, and the one slot whose empty name ends them: all 64 would be
// 17 megabytes that nobody looks at.
constexpr size_t kCacheBlockSize =
    (std::size(kCachedSections) + 1) * sizeof(RulesSection) - sizeof(RulesSection::records);
static_assert(std::size(kCachedSections) < kMaxRulesSections);

// The sections arrive as lines, each with its zero, and one more zero behind the last.
const char* NextLine(const char* line) {
    return line + std::strlen(line) + 1;
}

struct SectionLines {
    explicit SectionLines(const char* section) {
        text[0] = text[1] = '\0';
        GetPrivateProfileSectionA(section, text, sizeof text, RulesFilePath());
    }
    char text[kSectionBufferSize];
};

// Splits at the first equals sign; a line without one is a key with an empty value. The key is cut
// to what fits.
const char* SplitLine(const char* line, char* key, size_t keySize) {
    ReadToken(line, '=', key, keySize);
    return line;
}

void FillSection(RulesSection& section, const char* name) {
    CopyText(section.name, name);
    const SectionLines lines(name);
    int count = 0;
    for (const char* line = lines.text; *line != '\0' && count < kMaxRulesRecords;
         line = NextLine(line)) {
        RulesRecord& record = section.records[count++];
        CopyText(record.value, SplitLine(line, record.key, sizeof record.key));
    }
    section.records[count].key[0] = '\0';
}

GrayOutEntry* EntryForTarget(GrayOutIndex& index, const char* name) {
    for (LONG i = 0; i < index.count; ++i) {
        if (std::strcmp(index.entries[i].targetName, name) == 0) return &index.entries[i];
    }
    if (index.count == kMaxGrayOutTargets) return nullptr;
    GrayOutEntry& entry = index.entries[index.count++];
    CopyText(entry.targetName, name);
    return &entry;
}

void AddGrayOutTarget(GrayOutIndex& index, const char* ruleKey, const RuleHead& head,
                      const RuleTarget& target, LONG forcedValue) {
    GrayOutEntry* entry = EntryForTarget(index, target.name);
    if (entry == nullptr || entry->recordCount == kMaxGrayOutRecords) return;
    GrayOutRecord& record = entry->records[entry->recordCount++];
    CopyText(record.ruleKey, ruleKey);
    record.negate = head.negate;
    record.trigger = head.trigger;
    record.additionalCondition = NumberOf(target.additionalKey);
    entry->forcedValue = forcedValue;
}

void IndexLine(SheetContext& context, GrayOutIndex& index, const char* line) {
    if (*line == ';') return;
    char key[sizeof RulesRecord::key];
    const char* text = SplitLine(line, key, sizeof key);
    if (*text != '(') return;
    const RuleHead head = ReadRuleHead(text);
    if (head.kind != kKindGrayOut) return;
    RuleTarget target = {};
    for (int i = 0; i < kMaxTargetsOfRule && ReadRuleTarget(text, target); ++i) {
        AddGrayOutTarget(index, key, head, target, ForcedValueOf(context, target));
    }
}

}  // namespace

void LoadRulesCache(SheetContext& context) {
    SharedSheet& shared = *context.shared;
    if (shared.rules.cache != nullptr) return;
    shared.rules.cache = GlobalAlloc(GHND, kCacheBlockSize);
    const LockedBlock<RulesSection> sections(shared.rules.cache);
    if (!sections) return;
    RulesSection* section = sections.get();
    for (const char* name : kCachedSections) FillSection(*section++, name);
    section->name[0] = '\0';
}

void BuildGrayOutIndex(SheetContext& context) {
    SharedSheet& shared = *context.shared;
    if (shared.rules.grayOutIndex != nullptr) return;
    shared.rules.grayOutIndex = GlobalAlloc(GHND, sizeof(GrayOutIndex));
    const LockedBlock<GrayOutIndex> index(shared.rules.grayOutIndex);
    if (!index) return;
    const SectionLines lines("ConflictConditions");
    for (const char* line = lines.text; *line != '\0'; line = NextLine(line)) {
        IndexLine(context, *index.get(), line);
    }
}

void FreeRulesCaches(SharedSheet& shared) {
    FreeParsedRules(shared);
    if (shared.rules.cache != nullptr) GlobalFree(shared.rules.cache);
    if (shared.rules.grayOutIndex != nullptr) GlobalFree(shared.rules.grayOutIndex);
    shared.rules.cache = nullptr;
    shared.rules.grayOutIndex = nullptr;
}

void LookupCachedValue(SheetContext& context, const char* section, const char* key,
                       const char* defaultText, char* value) {
    constexpr size_t kValueSize = sizeof RulesRecord::value;
    CopyText(value, kValueSize, defaultText);
    if (context.shared == nullptr) return;
    const LockedBlock<RulesSection> sections(context.shared->rules.cache);
    if (!sections) return;
    for (const RulesSection* at = sections.get(); at->name[0] != '\0'; ++at) {
        if (std::strcmp(at->name, section) != 0) continue;
        for (const RulesRecord* record = at->records; record->key[0] != '\0'; ++record) {
            if (std::strcmp(record->key, key) != 0) continue;
            CopyText(value, kValueSize, record->value);
            return;
        }
        return;
    }
}

}  // namespace kvui
