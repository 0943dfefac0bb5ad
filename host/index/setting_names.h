// Settings in the words of the window: each setting that a control changes, by the caption of that
// control, and its values by the captions of the entries. Used where a person is told of settings
// that changed: the status line, and the question about settings stored by somebody else.
#pragma once

#include <host/index/control_index.h>
#include <printer_block.h>

#include <string>
#include <vector>

namespace kvhost {

// A field of the record, or those bits of it that controls of their own change.
struct NamedSetting {
    const Field* field;
    DWORD mask;
    std::vector<const Control*> controls;  // all that change it; the first one's caption names it
    std::string caption;

    DWORD ValueIn(const BYTE* record) const {
        return static_cast<DWORD>(ReadRecordField(record, *field)) & mask;
    }
};

class SettingNames {
   public:
    // `strings` is the module; `printer` has the lists of papers, bins and watermarks.
    SettingNames(HMODULE strings, PrinterBlock& printer);

    const std::vector<NamedSetting>& all() const { return settings_; }
    // The settings in which two records differ, in the order of the pages.
    std::vector<const NamedSetting*> Changed(const BYTE* before, const BYTE* after) const;
    // The setting that a control of this id changes; null when it changes none.
    const NamedSetting* SettingOfControl(DWORD controlId) const;
    // "Landscape", "On", "3"; secrets only as set or not set.
    std::string ValueText(const NamedSetting& setting, DWORD value) const;

   private:
    std::string Caption(const Control& control) const;
    std::string ModuleString(DWORD id) const;

    HMODULE strings_;
    PrinterBlock& printer_;
    std::vector<NamedSetting> settings_;
};

// A caption without what marks its access key, its colon and its dots.
std::string PlainCaption(std::string caption);

}  // namespace kvhost
