// Runs the folders under cases/: rules.ini (absent: the model's rules), steps.txt and expected.txt.
// A step is one line:
//   set FIELD VALUE          puts a value into the record
//   answer resolve|cancel [N]  answers the next N questions (unanswered ones are cancelled)
//   choose CONTROL VALUE     what a page does: writes, checks conflicts, writes back when refused
//   check CONTROL            checks the control's present value, without the page's write and undo
//   gray CONTROL             runs the control's gray-out rules
//   button ITEM LIST VALUE   grays a button of a list dialog by the selected entry
//   hide CONTROL             hides the control by its line
//   condition KEY            evaluates an additional condition
//   printer                  installs a printer, for steps that ask for sizes of papers
// The output of each step is compared with expected.txt as a whole.
#include <gtest/gtest.h>
#include <test_paths.h>
#include <platform/display/headless.h>
#include <platform/window/input.h>

#include <algorithm>
#include <sstream>
#include <vector>

#include "resources/resource.h"
#include "rules/conflicts.h"
#include "rules/gray_out.h"
#include "tests/module/support/sheet_fixture.h"
#include "tests/support/controls.h"

namespace kvui {
namespace {

namespace fs = std::filesystem;

const fs::path kCases = fs::path(KV_SOURCE_DIR) / "tests/module/rules/cases";

// Stands for any button of a list dialog.
constexpr DWORD kButtonOfList = 4005;

std::string ReadText(const fs::path& path) {
    std::ifstream file(path, std::ios::binary);
    return {std::istreambuf_iterator<char>(file), {}};
}

// A disabled button cannot be pressed: then the dialog is closed.
void Press(HWND dialog, int button) {
    if (!kv::input::Click(GetDlgItem(dialog, button))) kv::input::Close(dialog);
}

// A window with a child for every control that rules may touch.
class ControlWindows {
 public:
    ControlWindows() {
        for (const ControlItem& item : kCatalogue) {
            Add(item.controlId);
            Add(item.pictureId);
            for (const RadioItem& button : RadioButtons(item)) Add(button.buttonId);
            if (item.edit != nullptr) Add(item.edit->spinId), Add(item.edit->rangeTextId);
            if (item.slider != nullptr) {
                Add(item.slider->valueEditId), Add(item.slider->spinId);
                Add(item.slider->minimumTextId), Add(item.slider->maximumTextId);
            }
        }
    }
    ~ControlWindows() { DestroyWindow(window); }

    // "2009 2010" of those that `test` answers 0 for.
    template <typename Test>
    std::string Failing(Test test) const {
        std::string list;
        for (const DWORD id : ids_) {
            if (!test(GetDlgItem(window, static_cast<int>(id)))) list += " " + std::to_string(id);
        }
        return list;
    }
    const HWND window = kvtest::Make("STATIC");

 private:
    void Add(DWORD id) {
        if (id == 0 || std::count(ids_.begin(), ids_.end(), id) != 0) return;
        ids_.push_back(id);
        kvtest::Make("STATIC", window, id);
    }
    std::vector<DWORD> ids_;
};

class CaseRun {
 public:
    explicit CaseRun(const fs::path& folder) {
        const fs::path rules = folder / "rules.ini";
        sheet_.UseRulesAt(fs::exists(rules) ? rules.string()
                                            : std::string(KV_SOURCE_DIR "/models/KVUIMOD.ini"));
        kv::Headless().SetPolicy([this](HWND dialog) { Answer(dialog); });
    }
    ~CaseRun() { kv::Headless().SetPolicy(nullptr); }

    std::string Run(const std::string& steps) {
        std::istringstream lines(steps);
        for (std::string line; std::getline(lines, line);) {
            if (!line.empty() && line[0] != '#') Step(line);
        }
        return output_.str();
    }

 private:
    void Answer(HWND dialog) {
        const std::string answer = next_ < answers_.size() ? answers_[next_] : "cancel";
        ++next_;
        const ConflictReport& report = sheet_.shared.report;
        output_ << "  asked: " << report.triggerName << "=" << report.triggerSelection << ", "
                << report.targetName << "=" << report.targetCurrent << " -> "
                << (report.targetNew[0] != '\0' ? report.targetNew : "(unresolvable)") << ": "
                << answer << "\n";
        Press(dialog, answer == "resolve" ? IDC_BTN_CONFLICT_RESOLVE : IDCANCEL);
    }

