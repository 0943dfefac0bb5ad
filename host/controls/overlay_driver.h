// The overlays of a printer, by their page and its editor in a headless sheet.
#pragma once

#include <host/controls/list_entries.h>

#include <optional>
#include <string>

namespace kvhost {

struct OverlayWish {
    std::string name;
    std::optional<std::string> newName;
    std::optional<std::string> file;  // relative to the working directory
    ListAnswers answers;
};

class OverlayDriver {
 public:
    OverlayDriver(Session& session, ControlDriver& driver) : session_(session), driver_(driver) {}

    SetOutcome Add(const OverlayWish& overlay);
    SetOutcome Edit(const OverlayWish& overlay);
    SetOutcome Delete(const std::string& name);

 private:
    SetOutcome InEditor(unsigned opener, const OverlayWish& overlay);
    SetOutcome MayChange(unsigned button, const std::string& why);

    Session& session_;
    ControlDriver& driver_;
};

}  // namespace kvhost
