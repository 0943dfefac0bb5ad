// Conflict check and resolution. The pages call ResolveConflicts after a control's new value is in
// the record; each forced target is checked in turn.
#include "rules/conflicts.h"

#include "rules/conflict_check.h"
#include "settings/booklet.h"

namespace kvui {
namespace {

// Rules may force each other in a circle. A control that is being checked already is not checked
// again inside that check, and a chain of forced controls ends after this many: what has been
// forced so far stands.
constexpr int kMaxChain = 16;
// And one choice asks at most this often, whatever the rules branch into; then the check refuses as
// if the user had cancelled.
constexpr int kMaxQuestions = 64;

// One level of the chain of checks, on the stack of its check.
struct ChainLink {
    DWORD controlId;
    const ChainLink* outer;
    int depth;
};

bool IsOnChain(const ChainLink* link, DWORD controlId) {
    for (; link != nullptr; link = link->outer) {
        if (link->controlId == controlId) return true;
    }
    return false;
}

class ConflictCheck {
 public:
    ConflictCheck(SheetContext& context, ConflictValues& values, HWND owner)
        : context_(context), values_(values), owner_(owner) {}

    int Check(DWORD controlId, const ChainLink* outer) {
        const ControlRules* rules = RulesOfControl(context_, controlId);
        LONG entryValue;
        if (rules == nullptr || rules->rules.empty() || !values_.Read(rules->where, &entryValue)) {
            return 1;
        }
        const ChainLink link = {controlId, outer, outer != nullptr ? outer->depth + 1 : 0};
        int result = 1;
        for (const ParsedRule& rule : rules->rules) {
            if (!Holds(*rules, rule)) continue;
            for (std::uint32_t i = 0; i < rule.targetCount; ++i) {
                const ParsedTarget& target = rules->targets[rule.firstTarget + i];
                LONG targetValue;
                if (!Conflicts(*rules, target, &targetValue)) continue;
                if (!UserResolves(*rules, target, targetValue)) {
                    values_.Write(rules->where, entryValue);
                    return 0;
                }
                Force(target, targetValue);
                result = CheckForced(target, link);
            }
        }
        return result;
    }

 private:
    bool Holds(const ControlRules& rules, const ParsedRule& rule) const {
        if (!values_.Applies(rule)) return false;
        LONG value;
        return values_.Read(rules.where, &value) &&
               MatchCondition(rule.negate, value, rule.trigger, *rules.where.item);
    }

    bool Conflicts(const ControlRules& rules, const ParsedTarget& target, LONG* value) const {
        if (target.where.item == nullptr || !values_.Read(target.where, value)) return false;
        return GroupsHold(rules, target, *value) && !values_.IsWaived(target);
    }

    static bool GroupsHold(const ControlRules& rules, const ParsedTarget& target, LONG value) {
        const ConditionSet* group = rules.groups.data() + target.firstGroup;
        const ConditionSet* end = group + target.groupCount;
        const bool all = target.all != 0;
        for (; group != end; ++group) {
            if (MatchCondition(target.negate, value, *group, *target.where.item) != all)
                return !all;
        }
        return all;
    }

    bool UserResolves(const ControlRules& rules, const ParsedTarget& target, LONG targetValue) {
        if (++questions_ > kMaxQuestions) return false;
        LONG triggerValue = 0;
        values_.Read(rules.where, &triggerValue);
        return AskConflictResolution(owner_, context_, target.negate, target.all,
                                     rules.where.item->controlId, triggerValue,
                                     target.where.item->controlId, targetValue,
                                     target.forcedValue) == 1;
    }

    void Force(const ParsedTarget& target, LONG current) {
        LONG value = target.forcedValue;
        if (target.where.item->type == kItemMaskList) {
            value = target.negate != 0 ? current | value : current & ~value;
        }
        values_.Write(target.where, value);
        values_.AfterForcing();
    }

    int CheckForced(const ParsedTarget& target, const ChainLink& link) {
        const DWORD id = target.where.item->controlId;
        if (link.depth + 1 >= kMaxChain || IsOnChain(&link, id)) return 1;
        return Check(id, &link);
    }

    SheetContext& context_;
    ConflictValues& values_;
    HWND owner_;
    int questions_ = 0;
};

// The settings record, as the property pages and their sub-dialogs see it.
class RecordValues final : public ConflictValues {
 public:
    explicit RecordValues(SheetContext& context) : context_(context) {}

    bool Read(const ItemField& where, LONG* value) const override {
        return ReadItemField(context_.settings, where, value);
    }
    void Write(const ItemField& where, LONG value) override {
        WriteItemValue(context_.settings, *where.item, static_cast<DWORD>(value), nullptr);
    }
    bool Applies(const ParsedRule& rule) const override { return rule.kind != kKindGrayOut; }
    bool IsWaived(const ParsedTarget& target) const override {
        return target.additionalKey[0] != '\0' &&
               EvaluateAddCondition(context_, target.additionalKey);
    }
    void AfterForcing() override { DropForcedBinding(*context_.privateSettings); }

 private:
    SheetContext& context_;
};

}  // namespace

int CheckConflicts(SheetContext& context, ConflictValues& values, DWORD controlId, HWND owner) {
    return ConflictCheck(context, values, owner).Check(controlId, nullptr);
}

int ResolveConflicts(SheetContext& context, DWORD controlId, HWND page) {
    RecordValues values(context);
    return CheckConflicts(context, values, controlId, page);
}

int CountConflictRules(SheetContext& context, DWORD controlId) {
    const ControlRules* rules = RulesOfControl(context, controlId);
    return rules != nullptr ? static_cast<int>(rules->rules.size()) : 0;
}

}  // namespace kvui
