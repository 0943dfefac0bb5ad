// Commands and options for the parser; every command's help ends with an example.
#include <host/commands/command_tree.h>


namespace kvhost {

const char* const kPolicyNames[3] = {"ask", "resolve", "cancel"};
const char* const kRemovalNames[3] = {"ask", "accept", "refuse"};
const char* const kViewNames[4] = {"paper", "printer", "quality", "watermark"};

namespace {

struct ExampleRow {
    const char* command;
    const char* example;
};
// command, what its help shows
constexpr ExampleRow kExamples[] = {
    {"kvprefs", "kvprefs set ComboPaperSize=A5 EditCopies=2"},
    {"open", "kvprefs open Lobby \"Second floor\""},
    {"list", "kvprefs list Layout"},
    {"get", "kvprefs get dmPaperSize dmCopies"},
    {"set", "kvprefs set ComboNup=Booklet --on-conflict=resolve"},
    {"defaults", "kvprefs defaults Quality"},
    {"shot", "kvprefs shot pictures --page Basic --scale 2"},
    {"record", "kvprefs record export lobby.record"},
    {"record export", "kvprefs record export lobby.record --printer Lobby"},
    {"record import", "kvprefs record import lobby.record"},
    {"record check", "kvprefs record check lobby.record"},
    {"record diff", "kvprefs record diff before.record after.record"},
    {"device", "kvprefs device --json"},
    {"device query", "kvprefs device query --on-removal=accept"},
    {"device record", "kvprefs device record answer.pjl"},
    {"device install", "kvprefs device install \"Tray 3\" --on-conflict=resolve"},
    {"device remove", "kvprefs device remove Tray3"},
    {"mailbox", "kvprefs mailbox --json"},
    {"mailbox assign", "kvprefs mailbox assign \"8-10 bin\""},
    {"mailbox name", "kvprefs mailbox name 9 Ada"},
    {"paper", "kvprefs paper list"},
    {"paper list", "kvprefs paper list --json"},
    {"paper add", "kvprefs paper add Card --width \"5 8/16\" --height 8.5 --unit inch"},
    {"paper edit", "kvprefs paper edit Card --name \"Index card\" --height 150"},
    {"paper delete", "kvprefs paper delete Card"},
    {"paper export", "kvprefs paper export papers.json"},
    {"paper import", "kvprefs paper import papers.json --overwrite"},
    {"watermark", "kvprefs watermark list"},
    {"watermark list", "kvprefs watermark list --json"},
    {"watermark add", "kvprefs watermark add Secret --text SECRET --angle 30 --colour CC0000"},
    {"watermark edit", "kvprefs watermark edit Secret --size 120 --no-bold"},
    {"watermark delete", "kvprefs watermark delete Secret"},
    {"watermark export", "kvprefs watermark export -"},
    {"watermark import", "kvprefs watermark import watermarks.json"},
    {"overlay", "kvprefs overlay list"},
    {"overlay list", "kvprefs overlay list --json"},
    {"overlay add", "kvprefs overlay add Letterhead forms/letterhead.prn"},
    {"overlay edit", "kvprefs overlay edit Letterhead --file forms/new.prn"},
    {"overlay delete", "kvprefs overlay delete Letterhead"},
    {"printer", "kvprefs printer list"},
    {"printer list", "kvprefs printer list --json"},
    {"printer add", "kvprefs printer add Lobby --port IP_192.0.2.7"},
    {"printer remove", "kvprefs printer remove Lobby"},
    {"printer share", "kvprefs printer share Lobby"},
    {"printer take", "kvprefs printer take Lobby --as \"My Lobby\""},
};

// An option may stand before or after the words of its command.
void FinishCommand(CLI::App& command, const std::string& path) {
    for (const ExampleRow& row : kExamples) {
        if (path == row.command) command.footer(std::string("Example:\n  ") + row.example);
    }
    command.fallthrough();
    const bool isRoot = command.get_parent() == nullptr;
    for (CLI::App* sub : command.get_subcommands({})) {
        FinishCommand(*sub, (isRoot ? std::string() : path + " ") + sub->get_name());
    }
}

void AddGlobalOptions(CLI::App& app, Arguments& args) {
    app.add_option("--state", args.state, "Directory that holds printers and settings");
    app.add_option("--printer", args.options.printer, "Printer to work on");
    auto* user = app.add_flag("--as-user", args.asUser, "Act as an ordinary user");
    app.add_flag("--as-admin", args.asAdministrator, "Act as an administrator")->excludes(user);
    app.add_flag("--json", args.options.json, "Print JSON");
}

void AddShot(CLI::App& app, Arguments& args) {
    auto* shot = app.add_subcommand("shot", "Draw every page and dialog to PNG files");
    shot->add_option("folder", args.folder, "Folder for the pictures")->required();
    shot->add_option("--page", args.page, "Only this page or dialog");
    shot->add_option("--view", args.view, "View of the preview: paper, printer, quality or watermark")
        ->check(CLI::IsMember(std::vector<std::string>(std::begin(kViewNames), std::end(kViewNames)),
                              CLI::ignore_case));
    shot->add_option("--scale", args.scale, "Size of a pixel, 1 to 4")->check(CLI::Range(1.0, 4.0));
    shot->add_flag("--rtl", args.rightToLeft, "Mirrored, for right-to-left languages");
}

void AddPolicy(CLI::App& command, Arguments& args) {
    command.add_option("--on-conflict", args.policy, "ask, resolve or cancel")
        ->check(CLI::IsMember(
            std::vector<std::string>(std::begin(kPolicyNames), std::end(kPolicyNames)),
            CLI::ignore_case));
}

void AddSettings(CLI::App& app, Arguments& args) {
    auto* list = app.add_subcommand("list", "Show every control, or those of one page");
    list->add_option("page", args.page, "Page: Basic, Layout, Overlay, Watermark, Quality, ...");
    auto* get = app.add_subcommand("get", "Print fields of the stored settings");
    get->add_option("field", args.names, "Field names; none for all");
    auto* set = app.add_subcommand("set", "Change settings: all of them or none");
    set->add_option("assignment", args.pairs, "CONTROL=VALUE; an entry's caption, name or number")
        ->required();
    AddPolicy(*set, args);
    set->add_flag(
        "--service", args.service,
        "Also by the labels of the hidden dialogs for service technicians: DPL=40, Mirror=on, "
        "Hue.Red=250,0,0");
    auto* defaults = app.add_subcommand("defaults", "Press Defaults on one page or on every page");
    defaults->add_option("page", args.page, "Page");
}

void AddRecord(CLI::App& app, Arguments& args) {
    auto* record =
        app.add_subcommand("record", "Export, import, check or compare settings records");
    record->require_subcommand(1);
    const char* const kFile = "File; - for standard input or output";
    record->add_subcommand("export", "Write the stored record")
        ->add_option("file", args.file, kFile)
        ->required();
    for (const auto& [name, text] :
         {std::pair("import", "Check a record and store it"),
          std::pair("check", "Say what import would say, and store nothing")}) {
        auto* command = record->add_subcommand(name, text);
        command->add_option("file", args.file, kFile)->required();
        command->add_flag("--force", args.force,
                          "Take values that no control offers (for service technicians)");
    }
    auto* diff = record->add_subcommand("diff", "Show the fields in which two records differ");
    diff->add_option("left", args.file)->required();
    diff->add_option("right", args.other)->required();
}

void AddDevice(CLI::App& app, Arguments& args) {
    auto* device = app.add_subcommand(
        "device", "Show, install or remove the printer's options, or ask for them");
    device->require_subcommand(0, 1);
    device->add_subcommand("query", "Ask the printer which options it has")
        ->add_option("--on-removal", args.policy,
                     "About options that it does not report: ask, accept or refuse")
        ->check(CLI::IsMember(
            std::vector<std::string>(std::begin(kRemovalNames), std::end(kRemovalNames)),
            CLI::ignore_case));
    device->add_subcommand("record", "Write the printer's answer to a file, for a bug report")
        ->add_option("file", args.file, "File; - for standard output")
        ->required();
    for (const auto& [name, text] :
         {std::pair("install", "Tell that options have been fitted; other settings go to defaults"),
          std::pair("remove", "Tell that options are gone; other settings go to defaults")}) {
        auto* command = device->add_subcommand(name, text);
        command->add_option("option", args.names, "Label, name or number of the bit")->required();
        AddPolicy(*command, args);
    }
}

void AddMailbox(CLI::App& app, Arguments& args) {
    auto* mailbox =
        app.add_subcommand("mailbox", "Show, assign or name the mailboxes of the sorter");
    mailbox->require_subcommand(0, 1);
    mailbox->add_subcommand("assign", "Give bins over to mailboxes")
        ->add_option("entry", args.entry, "Caption, name or number of an entry of its dialog")
        ->required();
    auto* name = mailbox->add_subcommand("name", "Name a mailbox (administrators)");
    name->add_option("bin", args.entry, "Number of the bin, or its present name")->required();
    name->add_option("name", args.name, "Its new name")->required();
}

// list, add, edit and delete, with what is common to them; `describe` adds the options of one
// entry.
using DescribeEntry = std::function<void(CLI::App&, ListArguments&)>;
CLI::App& AddEntries(CLI::App& app, ListArguments& given, const char* entry, const char* help,
                     const DescribeEntry& describe) {
    auto* list = app.add_subcommand(entry, help);
    list->require_subcommand(1);
    const std::string what = entry;
    list->add_subcommand("list", "Show those that there are");
    for (const auto& [name, text] :
         {std::pair("add", "Add one"), std::pair("edit", "Change one")}) {
        auto* sub = list->add_subcommand(name, text);
        sub->add_option("name", given.name, "Its name, or #ID")->required();
        const bool isNew = std::string_view(name) == "add";
        if (!isNew) sub->add_option("--name", given.newName, "Its new name");
        describe(*sub, given);
        sub->add_flag("--overwrite", given.overwrite, "Replace another " + what + " of that name");
    }
    list->add_subcommand("delete", "Delete one")
        ->add_option("name", given.name, "Its name, or #ID")
        ->required();
    return *list;
}

void AddListFiles(CLI::App& list, ListArguments& given) {
    for (const auto& [name, text] :
         {std::pair("export", "Write the ones that users made to a file, as JSON"),
          std::pair("import", "Add those of such a file: all of them or none")}) {
        auto* sub = list.add_subcommand(name, text);
        sub->add_option("file", given.file, "File; - for standard input or output")->required();
        if (std::string_view(name) == "import") {
            sub->add_flag("--overwrite", given.overwrite, "Replace those of the same names");
        }
    }
}

void AddSharing(CLI::App& command, ListArguments& given) {
    auto* common = command.add_flag("--common", given.common, "For everybody (administrators)");
    command.add_flag("--own", given.own, "For yourself, as without it")->excludes(common);
}

void AddLists(CLI::App& app, ListArguments& given) {
    CLI::App& paper = AddEntries(
        app, given, "paper", "Custom papers: list, add, change, delete, export, import",
        [](CLI::App& command, ListArguments& args) {
            const bool isNew = command.get_name() == "add";
            command.add_option("--width", args.width, "120, or 8 8/16 and 8.5 inch")
                ->required(isNew);
            command.add_option("--height", args.height, "As the width")->required(isNew);
            command.add_option("--unit", args.unit, "mm or inch; the printer's without it")
                ->check(CLI::IsMember(std::vector<std::string>{"mm", "inch"}, CLI::ignore_case));
            if (isNew) AddSharing(command, args);
        });
    AddListFiles(paper, given);
    CLI::App& watermark = AddEntries(
        app, given, "watermark", "Watermarks: list, add, change, delete, export, import",
        [](CLI::App& command, ListArguments& args) {
            command.add_option("--text", args.text, "What is printed")
                ->required(command.get_name() == "add");
            command.add_option("--font", args.font, "An installed typeface");
            command.add_option("--size", args.size, "In points, 8 to 200");
            command.add_flag("--bold,!--no-bold", args.bold);
            command.add_flag("--italic,!--no-italic", args.italic);
            command.add_option("--colour", args.colour, "RRGGBB");
            command.add_option("--angle", args.angle, "Degrees, -180 to 180, counter-clockwise");
            command.add_option("--x", args.x, "Per cent of half the page to the right");
            command.add_option("--y", args.y, "Per cent of half the page upwards");
            AddSharing(command, args);
        });
    AddListFiles(watermark, given);
    AddEntries(app, given, "overlay", "Overlays, forms that the printer merges: list, add, ...",
               [](CLI::App& command, ListArguments& args) {
                   if (command.get_name() == "add") {
                       command.add_option("file", args.file, "Its print file")->required();
                   } else {
                       command.add_option("--file", args.newFile, "Its new print file");
                   }
               });
}

void AddPrinter(CLI::App& app, Arguments& args) {
    PrinterArguments& given = args.printer;
    auto* printer = app.add_subcommand("printer", "List, add, remove, share or copy printers");
    printer->require_subcommand(1);
    printer->add_subcommand("list", "Names, ports, and whose they are");
    const auto named = [&](const char* command, const char* help) {
        auto* sub = printer->add_subcommand(command, help);
        sub->add_option("name", given.name)->required();
        return sub;
    };
    const char* const kHide = "Even if it hides a shared printer of that name from you";
    auto* add = named("add", "Add a printer: an administrator a shared one, others their own");
    add->add_option("--port", given.port,
                    "IP_ADDRESS, USB001, http://HOST/ipp, \\\\SERVER\\SMB_PRI1, or another name")
        ->required();
    add->add_option("--device", given.device, "Device file of a USB port, so that it can be asked");
    add->add_flag("--no-bidi", given.oneDirection, "The port brings no answers back");
    add->add_flag("--shared", given.isShared, "Shared with other machines");
    add->add_flag("--private", given.isPrivate, "Of your own, also as an administrator");
    add->add_flag("--hide-shared", given.hideShared, kHide);
    named("remove", "Remove a printer")
        ->add_flag("--shared", given.isShared, "The shared one, though your own hides it");
    named("share", "Make your own printer one of the whole machine (administrators)");
    auto* take = named("take", "Make a copy of your own of a shared printer");
    take->add_option("--as", given.newName, "Name of the copy");
    take->add_flag("--hide-shared", given.hideShared, kHide);
}

}  // namespace

void DescribeCommands(CLI::App& app, Arguments& args) {
    app.require_subcommand(0, 1);
    AddGlobalOptions(app, args);
    app.add_subcommand("open", "Open the window (the default); of several printers one by one")
        ->add_option("printer", args.names, "Printers; the first one without a name");
    AddSettings(app, args);
    AddShot(app, args);
    AddRecord(app, args);
    AddDevice(app, args);
    AddMailbox(app, args);
    AddLists(app, args.list);
    AddPrinter(app, args);
    FinishCommand(app, app.get_name());
}

ConflictPolicy PolicyOfName(const std::string& name) {
    const std::string lower = CLI::detail::to_lower(name);
    if (lower == kPolicyNames[1] || lower == kRemovalNames[1]) return ConflictPolicy::kResolve;
    if (lower == kPolicyNames[2] || lower == kRemovalNames[2]) return ConflictPolicy::kCancel;
    return ConflictPolicy::kAsk;
}

std::string ProblemOf(const CLI::ParseError& error, const CLI::App& app) {
    std::string problem = error.what();
    if (error.get_exit_code() == static_cast<int>(CLI::ExitCodes::ExtrasError)) {
        problem.clear();
        for (const std::string& word : app.remaining(true)) {
            problem += (problem.empty() ? "unknown command or option \"" : "\", \"") + word;
        }
        problem += '"';
    }
    std::string command;
    for (const CLI::App* at = &app; !at->get_subcommands().empty();) {
        at = at->get_subcommands().front();
        command += " " + at->get_name();
    }
    return problem + "; `kvprefs" + command + " --help` tells what it takes";
}

}  // namespace kvhost
