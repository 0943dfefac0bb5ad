// The rules between options, "OptionDependence" and "OptionConflict" of the rules file, read at
// each use. Words are option masks; a rule's option numbers are bit numbers of them.
#include "device/option_changes.h"

#include <cstdio>

#include "device/option_conflict_dialog.h"
#include "rules/rules_file.h"
#include "sheet/rules_path.h"

namespace kvui {
namespace {

constexpr int kNoOption = -1;
constexpr int kLineSize = 256;

struct OptionNumbers {
    LONG numbers[kLineSize];
    int count;
    const LONG* begin() const { return numbers; }
    const LONG* end() const { return numbers + count; }
};

OptionNumbers ReadOptions(const char* section, LONG option) {
    char key[16];
    char line[kLineSize];
    std::snprintf(key, sizeof key, "%d", static_cast<int>(option));
    GetPrivateProfileStringA(section, key, "", line, sizeof line, RulesFilePath());
    OptionNumbers options;
    options.count = ReadCommaNumbers(line, options.numbers, kLineSize);
    return options;
}

OptionNumbers DependencesOf(LONG option) {
    return ReadOptions("OptionDependence", option);
}
OptionNumbers ConflictsOf(LONG option) {
    return ReadOptions("OptionConflict", option);
}

DWORD BitOf(LONG option) {
    return DWORD{1} << (static_cast<DWORD>(option) % 32);
}

DWORD MaskOf(const OptionNumbers& options) {
    DWORD mask = 0;
    for (const LONG option : options) mask |= BitOf(option);
    return mask;
}

int HighestOption(DWORD mask) {
    for (int option = kOptionCount - 1; option >= 0; --option) {
        if ((mask & BitOf(option)) != 0) return option;
    }
    return kNoOption;
}

// Whether one group has all its options installed. A 0 ends a group; the last one needs none.
bool AnyGroupInstalled(const OptionNumbers& options, DWORD installed) {
    bool whole = true;
    bool open = false;  // numbers of a group have been read
    for (const LONG option : options) {
        if (option == 0) {
            if (whole) return true;
            whole = true;
            open = false;
            continue;
        }
        whole = whole && (installed & BitOf(option)) != 0;
        open = true;
    }
    return open && whole;
}

// In order: what an option of the group excludes goes before the option itself comes.
void InstallFirstGroup(const OptionNumbers& options, DWORD& word) {
    for (const LONG option : options) {
        if (option == 0) return;
        word &= ~MaskOf(ConflictsOf(option));
        word |= BitOf(option);
    }
}

// The options that name the removed one among those they need. Number 0 only separates groups.
DWORD DependentsOf(int removed, DWORD installed) {
    DWORD dependents = 0;
    if (removed == 0) return 0;
    for (int option = 0; option < kOptionCount; ++option) {
        if ((installed & BitOf(option)) == 0) continue;
        for (const LONG needed : DependencesOf(option)) {
            if (needed == removed) dependents |= BitOf(option);
        }
    }
    return dependents;
}

OptionPlan PlanInstalling(DWORD installed, DWORD word, int option) {
    OptionPlan plan = {true, word};
    const OptionNumbers needed = DependencesOf(option);
    if (needed.count != 0 && !AnyGroupInstalled(needed, installed)) {
        plan.allowed = false;
        InstallFirstGroup(needed, plan.word);
    }
    const DWORD excluded = MaskOf(ConflictsOf(option));
    if ((installed & excluded) != 0) {
        plan.allowed = false;
        plan.word &= ~excluded;
    }
    CloseOptionDependencies(plan.word, option);
    return plan;
}

// The group to add to the word because an option needs it together with the changed one; 0 for
// none. `installed` is the word when the completion began.
DWORD MissingGroup(const OptionNumbers& options, DWORD installed, int changedOption) {
    DWORD group = 0;
    bool whole = true;
    bool mentioned = false;
    for (const LONG option : options) {
        if (option == 0) {
            if (whole) return 0;
            if (mentioned) return group;
            group = 0;
            whole = true;
            continue;
        }
        mentioned = mentioned || option == changedOption;
        whole = whole && (installed & BitOf(option)) != 0;
        group |= BitOf(option);
    }
    return mentioned ? group : 0;
}

}  // namespace

void CloseOptionDependencies(DWORD& word, int changedOption) {
    const DWORD installed = word;
    for (int option = 0; option < kOptionCount; ++option) {
        if ((installed & BitOf(option)) == 0) continue;
        word |= MissingGroup(DependencesOf(option), installed, changedOption);
    }
}

OptionPlan PlanOptionChange(DWORD installed, DWORD mask, OptionChange change) {
    const bool install = change == OptionChange::kInstall;
    const DWORD word = install ? installed | mask : installed & ~mask;
    const int option = HighestOption(mask);
    if (option == kNoOption) return {true, word};
    if (install) return PlanInstalling(installed, word, option);
    const DWORD dependents = DependentsOf(option, installed);
    return {dependents == 0, word & ~dependents};
}

int ApplyOptionChange(HWND page, SheetContext& context, DWORD mask, OptionChange change) {
    DWORD& installed = context.privateSettings->mdmInstalledOptions;
    const OptionPlan plan = PlanOptionChange(installed, mask, change);
    if (plan.allowed) {
        installed = change == OptionChange::kInstall ? installed | mask : installed & ~mask;
        return 1;
    }
    if (!AskOptionCorrection(page, context, installed, plan.word)) return 0;
    installed = plan.word;
    return 1;
}

}  // namespace kvui
