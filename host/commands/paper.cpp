// kvprefs paper: the custom papers of a printer, by their dialog.
#include <host/commands/list_arguments.h>
#include <host/controls/host_text.h>
#include <host/controls/paper_driver.h>
#include <host/controls/stored_lists.h>
#include <platform/security/access.h>
#include <strings.h>

#include <algorithm>
#include <cstdio>
#include <set>
#include <vector>

namespace kvhost {
namespace {

constexpr DWORD kFirstCustomPaper = 512;

using ListedPaper = Listed<CustomPaperRecord>;

// Those that users made.
bool ReadPapers(Session& session, std::vector<ListedPaper>& papers) {
    if (!ReadListed(session, kPaperCalls, papers)) {
        PrintError("the list of papers of this printer cannot be read");
        return false;
    }
    std::erase_if(papers,
                  [](const ListedPaper& paper) { return paper.record.id < kFirstCustomPaper; });
    return true;
}

DWORD Sixteenths(DWORD packed) {
    return (packed >> 16) * 16 + (packed & 0xFFFF);
}

Json AsJson(const ListedPaper& paper) {
    const CustomPaperRecord& record = paper.record;
    return {{"id", DWORD{record.id}},
            {"name", ToUtf8(record.displayName)},
            {"unit", record.unit == 0 ? "mm" : "inch"},
            {"width_mm10", DWORD{record.widthTenths}},
            {"height_mm10", DWORD{record.heightTenths}},
            {"width_inch16", Sixteenths(record.widthInches)},
            {"height_inch16", Sixteenths(record.heightInches)},
            {"common", paper.isCommon}};
}

std::string InchText(long sixteenths) {
    return std::to_string(sixteenths / 16) + " " + std::to_string(sixteenths % 16) + "/16";
}

ExitStatus List(const Options& options, const ListArguments& args, bool toFile) {
    Session session;
    std::vector<ListedPaper> papers;
    if (!session.Open(options) || !ReadPapers(session, papers)) return kBadInput;
    Json rows = Json::array();
    for (const ListedPaper& paper : papers) rows.push_back(AsJson(paper));
    if (toFile) return WriteJsonFile(args.file, rows) ? kDone : kBadInput;
    if (options.json) return PrintJson(rows), kDone;
    for (const ListedPaper& paper : papers) {
        const CustomPaperRecord& record = paper.record;
        const std::string size = record.unit == 0
                                     ? std::to_string(record.widthTenths / 10) + " x " +
                                           std::to_string(record.heightTenths / 10) + " mm"
                                     : InchText(Sixteenths(record.widthInches)) + " x " +
                                           InchText(Sixteenths(record.heightInches)) + " inch";
        std::printf("%-20s  %-26s  %s\n", OnOneLine(ToUtf8(record.displayName)).c_str(),
                    size.c_str(), paper.isCommon ? "everybody's" : "your own");
    }
    return kDone;
}

PaperWish WishOf(const ListArguments& args) {
    PaperWish wish;
    wish.name = args.name;
    wish.newName = args.newName;
    wish.width = args.width;
    wish.height = args.height;
    if (!args.unit.empty()) wish.inches = strcasecmp(args.unit.c_str(), "inch") == 0;
    wish.answers = args.Answers();
    return wish;
}

// One entry of a list file. Its size is that of the unit that its maker worked in.
std::string WishFrom(const Json& entry, size_t number, bool overwrite, PaperWish& wish) {
    EntryReader reader(entry, number);
    reader.Number("id");
    const auto name = reader.Text("name"), unit = reader.Text("unit");
    const auto width = reader.Number("width_mm10"), height = reader.Number("height_mm10");
    const auto width16 = reader.Number("width_inch16"), height16 = reader.Number("height_inch16");
    const auto common = reader.Flag("common");
    if (!reader.Problem().empty()) return reader.Problem();
    const bool inches = unit == "inch";
    const auto &wide = inches ? width16 : width, &high = inches ? height16 : height;
    if (!name || !wide || !high || (unit && unit != "mm" && !inches) || *wide < 0 || *high < 0) {
        return "entry " + std::to_string(number + 1) +
               ": expected a name, the unit mm or inch, and a width and height in it";
    }
    wish.name = *name;
    wish.inches = inches;
    wish.width = inches ? InchText(*wide) : std::to_string(*wide / 10);
    wish.height = inches ? InchText(*high) : std::to_string(*high / 10);
    wish.answers.overwrite = overwrite;
    wish.answers.isCommon = common.value_or(false) && kv::ActsAsAdministrator();
    return {};
}

bool ReadWishes(const ListArguments& args, std::vector<PaperWish>& wishes) {
    Json entries;
    if (!ReadJsonFile(args.file, entries)) return false;
    std::set<std::string> names;
    for (size_t i = 0; i < entries.size(); ++i) {
        PaperWish wish;
        std::string problem = WishFrom(entries[i], i, args.overwrite, wish);
        if (problem.empty() && !names.insert(wish.name).second) {
            problem = "entry " + std::to_string(i + 1) + ": " + Quoted(wish.name) + " comes twice";
        }
        if (!problem.empty()) {
            PrintError(args.file + ": " + problem + "; nothing was stored");
            return false;
        }
        wishes.push_back(wish);
    }
    return true;
}

}  // namespace

std::vector<std::string> PaperNames(const Options& options) {
    Session session;
    std::vector<ListedPaper> papers;
    std::vector<std::string> names;
    if (!session.Look(options) || !ReadPapers(session, papers)) return names;
    for (const ListedPaper& paper : papers) names.push_back(ToUtf8(paper.record.displayName));
    return names;
}

ExitStatus RunPaper(const Options& options, ListCommand command, const ListArguments& args) {
    const bool lists = command == ListCommand::kList || command == ListCommand::kExport;
    if (lists) return List(options, args, command == ListCommand::kExport);
    std::vector<PaperWish> wishes = {WishOf(args)};
    if (command == ListCommand::kImport) {
        wishes.clear();
        if (!ReadWishes(args, wishes)) return kBadInput;
    }
    return ChangeEntries(options, args.name, [&](Session& session, ControlDriver& driver) {
        PaperDriver papers(session, driver);
        if (command == ListCommand::kEdit) return papers.Edit(wishes[0]);
        if (command == ListCommand::kDelete) return papers.Delete(args.name);
        return papers.Add(wishes);
    });
}

}  // namespace kvhost
