// The rules engine: the conflict check of one choice, the chain of forced settings, and the
// gray-out of a page. Everything over a scratch sheet without pages.
#include <benchmark/benchmark.h>
#include <platform/display/headless.h>
#include <platform/window/input.h>

#include <algorithm>
#include <array>
#include <cstdio>
#include <string>
#include <vector>

#include "exports.h"
#include "resources/resource.h"
#include "rules/conflicts.h"
#include "rules/gray_out.h"
#include "tests/module/support/sheet_fixture.h"

namespace {

using namespace kvui;

constexpr DWORD kComboMediaType = 1141;

// Rules of one control whose triggers the chosen value (1) does not meet.
std::string SilentRules(int count) {
    std::string text = "[ConflictConditions]\n";
    for (int i = 0; i < count; ++i) {
        text += "ComboMediaType" + std::to_string(i) +
                "=(2,257,262-263),0,0,(ComboStaple,0,0,(2-4),0),(ComboPunch,0,0,(2-4),0)\n";
    }
    return text;
}

void Check(benchmark::State& state, int rules) {
    ScratchSheet sheet;
    sheet.UseRules(SilentRules(rules));
    sheet.Set("MediaType", 1);
    ResolveConflicts(sheet.context, kComboMediaType, nullptr);
    if (CountConflictRules(sheet.context, kComboMediaType) != rules) std::abort();
    for (auto _ : state) {
        benchmark::DoNotOptimize(ResolveConflicts(sheet.context, kComboMediaType, nullptr));
    }
}
void ConflictCheck(benchmark::State& state) {
    Check(state, 64);
}
BENCHMARK(ConflictCheck);
void ConflictCheckQuarter(benchmark::State& state) {
    Check(state, 16);
}
BENCHMARK(ConflictCheckQuarter);

// With the caches and the parsing that a sheet does once.
void ConflictCheckFirst(benchmark::State& state) {
    ScratchSheet sheet;
    sheet.UseRules(SilentRules(64));
    for (auto _ : state) {
        FreeRulesCaches(sheet.shared);
        LoadRulesCache(sheet.context);
        BuildGrayOutIndex(sheet.context);
        benchmark::DoNotOptimize(ResolveConflicts(sheet.context, kComboMediaType, nullptr));
    }
}
BENCHMARK(ConflictCheckFirst)->Unit(benchmark::kMicrosecond);

// 64 rules that all fire; together they fill the 32 KB that are read of the section with targets
// and with groups, one of them with the 64 groups a target may have. No target is in conflict, so
// every group is looked at.
void ConflictCheckFull(benchmark::State& state) {
    std::string groups;
    for (int i = 0; i < 64; ++i) groups += (i != 0 ? "," : "") + std::to_string(100 + i);
    std::string text = "[ConflictConditions]\n";
    for (int i = 0; i < 64; ++i) {
        std::string rule = "ComboMediaType" + std::to_string(i) + "=(1),0,0";
        if (i == 0) {
            rule += ",(ComboStaple,0,0,(" + groups + "),0)";
        }
        while (rule.size() < 490) rule += ",(ComboFolding,0,0,(7,8,9),0)";
        text += rule + "\n";
    }
    ScratchSheet sheet;
    sheet.UseRules(text);
    sheet.Set("MediaType", 1);
    for (auto _ : state) {
        benchmark::DoNotOptimize(ResolveConflicts(sheet.context, kComboMediaType, nullptr));
    }
}
BENCHMARK(ConflictCheckFull);

// Settings that know a text for the value 2.
constexpr const char* kChain[] = {
    "ComboMediaType", "ComboStaple",       "ComboPunch",  "ComboFolding",     "ComboPunchNum",
    "NupStyle",       "EditDistStart",     "EditCopies",  "RadioOrientation", "Combo1stPageMedia",
    "RadioColorMode", "EditOffsetX",       "EditOffsetY", "AccessNumber",     "Password",
    "EditScaling",    "RadioColorMatching"};
constexpr int kLinks = 16;

// Each setting forces the next one from 1 to 2; every question is answered with Resolve.
void ConflictChain(benchmark::State& state) {
    std::string text = "[ConflictConditions]\n";
    std::array<const ControlItem*, kLinks + 1> items{};
    for (int i = 0; i <= kLinks; ++i) items[i] = ItemByName(kChain[i]);
    for (int i = 0; i < kLinks; ++i) {
        text +=
            std::string(items[i]->conflictKey) + "0=(2),0,0,(" + kChain[i + 1] + ",0,0,(1),2)\n";
    }
    ScratchSheet sheet;
    sheet.UseRules(text);
    int asked = 0;
    kv::Headless().SetPolicy([&](HWND dialog) {
        ++asked;
        kv::input::Click(GetDlgItem(dialog, IDC_BTN_CONFLICT_RESOLVE));
    });
    for (auto _ : state) {
        for (const ControlItem* item : items)
            WriteItemValue(sheet.context.settings, *item, 1, nullptr);
        WriteItemValue(sheet.context.settings, *items[0], 2, nullptr);
        asked = 0;
        benchmark::DoNotOptimize(ResolveConflicts(sheet.context, kComboMediaType, nullptr));
        if (asked != kLinks) state.SkipWithError("the chain was cut");
    }
    kv::Headless().SetPolicy(nullptr);
}
BENCHMARK(ConflictChain)->Unit(benchmark::kMicrosecond);

// The floor of one link: the dialog from its template, and the press on its button.
void ConflictDialog(benchmark::State& state) {
    ScratchSheet sheet;
    kv::Headless().SetPolicy(
        [](HWND dialog) { kv::input::Click(GetDlgItem(dialog, IDC_BTN_CONFLICT_RESOLVE)); });
    const auto procedure = [](HWND dialog, UINT message, WPARAM wParam, LPARAM) -> INT_PTR {
        if (message == WM_COMMAND) EndDialog(dialog, LOWORD(wParam));
        return message == WM_INITDIALOG ? TRUE : FALSE;
    };
    for (auto _ : state) {
        benchmark::DoNotOptimize(
            DialogBoxParamA(sheet.context.resources, "_CONFLICTS", nullptr, procedure, 0));
    }
    kv::Headless().SetPolicy(nullptr);
}
BENCHMARK(ConflictDialog)->Unit(benchmark::kMicrosecond);

// A page of 60 controls of the catalogue, each the target of a gray-out rule.
class GrayPage {
 public:
    GrayPage() {
        window = CreateWindowExA(0, "STATIC", "", WS_POPUP, 0, 0, 10, 10, nullptr, nullptr, nullptr,
                                 nullptr);
        std::string text = "[ConflictConditions]\n";
        for (const ControlItem& item : kCatalogue) {
            if (items.size() == kControls) break;
            const bool taken = std::any_of(
                items.begin(), items.end(),
                [&](const ControlItem* other) { return other->controlId == item.controlId; });
            if (taken || item.grayOutKey[0] == '\0') continue;
            text += "ComboMediaType" + std::to_string(items.size()) + "=(" +
                    (items.size() % 2 != 0 ? "1" : "2") + "),0,1,(" + item.grayOutKey +
                    ",0,0,(0),H)\n";
            items.push_back(&item);
            controls.push_back(CreateWindowExA(
                0, "STATIC", "", WS_CHILD, 0, 0, 1, 1, window,
                reinterpret_cast<HMENU>(static_cast<UINT_PTR>(item.controlId)), nullptr, nullptr));
        }
        if (items.size() != kControls) std::abort();
        sheet.UseRules(text);
        sheet.Set("MediaType", 1);
    }
    ~GrayPage() { DestroyWindow(window); }
    GrayPage(const GrayPage&) = delete;
    GrayPage& operator=(const GrayPage&) = delete;

    static constexpr size_t kControls = 60;
    ScratchSheet sheet;
    HWND window;
    std::vector<const ControlItem*> items;
    std::vector<HWND> controls;
};

void GrayOut(benchmark::State& state) {
    GrayPage page;
    int grayed = 0;
    for (auto _ : state) {
        grayed = 0;
        for (const ControlItem* item : page.items) {
            grayed += ApplyGrayOutIndex(page.sheet.context, page.window, *item);
        }
    }
    if (grayed != static_cast<int>(GrayPage::kControls) / 2) state.SkipWithError("rules not met");
}
BENCHMARK(GrayOut);

// The floor: finding the control and telling it the state that it has.
void GrayOutWindows(benchmark::State& state) {
    GrayPage page;
    for (auto _ : state) {
        for (const ControlItem* item : page.items) {
            EnableWindow(GetDlgItem(page.window, static_cast<int>(item->controlId)), TRUE);
        }
    }
}
BENCHMARK(GrayOutWindows);

}  // namespace
