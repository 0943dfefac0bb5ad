// See list_arguments.h.
#include <host/commands/change.h>
#include <host/commands/list_arguments.h>
#include <host/record/record_file.h>

#include <cstdio>

namespace kvhost {
namespace {

constexpr size_t kMostBytes = 16 << 20;

std::string AsText(const Json& json) {
    return json.dump(2, ' ', false, Json::error_handler_t::replace) + "\n";
}

// As much as a list may have, and a little more.
bool ReadText(const std::string& file, std::string& text) {
    std::FILE* in = file == "-" ? stdin : std::fopen(file.c_str(), "rb");
    if (in == nullptr) return false;
    char part[1 << 14];
    while (const size_t size = std::fread(part, 1, sizeof part, in)) {
        text.append(part, size);
        if (text.size() > kMostBytes) break;
    }
    const bool failed = std::ferror(in) != 0;
    if (in != stdin) std::fclose(in);
    return !failed && !text.empty();
}

}  // namespace

ListAnswers ListArguments::Answers() const {
    ListAnswers answers;
    answers.overwrite = overwrite;
    if (common || own) answers.isCommon = common;
    return answers;
}

ExitStatus ChangeEntries(const Options& options, const std::string& name, const EntryWork& work) {
    std::optional<SetOutcome> outcome;
    return Change(options, ConflictPolicy::kCancel,
                  [&](Session& session, ControlDriver& driver, Changes& changes) {
                      if (!outcome) outcome = work(session, driver);
                      return TakeOver(*outcome, name, changes);
                  });
}

void PrintJson(const Json& json) {
    std::fputs(AsText(json).c_str(), stdout);
}

bool WriteJsonFile(const std::string& file, const Json& json) {
    const std::string text = AsText(json);
    std::string error;
    const bool written = WriteBytesTo(file, text.data(), text.size(), error);
    if (!written) PrintError(error);
    return written;
}

bool ReadJsonFile(const std::string& file, Json& json) {
    std::string text;
    if (!ReadText(file, text)) {
        PrintError(file + ": cannot be read, or is empty");
        return false;
    }
    if (text.size() > kMostBytes) {
        PrintError(file + ": is too large for a list");
        return false;
    }
    try {
        json = Json::parse(text);
    } catch (const Json::parse_error& error) {
        PrintError(file + ": is no JSON at byte " + std::to_string(error.byte));
        return false;
    }
    if (json.is_array()) return true;
    PrintError(file + ": is no list; expected what `export` writes");
    return false;
}

EntryReader::EntryReader(const Json& entry, size_t number)
    : entry_(entry), where_("entry " + std::to_string(number + 1)) {
    if (!entry.is_object()) problem_ = where_ + ": is no object";
}

const Json* EntryReader::Find(const char* member) {
    if (!entry_.is_object()) return nullptr;
    const auto found = entry_.find(member);
    if (found == entry_.end()) return nullptr;
    ++known_;
    return &*found;
}

std::optional<std::string> EntryReader::Text(const char* member) {
    const Json* value = Find(member);
    if (value != nullptr && value->is_string()) return value->get<std::string>();
    if (value != nullptr && problem_.empty()) problem_ = where_ + ": " + member + " is no text";
    return {};
}

std::optional<long> EntryReader::Number(const char* member) {
    const Json* value = Find(member);
    if (value != nullptr && value->is_number_integer()) return value->get<long>();
    if (value != nullptr && problem_.empty()) {
        problem_ = where_ + ": " + member + " is no whole number";
    }
    return {};
}

std::optional<bool> EntryReader::Flag(const char* member) {
    const Json* value = Find(member);
    if (value != nullptr && value->is_boolean()) return value->get<bool>();
    if (value != nullptr && problem_.empty()) {
        problem_ = where_ + ": " + member + " is neither true nor false";
    }
    return {};
}

std::string EntryReader::Problem() const {
    if (!problem_.empty() || known_ == entry_.size()) return problem_;
    return where_ + ": has a member that is none of such an entry";
}

}  // namespace kvhost
