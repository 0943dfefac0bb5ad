// See printer_query.h.
#include <winsock2.h>

#include <windows.h>

#include "device/printer_query.h"

#include <winspool.h>

#include <string>

#include "device/installed_options.h"
#include "device/pjl_socket.h"
#include "device/printer_answer.h"
#include "device/printer_port.h"
#include "resources/string_ids.h"
#include "settings/defaults.h"
#include "sheet/administrator.h"
#include "sheet/message_box.h"

namespace kvui {
namespace {

constexpr DWORD kReplySize = 1024;
constexpr char kStatusRequest[] = "#GET#\n@PJL INFO DSTATUS";
constexpr char kConfigRequest[] = "#GET#\n@PJL INFO CONFIG";
class WaitCursor {
 public:
    WaitCursor() : before_(SetCursor(LoadCursorA(nullptr, IDC_WAIT))) {}
    ~WaitCursor() { SetCursor(before_); }
    WaitCursor(const WaitCursor&) = delete;
    WaitCursor& operator=(const WaitCursor&) = delete;

 private:
    HCURSOR before_;
};

// --- The two roads ---

bool AskDirectly(PrinterPortAddress& address, std::string& reply) {
    WSADATA data{};
    if (WSAStartup(MAKEWORD(1, 1), &data) != 0) return false;
    char buffer[kReplySize] = "";
    DWORD length = 0;
    const BOOL done = PjlSocketExchange(address, kConfigRequest, buffer, sizeof buffer, &length);
    WSACleanup();
    reply.assign(buffer, length);
    return done != FALSE;
}

// A printer whose handle carries requests to its language monitor.
class SpooledPrinter {
 public:
    explicit SpooledPrinter(SheetContext& context)
        : announces_(context.platformId == VER_PLATFORM_WIN32_NT) {
        if (Open(context, PRINTER_ALL_ACCESS)) return;
        announces_ = false;  // which takes full access
        if (!Open(context, PRINTER_ACCESS_USE)) handle_ = nullptr;
    }
    ~SpooledPrinter() {
        if (handle_ != nullptr) ClosePrinter(handle_);
    }
    SpooledPrinter(const SpooledPrinter&) = delete;
    SpooledPrinter& operator=(const SpooledPrinter&) = delete;
    explicit operator bool() const { return handle_ != nullptr; }

    bool Ask(const char* request, std::string& reply) {
        char* const name = const_cast<char*>(request);  // only read
        if (announces_ && SetPrinterDataA(handle_, name, REG_BINARY, nullptr, 0) != ERROR_SUCCESS) {
            return false;
        }
        BYTE buffer[kReplySize] = "";
        DWORD type = 0, size = 0;
        if (GetPrinterDataA(handle_, name, &type, buffer, sizeof buffer, &size) != ERROR_SUCCESS) {
            return false;
        }
        reply.assign(reinterpret_cast<const char*>(buffer), size < kReplySize ? size : kReplySize);
        return true;
    }

 private:
    bool Open(SheetContext& context, DWORD access) {
        PRINTER_DEFAULTSA defaults{nullptr, nullptr, access};
        return OpenPrinterA(context.printer->printerName, &handle_, &defaults) != FALSE;
    }

    HANDLE handle_ = nullptr;
    bool announces_;
};

bool AskThroughSpooler(SheetContext& context, std::string& reply) {
    SpooledPrinter printer(context);
    if (!printer || !printer.Ask(kStatusRequest, reply) || reply.empty()) return false;
    return printer.Ask(kConfigRequest, reply);
}

// The wait cursor shows while the printer is waited for; a question after it has a pointer of its own.
bool Ask(SheetContext& context, PrinterPortAddress& address, std::string& reply) {
    const WaitCursor cursor;
    return IsAskedDirectly(address) ? AskDirectly(address, reply)
                                    : AskThroughSpooler(context, reply);
}

// --- What the answer changes ---

void TakeOptions(SheetContext& context, DWORD options) {
    context.privateSettings->mdmInstalledOptions = options;
    FollowInstalledOptions(context);
}

bool AgreesToRemoval(const SheetContext& context) {
    return ShowMessageString(context.page, context.strings, IDS_AUTOCONFIGURE_REMOVED, IDS_WARNING,
                             MB_OKCANCEL) == IDOK;
}

BOOL ApplyReport(SheetContext& context, DWORD options, BOOL* changed) {
    PrivateDevmode& settings = *context.privateSettings;
    if (options == settings.mdmInstalledOptions) return TRUE;
    *changed = TRUE;
    if ((settings.mdmInstalledOptions & kReportedOptions & ~options) != 0) {
        if (!AgreesToRemoval(context)) {
            settings.mdmOtherSettings &= ~kOtherAutoConfig;
            return FALSE;
        }
        ApplyRecordDefaults(context.settings, context.printer);
        settings.mdmOtherSettings |= kOtherAutoConfig;
    }
    TakeOptions(context, options);
    return TRUE;
}

}  // namespace

BOOL QueryPrinterConfiguration(SheetContext& context, BOOL* changed) {
    *changed = FALSE;
    if (!IsAdministrator()) return FALSE;
    PrinterPortAddress address{};
    if ((context.privateSettings->mdmOtherSettings & kOtherAutoConfig) == 0 ||
        !ClassifyPrinterPort(context, &address)) {
        return TRUE;
    }
    std::string reply;
    if (!Ask(context, address, reply)) return FALSE;
    DWORD options = 0;
    if (!ReadInstalledOptions(reply, options)) return TRUE;
    return ApplyReport(context, options, changed);
}

}  // namespace kvui
