// kvprefs watermark: the watermarks of a printer, by their page and its editor.
#include <host/commands/list_arguments.h>
#include <host/controls/host_text.h>
#include <host/controls/stored_lists.h>
#include <host/controls/watermark_driver.h>
#include <kvspool.h>
#include <platform/security/access.h>

#include <cstdio>
#include <set>
#include <vector>

namespace kvhost {
namespace {

constexpr DWORD kFirstUserWatermark = 128;

using ListedWatermark = Listed<WatermarkRecord>;

// Without the one that stands for none.
bool ReadWatermarks(Session& session, std::vector<ListedWatermark>& watermarks) {
    if (!ReadListed(session, kWatermarkCalls, watermarks)) {
        PrintError("the list of watermarks of this printer cannot be read");
        return false;
    }
    std::erase_if(watermarks,
                  [](const ListedWatermark& watermark) { return watermark.record.id == 0; });
    return true;
}

Json AsJson(const ListedWatermark& watermark) {
    const WatermarkRecord& record = watermark.record;
    char colour[8];
    std::snprintf(colour, sizeof colour, "%02X%02X%02X", record.red, record.green, record.blue);
    return {{"id", DWORD{record.id}},       {"name", ToUtf8(record.name)},
            {"text", ToUtf8(record.text)},  {"font", ToUtf8(record.typeface)},
            {"size", DWORD{record.size}},   {"bold", record.bold != 0},
            {"italic", record.italic != 0}, {"colour", colour},
            {"angle", LONG{record.angle}},  {"x", LONG{record.offsetX}},
            {"y", LONG{record.offsetY}},    {"common", watermark.isCommon}};
}

ExitStatus List(const Options& options, const ListArguments& args, bool toFile) {
    Session session;
    std::vector<ListedWatermark> watermarks;
    if (!session.Open(options) || !ReadWatermarks(session, watermarks)) return kBadInput;
    Json rows = Json::array();
    for (const ListedWatermark& watermark : watermarks) {
        // The printer's own are there on every printer of the model.
        if (!toFile || watermark.record.id >= kFirstUserWatermark) {
            rows.push_back(AsJson(watermark));
        }
    }
    if (toFile) return WriteJsonFile(args.file, rows) ? kDone : kBadInput;
    if (options.json) return PrintJson(rows), kDone;
    for (const ListedWatermark& watermark : watermarks) {
        const WatermarkRecord& record = watermark.record;
        const char* whose = watermark.isCommon ? "everybody's" : "your own";
        std::printf("%-22s  %-24s  %s\n", OnOneLine(ToUtf8(record.name)).c_str(),
                    OnOneLine(ToUtf8(record.text)).c_str(),
                    record.id < kFirstUserWatermark ? "the printer's" : whose);
    }
    return kDone;
}

WatermarkWish WishOf(const ListArguments& args) {
    return {.name = args.name,
            .newName = args.newName,
            .text = args.text,
            .font = args.font,
            .size = args.size,
            .angle = args.angle,
            .x = args.x,
            .y = args.y,
            .colour = args.colour,
            .bold = args.bold,
            .italic = args.italic,
            .points = {},
            .answers = args.Answers()};
}

std::optional<std::string> Written(std::optional<long> number) {
    if (!number) return {};
    return std::to_string(*number);
}

// One entry of a list file; the place of its text is left out, because it is in points there.
std::string WishFrom(const Json& entry, size_t number, bool overwrite, WatermarkWish& wish,
                     std::optional<long> (&place)[2]) {
    EntryReader reader(entry, number);
    reader.Number("id");
    const auto name = reader.Text("name");
    wish.text = reader.Text("text");
    wish.font = reader.Text("font");
    wish.size = Written(reader.Number("size"));
    wish.bold = reader.Flag("bold");
    wish.italic = reader.Flag("italic");
    wish.colour = reader.Text("colour");
    wish.angle = Written(reader.Number("angle"));
    place[0] = reader.Number("x");
    place[1] = reader.Number("y");
    const auto common = reader.Flag("common");
    if (!reader.Problem().empty()) return reader.Problem();
    if (!name || !wish.text) {
        return "entry " + std::to_string(number + 1) + ": expected a name and a text";
    }
    wish.name = *name;
    wish.answers.overwrite = overwrite;
    wish.answers.isCommon = common.value_or(false) && kv::ActsAsAdministrator();
    return {};
}

// What is stored for the entries of a file is stored together: all of them or none.
class TogetherStored {
 public:
    explicit TogetherStored(Session& session) {
        PRINTER_DEFAULTSA access{nullptr, nullptr, PRINTER_ACCESS_ADMINISTER | PRINTER_ACCESS_USE};
        if (OpenPrinterA(session.printer().printerName, &printer_, &access)) {
            open_ = KVSPBeginPrinterChange(printer_) == ERROR_SUCCESS;
        }
    }
    ~TogetherStored() {
        if (open_) KVSPEndPrinterChange(printer_, FALSE);
        if (printer_ != nullptr) ClosePrinter(printer_);
    }
    TogetherStored(const TogetherStored&) = delete;
    TogetherStored& operator=(const TogetherStored&) = delete;

