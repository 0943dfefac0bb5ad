// kvprefs record: settings records as files.
#include <host/commands/commands.h>
#include <host/record/record_check.h>
#include <host/record/record_file.h>
#include <host/controls/record_offers.h>

#include <cstdio>
#include <nlohmann/json.hpp>

namespace kvhost {
namespace {

bool ReadOrSay(const std::string& file, Record& record) {
    std::string error;
    if (ReadRecordFrom(file, record, error)) return true;
    PrintError(error);
    return false;
}

std::string Described(const UnofferedValue& found) {
    return std::string(found.field) + " is " + std::to_string(found.value) +
           ", which no control offers; " + found.caption + ": expected " + found.expected;
}

// What is wrong with a record that came from a file, and what becomes of it.
struct Examined {
    ExitStatus status = kDone;
    std::vector<std::string> problems;
    std::vector<std::string> warnings;  // values that are taken by force
};

// Values out of bounds would be put back at the next start, whoever forces them in now.
bool Examine(Session& session, const Record& record, bool force, Examined& examined) {
    examined.problems = ValuesOutOfBounds(record, BoundsInForce(session.printer()));
    if (!examined.problems.empty()) {
        examined.status = kBadInput;
        return true;
    }
    std::vector<UnofferedValue> found;
    if (!FindUnofferedValues(session, record, found)) return false;
    for (const UnofferedValue& one : found) {
        (force ? examined.warnings : examined.problems).push_back(Described(one));
    }
    if (!examined.problems.empty()) examined.status = kRefused;
    return true;
}

}  // namespace

ExitStatus RunRecordExport(const Options& options, const std::string& file) {
    Session session;
    if (!session.Open(options)) return kBadInput;
    std::string error;
    if (WriteRecordTo(file, session.record(), error)) return kDone;
    PrintError(error);
    return kBadInput;
}

ExitStatus RunRecordImport(const Options& options, const std::string& file, bool force) {
    Session session;
    Record imported{};
    if (!ReadOrSay(file, imported) || !session.Open(options)) return kBadInput;
    Examined examined;
    if (!Examine(session, imported, force, examined)) return kBadInput;
    for (const std::string& line : examined.problems) PrintError(line);
    for (const std::string& line : examined.warnings) PrintWarning(line);
    if (examined.status == kRefused) {
        PrintError("nothing was stored; --force stores such values for a service technician");
    }
    if (examined.status != kDone) return examined.status;
    const Record stored = session.stored();
    session.record() = imported;
    if (!session.StoreRecord()) return kRefused;
    for (const std::string& line : ChangedFields(stored, imported)) {
        std::printf("%s\n", line.c_str());
    }
    return kDone;
}

ExitStatus RunRecordCheck(const Options& options, const std::string& file, bool force) {
    Session session;
    Record record{};
    if (!ReadOrSay(file, record) || !session.Open(options)) return kBadInput;
    Examined examined;
    if (!Examine(session, record, force, examined)) return kBadInput;
    if (options.json) {
        const nlohmann::ordered_json result = {{"problems", examined.problems},
                                               {"warnings", examined.warnings}};
        std::printf("%s\n",
                    result.dump(2, ' ', false, nlohmann::json::error_handler_t::replace).c_str());
        return examined.status;
    }
    for (const std::string& line : examined.problems) std::printf("%s\n", line.c_str());
    for (const std::string& line : examined.warnings) std::printf("warning: %s\n", line.c_str());
    return examined.status;
}

ExitStatus RunRecordDiff(const std::string& left, const std::string& right) {
    Record a{}, b{};
    if (!ReadOrSay(left, a) || !ReadOrSay(right, b)) return kBadInput;
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
