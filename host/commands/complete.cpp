// Candidates for the completion of shells, from the parser's own tree, the control index and, for a
// control of a page, from what the page offers now.
#include <framework/spool/printer_places.h>
#include <host/commands/command_tree.h>
#include <host/commands/commands.h>
#include <host/commands/complete.h>
#include <host/controls/option_driver.h>
#include <module/resources/resource.h>
#include <platform/registry/state_store.h>
#include <unistd.h>

#include <array>
#include <csignal>
#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <set>

namespace kvhost {
namespace {

// A person waits for the answer: better none than a late one.
constexpr unsigned kPatienceSeconds = 3;

enum class Source {
    kNothing,
    kPages,
    kPictures,
    kFields,
    kControls,
    kPrinters,
    kDeviceOptions,
    kMailboxEntries,
    kPolicies,
    kRemovals,
    kViews,
    kUnits,
    kPapers,
    kWatermarks,
    kOverlays,
    kFiles,
    kFolders,
};

struct SourceRow {
    const char* name;
    Source source;
};
// What stands after the words of a command.
constexpr SourceRow kArguments[] = {
    {"list", Source::kPages},
    {"defaults", Source::kPages},
    {"get", Source::kFields},
    {"set", Source::kControls},
    {"shot", Source::kFolders},
    {"open", Source::kPrinters},
    {"record export", Source::kFiles},
    {"record import", Source::kFiles},
    {"record check", Source::kFiles},
    {"record diff", Source::kFiles},
    {"device install", Source::kDeviceOptions},
    {"device remove", Source::kDeviceOptions},
    {"device record", Source::kFiles},
    {"mailbox assign", Source::kMailboxEntries},
    {"paper edit", Source::kPapers},
    {"paper delete", Source::kPapers},
    {"paper export", Source::kFiles},
    {"paper import", Source::kFiles},
    {"watermark edit", Source::kWatermarks},
    {"watermark delete", Source::kWatermarks},
    {"watermark export", Source::kFiles},
    {"watermark import", Source::kFiles},
    {"overlay edit", Source::kOverlays},
    {"overlay delete", Source::kOverlays},
    {"printer remove", Source::kPrinters},
    {"printer share", Source::kPrinters},
    {"printer take", Source::kPrinters},
};
// What an option takes.
constexpr SourceRow kOptionValues[] = {
    {"state", Source::kFolders},       {"printer", Source::kPrinters},
    {"page", Source::kPictures},       {"on-conflict", Source::kPolicies},
    {"on-removal", Source::kRemovals}, {"view", Source::kViews},
    {"file", Source::kFiles},          {"unit", Source::kUnits},
};

template <size_t count>
Source SourceOf(const SourceRow (&rows)[count], const std::string& name) {
    for (const SourceRow& row : rows) {
        if (name == row.name) return row.source;
    }
    return Source::kNothing;
}

// Shells hand over names and values that may hold anything; a candidate is one line.
void Offer(const std::string& word, const std::string& description = {}) {
    if (word.empty() || word.find_first_of("\t\n\r") != std::string::npos) return;
    std::printf("%s\t%s\n", word.c_str(), description.c_str());
}

// "device install".
std::string PathOf(const CLI::App& command) {
    const CLI::App* parent = command.get_parent();
    const bool isBelowRoot = parent == nullptr || parent->get_parent() == nullptr;
    return (isBelowRoot ? "" : PathOf(*parent) + " ") + command.get_name();
}

std::string NameOf(const CLI::Option& option) {
    return option.get_lnames().empty() ? std::string() : option.get_lnames().front();
}

// "A5" for "A5 (148 x 210 mm)": `set` takes both, and one is typed sooner.
void OfferValue(const std::string& control, const std::string& caption) {
    const std::string plain = caption.substr(0, caption.find(" ("));
    Offer(control + "=" + plain, plain == caption ? std::string() : caption);
}

class Completion {
   public:
    explicit Completion(const CLI::App& app) : root_(app), command_(&app) {}

