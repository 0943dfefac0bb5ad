// The commands of kvprefs; each answers the program's exit status.
#pragma once

#include <host/controls/control_driver.h>
#include <host/controls/session.h>
#include <host/index/sheet_pages.h>

#include <string>
#include <vector>

namespace kvhost {

// The printers' windows one after another; without a name that of the options.
ExitStatus RunOpen(const Options& options, const std::vector<std::string>& printers, int argc,
                   char** argv);
ExitStatus RunGet(const Options& options, const std::vector<std::string>& fields);
// `service`: names that no page has are those of the service technician's dialogs.
ExitStatus RunSet(const Options& options, const std::vector<std::string>& pairs,
                  ConflictPolicy policy, bool service = false);
ExitStatus RunDefaults(const Options& options, const std::string& page);
ExitStatus RunList(const Options& options, const std::string& page);
// Which options the printer has.
ExitStatus RunDevice(const Options& options);
// Asks the printer which it has; the policy answers what to do about those it does not report.
ExitStatus RunDeviceQuery(const Options& options, ConflictPolicy removal);
// The printer's answer as it came, into a file.
ExitStatus RunDeviceRecord(const Options& options, const std::string& file);
ExitStatus RunDevicePut(const Options& options, const std::vector<std::string>& names,
                        bool installed, ConflictPolicy policy);
// The mailboxes of the sorter: told, given over, and named by number or present name.
ExitStatus RunMailbox(const Options& options);
ExitStatus RunMailboxAssign(const Options& options, const std::string& entry);
ExitStatus RunMailboxName(const Options& options, const std::string& mailbox,
                          const std::string& name);
ExitStatus RunShot(const Options& options, const std::string& folder, const std::string& page,
                   const std::string& view, double scale, bool rightToLeft);
ExitStatus RunRecordExport(const Options& options, const std::string& file);
// A service technician may force values in that no control offers.
ExitStatus RunRecordImport(const Options& options, const std::string& file, bool force);
// What import would say, without storing.
ExitStatus RunRecordCheck(const Options& options, const std::string& file, bool force);
ExitStatus RunRecordDiff(const std::string& left, const std::string& right);
ExitStatus RunPrinterList(const Options& options);
struct PrinterArguments {
    std::string name;
    std::string newName;  // of the copy that is taken, empty: the same
    std::string port;
    std::string device;  // behind a USB port
    bool oneDirection = false;
    bool isPrivate = false;
    bool isShared = false;  // of adding: with other machines; of removing: the machine's
    bool hideShared = false;
};
ExitStatus RunPrinterAdd(const PrinterArguments& args);
ExitStatus RunPrinterRemove(const PrinterArguments& args);
ExitStatus RunPrinterShare(const PrinterArguments& args);
ExitStatus RunPrinterTake(const PrinterArguments& args);

// "NAME=VALUE" lines of the fields that differ, in table order.
std::vector<std::string> ChangedFields(const Record& before, const Record& after);
// Names of the dialogs that `shot` draws.
std::vector<std::string> PictureDialogNames();
// Says that a name is no page, which names are, and what else would do here.
void PrintUnknownPage(const std::string& page, const std::vector<std::string>& others = {});

}  // namespace kvhost
