// See custom_papers.h.
#include "lists/custom_papers.h"

#include <algorithm>
#include <cstring>

#include "lists/paper_size.h"
#include "sheet/fixed_text.h"

namespace kvui {
namespace {

constexpr char kSection[] = "CustomPaper";
constexpr DWORD kLastId = 0x7FFFFFFF;
constexpr DWORD kUsualValue = 25;  // of the four that the list service keeps

ListHandle& Papers(SheetContext& context) {
    return context.shared->lists.handles[kListPaper];
}

int Count(SheetContext& context, DWORD scope) {
    const ListHandle list = Papers(context);
    return list != nullptr ? QDMMLTGetPaperNum(list, context.printer, scope) : 0;
}

}  // namespace

std::vector<CustomPaperRecord> CustomPapers(SheetContext& context) {
    std::vector<CustomPaperRecord> papers = VisiblePapers(context);
    std::erase_if(papers, [](const CustomPaperRecord& paper) {
        return paper.id < static_cast<DWORD>(kFirstCustomPaper);
    });
    return papers;
}

bool IsCommonPaper(SheetContext& context, DWORD id) {
    std::vector<CustomPaperRecord> common(
        static_cast<size_t>(std::max(Count(context, kScopeCommon), 0)), CustomPaperRecord{});
    if (common.empty() ||
        !QDMMLTGetPaperArray(Papers(context), context.printer, common.data(), kScopeCommon)) {
        return false;
    }
    return std::any_of(common.begin(), common.end(),
                       [id](const CustomPaperRecord& paper) { return paper.id == id; });
}

// Those of the printer's description count as well.
ListRoom RoomForPapers(SheetContext& context) {
    const UINT described =
        GetPrivateProfileIntA("PaperInfo", "Num", 0, context.printer->descriptionPath);
    return RoomOf(context, kSection, static_cast<int>(described), Count(context, kScopeCommon),
                  Count(context, kScopeCommonAndOwn));
}

bool FindPaperNamed(SheetContext& context, const std::string& name, DWORD exceptId,
                    CustomPaperRecord& found) {
    for (const CustomPaperRecord& paper : VisiblePapers(context)) {
        if (paper.id == exceptId || name != BoundedText(paper.displayName)) continue;
        found = paper;
        return true;
    }
    return false;
}

bool AddPaper(SheetContext& context, CustomPaperRecord& record, bool isCommon) {
    const ListHandle list = Papers(context);
    if (list == nullptr) return false;
    const std::vector<CustomPaperRecord> papers = VisiblePapers(context);
    std::fill(std::begin(record.kept), std::end(record.kept), kUsualValue);
    if (!papers.empty()) std::memcpy(record.kept, papers.front().kept, sizeof record.kept);
    record.serviceNumber = -1;
    record.id = QDMMLTGetPaperID(list, static_cast<DWORD>(kFirstCustomPaper), kLastId);
    return QDMMLTAddPaper(list, context.printer, &record,
                          isCommon ? kScopeCommon : kScopeCommonAndOwn) != 0;
}

bool UpdatePaper(SheetContext& context, const CustomPaperRecord& record) {
    const ListHandle list = Papers(context);
    return list != nullptr && QDMMLTUpdatePaper(list, context.printer, &record) != 0;
}

void DeletePaper(SheetContext& context, DWORD id) {
    if (Papers(context) != nullptr) QDMMLTDeletePaper(Papers(context), context.printer, id);
}

bool CommitPapers(SheetContext& context) {
    if (Papers(context) == nullptr) return true;
    const bool stored = QDMMLTWritePaper(Papers(context), context.printer) != 0;
    Papers(context) = QDMMLTReadPaper(context.printer);
    return stored;
}

void DropPapers(SheetContext& context) {
    if (Papers(context) != nullptr) QDMMLTCancelPaper(Papers(context), context.printer);
    Papers(context) = QDMMLTReadPaper(context.printer);
}

}  // namespace kvui
