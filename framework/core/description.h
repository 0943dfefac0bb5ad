// A printer description: the INI file of models/ that says which papers, paper sources, output
// bins, resolutions, watermarks, defaults and printer values a model has. Parsed once per file
// state and then shared; the core functions and the list service read it.
#pragma once

#include <printer_block.h>

#include <map>
#include <memory>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

namespace kvcore {

enum class PaperUnit { kMillimetre, kInch };

struct Margins {  // tenths of a millimetre
    LONG left = 0;
    LONG top = 0;
    LONG right = 0;
    LONG bottom = 0;
};

struct DescribedPaper {
    LONG code = 0;
    std::string internalName;
    PaperUnit unit = PaperUnit::kMillimetre;
    LONG width = 0;  // tenths of a millimetre, or hundredths of an inch
    LONG length = 0;
    Margins margins;
    std::string displayName;

    LONG WidthTenths() const;
    LONG LengthTenths() const;
};

struct DescribedBin {
    DWORD identifier = 0;
    std::string optionItem;  // empty: always fitted
    std::string displayName;
};

struct DescribedWatermark {
    DWORD id = 0;
    DWORD points = 0;
    DWORD angleMode = 0;
    LONG angle = 0;
    DWORD color = 0;  // red in the low byte
    std::string name;
    std::string text;
};

struct DescribedResolution {
    LONG x = 0;
    LONG y = 0;
};

// A section that no reader of this file knows: its lines as they are. The profile services search
// them.
struct DescribedSection {
    std::string name;
    std::vector<std::pair<std::string, std::string>> rows;
};

struct Description {
    std::string model;
    std::vector<DescribedPaper> papers;
    std::vector<DescribedBin> inputBins;
    std::vector<DescribedBin> outputBins;
    std::vector<DescribedWatermark> watermarks;
    std::vector<DescribedResolution> resolutions;
    std::vector<std::pair<std::string, DWORD>> defaults;  // record field name, value
    std::vector<std::pair<std::string, std::string>> printerValues;
    std::vector<DescribedSection> otherSections;
    std::vector<std::string> problems;  // "file:line: what was expected", in file order

    const DescribedPaper* FindPaper(LONG code) const;
    const std::string* FindPrinterValue(std::string_view name) const;
    const DescribedSection* FindOtherSection(std::string_view name) const;
};

// Never null: a file that is missing or damaged gives a description without the parts that could
// not be read, and a problem that says so.
std::shared_ptr<const Description> LoadDescription(const std::string& path);
std::shared_ptr<const Description> DescriptionOf(const PrinterBlock& printer);

}  // namespace kvcore
