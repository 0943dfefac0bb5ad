// The sheet: opening, one user event, and a durable write of printer data, each beside its floor.
#include <benchmark/benchmark.h>
#include <fcntl.h>
#include <framework/core/install_printer.h>
#include <kvcore.h>
#include <platform/display/headless.h>
#include <platform/registry/state_directory.h>
#include <platform/registry/state_store.h>
#include <platform/security/access.h>
#include <platform/window/input.h>
#include <preferences_sheet.h>
#include <prsht.h>
#include <unistd.h>

#include <array>
#include <cstdio>
#include <cstdlib>
#include <filesystem>
#include <string>

namespace {

// A printer on a scratch state, made once.
struct Desk {
    std::string state;
    PrinterBlock printer{};
    std::array<BYTE, 1296> record{};
    std::unique_ptr<kvhost::DriverModule> module;
    kvhost::SheetRequest request;

    Desk() {
        char folder[] = "/tmp/kvbenchXXXXXX";
        state = mkdtemp(folder);
        kv::SetStateDirectory(state);
        kv::SetActingAsAdministrator(true);
        std::string error;
        kvcore::InstallPrinter("Bench", "USB001", KV_SOURCE_DIR "/models", error);
        kvcore::MakePrinterBlock("Bench", printer, error);
        QDMGetStdDefaults(&printer, record.data(), nullptr);
        module = kvhost::DriverModule::Load(KV_BIN_DIR "/libkvuimod.so", error);
        if (module == nullptr) {
            std::fprintf(stderr, "kvbench: %s\n", error.c_str());
            std::exit(1);
        }
        request.printer = &printer;
        request.record = record.data();
        kv::Headless().SetPolicy([](HWND dialog) { kv::input::Close(dialog); });
    }
    ~Desk() { std::filesystem::remove_all(state); }
    HWND Page(HWND sheet, int index) {
        kv::input::SelectPage(sheet, index);
        return reinterpret_cast<HWND>(SendMessageA(sheet, PSM_INDEXTOHWND, index, 0));
    }
};

Desk& TheDesk() {
    static Desk desk;
    return desk;
}

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
