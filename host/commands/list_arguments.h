// What the commands of the lists that users make are given, and the JSON that they share.
#pragma once

#include <host/controls/list_entries.h>
#include <host/controls/session.h>

#include <nlohmann/json.hpp>
#include <optional>
#include <string>
#include <vector>

namespace kvhost {

struct ListArguments {
    std::string name;
    std::string file;
    std::optional<std::string> newName, newFile;
    // papers
    std::optional<std::string> width, height;
    std::string unit;  // "mm", "inch", or empty for the printer's or the paper's own
    // watermarks
    std::optional<std::string> text, font, size, colour, angle, x, y;
    std::optional<bool> bold, italic;
    bool common = false, own = false, overwrite = false;

    ListAnswers Answers() const;
};

enum class ListCommand { kList, kAdd, kEdit, kDelete, kExport, kImport };

ExitStatus RunPaper(const Options& options, ListCommand command, const ListArguments& args);
ExitStatus RunWatermark(const Options& options, ListCommand command, const ListArguments& args);
ExitStatus RunOverlay(const Options& options, ListCommand command, const ListArguments& args);

// Those that can be changed, for completion; reads what is stored and no more.
std::vector<std::string> PaperNames(const Options& options);
std::vector<std::string> WatermarkNames(const Options& options);
std::vector<std::string> OverlayNames(const Options& options);

// Works once at the entries of a list, however often the settings have to be stored anew because
// somebody else did meanwhile: lists are stored by their dialogs.
using EntryWork = std::function<SetOutcome(Session&, ControlDriver&)>;
ExitStatus ChangeEntries(const Options& options, const std::string& name, const EntryWork& work);

using Json = nlohmann::ordered_json;
void PrintJson(const Json& json);
// "-" is standard output or input. False after saying why.
bool WriteJsonFile(const std::string& file, const Json& json);
bool ReadJsonFile(const std::string& file, Json& json);

// Reads the members of one entry of a list file, of which none may be unknown; the first problem
// stays.
class EntryReader {
 public:
    EntryReader(const Json& entry, size_t number);
    std::optional<std::string> Text(const char* member);
    std::optional<long> Number(const char* member);
    std::optional<bool> Flag(const char* member);
    // Empty when the entry is one.
    std::string Problem() const;

 private:
    const Json* Find(const char* member);
    const Json& entry_;
    std::string where_, problem_;
    size_t known_ = 0;
};

}  // namespace kvhost
