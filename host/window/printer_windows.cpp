// Which printers' windows to open, and running them one by one.
#include <framework/core/install_printer.h>
#include <host/window/printer_window.h>
#include <host/window/printer_windows.h>

#include <strings.h>

#include <algorithm>

namespace kvhost {
namespace {

bool SamePrinter(const std::string& left, const std::string& right) {
    return left.size() == right.size() && strncasecmp(left.data(), right.data(), left.size()) == 0;
}

}  // namespace

bool PrinterWindows::Prepare(const Options& options, const std::vector<std::string>& named) {
    std::vector<std::string> all = named;
    if (!options.printer.empty()) all.insert(all.begin(), options.printer);
    for (const std::string& name : all) {
        const auto isSame = [&](const std::string& other) { return SamePrinter(name, other); };
        if (std::any_of(printers_.begin(), printers_.end(), isSame)) continue;
        PrinterBlock block{};
        std::string error;
        if (!kvcore::MakePrinterBlock(name, block, error)) {
            PrintError(error);
            return false;
        }
        printers_.push_back(name);
    }
    if (printers_.empty()) printers_.emplace_back();  // the only or first one
    return first_.Open({printers_.front(), false}) && first_.LoadModule();
}

ExitStatus PrinterWindows::Run() {
    ExitStatus status = PrinterWindow(first_).Run();
    // A printer's settings are read when its turn has come.
    for (size_t i = 1; i < printers_.size(); ++i) {
        Session next;
        next.ShareModule(first_);
        const bool opened = next.Open({printers_[i], false}) && next.LoadModule();
        status = std::max(status, opened ? PrinterWindow(next).Run() : kBadInput);
    }
    return status;
}

}  // namespace kvhost
