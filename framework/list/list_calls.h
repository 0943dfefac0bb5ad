// What every list can be asked, by handle and kind: the exported functions differ only in the kind
// and the record type. A handle that is no open copy of that kind answers 0.
#pragma once

#include <kvlist.h>

#include "list_copy.h"

namespace kvlist {

int CountRecords(ListHandle list, ListKind kind, DWORD scope);
int CopyRecords(ListHandle list, ListKind kind, void* buffer, DWORD scope);
int CopyRecord(ListHandle list, ListKind kind, void* target, DWORD id);
DWORD FreeRecordId(ListHandle list, ListKind kind, DWORD lowest, DWORD highest);
int AddRecord(ListHandle list, ListKind kind, const void* record, DWORD scope);
// Changes the record of that id; without one, the record that has the same id as the new one.
int UpdateRecord(ListHandle list, ListKind kind, const void* record, DWORD id);
int UpdateRecord(ListHandle list, ListKind kind, const void* record);
int DeleteRecord(ListHandle list, ListKind kind, DWORD id);

}  // namespace kvlist