    void Choose(const std::string& name, DWORD value) {
        const ControlItem* item = ItemByName(name.c_str());
        ASSERT_NE(item, nullptr) << name;
        std::vector<DWORD> before = Fields();
        DWORD old = 0;
        const bool changed = WriteItemValue(sheet_.context.settings, *item, value, &old);
        if (!Check(name) && changed) RestoreItemField(sheet_.context.settings, *item, old);
        PrintChanges(before);
    }
    bool Check(const std::string& name) {
        const DWORD id = ControlIdByName(name.c_str());
        const bool accepted = ResolveConflicts(sheet_.context, id, nullptr) == 1;
        output_ << "  " << (accepted ? "accepted" : "refused") << "\n";
        return accepted;
    }

    std::vector<DWORD> Fields() const {
        std::vector<DWORD> values;
        for (const SettingField& field : SettingFieldTable)
            values.push_back(sheet_.Get(field.name));
        return values;
    }
    void PrintChanges(const std::vector<DWORD>& before) {
        const std::vector<DWORD> after = Fields();
        for (size_t i = 0; i < after.size(); ++i) {
            if (after[i] == before[i]) continue;
            output_ << "  " << SettingFieldTable[i].name << ": " << before[i] << " -> " << after[i]
                    << "\n";
        }
    }

    void Step(const std::string& line) {
        output_ << line << "\n";
        std::istringstream words(line);
        std::string verb, name, second;
        DWORD value = 0;
        words >> verb >> name;
        if (verb == "printer") {
            sheet_.InstallPrinter();
        } else if (verb == "set") {
            words >> value;
            sheet_.Set(name.c_str(), value);
        } else if (verb == "answer") {
            size_t count = 1;
            if (!(words >> count)) count = 1;
            answers_.insert(answers_.end(), count, name);
        } else if (verb == "choose") {
            words >> value;
            Choose(name, value);
        } else if (verb == "check") {
            const std::vector<DWORD> before = Fields();
            Check(name);
            PrintChanges(before);
        } else if (verb == "condition") {
            output_ << "  "
                    << (EvaluateAddCondition(sheet_.context, name.c_str()) ? "true" : "false")
                    << "\n";
        } else {
            StepOnWindows(verb, name, words);
        }
    }

    void StepOnWindows(const std::string& verb, const std::string& name,
                       std::istringstream& words) {
        const ControlWindows windows;
        const ControlItem* item = ItemByName(name.c_str());
        const std::vector<DWORD> before = Fields();
        int answer = -1;
        if (verb == "button") {
            std::string list;
            LONG value = 0;
            words >> list >> value;
            answer = GrayButtonsByList(sheet_.context, windows.window, name.c_str(), value,
                                       kButtonOfList, list.c_str());
        } else if (verb == "gray" && item != nullptr) {
            answer = ApplyGrayOutIndex(sheet_.context, windows.window, *item);
        } else if (verb == "hide" && item != nullptr) {
            answer = HideControlByRule(sheet_.context, windows.window, *item);
        } else {
            ADD_FAILURE() << "unknown step: " << verb << " " << name;
        }
        const std::string disabled = windows.Failing(IsWindowEnabled);
        const std::string hidden = windows.Failing(IsWindowVisible);
        output_ << "  answer " << answer << "\n";
        if (!disabled.empty()) output_ << "  disabled" << disabled << "\n";
        if (!hidden.empty()) output_ << "  hidden" << hidden << "\n";
        PrintChanges(before);
    }

    ScratchSheet sheet_;
    std::vector<std::string> answers_;
    size_t next_ = 0;
    std::ostringstream output_;
};

std::vector<std::string> CaseNames() {
    std::vector<std::string> names;
    for (const auto& entry : fs::directory_iterator(kCases)) {
        if (entry.is_directory()) names.push_back(entry.path().filename().string());
    }
    std::sort(names.begin(), names.end());
    return names;
}

class RulesCase : public testing::TestWithParam<std::string> {};

TEST_P(RulesCase, DoesAsExpected) {
    const fs::path folder = kCases / GetParam();
    EXPECT_EQ(CaseRun(folder).Run(ReadText(folder / "steps.txt")),
              ReadText(folder / "expected.txt"));
}

INSTANTIATE_TEST_SUITE_P(Folders, RulesCase, testing::ValuesIn(CaseNames()),
                         [](const auto& param) { return param.param; });

}  // namespace
}  // namespace kvui
