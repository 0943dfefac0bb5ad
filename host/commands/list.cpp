// kvprefs list: every control with what it shows and offers now.
#include <host/commands/commands.h>

#include <algorithm>
#include <cstdio>
#include <nlohmann/json.hpp>
#include <string_view>

namespace kvhost {
namespace {

// The frame of a radio group stays enabled when its buttons are grayed.
bool IsEnabled(const Control& control, HWND window) {
    if (std::string_view(control.kind) != "radio") return IsWindowEnabled(window) != FALSE;
    return std::any_of(
        control.choices, control.choices + control.choiceCount, [&](const Choice& choice) {
            const int id = static_cast<int>(choice.buttonId);
            return IsWindowEnabled(GetDlgItem(GetParent(window), id)) != FALSE;
        });
}

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
        row["text"] = ShownText(control, window);
        for (const ChoiceText& choice : ChoicesOf(control, window)) {
            row["choices"].push_back({{"value", choice.value}, {"text", choice.text}});
        }
        row["enabled"] = IsEnabled(control, window);
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

// The catalogue's dialog that a page's name or a sub-dialog's means; empty for all of them. False
// when there is none.
bool DialogOfPage(const std::string& page, std::string& dialog) {
    const int index = PageIndexOfName(page);
    dialog = index >= 0 ? PageDialog(index) : page;
    if (index >= 0 || page.empty()) return true;
    const auto* end = kControls + kControlCount;
    return std::any_of(kControls, end, [&](const Control& row) { return page == row.dialog; });
}

}  // namespace

void PrintUnknownPage(const std::string& page, const std::vector<std::string>& others) {
    std::string known;
    for (const std::string& name : PageNames()) known += known.empty() ? name : ", " + name;
    for (const std::string& other : others) known += ", " + other;
    PrintError("unknown page \"" + page + "\"; expected one of " + known);
}

ExitStatus RunList(const Options& options, const std::string& page) {
    std::string dialog;
    if (!DialogOfPage(page, dialog)) {
        PrintUnknownPage(page);
        return kBadInput;
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
