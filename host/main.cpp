// kvprefs: the printing preferences of a printer, in a window or from the command line.
#include <host/commands/commands.h>
#include <platform/registry/state_directory.h>
#include <platform/security/access.h>

#include <CLI/CLI.hpp>
#include <clocale>
#include <map>

namespace {

using namespace kvhost;

struct Arguments {
    Options options;
    std::string state;
    bool asUser = false;
    bool asAdministrator = false;
    std::vector<std::string> names;
    std::vector<std::string> pairs;
    std::string page;
    std::string view;
    std::string folder;
    std::string file;
    std::string other;
    std::string name;
    std::string port = "USB001";
    ConflictPolicy policy = ConflictPolicy::kAsk;
    double scale = 1;
    bool rightToLeft = false;
};

void AddGlobalOptions(CLI::App& app, Arguments& args) {
    app.add_option("--state", args.state, "Directory that holds printers and settings");
    app.add_option("--printer", args.options.printer, "Printer to work on");
    auto* user = app.add_flag("--as-user", args.asUser, "Act as an ordinary user");
    app.add_flag("--as-admin", args.asAdministrator, "Act as an administrator")->excludes(user);
    app.add_flag("--json", args.options.json, "Print JSON");
}

ExitStatus Run(CLI::App& app, Arguments& args, int argc, char** argv) {
    if (!args.state.empty()) kv::SetStateDirectory(args.state);
    if (args.asUser) kv::SetActingAsAdministrator(false);
    if (args.asAdministrator) kv::SetActingAsAdministrator(true);
    const auto chosen = [&](const char* name) { return app.got_subcommand(name); };
    if (chosen("get")) return RunGet(args.options, args.names);
    if (chosen("set")) return RunSet(args.options, args.pairs, args.policy);
    if (chosen("list")) return RunList(args.options, args.page);
    if (chosen("defaults")) return RunDefaults(args.options, args.page);
    if (chosen("shot")) {
        return RunShot(args.options, args.folder, args.page, args.view, args.scale,
                       args.rightToLeft);
    }
    if (chosen("record")) {
        CLI::App* record = app.get_subcommand("record");
        if (record->got_subcommand("export")) return RunRecordExport(args.options, args.file);
        if (record->got_subcommand("import")) return RunRecordImport(args.options, args.file);
        return RunRecordDiff(args.file, args.other);
    }
    if (chosen("printer")) {
        CLI::App* printer = app.get_subcommand("printer");
        if (printer->got_subcommand("add")) return RunPrinterAdd(args.name, args.port);
        if (printer->got_subcommand("remove")) return RunPrinterRemove(args.name);
        return RunPrinterList(args.options);
    }
    return RunOpen(args.options, argc, argv);
}

}  // namespace

int main(int argc, char** argv) {
    std::setlocale(LC_ALL, "");
    std::setlocale(LC_NUMERIC, "C");
    Arguments args;
    CLI::App app("Printing preferences of the Varnell Tessora 7720MF", "kvprefs");
    app.fallthrough();
    app.require_subcommand(0, 1);
    AddGlobalOptions(app, args);

    app.add_subcommand("open", "Open the window (the default)");
    auto* list = app.add_subcommand("list", "Show every control, or those of one page");
    list->add_option("page", args.page, "Page: Basic, Layout, Overlay, Watermark, Quality, ...");
    auto* get = app.add_subcommand("get", "Print fields of the stored settings");
    get->add_option("field", args.names, "Field names; none for all");
    auto* set = app.add_subcommand("set", "Change settings: all of them or none");
    set->add_option("pair", args.pairs, "CONTROL=VALUE; an entry's caption, name or number")
        ->required();
    const std::map<std::string, ConflictPolicy> policies = {{"ask", ConflictPolicy::kAsk},
                                                            {"resolve", ConflictPolicy::kResolve},
                                                            {"cancel", ConflictPolicy::kCancel}};
    set->add_option("--on-conflict", args.policy, "ask, resolve or cancel")
        ->transform(CLI::CheckedTransformer(policies));
    auto* defaults = app.add_subcommand("defaults", "Press Defaults on one page or on every page");
    defaults->add_option("page", args.page, "Page");
    auto* shot = app.add_subcommand("shot", "Draw every page and dialog to PNG files");
    shot->add_option("dir", args.folder, "Folder for the pictures")->required();
    shot->add_option("--page", args.page, "Only this page or dialog");
    shot->add_option("--view", args.view, "View of the preview: paper, printer, quality or watermark")
        ->check(CLI::IsMember({"paper", "printer", "quality", "watermark"}, CLI::ignore_case));
    shot->add_option("--scale", args.scale, "Size of a pixel, 1 to 4")->check(CLI::Range(1.0, 4.0));
    shot->add_flag("--rtl", args.rightToLeft, "Mirrored, for right-to-left languages");
    auto* record = app.add_subcommand("record", "Export, import or compare settings records");
    record->require_subcommand(1);
    record->add_subcommand("export", "Write the stored record")
        ->add_option("file", args.file)->required();
    record->add_subcommand("import", "Check a record and store it")
        ->add_option("file", args.file)->required();
    auto* diff = record->add_subcommand("diff", "Show the fields in which two records differ");
    diff->add_option("left", args.file)->required();
    diff->add_option("right", args.other)->required();
    auto* printer = app.add_subcommand("printer", "List, add or remove printers");
    printer->require_subcommand(1);
    printer->add_subcommand("list", "Names and ports");
    auto* add = printer->add_subcommand("add", "Add a printer");
    add->add_option("name", args.name)->required();
    add->add_option("--port", args.port, "Port name")->required();
    printer->add_subcommand("remove", "Remove a printer")->add_option("name", args.name)->required();
    for (CLI::App* command : app.get_subcommands({})) {
        command->fallthrough();
        for (CLI::App* sub : command->get_subcommands({})) sub->fallthrough();
    }

    try {
        app.parse(argc, argv);
    } catch (const CLI::ParseError& error) {
        return app.exit(error) == 0 ? kDone : kBadInput;
    }
    return Run(app, args, argc, argv);
}
