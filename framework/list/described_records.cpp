// Turns rows of the printer description into the records of the list service.
#include "described_records.h"

#include <framework/core/description.h>

#include <algorithm>
#include <cstring>
#include <string>

namespace kvlist {
namespace {

constexpr DWORD kUnitMillimetres = 0;
constexpr DWORD kUnitInches = 1;
constexpr const char* kTypeface = "Times New Roman";

template <std::size_t Size>
void CopyText(char (&target)[Size], const std::string& text) {
    const std::size_t length = std::min(text.size(), Size - 1);
    std::memcpy(target, text.data(), length);
    target[length] = '\0';
}

template <typename Plain>
Record RecordOf(const Plain& plain) {
    return Record(reinterpret_cast<const char*>(&plain), sizeof plain);
}

// Whole inches in the high word, sixteenths in the low one, rounded. The size comes in hundredths
// of an inch for inch papers (exact for every standard size) and else in tenths of a millimetre.
DWORD PackSixteenths(LONG size, kvcore::PaperUnit unit) {
    const LONG perInch = unit == kvcore::PaperUnit::kInch ? 100 : 254;
    const LONG sixteenths = (size * 16 + perInch / 2) / perInch;
    return static_cast<DWORD>((sixteenths / 16) << 16 | (sixteenths % 16));
}

Record PaperRecord(const kvcore::DescribedPaper& paper, LONG number) {
    CustomPaperRecord record{};
    record.id = static_cast<DWORD>(paper.code);
    record.serviceNumber = number;
    CopyText(record.internalName, paper.internalName);
    record.unit = paper.unit == kvcore::PaperUnit::kInch ? kUnitInches : kUnitMillimetres;
    CopyText(record.displayName, paper.displayName);
    record.widthTenths = static_cast<DWORD>(paper.WidthTenths());
    record.heightTenths = static_cast<DWORD>(paper.LengthTenths());
    record.widthInches = PackSixteenths(paper.width, paper.unit);
    record.heightInches = PackSixteenths(paper.length, paper.unit);
    const kvcore::Margins& margins = paper.margins;
    const LONG kept[] = {margins.left, margins.top, margins.right, margins.bottom};
    for (int i = 0; i < 4; ++i) record.kept[i] = static_cast<DWORD>(kept[i]);
    return RecordOf(record);
}

Record WatermarkOf(const kvcore::DescribedWatermark& watermark) {
    WatermarkRecord record{};
    record.id = watermark.id;
    CopyText(record.name, watermark.name);
    CopyText(record.text, watermark.text);
    CopyText(record.typeface, kTypeface);
    record.size = watermark.points;
    record.red = static_cast<BYTE>(watermark.color);
    record.green = static_cast<BYTE>(watermark.color >> 8);
    record.blue = static_cast<BYTE>(watermark.color >> 16);
    record.angleMode = static_cast<BYTE>(watermark.angleMode);
    record.angle = watermark.angle;
    return RecordOf(record);
}

Record BinOf(const kvcore::DescribedBin& bin, DWORD entryId) {
    BinRecord record{};
    CopyText(record.displayName, bin.displayName);
    record.identifier = bin.identifier;
    record.entryId = entryId;
    CopyText(record.optionItem, bin.optionItem);
    return RecordOf(record);
}

Records BinsOf(const std::vector<kvcore::DescribedBin>& bins) {
    Records records;
    DWORD entryId = 0;
    for (const kvcore::DescribedBin& bin : bins) {
        records.push_back(BinOf(bin, ++entryId));
    }
    return records;
}

}  // namespace

Records DescribedPapers(const PrinterBlock& printer) {
    const auto description = kvcore::DescriptionOf(printer);
    Records records;
    for (const kvcore::DescribedPaper& paper : description->papers) {
        records.push_back(PaperRecord(paper, static_cast<LONG>(records.size())));
    }
    return records;
}

Records DescribedWatermarks(const PrinterBlock& printer) {
    const auto description = kvcore::DescriptionOf(printer);
    Records records;
    for (const kvcore::DescribedWatermark& watermark : description->watermarks) {
        records.push_back(WatermarkOf(watermark));
    }
    return records;
}

Records DescribedInputBins(const PrinterBlock& printer) {
    return BinsOf(kvcore::DescriptionOf(printer)->inputBins);
}

Records DescribedOutputBins(const PrinterBlock& printer) {
    return BinsOf(kvcore::DescriptionOf(printer)->outputBins);
}

}  // namespace kvlist
