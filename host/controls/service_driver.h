// The service technician's dialogs behind the Device Options page of a headless sheet.
#pragma once

#include <host/controls/control_driver.h>

#include <string>

namespace kvhost {

class ServiceDriver {
 public:
    explicit ServiceDriver(ControlDriver& driver) : driver_(driver) {}

    // A slider or check box by its label ("DPL", "Mirror"), or a hue ("Hue.Red" to "Hue.Magenta")
    // as RED,GREEN,BLUE.
    SetOutcome Set(const std::string& name, const std::string& value);

 private:
    ControlDriver& driver_;
};

}  // namespace kvhost
