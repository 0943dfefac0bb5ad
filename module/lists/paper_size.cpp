// Paper codes below 512 are the framework's, the others the list service's.
#include "lists/paper_size.h"

namespace kvui {

bool CurrentPaperSize(SheetContext& context, LONG paperCode, PaperSizeInfo& size) {
    if (paperCode < kFirstCustomPaper) {
        return GetPaperSize(context.printer, paperCode, &size) != 0;
    }
    const ListHandle list = context.shared->lists[kListPaper];
    CustomPaperRecord record{};
    if (list == nullptr || !QDMMLTGetPaperWithID(list, context.printer, &record,
                                                 static_cast<DWORD>(paperCode))) {
        return false;
    }
    size = {static_cast<LONG>(record.widthTenths), static_cast<LONG>(record.heightTenths),
            kPaperUnitMillimetre};
    return true;
}

}  // namespace kvui
