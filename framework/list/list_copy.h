// Working copies of the printer's lists, behind the handles that the module keeps. All list
// functions of the framework are thin wrappers around these operations.
#pragma once

#include <kvlist.h>

#include <memory>
#include <string>
#include <vector>

#include "list_format.h"
#include "list_store.h"

namespace kvlist {

enum class Owner { kDescription, kEverybody, kUser };
enum class WriteResult { kRefused, kWritten };

class WorkingCopy {
 public:
    // Null, and the last error says why, when what is stored cannot be read.
    static std::shared_ptr<WorkingCopy> Read(const ListFormat& format, const PrinterBlock& printer);

    const ListFormat& Format() const { return format_; }
    int Count(DWORD scope) const;
    // Records of the scope in stored order, one behind the other.
    int CopyTo(void* buffer, DWORD scope) const;
    const Record* Find(DWORD id) const;
    DWORD FreeId(DWORD lowest, DWORD highest) const;

    bool Add(const void* record, DWORD scope);
    bool Update(const void* record, DWORD id);
    bool Remove(DWORD id);

    WriteResult Write(const std::string& printer) const;

 private:
    explicit WorkingCopy(const ListFormat& format) : format_(format) {}
    struct Entry {
        Owner owner;
        Record record;
    };
    Entry* FindEntry(DWORD id);
    bool MayChange(const Entry& entry) const;
    bool DiffersInDerivedFieldOnly(const Record& left, const Record& right) const;
    void MarkChanged(Owner owner);
    Records RecordsOf(Owner owner) const;
    void AddOwn(Records own);

    const ListFormat& format_;
    std::vector<Entry> entries_;  // description, then everybody's, then the user's
    bool commonChanged_ = false;
    bool ownChanged_ = false;
};

ListHandle OpenCopy(ListKind kind, DWORD number, PrinterBlock* printer);
// Null when the handle names no open copy of a list of this kind.
std::shared_ptr<WorkingCopy> FindCopy(ListHandle handle, ListKind kind);
// Both end the copy, whether or not it could be written.
int WriteAndClose(ListHandle handle, PrinterBlock* printer, ListKind kind);
int CancelAndClose(ListHandle handle, ListKind kind);

std::string PrinterName(const PrinterBlock& printer);

}  // namespace kvlist
