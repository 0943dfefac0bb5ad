// The watermarks of a printer, by their page and its editor in a headless sheet.
#pragma once

#include <host/controls/list_entries.h>

#include <optional>
#include <string>
#include <utility>

namespace kvhost {

// What is asked for of a watermark; what is not named stays as it is, or as a new one has it.
struct WatermarkWish {
    std::string name;
    std::optional<std::string> newName, text, font;
    std::optional<std::string> size, angle, x, y;  // points, degrees, per cent of half the page
    std::optional<std::string> colour;             // RRGGBB
    std::optional<bool> bold, italic;
    // Where its middle is, in points from that of the page, to the right and up; for x and y.
    std::pair<std::optional<long>, std::optional<long>> points;
    ListAnswers answers;
};

class WatermarkDriver {
 public:
    WatermarkDriver(Session& session, ControlDriver& driver) : session_(session), driver_(driver) {}

    SetOutcome Add(const WatermarkWish& watermark);
    SetOutcome Edit(const WatermarkWish& watermark);
    SetOutcome Delete(const std::string& name);

 private:
    SetOutcome InEditor(unsigned opener, const WatermarkWish& watermark);
    SetOutcome Fill(HWND editor, const WatermarkWish& watermark, bool isNew);
    SetOutcome TypePlace(HWND editor, const WatermarkWish& watermark);
    SetOutcome ChooseColour(HWND editor, const std::string& colour);
    bool IsCommon(const std::string& name) const;
    SetOutcome MayChange(unsigned button, const std::string& name, const char* what);

    Session& session_;
    ControlDriver& driver_;
};

}  // namespace kvhost
