// The peer of the conflict check: one option marked and its conflicts counted in libcups, on a
// printer description with 64 constraints of which none holds.
#include <benchmark/benchmark.h>
#define _CUPS_NO_DEPRECATED 1  // the description calls are what there is to compare with
#include <cups/ppd.h>

#include <cstdio>
#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <string>

namespace {

constexpr int kConstraints = 64;

// One option that the constraints begin with, and one per constraint that they end at.
std::string MakeDescription() {
    const std::string path = std::filesystem::temp_directory_path() / "kvbench.ppd";
    std::ofstream file(path);
    file << "*PPD-Adobe: \"4.3\"\n*FormatVersion: \"4.3\"\n*FileVersion: \"1.0\"\n"
            "*LanguageVersion: English\n*LanguageEncoding: ISOLatin1\n*PCFileName: \"BENCH.PPD\"\n"
            "*Product: \"(Bench)\"\n*Manufacturer: \"Bench\"\n*ModelName: \"Bench\"\n"
            "*ShortNickName: \"Bench\"\n*NickName: \"Bench 1\"\n*PSVersion: \"(3010) 0\"\n"
            "*ColorDevice: True\n*DefaultColorSpace: RGB\n*LanguageLevel: \"3\"\n*TTRasterizer: "
            "Type42\n*FileSystem: False\n*Throughput: \"1\"\n";
    const auto option = [&](const std::string& name, int choices) {
        file << "*OpenUI *" << name << "/" << name << ": PickOne\n*OrderDependency: 10 AnySetup *"
             << name << "\n*Default" << name << ": C0\n";
        for (int i = 0; i < choices; ++i) {
            file << "*" << name << " C" << i << "/C" << i << ": \"\"\n";
        }
        file << "*CloseUI: *" << name << "\n";
    };
    option("MediaType", 12);
    for (int i = 0; i < kConstraints; ++i) option("Target" + std::to_string(i), 3);
    for (int i = 0; i < kConstraints; ++i) {
        file << "*UIConstraints: *MediaType C" << 2 + i % 10 << " *Target" << i << " C1\n";
    }
    return path;
}

const std::string& Description() {
    static const std::string path = MakeDescription();
    return path;
}

ppd_file_t* Load() {
    ppd_file_t* ppd = ppdOpenFile(Description().c_str());
    if (ppd == nullptr || ppd->num_consts != kConstraints) {
        std::fprintf(stderr, "kvrulesbench: libcups does not read the description\n");
        std::exit(1);
    }
    ppdMarkDefaults(ppd);
    return ppd;
}

void CupsConflicts(benchmark::State& state) {
    ppd_file_t* ppd = Load();
    int turn = 0;
    for (auto _ : state) {
        ppdMarkOption(ppd, "MediaType", (++turn & 1) != 0 ? "C1" : "C0");
        benchmark::DoNotOptimize(ppdConflicts(ppd));
    }
    ppdClose(ppd);
}
BENCHMARK(CupsConflicts);

void CupsLoad(benchmark::State& state) {
    for (auto _ : state) ppdClose(Load());
}
BENCHMARK(CupsLoad);

}  // namespace
