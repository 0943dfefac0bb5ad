// kvprefs record and kvprefs printer.
#include <framework/core/install_printer.h>
#include <host/commands/commands.h>
#include <host/host_paths.h>
#include <platform/registry/state_store.h>
#include <platform/security/access.h>
#include <windows.h>

#include <cstdio>
#include <cstring>
#include <nlohmann/json.hpp>

namespace kvhost {
namespace {

bool ReadRecordFile(const std::string& file, Record& record) {
    std::string bytes, error;
    if (!ReadWholeFile(file, kRecordBytes, bytes, error)) {
        PrintError(error);
        return false;
    }
    const std::string problem =
        CheckRecord(reinterpret_cast<const BYTE*>(bytes.data()), bytes.size());
    if (!problem.empty()) {
        PrintError(file + " is no settings record: " + problem);
        return false;
    }
    std::memcpy(record.data(), bytes.data(), kRecordBytes);
    return true;
}

}  // namespace

ExitStatus RunRecordExport(const Options& options, const std::string& file) {
    Session session;
    if (!session.Open(options)) return kBadInput;
    std::string error;
    if (WriteWholeFile(file, session.record().data(), kRecordBytes, error)) return kDone;
    PrintError(error);
    return kBadInput;
}

ExitStatus RunRecordImport(const Options& options, const std::string& file) {
    Session session;
    Record imported{};
    if (!ReadRecordFile(file, imported) || !session.Open(options)) return kBadInput;
    const Record stored = session.record();
    session.record() = imported;
    if (!session.StoreRecord()) return kRefused;
    for (const std::string& line : ChangedFields(stored, imported)) std::printf("%s\n", line.c_str());
    return kDone;
}

ExitStatus RunRecordDiff(const std::string& left, const std::string& right) {
    Record a{}, b{};
    if (!ReadRecordFile(left, a) || !ReadRecordFile(right, b)) return kBadInput;
    for (unsigned i = 0; i < kFieldCount; ++i) {
        const LONG old = ReadRecordField(a.data(), kFields[i]);
        const LONG now = ReadRecordField(b.data(), kFields[i]);
        if (old != now) {
            std::printf("%s %ld -> %ld\n", kFields[i].name, static_cast<long>(old),
                        static_cast<long>(now));
        }
    }
    return a == b ? kDone : kRefused;
}

ExitStatus RunPrinterList(const Options& options) {
    std::vector<kv::PrinterRecord> printers;
    const DWORD error = kv::StateStore::Get().ListPrinters(printers);
    if (error != ERROR_SUCCESS && error != ERROR_FILE_NOT_FOUND) {
        PrintError(kv::StateStore::Get().LastMessage());
        return kBadInput;
    }
    nlohmann::ordered_json rows = nlohmann::ordered_json::array();
    for (const kv::PrinterRecord& printer : printers) {
        if (options.json) {
            rows.push_back({{"name", printer.name}, {"port", printer.port}});
        } else {
            std::printf("%s\t%s\n", printer.name.c_str(), printer.port.c_str());
        }
    }
    if (options.json) std::printf("%s\n", rows.dump(2).c_str());
    return kDone;
}

ExitStatus RunPrinterAdd(const std::string& name, const std::string& port) {
    if (!kv::ActsAsAdministrator()) {
        PrintError("adding a printer needs an administrator");
        return kRefused;
    }
    std::string error;
    if (kvcore::InstallPrinter(name, port, DataPath("models"), error)) return kDone;
    PrintError(error);
    return kBadInput;
}

ExitStatus RunPrinterRemove(const std::string& name) {
    if (!kv::ActsAsAdministrator()) {
        PrintError("removing a printer needs an administrator");
        return kRefused;
    }
    std::string error;
    if (kvcore::RemovePrinter(name, error)) return kDone;
    PrintError(error);
    return kBadInput;
}

}  // namespace kvhost
