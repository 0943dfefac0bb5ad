// The custom papers of a printer in their dialog behind the Basic page of a headless sheet.
#pragma once

#include <host/controls/list_entries.h>

#include <optional>
#include <string>
#include <vector>

namespace kvhost {

// What is asked for of a paper; what is not named stays as it is, or as a new paper has it.
struct PaperWish {
    std::string name;
    std::optional<std::string> newName;
    std::optional<std::string> width, height;  // "120", or "8 8/16" and "8.5" inch
    std::optional<bool> inches;
    ListAnswers answers;
};

class PaperDriver {
 public:
    PaperDriver(Session& session, ControlDriver& driver) : session_(session), driver_(driver) {}

    // All of them or none. Each adds what became of the size to the outcome's notes.
    SetOutcome Add(const std::vector<PaperWish>& papers);
    SetOutcome Edit(const PaperWish& paper);
    SetOutcome Delete(const std::string& name);

 private:
    // Works in the list of papers and stores it by its OK, without choosing a paper.
    SetOutcome InList(const ControlDriver::DialogWork& work);
    SetOutcome AddOne(HWND list, const PaperWish& paper, std::vector<std::string>& notes);
    SetOutcome InEditor(HWND list, int opener, const PaperWish& paper,
                        std::vector<std::string>& notes);

    Session& session_;
    ControlDriver& driver_;
};

// Inches as they are written: "8 8/16", "8.5", "11". False when they are no whole sixteenths.
bool ParseInches(const std::string& text, unsigned& whole, unsigned& sixteenths);

}  // namespace kvhost
