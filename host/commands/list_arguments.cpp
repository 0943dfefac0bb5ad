// See list_arguments.h.
#include <host/commands/list_arguments.h>

#include <cstdio>
#include <fstream>
#include <iostream>
#include <iterator>

namespace kvhost {
namespace {

constexpr std::streamsize kMostBytes = 16 << 20;

std::string AsText(const Json& json) {
    return json.dump(2, ' ', false, Json::error_handler_t::replace) + "\n";
}

}  // namespace

ListAnswers ListArguments::Answers() const {
    ListAnswers answers;
    answers.overwrite = overwrite;
    if (common || own) answers.isCommon = common;
    return answers;
}

void PrintJson(const Json& json) {
    std::fputs(AsText(json).c_str(), stdout);
}

bool WriteJsonFile(const std::string& file, const Json& json) {
    if (file == "-") return PrintJson(json), true;
    std::ofstream out(file, std::ios::binary);
    out << AsText(json);
    out.close();
    if (!out) PrintError(file + ": cannot be written");
    return static_cast<bool>(out);
}

bool ReadJsonFile(const std::string& file, Json& json) {
    std::ifstream stored;
    if (file != "-") stored.open(file, std::ios::binary);
    std::istream& in = file == "-" ? std::cin : stored;
    std::string text(std::istreambuf_iterator<char>(in), {});
    if ((file != "-" && !stored.is_open()) || text.empty()) {
        PrintError(file + ": cannot be read, or is empty");
        return false;
    }
    if (static_cast<std::streamsize>(text.size()) > kMostBytes) {
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
