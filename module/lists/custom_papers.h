// The papers that users make for themselves, as their dialogs work them: which there are, how many
// may be added, and by whom which may be changed. All of it is the sheet's copy of the list until
// it is committed.
#pragma once

#include <string>
#include <vector>

#include "lists/list_room.h"
#include "sheet/sheet_context.h"

namespace kvui {

// What the list dialog hands to the editor, and back.
struct PaperEdit {
    bool isNew;
    // Its id: of the paper to edit; of the one that was added. Fields are reached by their places.
    alignas(DWORD) CustomPaperRecord record;
    std::string defaultName;
};

// Those of the view that users made, in their order.
std::vector<CustomPaperRecord> CustomPapers(SheetContext& context);
bool IsCommonPaper(SheetContext& context, DWORD id);
ListRoom RoomForPapers(SheetContext& context);
// A paper of the view with exactly this name, but not that id; false when there is none.
bool FindPaperNamed(SheetContext& context, const std::string& name, DWORD exceptId,
                    CustomPaperRecord& found);
// Gives the record an id, and the four values of the first paper. False when it was not added.
bool AddPaper(SheetContext& context, CustomPaperRecord& record, bool isCommon);
bool UpdatePaper(SheetContext& context, const CustomPaperRecord& record);
void DeletePaper(SheetContext& context, DWORD id);
// The copy becomes the stored list, or is dropped, and the list is read anew. False when it cannot
// be stored; what was changed is gone then.
bool CommitPapers(SheetContext& context);
void DropPapers(SheetContext& context);

}  // namespace kvui
