// Show-by-option: which entries and controls the installed options leave, and the controls that a
// model hides for good. Read from the file at each use by the refresh walk and the list fillers.
#include "rules/gray_out.h"

#include <cstring>

#include "rules/rule_text.h"
#include "rules/rules_file.h"
#include "sheet/rules_path.h"

namespace kvui {
namespace {

constexpr char kSection[] = "ShowItemAccordingToOption";
constexpr char kAbsent[] = "NON";
constexpr DWORD kLineSize = 128;
constexpr int kFieldCount = 4;
constexpr int kMaxNumbersPerField = 25;

enum class Option { kInstalled, kMissing };

// The four fields of a line: which state of a listed option decides, and what it decides.
constexpr struct {
    Option decidingState;
    int shown;
} kFieldMeanings[kFieldCount] = {
    {Option::kInstalled, 1},
    {Option::kInstalled, 0},
    {Option::kMissing, 1},
    {Option::kMissing, 0},
};

struct OptionNumbers {
    int count;
    LONG numbers[kMaxNumbersPerField];
    LONG first() const { return count > 0 ? numbers[0] : 0; }
};

OptionNumbers ReadOptionNumbers(const char*& line) {
    char field[kLineSize];
    ReadToken(line, ',', field, sizeof field);
    OptionNumbers result;
    result.count = 0;
    for (const char* text = field; *text != '\0' && result.count < kMaxNumbersPerField;) {
        char number[kLineSize];
        ReadToken(text, '/', number, sizeof number);
        result.numbers[result.count++] = NumberOf(number);
    }
    return result;
}

bool AnyInState(const OptionNumbers& options, Option state, DWORD installed) {
    for (int i = 0; i < options.count; ++i) {
        if (options.numbers[i] == 0) continue;
        const bool isInstalled = (installed >> (static_cast<DWORD>(options.numbers[i]) % 32)) & 1;
        if (isInstalled == (state == Option::kInstalled)) return true;
    }
    return false;
}

void ReadLine(const char* key, const char* absent, char (&line)[kLineSize]) {
    GetPrivateProfileStringA(kSection, key, absent, line, sizeof line, RulesFilePath());
}

// What to do with the windows of a control; ids of 0 are passed over.
struct Hider {
    HWND dialog;

    // True when it was hidden before.
    bool Hide(DWORD controlId) const {
        if (controlId == 0) return true;
        return !ShowWindow(GetDlgItem(dialog, static_cast<int>(controlId)), SW_HIDE);
    }
};

void HideCompanions(const Hider& hider, const ControlItem& item) {
    hider.Hide(item.pictureId);
    if (item.type == kItemRadio) {
        for (const RadioItem& button : RadioButtons(item)) hider.Hide(button.buttonId);
    }
    if (item.type == kItemSlider && item.slider != nullptr) {
        hider.Hide(item.slider->valueEditId);
        hider.Hide(item.slider->minimumTextId);
        hider.Hide(item.slider->maximumTextId);
        hider.Hide(item.slider->spinId);
    }
    if (item.type == kItemEdit && item.edit != nullptr) {
        hider.Hide(item.edit->spinId);
        hider.Hide(item.edit->rangeTextId);
    }
}

}  // namespace

bool HasOptionLine(const char* key) {
    char line[kLineSize];
    if (*key != '\0') ReadLine(key, kAbsent, line);
    return *key != '\0' && std::strcmp(line, kAbsent) != 0;
}

int IsShownByOptions(SheetContext& context, const char* key) {
    if (*key == '\0') return 1;
    char line[kLineSize];
    ReadLine(key, kAbsent, line);
    if (std::strcmp(line, kAbsent) == 0) return 1;

    const DWORD installed = context.privateSettings->mdmInstalledOptions;
    const char* text = line;
    bool anyFirst = false;
    for (const auto& meaning : kFieldMeanings) {
        const OptionNumbers options = ReadOptionNumbers(text);
        if (AnyInState(options, meaning.decidingState, installed)) return meaning.shown;
        anyFirst = anyFirst || options.first() != 0;
    }
    return anyFirst ? 1 : 0;
}

int HideControlByRule(SheetContext& /*context*/, HWND dialog, const ControlItem& item) {
    char line[kLineSize];
    ReadLine(item.controlName, "", line);
    if (line[0] == '\0') return 0;
    const char* text = line;
    for (int i = 0; i < kFieldCount; ++i) {
        if (ReadOptionNumbers(text).first() != 0) return 0;
    }
    const Hider hider = {dialog};
    const bool wasHidden = hider.Hide(item.controlId);
    HideCompanions(hider, item);
    return wasHidden ? 1 : 0;
}

}  // namespace kvui
