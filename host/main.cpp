// kvprefs: the printing preferences of a printer, in a window or from the command line.
#include <framework/core/install_printer.h>
#include <host/commands/command_tree.h>
#include <host/commands/commands.h>
#include <host/commands/complete.h>
#include <host/controls/wait_progress.h>
#include <platform/registry/state_store.h>
#include <platform/security/access.h>

#include <clocale>
#include <cstring>
#include <string>

namespace {

using namespace kvhost;

// What is done to a list that users make; all of its commands but listing come with arguments.
ListCommand ListCommandOf(const CLI::App& list) {
    constexpr std::pair<const char*, ListCommand> kCommands[] = {
        {"add", ListCommand::kAdd},       {"edit", ListCommand::kEdit},
        {"delete", ListCommand::kDelete}, {"export", ListCommand::kExport},
        {"import", ListCommand::kImport},
    };
    for (const CLI::App* sub : list.get_subcommands()) {
        for (const auto& [name, command] : kCommands) {
            if (sub->get_name() == name) return command;
        }
    }
    return ListCommand::kList;
}

ExitStatus Run(CLI::App& app, Arguments& args, int argc, char** argv) {
    if (!args.state.empty()) kv::SetStateDirectory(args.state);
    if (args.asUser) kv::SetActingAsAdministrator(false);
    if (args.asAdministrator) kv::SetActingAsAdministrator(true);
    const WaitProgress progress;
    const auto chosen = [&](const char* name) { return app.got_subcommand(name); };
    if (chosen("get")) return RunGet(args.options, args.names);
    if (chosen("set")) {
        return RunSet(args.options, args.pairs, PolicyOfName(args.policy), args.service);
    }
    if (chosen("list")) return RunList(args.options, args.page);
    if (chosen("defaults")) return RunDefaults(args.options, args.page);
    if (chosen("shot")) {
        return RunShot(args.options, args.folder, args.page, args.view, args.scale,
                       args.rightToLeft);
    }
    if (chosen("record")) {
        CLI::App* record = app.get_subcommand("record");
        if (record->got_subcommand("export")) return RunRecordExport(args.options, args.file);
        if (record->got_subcommand("import")) {
            return RunRecordImport(args.options, args.file, args.force);
        }
        if (record->got_subcommand("check")) {
            return RunRecordCheck(args.options, args.file, args.force);
        }
        return RunRecordDiff(args.file, args.other);
    }
    if (chosen("device")) {
        CLI::App* device = app.get_subcommand("device");
        if (device->got_subcommand("query")) {
            return RunDeviceQuery(args.options, PolicyOfName(args.policy));
        }
        if (device->got_subcommand("record")) return RunDeviceRecord(args.options, args.file);
        const bool install = device->got_subcommand("install");
        if (!install && !device->got_subcommand("remove")) return RunDevice(args.options);
        return RunDevicePut(args.options, args.names, install, PolicyOfName(args.policy));
    }
    if (chosen("mailbox")) {
        CLI::App* mailbox = app.get_subcommand("mailbox");
        if (mailbox->got_subcommand("assign")) return RunMailboxAssign(args.options, args.entry);
        if (mailbox->got_subcommand("name")) {
            return RunMailboxName(args.options, args.entry, args.name);
        }
        return RunMailbox(args.options);
    }
    constexpr std::pair<const char*, decltype(&RunPaper)> kLists[] = {
        {"paper", RunPaper}, {"watermark", RunWatermark}, {"overlay", RunOverlay}};
    for (const auto& [name, run] : kLists) {
        if (chosen(name)) {
            return run(args.options, ListCommandOf(*app.get_subcommand(name)), args.list);
        }
    }
    if (chosen("printer")) {
        CLI::App* printer = app.get_subcommand("printer");
        if (printer->got_subcommand("add")) return RunPrinterAdd(args.printer);
        if (printer->got_subcommand("remove")) return RunPrinterRemove(args.printer);
        if (printer->got_subcommand("share")) return RunPrinterShare(args.printer);
        if (printer->got_subcommand("take")) return RunPrinterTake(args.printer);
        return RunPrinterList(args.options);
    }
    return RunOpen(args.options, args.names, argc, argv);
}

}  // namespace

int main(int argc, char** argv) {
    std::setlocale(LC_ALL, "");
    std::setlocale(LC_NUMERIC, "C");
    Arguments args;
    CLI::App app(std::string("Printing preferences of the ") + kvcore::kDriverName, "kvprefs");
    app.set_version_flag("--version", "kvprefs " KV_VERSION);
    DescribeCommands(app, args);
    // Half a command line is no command line yet: the parser does not see it.
    if (argc > 1 && std::strcmp(argv[1], "complete") == 0) {
        return RunComplete(app, {argv + 2, argv + argc});
    }
    try {
        app.parse(argc, argv);
    } catch (const CLI::ParseError& error) {
        if (error.get_exit_code() == 0) return app.exit(error) == 0 ? kDone : kBadInput;  // --help
        PrintError(ProblemOf(error, app));
        return kBadInput;
    }
    return Run(app, args, argc, argv);
}
