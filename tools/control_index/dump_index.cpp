// Build step: writes what the command line must know of the module (controls, kinds, values,
// setting fields, pages, dialogs) as a source file for the host. The module itself exports no
// table.
#include <cstdio>
#include <cstring>
#include <iterator>
#include <string>

#include "dialog/dialog_table.h"
#include "resources/string_ids.h"
#include "settings/item_catalogue.h"
#include "settings/setting_field.h"
#include "sheet/administrator.h"

namespace {

using namespace kvui;

const char* KindOf(const ControlItem& item) {
    switch (item.type) {
        case kItemText: return "text";
        case kItemEdit: return "edit";
        case kItemCombo: return "combo";
        case kItemRadio: return "radio";
        case kItemCheck: return "check";
        case kItemButton: return "button";
        case kItemList:
        case kItemMaskList: return "list";
        case kItemSlider: return "slider";
        default: return "other";
    }
}

const char* ListOf(const ControlItem& item) {
    constexpr const char* kLists[] = {"kNone",         "kPapers",   "kOutputPapers", "kSources",
                                      "kOtherSources", "kMailBins", "kWatermarks",   "kOverlays"};
    return kLists[static_cast<int>(item.runTimeList)];
}

std::string EmptyOf(const ControlItem& item) {
    const bool isJob = item.edit != nullptr && item.edit->job != nullptr;
    return isJob ? std::to_string(item.edit->job->emptyValue) : "std::nullopt";
}

DWORD SpinOf(const ControlItem& item) {
    if (item.slider != nullptr) return item.slider->spinId;
    return item.edit != nullptr ? item.edit->spinId : 0;
}

void WriteAdministratorControls() {
    std::puts("extern const DWORD kAdministratorControls[] = {");
    for (const DWORD id : kAdministratorControls) {
        std::printf("    %lu,\n", static_cast<unsigned long>(id));
    }
    std::printf("};\nextern const unsigned kAdministratorControlCount = %zu;\n\n",
                std::size(kAdministratorControls));
}

void WriteFields() {
    std::puts("extern const Field kFields[] = {");
    for (const SettingField& field : SettingFieldTable) {
        std::printf("    {\"%s\", %#lx, %s},\n", field.name, static_cast<unsigned long>(field.location),
                    field.type == kFieldPublicMask ? "false" : "true");
    }
    std::printf("};\nextern const unsigned kFieldCount = %zu;\n\n", SettingFieldTable.size());
}

void WriteChoices() {
    std::puts("namespace {\nconst Choice kChoices[] = {");
    for (const ControlItem& item : kCatalogue) {
        for (const SelectItem& entry : SelectEntries(item)) {
            std::printf("    {%#lx, 0, %lu, \"%s\"},\n", static_cast<unsigned long>(entry.value),
                        static_cast<unsigned long>(entry.stringId), entry.name);
        }
        for (const RadioItem& button : RadioButtons(item)) {
            std::printf("    {%#lx, %lu, %lu, \"%s\"},\n", static_cast<unsigned long>(button.value),
                        static_cast<unsigned long>(button.buttonId),
                        static_cast<unsigned long>(button.captionId), button.name);
        }
        if (item.check != nullptr && item.type == kItemCheck) {
            std::printf("    {%#lx, 0, %d, \"off\"}, {%#lx, 0, %d, \"on\"},\n",
                        static_cast<unsigned long>(item.check->clearedValue), IDS_OFF,
                        static_cast<unsigned long>(item.check->checkedValue), IDS_ON);
        }
    }
    std::puts("    {0, 0, 0, nullptr},\n};\n}  // namespace\n");
}

size_t ChoiceCount(const ControlItem& item) {
    const size_t checks = item.check != nullptr && item.type == kItemCheck ? 2 : 0;
    return SelectEntries(item).size() + RadioButtons(item).size() + checks;
}

void WriteControls() {
    std::puts("extern const Control kControls[] = {");
    size_t choice = 0;
    for (const ControlItem& item : kCatalogue) {
        const size_t count = ChoiceCount(item);
        std::printf(
            "    {%lu, \"%s\", \"%s\", \"%s\", \"%s\", %lu, %lu, %#lx, kChoices + %zu, %zu, "
            "%ld, {%lu, %lu}, %ld, %ld, RunTimeList::%s, %s},\n",
            static_cast<unsigned long>(item.controlId), item.controlName, item.dialogName,
            KindOf(item), item.settingField, static_cast<unsigned long>(item.captionId),
            static_cast<unsigned long>(item.maskMode), static_cast<unsigned long>(item.mask),
            choice, count,
            item.slider != nullptr ? static_cast<long>(item.slider->storedMinimum) : 0L,
            static_cast<unsigned long>(item.slider != nullptr ? item.slider->valueEditId : 0),
            static_cast<unsigned long>(SpinOf(item)),
            item.edit != nullptr ? static_cast<long>(item.edit->minimum) : 0L,
            item.edit != nullptr ? static_cast<long>(item.edit->maximum) : 0L, ListOf(item),
            EmptyOf(item).c_str());
        choice += count;
    }
    std::printf("};\nextern const unsigned kControlCount = %zu;\n", kCatalogue.size());
}

void WritePages() {
    std::puts("namespace {\nconstexpr Page kPageRows[] = {");
    for (const PageRow& page : kPages) {
        std::printf("    {\"%s\", \"%s\", \"%s\", \"%s\"},\n", page.name, page.fullName,
                    page.templateName, page.dialogName);
    }
    std::puts("};");
}

int PageIndex(const char* templateName) {
    int index = 0;
    while (std::strcmp(kPages[index].templateName, templateName) != 0) ++index;
    return index;
}

void WriteDialogs() {
    constexpr const char* kWays[] = {"kClick",      "kChoose",   "kExport",
                                     "kRightClick", "kInDialog", "kNone"};
    std::puts("constexpr Dialog kDialogRows[] = {");
    for (const DialogRow& row : kDialogs) {
        const Opener& opener = row.opener;
        std::printf(
            "    {\"%s\", %d, \"%s\", \"%s\", %u, Opening::%s, \"%s\", %lu, %lu, %lu, %lu},\n",
            row.name, PageIndex(row.page), row.templateName, row.dialogName, row.titleId,
            kWays[static_cast<int>(opener.way)],
            opener.procedure != nullptr ? opener.procedure : "",
            static_cast<unsigned long>(opener.control), static_cast<unsigned long>(opener.value),
            static_cast<unsigned long>(opener.controlBefore),
            static_cast<unsigned long>(opener.valueBefore));
    }
    std::puts(
        "};\n}  // namespace\n\nconstinit const std::span<const Page> kPages = kPageRows;\n"
        "constinit const std::span<const Dialog> kDialogs = kDialogRows;");
}

}  // namespace

int main() {
    std::puts(
        "// Made by the build from the module's tables.\n#include <host/index/control_index.h>\n"
        "#include <host/index/sheet_pages.h>\n\n"
        "namespace kvhost {\n");
    WriteAdministratorControls();
    WriteFields();
    WriteChoices();
    WriteControls();
    WritePages();
    WriteDialogs();
    std::puts("\n}  // namespace kvhost");
}
