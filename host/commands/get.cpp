// kvprefs get: fields of the stored record by name.
#include <host/commands/commands.h>

#include <cstdio>
#include <nlohmann/json.hpp>

namespace kvhost {

ExitStatus RunGet(const Options& options, const std::vector<std::string>& names) {
    std::vector<const Field*> fields;
    for (const std::string& name : names) {
        const Field* field = FindField(name);
        if (field == nullptr) {
            PrintError("unknown field \"" + name + "\"; `kvprefs get` lists all of them");
            return kBadInput;
        }
        fields.push_back(field);
    }
    for (unsigned i = 0; names.empty() && i < kFieldCount; ++i) fields.push_back(&kFields[i]);
    Session session;
    if (!session.Open(options)) return kBadInput;
    nlohmann::ordered_json object;
    for (const Field* field : fields) {
        const LONG value = ReadRecordField(session.record().data(), *field);
        if (options.json) {
            object[field->name] = value;
        } else {
            std::printf("%s=%ld\n", field->name, static_cast<long>(value));
        }
    }
    if (options.json) std::printf("%s\n", object.dump(2).c_str());
    return kDone;
}

std::vector<std::string> ChangedFields(const Record& before, const Record& after) {
    std::vector<std::string> lines;
    for (unsigned i = 0; i < kFieldCount; ++i) {
        const LONG old = ReadRecordField(before.data(), kFields[i]);
        const LONG now = ReadRecordField(after.data(), kFields[i]);
        if (old != now) lines.push_back(std::string(kFields[i].name) + "=" + std::to_string(now));
    }
    return lines;
}

}  // namespace kvhost
