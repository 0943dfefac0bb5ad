// kvprefs list: every control with what it shows and offers now.
#include <host/commands/commands.h>
#include <platform/registry/state_directory.h>
#include <strings.h>

#include <cstdio>
#include <cstring>
#include <nlohmann/json.hpp>

namespace kvhost {
namespace {

struct Alias {
    const char* caption;
    const char* dialogName;
};
// What pages are called on the command line, the usual name first.
constexpr Alias kAliases[] = {
    {"Basic",                  "DLGTAB0"},
    {"Layout",                 "DLGTAB1"},
    {"Overlay",                "DLGTABOVER"},
    {"Watermark",              "DLGTABWM"},
    {"Quality",                "DLGTAB2"},
    {"Device",                 "DLGTAB3"},
    {"Device Options Setting", "DLGTAB3"},
    {"Troubleshooting",        "DLGTABVERSION"},
    {"Job",                    "DLGTAB4"},
    {"Job Management",         "DLGTAB4"},
};

nlohmann::ordered_json Describe(Session& session, ControlDriver& driver, const Control& control) {
    const HWND window = driver.WindowOf(control);
    nlohmann::ordered_json row = {
        {"id", control.id},          {"name", control.name},       {"page", control.dialog},
        {"kind", control.kind},      {"setting", control.setting}, {"value", nullptr},
        {"text", ""},                {"choices", nlohmann::ordered_json::array()},
        {"enabled", false},          {"visible", false}};
    if (control.setting[0] != '\0') {
        row["value"] = ReadControlValue(session.record().data(), control);
    }
    if (window != nullptr) {
        row["text"] = ControlDriver::ShownText(control, window);
        for (const ChoiceText& choice : ControlDriver::ChoicesOf(control, window)) {
            row["choices"].push_back({{"value", choice.value}, {"text", choice.text}});
        }
        row["enabled"] = IsWindowEnabled(window) != FALSE;
        row["visible"] = IsWindowVisible(window) != FALSE;
    } else {
        for (unsigned i = 0; i < control.choiceCount; ++i) {
            row["choices"].push_back(
                {{"value", control.choices[i].value}, {"text", control.choices[i].name}});
        }
    }
    return row;
}

void PrintRow(const nlohmann::ordered_json& row) {
    const std::string value = row["value"].is_null() ? "-" : row["value"].dump();
    std::printf("%-6s %-24s %-15s %-7s %-18s %-12s %-28s %s%s\n", row["id"].dump().c_str(),
                row["name"].get<std::string>().c_str(), row["page"].get<std::string>().c_str(),
                row["kind"].get<std::string>().c_str(),
                row["setting"].get<std::string>().empty()
                    ? "-"
                    : row["setting"].get<std::string>().c_str(),
                value.c_str(), row["text"].get<std::string>().c_str(),
                row["visible"].get<bool>() ? "" : "hidden ",
                row["enabled"].get<bool>() ? "" : "disabled");
}

}  // namespace

std::vector<std::string> PageNames() {
    std::vector<std::string> names;
    const char* last = "";
    for (const Alias& alias : kAliases) {
        if (std::strcmp(alias.dialogName, last) != 0) names.push_back(alias.caption);
        last = alias.dialogName;
    }
    return names;
}

int PageIndexOfName(const std::string& name) {
    for (const Alias& alias : kAliases) {
        if (strcasecmp(alias.caption, name.c_str()) == 0) return PageIndexOfDialog(alias.dialogName);
    }
    for (int i = 0; i < kSheetPages; ++i) {
        if (strcasecmp(PageTemplate(i), name.c_str()) == 0) return i;
    }
    return PageIndexOfDialog(name);
}

void PrintUnknownPage(const std::string& page, const std::vector<std::string>& others) {
    std::string known;
    for (const std::string& name : PageNames()) known += known.empty() ? name : ", " + name;
    for (const std::string& other : others) known += ", " + other;
    PrintError("unknown page \"" + page + "\"; expected one of " + known);
}

ExitStatus RunList(const Options& options, const std::string& page) {
    std::string dialog = page;
    if (!page.empty()) {
        const int index = PageIndexOfName(page);
        bool known = index >= 0;
        for (unsigned i = 0; i < kControlCount; ++i) {
            if (index >= 0 ? PageIndexOfDialog(kControls[i].dialog) == index
                           : page == kControls[i].dialog) {
                dialog = kControls[i].dialog;
                known = true;
                break;
            }
        }
        if (!known) {
            PrintUnknownPage(page);
            return kBadInput;
        }
    }
    Session session;
    if (!session.Open(options) || session.OpenHeadlessSheet() == nullptr) return kBadInput;
    ControlDriver driver(session, ConflictPolicy::kCancel);
    nlohmann::ordered_json rows = nlohmann::ordered_json::array();
    for (unsigned i = 0; i < kControlCount; ++i) {
        if (!dialog.empty() && dialog != kControls[i].dialog) continue;
        rows.push_back(Describe(session, driver, kControls[i]));
    }
    session.CloseHeadlessSheet();
    if (options.json) {
        std::printf("%s\n",
                    rows.dump(2, ' ', false, nlohmann::json::error_handler_t::replace).c_str());
        return kDone;
    }
    std::printf("%-6s %-24s %-15s %-7s %-18s %-12s %-28s %s\n", "ID", "NAME", "PAGE", "KIND",
                "SETTING", "VALUE", "SHOWS", "STATE");
    for (const auto& row : rows) PrintRow(row);
    return kDone;
}

}  // namespace kvhost
