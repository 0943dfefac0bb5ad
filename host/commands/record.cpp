// kvprefs record: settings records as files.
#include <host/commands/commands.h>
#include <host/record_check.h>

#include <cstdio>
#include <cstring>

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
    const std::vector<std::string> refused =
        ValuesOutOfBounds(imported, BoundsInForce(session.printer()));
    for (const std::string& line : refused) PrintError(file + ": " + line);
    if (!refused.empty()) return kBadInput;
    const Record stored = session.record();
    session.record() = imported;
    if (!session.StoreRecord()) return kRefused;
    for (const std::string& line : ChangedFields(stored, imported)) {
        std::printf("%s\n", line.c_str());
    }
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

}  // namespace kvhost
