// kvprefs overlay: the overlays of a printer, by their page and its editor.
#include <host/commands/list_arguments.h>
#include <host/controls/host_text.h>
#include <host/controls/overlay_driver.h>
#include <module/lists/overlay_entries.h>
#include <platform/registry/state_store.h>
#include <winspool.h>

#include <cstdio>
#include <vector>

namespace kvhost {
namespace {

std::string ValueOf(Session& session, const char* name) {
    HANDLE printer = nullptr;
    if (!OpenPrinterA(session.printer().printerName, &printer, nullptr)) return {};
    DWORD type = 0, needed = 0;
    std::string bytes;
    GetPrinterDataA(printer, const_cast<LPSTR>(name), &type, nullptr, 0, &needed);
    bytes.resize(needed);
    const DWORD error = GetPrinterDataA(printer, const_cast<LPSTR>(name), &type,
                                        reinterpret_cast<BYTE*>(bytes.data()), needed, &needed);
    ClosePrinter(printer);
    if (error != ERROR_SUCCESS) bytes.clear();
    return bytes;
}

// Without entry 0, which stands for none.
Json ReadOverlays(Session& session) {
    std::vector<DWORD> ids;
    kvui::ParseOverlayIds(ValueOf(session, kvui::kOverlayIds), kvui::kMostOverlayIds, ids);
    const std::string names = ValueOf(session, kvui::kOverlayNames);
    const std::string paths = ValueOf(session, kvui::kOverlayPaths);
    Json rows = Json::array();
    for (const DWORD id : ids) {
        std::string name, path;
        kvui::FindOverlayEntry(names, id, name);
        kvui::FindOverlayEntry(paths, id, path);
        if (id != 0) rows.push_back({{"id", id}, {"name", ToUtf8(name)}, {"path", path}});
    }
    return rows;
}

ExitStatus List(const Options& options) {
    Session session;
    if (!session.Open(options)) return kBadInput;
    const Json rows = ReadOverlays(session);
    if (options.json) return PrintJson(rows), kDone;
    for (const Json& row : rows) {
        std::printf("%-30s  %s\n", OnOneLine(row["name"]).c_str(), OnOneLine(row["path"]).c_str());
    }
    return kDone;
}

}  // namespace

std::vector<std::string> OverlayNames(const Options& options) {
    Session session;
    std::vector<std::string> names;
    if (!session.Look(options)) return names;
    for (const Json& row : ReadOverlays(session)) names.push_back(row["name"]);
    return names;
}

ExitStatus RunOverlay(const Options& options, ListCommand command, const ListArguments& args) {
    if (command == ListCommand::kList) return List(options);
    OverlayWish wish{args.name, args.newName, args.newFile, args.Answers()};
    if (command == ListCommand::kAdd) wish.file = args.file;
    return ChangeEntries(options, args.name, [&](Session& session, ControlDriver& driver) {
        OverlayDriver overlays(session, driver);
        if (command == ListCommand::kEdit) return overlays.Edit(wish);
        if (command == ListCommand::kDelete) return overlays.Delete(args.name);
        return overlays.Add(wish);
    });
}

}  // namespace kvhost
