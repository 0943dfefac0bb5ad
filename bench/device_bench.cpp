// The printer's figure beside pixman composing the same layers, and the query of a printer that
// answers beside a bare exchange of the same bytes.
#include <winsock2.h>

#include <windows.h>

#include <benchmark/benchmark.h>
#include <platform/display/waiting.h>
#include <platform/net/host_socket.h>
#include <platform/window/paint.h>
#include <unistd.h>

#include <cstdlib>
#include <cstring>
#include <string>
#include <thread>
#include <vector>

#include "bench/pixman_images.h"
#include "device/printer_query.h"
#include "preview/figure_plan.h"
#include "preview/printer_figure.h"
#include "preview/view_words.h"
#include "tests/module/preview/painted_sheet.h"
#include "tests/support/printer_data.h"
#include "tools/kvprinter/server.h"

namespace {

using namespace kvui;
using namespace kvbench;

// Every option at once is as many layers as there can be.
struct FullSheet : PaintedSheet {
    FullSheet() {
        shared.life.initialised = TRUE;
        Set("mdmInstalledOptions", 0x1FFFFFF);
        Set("dmDefaultSource", 11);
        Set("mdmOutBin", 76);
        frame = CreateWindowExA(0, "STATIC", "", WS_POPUP, 0, 0, kView.cx, kView.cy, nullptr,
                                nullptr, nullptr, nullptr);
        HookView(frame, context, {PaintPrinterFigure, DescribePrinter});
    }
    ~FullSheet() { DestroyWindow(frame); }

    HWND frame{};
};

void FigurePaint(benchmark::State& state) {
    const FullSheet sheet;
    const Screen screen;
    for (auto _ : state) kv::PaintWindow(sheet.frame, screen.dc);
}
BENCHMARK(FigurePaint)->Unit(benchmark::kMicrosecond);

void FigurePixman(benchmark::State& state) {
    const FullSheet sheet;
    std::vector<Image> layers;
    const FigureLayers plan =
        FigureLayersOf(*sheet.context.settings, *sheet.context.privateSettings, 0);
    for (int i = 0; i < plan.count; ++i) {
        const WORD id = plan.layer[i].picture;
        if (FindResourceA(sheet.context.resources, MAKEINTRESOURCEA(id), RT_BITMAP) == nullptr)
            continue;
        layers.push_back(Decoded(sheet.context.resources, {id, 0}));
    }
    const Image view = NewImage(kView.cx, kView.cy), screen = NewImage(kView.cx, kView.cy);
    const pixman_color_t white{0xFFFF, 0xFFFF, 0xFFFF, 0xFFFF};
    const pixman_rectangle16_t whole{0, 0, kView.cx, kView.cy};
    for (auto _ : state) {
        pixman_image_fill_rectangles(PIXMAN_OP_SRC, view.get(), &white, 1, &whole);
        for (const Image& layer : layers) {
            pixman_image_composite32(PIXMAN_OP_OVER, layer.get(), nullptr, view.get(), 0, 0, 0, 0,
                                     0, 0, kView.cx, kView.cy);
        }
        pixman_image_composite32(PIXMAN_OP_SRC, view.get(), nullptr, screen.get(), 0, 0, 0, 0, 0, 0,
                                 kView.cx, kView.cy);
        benchmark::DoNotOptimize(pixman_image_get_data(screen.get()));
    }
    state.counters["layers"] = static_cast<double>(layers.size());
}
BENCHMARK(FigurePixman)->Unit(benchmark::kMicrosecond);

constexpr char kAddress[] = "127.0.99.1";
constexpr std::uint16_t kPort = 9100;

// A printer with tray 3 that answers at once, for as long as the program runs.
void StartPrinter() {
    static const bool started = [] {
        kvprinter::Behaviour behaviour;
        behaviour.machine.installed = {"TRAY3"};
        auto* server = new kvprinter::Server(behaviour);
        std::string error;
        if (!server->Listen(kAddress, kPort, error)) std::abort();
        std::thread([server] { server->Run(); }).detach();
        return true;
    }();
    benchmark::DoNotOptimize(started);
}

void Query(benchmark::State& state) {
    StartPrinter();
    ScratchSheet sheet;
    sheet.InstallPrinter();
    kvtest::PutPrinterPort(sheet.printer.printerName, std::string("http://") + kAddress + "/ipp",
                           0);
    sheet.Set("mdmOtherSettings", kOtherAutoConfig);
    for (auto _ : state) {
        sheet.Set("mdmInstalledOptions", 1);
        BOOL changed = FALSE;
        QueryPrinterConfiguration(sheet.context, &changed);
        if (!changed) state.SkipWithError("the printer did not answer");
    }
}
BENCHMARK(Query)->Unit(benchmark::kMicrosecond)->UseRealTime()->Iterations(1);

// The bytes there and back and the pause that the driver makes between them.
void QueryRaw(benchmark::State& state) {
    StartPrinter();
    constexpr useconds_t kPause = 250000;
    const std::string request = "\x1B%-12345X@PJL INFO CONFIG\r\n\x1B%-12345X";
    for (auto _ : state) {
        const int connection = kv::OpenStreamSocket();
        char reply[1024];
        if (kv::ConnectSocket(connection, kv::LookUpHost(kAddress)[0], kPort,
                              kv::Milliseconds{1000}) < 0 ||
            kv::SendBytes(connection, request.data(), request.size()) < 0) {
            std::abort();
        }
        usleep(kPause);
        if (kv::ReceiveBytes(connection, reply, sizeof reply) <= 0) std::abort();
        kv::CloseSocket(connection);
    }
}
BENCHMARK(QueryRaw)->Unit(benchmark::kMicrosecond)->UseRealTime()->Iterations(1);

}  // namespace
