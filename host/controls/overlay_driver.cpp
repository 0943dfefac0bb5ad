// See overlay_driver.h.
#include <host/controls/overlay_driver.h>

#include <module/resources/resource.h>
#include <platform/window/input.h>

#include <filesystem>

namespace kvhost {
namespace {

constexpr EntryList kOverlays = {IDC_LIST_OVERLAY, "overlay"};
constexpr char kStandsForNone[] = " stands for no overlay";

}  // namespace

SetOutcome OverlayDriver::MayChange(unsigned button, const std::string& why) {
    const HWND window = driver_.WindowOf(*FindControl(button));
    if (!IsWindowVisible(window)) {
        return Refuse(kRefused, "the overlays of this printer belong to its administrators");
    }
    return IsWindowEnabled(window) ? SetOutcome() : Refuse(kRefused, why);
}

SetOutcome OverlayDriver::InEditor(unsigned opener, const OverlayWish& overlay) {
    const ListReplies replies(session_, driver_, overlay.answers);
    const bool isNew = opener == IDC_BTN_OVERLAY_ADD;
    return driver_.InDialog(*FindControl(opener), overlay.name, [&](HWND editor) {
        SetOutcome outcome;
        if (isNew || overlay.newName) {
            const std::string name = overlay.newName.value_or(overlay.name);
            outcome = TypeField(editor, IDC_EDIT_OVERLAY_NAME, isNew ? "NAME" : "--name", name);
            // It is read back up to there.
            if (outcome.status == kDone && name.find(';') != std::string::npos) {
                return Refuse(kBadInput, Quoted(name) + " is no name for an overlay",
                              "a name without \";\"");
            }
        }
        if (outcome.status == kDone && overlay.file) {
            const std::string path = std::filesystem::absolute(*overlay.file).string();
            outcome = TypePath(editor, IDC_EDIT_OVERLAY_FILE, isNew ? "FILE" : "--file", path);
        }
        return outcome;
    });
}

SetOutcome OverlayDriver::Add(const OverlayWish& overlay) {
    const HWND list = driver_.WindowOf(*FindControl(IDC_LIST_OVERLAY));
    const size_t count = EntriesOf(list).size();
    const SetOutcome may = MayChange(
        IDC_BTN_OVERLAY_ADD, "there is no room for another overlay: " + std::to_string(count) +
                                 " are stored, the one that stands for none among them");
    if (may.status != kDone) return may;
    const KeptChoice kept(driver_, IDC_LIST_OVERLAY);
    return InEditor(IDC_BTN_OVERLAY_ADD, overlay);
}

SetOutcome OverlayDriver::Edit(const OverlayWish& overlay) {
    return AtEntry(
        driver_, kOverlays, overlay.name,
        [&] { return MayChange(IDC_BTN_OVERLAY_EDIT, Quoted(overlay.name) + kStandsForNone); },
        [&] { return InEditor(IDC_BTN_OVERLAY_EDIT, overlay); });
}

SetOutcome OverlayDriver::Delete(const std::string& name) {
    return AtEntry(
        driver_, kOverlays, name,
        [&] { return MayChange(IDC_BTN_OVERLAY_DELETE, Quoted(name) + kStandsForNone); },
        [&] { return PressDelete(driver_, IDC_BTN_OVERLAY_DELETE); });
}

}  // namespace kvhost
