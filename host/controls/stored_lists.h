// The stored papers and watermarks of a printer, as the caller sees them. Reads no sheet.
#pragma once

#include <host/controls/session.h>
#include <kvlist.h>

#include <set>
#include <vector>

namespace kvhost {

template <typename Record>
struct ListCalls {
    ListHandle (*read)(PrinterBlock*);
    int (*count)(ListHandle, PrinterBlock*, DWORD scope);
    int (*copy)(ListHandle, PrinterBlock*, Record*, DWORD scope);
    int (*cancel)(ListHandle, PrinterBlock*);
};
constexpr ListCalls<CustomPaperRecord> kPaperCalls = {QDMMLTReadPaper, QDMMLTGetPaperNum,
                                                      QDMMLTGetPaperArray, QDMMLTCancelPaper};
constexpr ListCalls<WatermarkRecord> kWatermarkCalls = {
    QDMMLTReadWatermark, QDMMLTGetWatermarkNum, QDMMLTGetWatermarkArray, QDMMLTCancelWatermark};

template <typename Record>
struct Listed {
    Record record;
    bool isCommon;
};

// False when the list cannot be read.
template <typename Record>
bool ReadListed(Session& session, const ListCalls<Record>& calls,
                std::vector<Listed<Record>>& listed) {
    PrinterBlock& printer = session.printer();
    const ListHandle list = calls.read(&printer);
    if (list == nullptr) return false;
    std::set<DWORD> common;
    for (const DWORD scope : {kScopeCommon, kScopeAdministrator}) {
        std::vector<Record> records(static_cast<size_t>(calls.count(list, &printer, scope)));
        calls.copy(list, &printer, records.data(), scope);
        for (const Record& record : records) {
            if (scope == kScopeCommon) {
                common.insert(record.id);
            } else {
                listed.push_back({record, common.contains(record.id)});
            }
        }
    }
    calls.cancel(list, &printer);
    return true;
}

// The module's text that a list is full, with the numbers reached.
template <typename Record>
std::string FullListText(Session& session, const ListCalls<Record>& calls, std::string text) {
    std::vector<Listed<Record>> listed;
    ReadListed(session, calls, listed);
    size_t common = 0;
    for (const Listed<Record>& entry : listed) common += entry.isCommon ? 1 : 0;
    if (!text.empty() && text.back() == '.') text.pop_back();
    return text + " (" + std::to_string(listed.size() - common) + " of your own, " +
           std::to_string(common) + " for everybody with the printer's)";
}

}  // namespace kvhost