    void Pass(const std::string& word);
    void OfferNext(const std::string& typed);

   private:
    const CLI::Option* FindOption(const std::string& name) const;
    void Note(const CLI::Option& option, const std::string& value);
    void OfferOptions() const;
    void OfferSource(Source source, const std::string& prefix, const std::string& typed);
    void OfferControls() const;
    void OfferValues(const std::string& name);

    const CLI::App& root_;
    const CLI::App* command_;
    const CLI::Option* awaited_ = nullptr;  // an option whose value comes next
    size_t arguments_ = 0;
    Options options_;
};

const CLI::Option* Completion::FindOption(const std::string& name) const {
    for (const CLI::App* app : {command_, &root_}) {
        for (const CLI::Option* option : app->get_options()) {
            if (option->check_lname(name)) return option;
        }
    }
    return nullptr;
}

// The words before say whose settings are meant.
void Completion::Note(const CLI::Option& option, const std::string& value) {
    if (NameOf(option) == "printer") options_.printer = value;
    if (NameOf(option) != "state" || value.empty()) return;
    const char* home = std::getenv("HOME");
    const bool atHome = home != nullptr && value.rfind("~/", 0) == 0;  // not yet expanded
    kv::SetStateDirectory(atHome ? home + value.substr(1) : value);
}

void Completion::Pass(const std::string& word) {
    if (awaited_ != nullptr) {
        Note(*awaited_, word);
        awaited_ = nullptr;
        return;
    }
    if (word.rfind("--", 0) == 0) {
        const size_t at = word.find('=');
        const CLI::Option* option = FindOption(word.substr(0, at).substr(2));
        if (option == nullptr || option->get_expected_max() == 0) return;
        if (at == std::string::npos) {
            awaited_ = option;
        } else {
            Note(*option, word.substr(at + 1));
        }
        return;
    }
    const auto fits = [&](const CLI::App* sub) { return sub->get_name() == word; };
    const auto found = command_->get_subcommands(fits);
    if (found.empty()) {
        ++arguments_;
    } else {
        command_ = found.front();
    }
}

void Completion::OfferNext(const std::string& typed) {
    if (awaited_ != nullptr) {
        OfferSource(SourceOf(kOptionValues, NameOf(*awaited_)), "", typed);
        return;
    }
    if (typed.rfind('-', 0) == 0) {
        const size_t at = typed.find('=');
        if (at == std::string::npos) {
            OfferOptions();
        } else if (at > 2) {
            OfferSource(SourceOf(kOptionValues, typed.substr(2, at - 2)), typed.substr(0, at + 1),
                        typed);
        }
        return;
    }
    const auto all = [](const CLI::App* sub) { return !sub->get_name().empty(); };
    const auto subs = command_->get_subcommands(all);
    if (arguments_ == 0) {
        for (const CLI::App* sub : subs) Offer(sub->get_name(), sub->get_description());
    }
    if (subs.empty()) OfferSource(SourceOf(kArguments, PathOf(*command_)), "", typed);
}

void Completion::OfferOptions() const {
    for (const CLI::App* app : {command_, &root_}) {
        for (const CLI::Option* option : app->get_options()) {
            const bool again = app == &root_ && command_ != &root_ &&
                               (NameOf(*option) == "help" || NameOf(*option) == "version");
            if (NameOf(*option).empty() || again) continue;
            Offer("--" + NameOf(*option), option->get_description());
        }
        if (command_ == &root_) return;
    }
}

void Completion::OfferSource(Source source, const std::string& prefix, const std::string& typed) {
    const auto offerAll = [&](const auto& names) {
        for (const auto& name : names) Offer(prefix + name);
    };
    switch (source) {
        case Source::kNothing:
            break;
        case Source::kPages:
            if (arguments_ == 0) offerAll(PageNames());
            break;
        case Source::kPictures:
            offerAll(PageNames());
            offerAll(PictureDialogNames());
            break;
        case Source::kFields:
            for (unsigned i = 0; i < kFieldCount; ++i) Offer(kFields[i].name);
            break;
        case Source::kControls:
            if (const size_t at = typed.find('='); at != std::string::npos) {
                OfferValues(typed.substr(0, at));
            } else {
                OfferControls();
            }
            break;
        case Source::kPrinters: {
            std::vector<kvspool::PlacedPrinter> printers;
            std::string problem;
            kvspool::ListPrinters(printers, problem);
            for (const kvspool::PlacedPrinter& printer : printers) {
                if (!printer.isHidden) Offer(prefix + printer.record.name, printer.record.port);
            }
            break;
        }
        case Source::kPolicies:
            offerAll(kPolicyNames);
            break;
        case Source::kRemovals:
            offerAll(kRemovalNames);
            break;
        case Source::kDeviceOptions:
            for (const std::string& name : OptionDriver::Names()) Offer(name);
            break;
        case Source::kMailboxEntries: {
            const Control& assign = *FindControl(IDC_COMBO_MAILBOX_ASSIGN);
            for (unsigned i = 0; i < assign.choiceCount; ++i) Offer(assign.choices[i].name);
            break;
        }
        case Source::kViews:
            offerAll(kViewNames);
            break;
        case Source::kUnits:
            offerAll(std::array{"mm", "inch"});
            break;
        case Source::kPapers:
            if (arguments_ == 0) offerAll(PaperNames(options_));
            break;
        case Source::kWatermarks:
            if (arguments_ == 0) offerAll(WatermarkNames(options_));
            break;
        case Source::kOverlays:
            if (arguments_ == 0) offerAll(OverlayNames(options_));
            break;
        case Source::kFiles:
            std::puts("\tfiles");
            break;
        case Source::kFolders:
            std::puts("\tfolders");
            break;
    }
}

// Those that `set` can give a value.
void Completion::OfferControls() const {
    std::set<std::string_view> offered;
    for (unsigned i = 0; i < kControlCount; ++i) {
        const Control& control = kControls[i];
        const std::string_view kind = control.kind;
        if (kind == "text" || kind == "button" || control.setting[0] == '\0') continue;
        if (!offered.insert(control.name).second) continue;
        Offer(std::string(control.name) + "=", std::string(kind) + ", " + control.setting);
    }
}

// What the control's page offers with the stored settings, else what the catalogue names.
void Completion::OfferValues(const std::string& name) {
    const Control* control = FindControl(name);
    if (control == nullptr) return;
    Session session;
    if (PageIndexOfDialog(control->dialog) >= 0 && session.Look(options_) &&
        session.OpenHeadlessSheet() != nullptr) {
        ControlDriver driver(session, ConflictPolicy::kCancel);
        if (const HWND window = driver.WindowOf(*control)) {
            for (const ChoiceText& choice : ChoicesOf(*control, window)) {
                OfferValue(name, choice.text);
            }
        }
        // The sheet's end would write; a look leaves no trace.
        std::fflush(stdout);
        kv::CloseStateStore();
        _exit(kDone);
    }
    for (const Control* other = control; other < kControls + kControlCount; ++other) {
        // Of several lists of one name in a dialog, one is shown; which one is not known here.
        if (other->name != name || std::strcmp(other->dialog, control->dialog) != 0) continue;
        for (unsigned i = 0; i < other->choiceCount; ++i) {
            OfferValue(name, other->choices[i].name);
        }
    }
}

}  // namespace

ExitStatus RunComplete(const CLI::App& app, const std::vector<std::string>& words) {
    if (std::freopen("/dev/null", "w", stderr) == nullptr) return kDone;
    std::signal(SIGALRM, [](int) { _exit(kDone); });
    alarm(kPatienceSeconds);
    Completion completion(app);
    for (size_t i = 0; i + 1 < words.size(); ++i) completion.Pass(words[i]);
    completion.OfferNext(words.empty() ? std::string() : words.back());
    return kDone;
}

}  // namespace kvhost
