// Reading of "ConflictConditions" lines. A value that ends too early (an unclosed parenthesis, a
// line that was cut) reads as if the missing fields were empty; nothing is read behind its end.
#include "rules/rule_grammar.h"

#include <cstring>

#include "rules/rule_text.h"
#include "rules/rules_file.h"

namespace kvui {
namespace {

constexpr size_t kFieldSize = 64;

LONG ReadNumber(const char*& text, char stop) {
    char field[kFieldSize];
    ReadToken(text, stop, field, sizeof field);
    return NumberOf(field);
}

// The items of a list whose opening parenthesis has been read, up to and with the closing one.
// Handles each item's text; an empty list has no items.
template <typename Handler>
void ReadItems(const char*& text, Handler handle) {
    const char* close = std::strchr(text, ')');
    const char* end = close != nullptr ? close : text + std::strlen(text);
    while (text < end) {
        const auto* comma =
            static_cast<const char*>(std::memchr(text, ',', static_cast<size_t>(end - text)));
        const char* itemEnd = comma != nullptr ? comma : end;
        char item[kFieldSize];
        const size_t length = static_cast<size_t>(itemEnd - text);
        const size_t copied = length < sizeof item ? length : sizeof item - 1;
        std::memcpy(item, text, copied);
        item[copied] = '\0';
        handle(item);
        text = comma != nullptr ? comma + 1 : end;
    }
    text = close != nullptr ? close + 1 : end;
}

}  // namespace

RuleHead ReadRuleHead(const char*& text) {
    RuleHead head = {};
    if (*text == '(') {
        ++text;
        ReadItems(text, [&](const char* item) { ParseConditionItem(head.trigger, item); });
        if (*text != '\0') ++text;  // the comma behind the parenthesis
    } else {
        char item[kFieldSize];
        ReadToken(text, ',', item, sizeof item);
        ParseConditionItem(head.trigger, item);
    }
    head.negate = ReadNumber(text, ',');
    head.kind = ReadNumber(text, ',');
    return head;
}

bool ReadRuleTarget(const char*& text, RuleTarget& target) {
    const char* open = std::strchr(text, '(');
    if (open == nullptr) {
        text += std::strlen(text);
        return false;
    }
    text = open + 1;
    ReadToken(text, ',', target.name, sizeof target.name);
    target.negate = ReadNumber(text, ',');
    target.all = ReadNumber(text, ',');

    target.groups.clear();
    char skipped[1];
    ReadToken(text, '(', skipped, sizeof skipped);
    ReadItems(text, [&](const char* item) {
        if (target.groups.size() == kMaxGroupsOfTarget) return;
        ParseConditionItem(target.groups.emplace_back(ConditionSet{}), item);
    });
    if (*text == ',') ++text;

    // The forced value ends at the target's parenthesis, or at a comma when a key follows.
    const size_t length = std::strcspn(text, ",)");
    char forced[kFieldSize];
    const size_t copied = length < sizeof forced ? length : sizeof forced - 1;
    std::memcpy(forced, text, copied);
    forced[copied] = '\0';
    text += length;
    const bool hasKey = *text == ',';
    if (*text != '\0') ++text;
    target.forcedText =
        std::strcmp(forced, "H") == 0 ? ForcedText::kDisableOnly : ForcedText::kNumber;
    target.forcedValue = NumberOf(forced);

    target.additionalKey[0] = '\0';
    if (hasKey) ReadToken(text, ')', target.additionalKey, sizeof target.additionalKey);
    return true;
}

}  // namespace kvui
