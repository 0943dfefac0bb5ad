// The table behind list_format.h.
#include "list_format.h"

#include <cstring>

namespace kvlist {
namespace {

constexpr DWORD kFirstUserPaper = 512;
constexpr DWORD kFirstUserMark = 128;
constexpr DWORD kFirstPrivatePaper = 0x4000, kLastPaper = 0x7FFF;  // as dmPaperSize has room for
constexpr DWORD kFirstPrivateMark = 0x40000000, kLastMark = 0x7FFFFFFF;

constexpr Field kPaperTexts[] = {
    {offsetof(CustomPaperRecord, displayName), sizeof CustomPaperRecord::displayName},
};
constexpr Field kMarkTexts[] = {
    {offsetof(WatermarkRecord, name), sizeof WatermarkRecord::name},
    {offsetof(WatermarkRecord, text), sizeof WatermarkRecord::text},
    {offsetof(WatermarkRecord, typeface), sizeof WatermarkRecord::typeface},
};
constexpr Field kBinTexts[] = {
    {offsetof(BinRecord, displayName), sizeof BinRecord::displayName},
    {offsetof(BinRecord, optionItem), sizeof BinRecord::optionItem},
};

constexpr Field kNothing = {0, 0};
constexpr Field kAngle = {offsetof(WatermarkRecord, angle), sizeof WatermarkRecord::angle};

constexpr std::size_t kPaperSize = sizeof(CustomPaperRecord);
constexpr std::size_t kMarkSize = sizeof(WatermarkRecord);
constexpr std::size_t kBinSize = sizeof(BinRecord);
constexpr std::size_t kBinId = offsetof(BinRecord, identifier);
constexpr std::size_t kEntryId = offsetof(BinRecord, entryId);

// clang-format off
// kind, number, stored name, record size, id offset, ids: first of users, first private, last; texts, derived
constexpr ListFormat kFormats[] = {
    {ListKind::kPaper,     0, "Papers",     kPaperSize, 0,        kFirstUserPaper, kFirstPrivatePaper, kLastPaper, kPaperTexts, kNothing},
    {ListKind::kWatermark, 0, "Watermarks", kMarkSize,  0,        kFirstUserMark,  kFirstPrivateMark,  kLastMark,  kMarkTexts,  kAngle},
    {ListKind::kInputBin,  0, "InputBins0", kBinSize,   kBinId,   0, 0, 0,                                         kBinTexts,   kNothing},
    {ListKind::kInputBin,  1, "InputBins1", kBinSize,   kBinId,   0, 0, 0,                                         kBinTexts,   kNothing},
    {ListKind::kOutputBin, 0, "OutputBins", kBinSize,   kEntryId, 0, 0, 0,                                         kBinTexts,   kNothing},
};
// clang-format on

}  // namespace

const ListFormat* FindListFormat(ListKind kind, DWORD number) {
    for (const ListFormat& format : kFormats) {
        if (format.kind == kind && format.number == number) return &format;
    }
    return nullptr;
}

DWORD RecordId(const ListFormat& format, const void* record) {
    DWORD id = 0;
    std::memcpy(&id, static_cast<const BYTE*>(record) + format.idOffset, sizeof id);
    return id;
}

bool TextsEnd(const ListFormat& format, const void* record) {
    for (const Field& text : format.texts) {
        if (!std::memchr(static_cast<const BYTE*>(record) + text.offset, 0, text.size))
            return false;
    }
    return true;
}

}  // namespace kvlist
