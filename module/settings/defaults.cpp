// Copies the printer's defaults into the settings record, by dialog or whole. The pages' Defaults
// buttons and the command router come here.
#include "settings/defaults.h"

#include <cstring>

#include "settings/item_catalogue.h"
#include "settings/setting_field.h"
#include "sheet/private_devmode.h"

namespace kvui {
namespace {

// A whole settings record to work in.
union RecordBuffer {
    DEVMODEA record;
    BYTE bytes[kRecordSize];
};

// What the printer has and how its sorter is shared out is a fact of the printer, no preference:
// defaults never change it.
struct PrinterFacts {
    DWORD installedOptions = 0;
    DWORD mailBinAssign = 0;
};

PrinterFacts RememberFacts(const DEVMODEA* record) {
    PrinterFacts facts;
    ReadSetting(record, "mdmInstalledOptions", &facts.installedOptions);
    ReadSetting(record, "mdmMailBinAssign", &facts.mailBinAssign);
    return facts;
}

void PutFactsBack(DEVMODEA* record, const PrinterFacts& facts) {
    WriteSettingByName(record, "mdmInstalledOptions", facts.installedOptions);
    WriteSettingByName(record, "mdmMailBinAssign", facts.mailBinAssign);
}

void SetOtherBits(DEVMODEA* record, DWORD bits) {
    DWORD word = 0;
    if (ReadSetting(record, "mdmOtherSettings", &word)) {
        WriteSettingByName(record, "mdmOtherSettings", word | bits);
    }
}

// mdmOtherSettings is shared by check boxes of several pages, so only the item's bits are copied;
// every other field is copied whole, whatever the item's mask.
void CopyDefault(DEVMODEA* record, const DEVMODEA* defaults, const ControlItem& item) {
    const SettingField* field = FindSettingFieldAnyCase(item.settingField);
    if (field == nullptr) return;
    DWORD current = 0;
    DWORD value = 0;
    if (!ReadField(record, *field, &current) || !ReadField(defaults, *field, &value)) return;
    if (std::strcmp(field->name, "mdmOtherSettings") == 0) {
        value = (current & ~item.mask) | (value & item.mask);
    }
    WriteField(record, field->location, value, kMaskWholeField, 0, nullptr);
}

}  // namespace

DefaultsResult ApplyDialogDefaultsFrom(DefaultsProvider provider, DEVMODEA* record,
                                       PrinterBlock* printerBlock, const char* dialogName) {
    RecordBuffer defaults;
    std::memcpy(defaults.bytes, record, kRecordSize);
    if (provider(printerBlock, &defaults.record, record) == 0) return DefaultsResult::kFailed;

    const PrinterFacts facts = RememberFacts(record);
    for (const ControlItem& item : kCatalogue) {
        if (item.settingField[0] == '\0' || std::strcmp(item.dialogName, dialogName) != 0) continue;
        CopyDefault(record, &defaults.record, item);
    }
    PutFactsBack(record, facts);
    SetOtherBits(record, kOtherAllPaperSize);
    return DefaultsResult::kApplied;
}

DefaultsResult ApplyRecordDefaultsFrom(DefaultsProvider provider, DEVMODEA* record,
                                       PrinterBlock* printerBlock) {
    const PrinterFacts facts = RememberFacts(record);
    if (provider(printerBlock, record, nullptr) == 0) return DefaultsResult::kFailed;
    PutFactsBack(record, facts);
    SetOtherBits(record, kOtherColor | kOtherAllPaperSize);
    return DefaultsResult::kApplied;
}

DefaultsResult ApplyDialogDefaults(DEVMODEA* record, PrinterBlock* printerBlock,
                                   const char* dialogName) {
    return ApplyDialogDefaultsFrom(QDMGetStdDefaults, record, printerBlock, dialogName);
}

DefaultsResult ApplyRecordDefaults(DEVMODEA* record, PrinterBlock* printerBlock) {
    return ApplyRecordDefaultsFrom(QDMGetStdDefaults, record, printerBlock);
}

}  // namespace kvui
