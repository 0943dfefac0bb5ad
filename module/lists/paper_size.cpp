// Paper codes below 512 are the framework's, the others the list service's.
#include "lists/paper_size.h"

#include <algorithm>

#include "sheet/administrator.h"

namespace kvui {
namespace {

// Whole inches in the high word, sixteenths in the low one.
LONG PackedInchesToHundredths(DWORD packed) {
    return static_cast<LONG>((packed >> 16) * 100 + (packed & 0xFFFF) * 100 / 16);
}

}  // namespace

bool PaperSizeOfCode(const SheetContext& context, LONG paperCode, PaperSizeInfo& size) {
    if (paperCode < kFirstCustomPaper) {
        return GetPaperSize(context.printer, paperCode, &size) != 0;
    }
    const ListHandle papers =
        context.shared != nullptr ? context.shared->lists.handles[kListPaper] : nullptr;
    CustomPaperRecord record{};
    if (papers == nullptr || !QDMMLTGetPaperWithID(papers, context.printer, &record,
                                                   static_cast<DWORD>(paperCode))) {
        return false;
    }
    if (record.unit == 0) {
        size = {static_cast<LONG>(record.widthTenths), static_cast<LONG>(record.heightTenths),
                kPaperUnitMillimetre};
    } else {
        size = {PackedInchesToHundredths(record.widthInches),
                PackedInchesToHundredths(record.heightInches), kPaperUnitInch};
    }
    return true;
}

std::vector<CustomPaperRecord> VisiblePapers(SheetContext& context) {
    const ListHandle list = context.shared->lists.handles[kListPaper];
    const DWORD scope = IsAdministrator() ? kScopeAdministrator : kScopeUser;
    const int count = list != nullptr ? QDMMLTGetPaperNum(list, context.printer, scope) : 0;
    std::vector<CustomPaperRecord> papers(std::max(count, 0), CustomPaperRecord{});
    if (count <= 0 || !QDMMLTGetPaperArray(list, context.printer, papers.data(), scope)) {
        papers.clear();
    }
    return papers;
}

}  // namespace kvui
