// Rules file: loading and key reads, beside GLib's GKeyFile on the same file.
#include <benchmark/benchmark.h>
#include <glib.h>
#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>
#include <windows.h>

#include <cstdio>
#include <cstring>
#include <filesystem>
#include <fstream>
#include <string>

namespace {

// 200 keys in 32 KB, like a rules file with long lines.
const std::string& RulesFile() {
    static const std::string path = [] {
        std::string name = std::filesystem::temp_directory_path() / "kvbench.ini";
        std::ofstream file(name);
        file << "[ConflictConditions]\n";
        for (int i = 0; i < 200; ++i) {
            file << "ComboMediaType" << i << "=(2),0,0," << std::string(130, 'x') << "\n";
        }
        return name;
    }();
    return path;
}

void Touch(const std::string& path, int round) {
    const timespec times[2] = {{1000000000 + round, 0}, {1000000000 + round, 0}};
    utimensat(AT_FDCWD, path.c_str(), times, 0);
}

void RulesLoad(benchmark::State& state) {
    char value[256];
    int round = 0;
    for (auto _ : state) {
        state.PauseTiming();
        Touch(RulesFile(), ++round);
        state.ResumeTiming();
        benchmark::DoNotOptimize(GetPrivateProfileStringA("ConflictConditions", "ComboMediaType150",
                                                          "", value, sizeof value,
                                                          RulesFile().c_str()));
    }
}
BENCHMARK(RulesLoad);

void RulesLoadGKeyFile(benchmark::State& state) {
    int round = 0;
    for (auto _ : state) {
        state.PauseTiming();
        Touch(RulesFile(), ++round);
        state.ResumeTiming();
        GKeyFile* file = g_key_file_new();
        g_key_file_load_from_file(file, RulesFile().c_str(), G_KEY_FILE_NONE, nullptr);
        gchar* value = g_key_file_get_value(file, "ConflictConditions", "ComboMediaType150", nullptr);
        benchmark::DoNotOptimize(value);
        g_free(value);
        g_key_file_free(file);
    }
}
BENCHMARK(RulesLoadGKeyFile);

void KeyRead(benchmark::State& state) {
    char value[256];
    for (auto _ : state) {
        benchmark::DoNotOptimize(GetPrivateProfileStringA("ConflictConditions", "ComboMediaType150",
                                                          "", value, sizeof value,
                                                          RulesFile().c_str()));
    }
}
BENCHMARK(KeyRead);

// The floor of a read that checks whether the file is still the same.
void KeyReadStat(benchmark::State& state) {
    for (auto _ : state) {
        struct stat status {};
        benchmark::DoNotOptimize(stat(RulesFile().c_str(), &status));
    }
}
BENCHMARK(KeyReadStat);

}  // namespace
