// Puts settings back to the printer's defaults: those of one dialog (the pages' Defaults buttons)
// or the whole record (buttons of kind kButtonResetRecord).
#pragma once
#include <kvcore.h>
#include <windows.h>

namespace kvui {

// The framework's standard-defaults service, QDMGetStdDefaults.
using DefaultsProvider = int (*)(PrinterBlock* printerBlock, void* record, const void* current);

enum class DefaultsResult { kFailed, kApplied };

// dialogName as the catalogue spells it. Installed options and the mail bin assignment survive, and
// the "all paper sizes" bit ends up set. A provider that fails leaves the record as it was.
DefaultsResult ApplyDialogDefaults(DEVMODEA* record, PrinterBlock* printerBlock,
                                   const char* dialogName);
DefaultsResult ApplyRecordDefaults(DEVMODEA* record, PrinterBlock* printerBlock);

// The same with another source of defaults than the framework.
DefaultsResult ApplyDialogDefaultsFrom(DefaultsProvider provider, DEVMODEA* record,
                                       PrinterBlock* printerBlock, const char* dialogName);
DefaultsResult ApplyRecordDefaultsFrom(DefaultsProvider provider, DEVMODEA* record,
                                       PrinterBlock* printerBlock);

}  // namespace kvui
