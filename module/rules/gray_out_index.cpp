// Gray-out rules at work: enabling, disabling and forcing a control during the refresh walk, and
// the buttons of the list dialogs. The walk calls this for every control of a page at every event.
#include <cstdio>
#include <cstring>
#include <functional>

#include "rules/conflicts.h"
#include "rules/gray_out.h"
#include "rules/parsed_rules.h"
#include "settings/reactor.h"
#include "sheet/locked_block.h"

namespace kvui {
namespace {

// Row number of a catalogue row; the catalogue's size for a record that is none of its rows.
size_t RowOf(const ControlItem& item) {
    const std::less<const ControlItem*> before;
    if (before(&item, kCatalogue.data()) || !before(&item, kCatalogue.data() + kCatalogue.size())) {
        return kCatalogue.size();
    }
    return static_cast<size_t>(&item - kCatalogue.data());
}

bool AdditionalConditionHolds(SheetContext& context, LONG key) {
    if (key == 0) return true;
    char text[16];
    std::snprintf(text, sizeof text, "%d", static_cast<int>(key));
    return EvaluateAddCondition(context, text);
}

bool IsGrayed(SheetContext& context, const GrayOutEntry& entry, const GrayOutPlan::Entry& plan) {
    for (LONG i = 0; i < entry.recordCount; ++i) {
        const GrayOutRecord& record = entry.records[i];
        const ItemField& trigger = plan.triggers[i];
        LONG value;
        if (trigger.item == nullptr || !ReadItemField(context.settings, trigger, &value)) continue;
        if (MatchCondition(record.negate, value, record.trigger, *trigger.item) &&
            AdditionalConditionHolds(context, record.additionalCondition)) {
            return true;
        }
    }
    return false;
}

void ForceSetting(SheetContext& context, const ItemField& target, LONG value) {
    if (target.item == nullptr) return;
    WriteItemValue(context.settings, *target.item, static_cast<DWORD>(value), nullptr);
    ReactToForced(context, target.item->controlId);
}

void EnableControl(HWND dialog, DWORD controlId, BOOL enable) {
    if (controlId == 0) return;
    EnableWindow(GetDlgItem(dialog, static_cast<int>(controlId)), enable);
}

// `item` is the control under refresh, `target` the first row of the rule's target name: they
// differ for names that several rows share.
void EnableWithCompanions(HWND dialog, const ControlItem& item, DWORD target, BOOL enable) {
    switch (item.type) {
        case kItemRadio:
            for (const RadioItem& button : RadioButtons(item)) {
                EnableControl(dialog, button.buttonId, enable);
            }
            return;
        case kItemEdit:
            if (item.edit != nullptr) EnableControl(dialog, item.edit->spinId, enable);
            break;
        case kItemSlider:
            if (item.slider == nullptr) break;
            EnableControl(dialog, item.slider->valueEditId, enable);
            EnableControl(dialog, item.slider->minimumTextId, enable);
            EnableControl(dialog, item.slider->maximumTextId, enable);
            EnableControl(dialog, item.slider->spinId, enable);
            break;
        default:
            break;
    }
    EnableControl(dialog, target, enable);
}

// A rule that does not hold gives back only what the installed options leave. Captions and radio
// buttons are enabled whatever their option line says.
bool OptionsAllow(SheetContext& context, const ControlItem& item) {
    return item.type == kItemText || item.type == kItemRadio ||
           IsShownByOptions(context, item.optionKey) == 1;
}

const GrayOutEntry* EntryNamed(const GrayOutIndex& index, const char* name) {
    for (LONG i = 0; i < index.count; ++i) {
        if (std::strcmp(index.entries[i].targetName, name) == 0) return &index.entries[i];
    }
    return nullptr;
}

}  // namespace

int ApplyGrayOutIndex(SheetContext& context, HWND dialog, const ControlItem& item) {
    if (context.shared == nullptr) return 0;
    const LockedBlock<GrayOutIndex> index(context.shared->rules.grayOutIndex);
    const size_t row = RowOf(item);
    if (!index || row == kCatalogue.size()) return 0;
    const GrayOutPlan* plan = GrayOutPlanOf(context, *index.get());
    if (plan == nullptr || plan->entryOfRow[row] < 0) return 0;

    const auto position = static_cast<size_t>(plan->entryOfRow[row]);
    const GrayOutEntry& entry = index->entries[position];
    const GrayOutPlan::Entry& planned = plan->entries[position];
    const ItemField& target = planned.target;
    const bool grayed = IsGrayed(context, entry, planned);
    if (grayed && entry.forcedValue != kForcedNothing) {
        ForceSetting(context, target, entry.forcedValue);
    }
    const bool enable =
        !grayed && (!planned.optionsDecide ||
                    OptionsAllow(context, target.item != nullptr ? *target.item : item));
    EnableWithCompanions(dialog, item, target.item != nullptr ? target.item->controlId : 0,
                         enable ? TRUE : FALSE);
    return grayed ? 1 : 0;
}

int GrayButtonsByList(SheetContext& context, HWND dialog, const char* itemName, LONG value,
                      DWORD controlId, const char* listName) {
    if (context.shared == nullptr) return 0;
    const LockedBlock<GrayOutIndex> index(context.shared->rules.grayOutIndex);
    const GrayOutEntry* entry = index ? EntryNamed(*index.get(), itemName) : nullptr;
    if (entry == nullptr) return 0;

    // The list's rows have no catalogue item of their own: their identifiers are compared as
    // values.
    ControlItem listItem{};
    listItem.type = kItemList;
    listItem.maskMode = kMaskWholeField;
    const size_t listNameLength = std::strlen(listName);
    bool grayed = false;
    for (LONG i = 0; i < entry->recordCount && !grayed; ++i) {
        const GrayOutRecord& record = entry->records[i];
        grayed = std::strncmp(record.ruleKey, listName, listNameLength) == 0 &&
                 MatchCondition(record.negate, value, record.trigger, listItem);
    }
    EnableControl(dialog, controlId, grayed ? FALSE : TRUE);
    return grayed ? 1 : 0;
}

}  // namespace kvui