    explicit operator bool() const { return open_; }
    bool Commit() {
        open_ = false;
        return KVSPEndPrinterChange(printer_, TRUE) == ERROR_SUCCESS;
    }

 private:
    HANDLE printer_ = nullptr;
    bool open_ = false;
};

struct Import {
    std::vector<WatermarkWish> wishes;
    std::vector<std::pair<std::optional<long>, std::optional<long>>> places;
};

bool ReadImport(const ListArguments& args, Import& import) {
    Json entries;
    if (!ReadJsonFile(args.file, entries)) return false;
    std::set<std::string> names;
    for (size_t i = 0; i < entries.size(); ++i) {
        WatermarkWish wish;
        std::optional<long> place[2];
        std::string problem = WishFrom(entries[i], i, args.overwrite, wish, place);
        if (problem.empty() && !names.insert(wish.name).second) {
            problem = "entry " + std::to_string(i + 1) + ": " + Quoted(wish.name) + " comes twice";
        }
        if (!problem.empty()) {
            PrintError(args.file + ": " + problem + "; nothing was stored");
            return false;
        }
        import.wishes.push_back(wish);
        import.places.emplace_back(place[0], place[1]);
    }
    return true;
}

SetOutcome AddAll(Session& session, ControlDriver& driver, const Import& import) {
    TogetherStored together(session);
    if (!together) {
        return Refuse(kRefused, "the watermarks of this printer belong to its administrators");
    }
    WatermarkDriver watermarks(session, driver);
    for (size_t i = 0; i < import.wishes.size(); ++i) {
        WatermarkWish wish = import.wishes[i];
        wish.points = import.places[i];
        const SetOutcome added = watermarks.Add(wish);
        if (added.status != kDone) return added;
    }
    return together.Commit() ? SetOutcome() : Refuse(kRefused, "the list could not be stored");
}

}  // namespace

std::vector<std::string> WatermarkNames(const Options& options) {
    Session session;
    std::vector<ListedWatermark> watermarks;
    std::vector<std::string> names;
    if (!session.Look(options) || !ReadWatermarks(session, watermarks)) return names;
    for (const ListedWatermark& watermark : watermarks) {
        if (watermark.record.id >= kFirstUserWatermark)
            names.push_back(ToUtf8(watermark.record.name));
    }
    return names;
}

ExitStatus RunWatermark(const Options& options, ListCommand command, const ListArguments& args) {
    const bool lists = command == ListCommand::kList || command == ListCommand::kExport;
    if (lists) return List(options, args, command == ListCommand::kExport);
    if (command == ListCommand::kImport) {
        Import import;
        if (!ReadImport(args, import)) return kBadInput;
        return ChangeEntries(options, "", [&](Session& session, ControlDriver& driver) {
            return AddAll(session, driver, import);
        });
    }
    const WatermarkWish wish = WishOf(args);
    return ChangeEntries(options, args.name, [&](Session& session, ControlDriver& driver) {
        WatermarkDriver watermarks(session, driver);
        if (command == ListCommand::kEdit) return watermarks.Edit(wish);
        if (command == ListCommand::kDelete) return watermarks.Delete(args.name);
        return watermarks.Add(wish);
    });
}

}  // namespace kvhost
