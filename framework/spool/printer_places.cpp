// See printer_places.h.
#include "printer_places.h"

#include <platform/shell/paths.h>
#include <winbase.h>

#include <algorithm>

namespace kvspool {

using kv::StatePlace;

DWORD FindPrinter(const std::string& name, PlacedPrinter& printer) {
    const StatePlace first = kv::PlaceInForce();
    const StatePlace second =
        first == StatePlace::kPerson ? StatePlace::kMachine : StatePlace::kPerson;
    DWORD error = ERROR_INVALID_PRINTER_NAME;
    for (const StatePlace place : {first, second}) {
        // Without a home a person has no own printers; those of the machine are there all the same.
        if (place == StatePlace::kPerson && kv::StateDirectory().empty()) continue;
        printer.place = place;
        error = printer.Store().GetPrinter(name, printer.record);
        if (error != ERROR_INVALID_PRINTER_NAME) return error;
    }
    return error;
}

DWORD ListPrinters(std::vector<PlacedPrinter>& printers, std::string& problem) {
    printers.clear();
    DWORD answer = ERROR_SUCCESS;
    for (const StatePlace place : {StatePlace::kPerson, StatePlace::kMachine}) {
        std::vector<kv::PrinterRecord> records;
        kv::StateStore& store = kv::StateStore::Of(place);
        const DWORD error = store.ListPrinters(records);
        if (error != ERROR_SUCCESS && error != ERROR_FILE_NOT_FOUND) {
            answer = error;
            problem = store.LastMessage();
        }
        const std::size_t own = printers.size();
        for (kv::PrinterRecord& record : records) {
            const auto sameName = [&](const PlacedPrinter& other) {
                return kv::EqualsIgnoringCase(other.record.name, record.name);
            };
            const bool hidden = std::any_of(printers.begin(), printers.begin() + own, sameName);
            printers.push_back({std::move(record), place, hidden});
        }
    }
    return answer;
}

}  // namespace kvspool
