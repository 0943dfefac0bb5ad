// The reason and the controls it is given for.
#include <host/window/administrator_reason.h>

#include <host/index/control_index.h>
#include <platform/display/disabled_reason.h>
#include <platform/security/access.h>

#include <algorithm>

namespace kvhost {
namespace {

bool IsForAdministrators(DWORD id) {
    const DWORD* end = kAdministratorControls + kAdministratorControlCount;
    return std::find(kAdministratorControls, end, id) != end;
}

}  // namespace

AdministratorReason::AdministratorReason(const PrinterBlock& printer) {
    if (kv::ActsAsAdministrator()) return;
    text_ = "Only " + kv::Administrators(kv::PlaceInForce()) +
            " can change what is installed in the printer \"" + printer.printerName + "\"";
    kv::ExplainDisabled([this](HWND control) {
        const auto id = static_cast<DWORD>(GetDlgCtrlID(control));
        return IsForAdministrators(id) ? text_ : std::string();
    });
}

AdministratorReason::~AdministratorReason() {
    kv::ExplainDisabled(nullptr);
}

std::string AdministratorReason::OfPage(HWND page) const {
    for (unsigned i = 0; i < kAdministratorControlCount; ++i) {
        const HWND control = GetDlgItem(page, static_cast<int>(kAdministratorControls[i]));
        if (control == nullptr) continue;
        // Whether or not the page itself is in front.
        if ((GetWindowLongA(control, GWL_STYLE) & WS_VISIBLE) != 0) {
            return kv::ReasonDisabled(control);
        }
    }
    return {};
}

}  // namespace kvhost
