// The questions every list answers, on the working copy behind a handle.
#include "list_calls.h"

#include <cstring>

namespace kvlist {

int CountRecords(ListHandle list, ListKind kind, DWORD scope) {
    const auto copy = FindCopy(list, kind);
    return copy ? copy->Count(scope) : 0;
}

int CopyRecords(ListHandle list, ListKind kind, void* buffer, DWORD scope) {
    const auto copy = FindCopy(list, kind);
    return copy && buffer ? copy->CopyTo(buffer, scope) : 0;
}

int CopyRecord(ListHandle list, ListKind kind, void* target, DWORD id) {
    const auto copy = FindCopy(list, kind);
    const Record* record = copy && target ? copy->Find(id) : nullptr;
    if (!record) return 0;
    std::memcpy(target, record->data(), record->size());
    return 1;
}

DWORD FreeRecordId(ListHandle list, ListKind kind, DWORD lowest, DWORD highest) {
    const auto copy = FindCopy(list, kind);
    return copy ? copy->ReserveId(lowest, highest) : 0;
}

int AddRecord(ListHandle list, ListKind kind, const void* record, DWORD scope) {
    const auto copy = FindCopy(list, kind);
    return copy && record && copy->Add(record, scope);
}

int UpdateRecord(ListHandle list, ListKind kind, const void* record, DWORD id) {
    const auto copy = FindCopy(list, kind);
    return copy && record && copy->Update(record, id);
}

int UpdateRecord(ListHandle list, ListKind kind, const void* record) {
    const auto copy = FindCopy(list, kind);
    return copy && record && copy->Update(record, RecordId(copy->Format(), record));
}

int DeleteRecord(ListHandle list, ListKind kind, DWORD id) {
    const auto copy = FindCopy(list, kind);
    return copy && copy->Remove(id);
}

}  // namespace kvlist
