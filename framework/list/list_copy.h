// Working copies of the printer's lists, behind the handles that the module keeps. All list
// functions of the framework are thin wrappers around these operations.
#pragma once

#include <kvlist.h>

#include <map>
#include <memory>
#include <optional>
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
    // One that no other copy is given; 0 when there is none, or it could not be reserved.
    DWORD ReserveId(DWORD lowest, DWORD highest) const;

    bool Add(const void* record, DWORD scope);
    bool Update(const void* record, DWORD id);
    bool Remove(DWORD id);

    // Applies what was changed here to what is stored now.
    WriteResult Write(const PrinterBlock& printer) const;

 private:
    WorkingCopy(const ListFormat& format, std::string printer)
        : format_(format), printer_(std::move(printer)) {}
    struct Entry {
        Owner owner;
        Record record;
    };
    Entry* FindEntry(DWORD id);
    // What became of an entry here: how it was read, nothing for a new one, and whether it was
    // taken out in between, which brings it to the end.
    struct Touch {
        std::optional<Record> before;
        bool wasRemoved = false;
        bool isMended = false;  // has another id than it is stored with
    };
    using Touches = std::map<DWORD, Touch>;
    bool MayChange(const Entry& entry) const;
    bool DiffersInDerivedFieldOnly(const Record& left, const Record& right) const;
    Touch& Note(Owner owner, DWORD id, const Record* before);
    void Merge(Owner owner, const Touches& touches, Records& stored) const;
    Record Merged(const Record& mine, const Touch& touch, Record stored) const;
    bool IsUntouched(const Record& mine, const Touch& touch) const;
    void AddOwn(Records own);

    const ListFormat& format_;
    std::vector<Entry> entries_;  // description, then everybody's, then the user's
    std::string printer_;
    Touches common_, own_;  // by id
};

ListHandle OpenCopy(ListKind kind, DWORD number, PrinterBlock* printer);
// Null when the handle names no open copy of a list of this kind.
std::shared_ptr<WorkingCopy> FindCopy(ListHandle handle, ListKind kind);
// Both end the copy, whether or not it could be written.
int WriteAndClose(ListHandle handle, PrinterBlock* printer, ListKind kind);
int CancelAndClose(ListHandle handle, ListKind kind);

std::string PrinterName(const PrinterBlock& printer);

}  // namespace kvlist
