// The module's controls and setting fields as the command line names them; the data are made by the
// build from the module's catalogue.
#pragma once

#include <windef.h>

#include <optional>
#include <string>
#include <string_view>

namespace kvhost {

struct Field {
    const char* name;
    DWORD location;  // 0x8000 + offset in the public part, else offset in the private part
    bool byName;     // false for dmFields, which is listed but neither read nor written
};

struct Choice {
    DWORD value;
    DWORD buttonId;    // radio buttons
    DWORD captionId;   // string of the module
    const char* name;  // entry name, "on"/"off", or empty
};

// Lists whose entries users change: the list service keeps them, overlays are files.
enum class RunTimeList {
    kNone,
    kPapers,
    kOutputPapers,  // 0 stands for the paper it is laid out for
    kSources,
    kOtherSources,
    kMailBins,
    kWatermarks,
    kOverlays,
};

struct Control {
    DWORD id;
    const char* name;
    const char* dialog;  // catalogue's dialog name
    const char* kind;    // text, edit, combo, radio, check, button, list, slider
    const char* setting;
    DWORD captionId;
    DWORD maskMode;
    DWORD mask;
    const Choice* choices;
    unsigned choiceCount;
    LONG sliderBase;  // stored value at a slider's position 0
    DWORD parts[2];   // ids of a slider's edit and of the arrows; 0 for none
    LONG lowest;      // of an edit; the rules file may say otherwise
    LONG highest;
    RunTimeList list;            // of a combo or list
    std::optional<DWORD> empty;  // of a job's secret number: stored when there is none
};

// Controls that only who administers the printer may use.
extern const DWORD kAdministratorControls[];
extern const unsigned kAdministratorControlCount;

extern const Field kFields[];
extern const unsigned kFieldCount;
extern const Control kControls[];
extern const unsigned kControlCount;

const Field* FindField(std::string_view name);
// First control of that name or id; null when there is none.
const Control* FindControl(std::string_view name);
const Control* FindControl(DWORD id);
LONG ReadRecordField(const BYTE* record, const Field& field);
// Value of a control's part of its setting.
DWORD ReadControlValue(const BYTE* record, const Control& control);
// Whether the control's part of its setting holds this value. Bits of the same setting that belong
// to other controls (the border beside the order of pages) do not count.
bool HoldsValue(const BYTE* record, const Control& control, DWORD value);
// The image shift that the record holds, as its dialog shows it; empty for all other controls. The
// steps of the record are coarser than the limits of the dialog.
struct HeldShift {
    std::string number;
    const char* steps;
};
std::optional<HeldShift> HeldShiftOf(const BYTE* record, const Control& control);

}  // namespace kvhost
