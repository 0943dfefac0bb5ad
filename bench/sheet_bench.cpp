// The sheet: opening, one user event, and a durable write of printer data, each beside its floor.
#include <test_paths.h>
#include <benchmark/benchmark.h>
#include <fcntl.h>
#include <platform/registry/state_store.h>
#include <unistd.h>

#include <string>

#include "bench/desk.h"

namespace {

using kvbench::Desk;
using kvbench::TheDesk;

void SheetOpen(benchmark::State& state) {
    Desk& desk = TheDesk();
    for (auto _ : state) {
        const HWND sheet = desk.module->CreateSheet(desk.request);
        for (int page = 0; page < 7; ++page) desk.Page(sheet, page);
        DestroyWindow(sheet);
    }
}
BENCHMARK(SheetOpen)->Unit(benchmark::kMicrosecond);

// As many plain windows as the seven pages have.
void SheetOpenPlainWindows(benchmark::State& state) {
    constexpr int kWindows = 170;
    for (auto _ : state) {
        const HWND parent = CreateWindowExA(0, "STATIC", "", WS_POPUP, 0, 0, 10, 10, nullptr, nullptr,
                                            nullptr, nullptr);
        for (int i = 0; i < kWindows; ++i) {
            CreateWindowExA(0, "STATIC", "text", WS_CHILD | WS_VISIBLE, 0, 0, 10, 10, parent, nullptr,
                            nullptr, nullptr);
        }
        DestroyWindow(parent);
    }
}
BENCHMARK(SheetOpenPlainWindows)->Unit(benchmark::kMicrosecond);

void UserEvent(benchmark::State& state) {
    Desk& desk = TheDesk();
    const HWND sheet = desk.module->CreateSheet(desk.request);
    const HWND page = desk.Page(sheet, 0);
    const HWND buttons[] = {GetDlgItem(page, 2026), GetDlgItem(page, 2027)};
    int turn = 0;
    for (auto _ : state) kv::input::Click(buttons[++turn & 1]);
    DestroyWindow(sheet);
}
BENCHMARK(UserEvent)->Unit(benchmark::kMicrosecond);

// The thumb of a slider from end to end in 100 steps, and let go.
void SliderDrag(benchmark::State& state) {
    Desk& desk = TheDesk();
    const HWND sheet = desk.module->CreateSheet(desk.request);
    const HWND slider = GetDlgItem(desk.Page(sheet, 4), 3008);
    kv::input::DragTo(slider, 0);
    int turn = 0;
    for (auto _ : state) kv::input::DragTo(slider, ++turn & 1 ? 100 : 0, 100);
    DestroyWindow(sheet);
}
BENCHMARK(SliderDrag)->Unit(benchmark::kMicrosecond);

// Installs an option and removes it, by turns: settings to defaults, both source lists written.
void OptionChange(benchmark::State& state) {
    Desk& desk = TheDesk();
    const HWND sheet = desk.module->CreateSheet(desk.request);
    const HWND page = desk.Page(sheet, 5);
    const HWND options = GetDlgItem(page, 4015), states = GetDlgItem(page, 4014);
    int turn = 0;
    for (auto _ : state) {
        const auto row = SendMessageA(options, LB_FINDSTRING, static_cast<WPARAM>(-1),
                                      reinterpret_cast<LPARAM>("Tray 3:"));
        kv::input::Choose(options, static_cast<int>(row));
        kv::input::Choose(states, turn++ & 1);
    }
    const auto* installed = reinterpret_cast<const DWORD*>(desk.record.data() + 156 + 0x198);
    if (((*installed & 8) != 0) != (turn & 1)) state.SkipWithError("the option stayed as it was");
    DestroyWindow(sheet);
}
BENCHMARK(OptionChange)->Unit(benchmark::kMicrosecond);

void PrinterDataWrite(benchmark::State& state) {
    TheDesk();
    DWORD value = 0;
    for (auto _ : state) {
        ++value;
        kv::StateStore::Get().SetPrinterData("Bench", "Counter", 4, &value, sizeof value);
    }
}
BENCHMARK(PrinterDataWrite)->Unit(benchmark::kMicrosecond);

// The same bytes written raw to the same file system and synced.
void PrinterDataWriteRaw(benchmark::State& state) {
    const std::string path = TheDesk().state + "/raw";
    const int file = open(path.c_str(), O_RDWR | O_CREAT, 0600);
    char page[4096] = {};
    for (auto _ : state) {
        ++page[0];
        benchmark::DoNotOptimize(pwrite(file, page, sizeof page, 0));
        fdatasync(file);
    }
    close(file);
}
BENCHMARK(PrinterDataWriteRaw)->Unit(benchmark::kMicrosecond);

void GetProcess(benchmark::State& state) {
    const std::string command = std::string(KV_BIN_DIR "/kvprefs --state ") + TheDesk().state +
                                " get dmCopies >/dev/null";
    for (auto _ : state) benchmark::DoNotOptimize(std::system(command.c_str()));
}
BENCHMARK(GetProcess)->Unit(benchmark::kMicrosecond)->UseRealTime();

void GetProcessTrue(benchmark::State& state) {
    for (auto _ : state) benchmark::DoNotOptimize(std::system("true >/dev/null; true"));
}
BENCHMARK(GetProcessTrue)->Unit(benchmark::kMicrosecond)->UseRealTime();

}  // namespace
