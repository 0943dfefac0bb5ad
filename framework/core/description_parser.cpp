// The grammar of printer descriptions: sections of "key = value" lines whose values are fields
// separated by commas; a row's text comes last, so that it may hold commas.
#include "description_parser.h"

#include <platform/shell/paths.h>

#include <algorithm>
#include <cstdlib>
#include <optional>

#include "record_fields.h"

namespace kvcore {
namespace {

constexpr std::size_t kMaxBins = 64;
constexpr std::size_t kMaxPapers = 256;
constexpr LONG kFirstUserPaper = 512;
constexpr LONG kFirstUserWatermark = 128;

std::string_view Trim(std::string_view text) {
    const std::size_t first = text.find_first_not_of(" \t\r");
    if (first == std::string_view::npos) return {};
    return text.substr(first, text.find_last_not_of(" \t\r") - first + 1);
}

// Decimal, or hexadecimal after "0x"; a sign is allowed. Nothing when it is no number of 32 bits.
std::optional<DWORD> ParseNumber(std::string_view text) {
    const std::string copy(Trim(text));
    if (copy.empty()) return std::nullopt;
    char* end = nullptr;
    const bool hexadecimal = copy.find("0x") != std::string::npos;
    const long long value = std::strtoll(copy.c_str(), &end, hexadecimal ? 16 : 10);
    if (*end != '\0' || value < -0x80000000LL || value > 0xFFFFFFFFLL) return std::nullopt;
    return static_cast<DWORD>(value);
}

// Walks the fields of one value. A field that is no number marks the row as bad.
class Row {
 public:
    explicit Row(std::string_view value) : rest_(value) {}

    DWORD Number() {
        const std::optional<DWORD> number = ParseNumber(Next());
        if (!number) good_ = false;
        return number.value_or(0);
    }
    LONG Signed() { return static_cast<LONG>(Number()); }
    std::string Word() { return std::string(Next()); }
    std::string Rest() { return std::string(Trim(std::exchange(rest_, {}))); }
    bool Good() const { return good_; }
    void Require(bool condition) { good_ = good_ && condition; }

 private:
    std::string_view Next() {
        const std::size_t comma = rest_.find(',');
        const std::string_view field = Trim(rest_.substr(0, comma));
        rest_ = comma == std::string_view::npos ? std::string_view() : rest_.substr(comma + 1);
        return field;
    }
    std::string_view rest_;
    bool good_ = true;
};

class Parser {
 public:
    explicit Parser(const std::string& path) : path_(path) {}

    void Line(std::string_view line, int number);
    Description Finish() && { return std::move(result_); }

 private:
    using Handler = void (Parser::*)(std::string_view key, std::string_view value);
    struct Section {
        std::string_view name;
        Handler handler;
    };
    static const Section kSections[];

    void Printer(std::string_view key, std::string_view value);
    void Paper(std::string_view key, std::string_view value);
    void InputBin(std::string_view key, std::string_view value);
    void OutputBin(std::string_view key, std::string_view value);
    void Watermark(std::string_view key, std::string_view value);
    void Resolution(std::string_view key, std::string_view value);
    void Default(std::string_view key, std::string_view value);
    void PrinterValue(std::string_view key, std::string_view value);
    void OtherRow(std::string_view key, std::string_view value);

    void OpenSection(std::string_view name);
    DescribedBin Bin(std::string_view value);
    void Problem(std::string_view expected);

    Description result_;
    std::string path_;
    int line_ = 0;
    Handler handler_ = nullptr;
};

// name, handler of its lines
const Parser::Section Parser::kSections[] = {
    {"Printer", &Parser::Printer},      {"PaperInfo", &Parser::Paper},
    {"InputBins", &Parser::InputBin},   {"OutputBins", &Parser::OutputBin},
    {"Watermarks", &Parser::Watermark}, {"Resolutions", &Parser::Resolution},
    {"Defaults", &Parser::Default},     {"PrinterValues", &Parser::PrinterValue},
};

void Parser::Problem(std::string_view expected) {
    result_.problems.push_back(path_ + ":" + std::to_string(line_) + ": expected " +
                               std::string(expected));
}

// A section that is not listed belongs to somebody else; its lines are kept as they are.
void Parser::OpenSection(std::string_view name) {
    for (const Section& section : kSections) {
        if (!kv::EqualsIgnoringCase(section.name, name)) continue;
        handler_ = section.handler;
        return;
    }
    result_.otherSections.push_back({std::string(name), {}});
    handler_ = &Parser::OtherRow;
}

void Parser::Line(std::string_view line, int number) {
    line_ = number;
    line = Trim(line);
    if (line.empty() || line.front() == ';') return;
    if (line.front() == '[') {
        if (line.back() != ']') return Problem("\"]\" at the end of the section's name");
        return OpenSection(Trim(line.substr(1, line.size() - 2)));
    }
    const std::size_t equals = line.find('=');
    if (equals == std::string_view::npos) return Problem("a line of the form \"name = value\"");
    if (handler_) (this->*handler_)(Trim(line.substr(0, equals)), Trim(line.substr(equals + 1)));
}

void Parser::Printer(std::string_view key, std::string_view value) {
    if (kv::EqualsIgnoringCase(key, "Model")) result_.model = value;
}

void Parser::Paper(std::string_view key, std::string_view value) {
    if (kv::EqualsIgnoringCase(key, "Num")) return;  // for people; the rows themselves count
    Row row(value);
    DescribedPaper paper;
    paper.code = row.Signed();
    paper.internalName = row.Word();
    const std::string unit = row.Word();
    paper.unit = unit == "inch" ? PaperUnit::kInch : PaperUnit::kMillimetre;
    paper.width = row.Signed();
    paper.length = row.Signed();
    paper.margins = {row.Signed(), row.Signed(), row.Signed(), row.Signed()};
    paper.displayName = row.Rest();
    row.Require(unit == "mm" || unit == "inch");
    row.Require(paper.code > 0 && paper.code < kFirstUserPaper && !result_.FindPaper(paper.code));
    row.Require(paper.width > 0 && paper.width <= 20000 && paper.length > 0 &&
                paper.length <= 20000);
    row.Require(!paper.displayName.empty() && result_.papers.size() < kMaxPapers);
    if (!row.Good()) {
        return Problem(
            "\"code, name, mm or inch, width, length, left, top, right, bottom, text\""
            " with a code of its own below 512");
    }
    result_.papers.push_back(std::move(paper));
}

DescribedBin Parser::Bin(std::string_view value) {
    Row row(value);
    DescribedBin bin;
    bin.identifier = row.Number();
    bin.optionItem = row.Word();
    bin.displayName = row.Rest();
    if (!row.Good()) bin.displayName.clear();
    return bin;
}

void Parser::InputBin(std::string_view, std::string_view value) {
    DescribedBin bin = Bin(value);
    if (bin.displayName.empty() || result_.inputBins.size() >= kMaxBins) {
        return Problem("\"source code, option item or nothing, text\", at most 64 of them");
    }
    result_.inputBins.push_back(std::move(bin));
}

void Parser::OutputBin(std::string_view, std::string_view value) {
    DescribedBin bin = Bin(value);
    if (bin.displayName.empty() || result_.outputBins.size() >= kMaxBins) {
        return Problem("\"bin's bit, option item or nothing, text\", at most 64 of them");
    }
    result_.outputBins.push_back(std::move(bin));
}

void Parser::Watermark(std::string_view, std::string_view value) {
    Row row(value);
    DescribedWatermark watermark;
    watermark.id = row.Number();
    watermark.points = row.Number();
    watermark.angleMode = row.Number();
    watermark.angle = row.Signed();
    watermark.color = row.Number();
    watermark.name = row.Word();
    watermark.text = row.Rest();
    row.Require(watermark.id < static_cast<DWORD>(kFirstUserWatermark));
    row.Require(!watermark.name.empty());
    if (!row.Good()) {
        return Problem("\"id below 128, points, angle mode, angle, colour, name, text\"");
    }
    result_.watermarks.push_back(std::move(watermark));
}

void Parser::Resolution(std::string_view, std::string_view value) {
    Row row(value);
    const DescribedResolution resolution{row.Signed(), row.Signed()};
    row.Require(resolution.x > 0 && resolution.y > 0);
    if (!row.Good()) return Problem("\"dots per inch across, dots per inch down\"");
    result_.resolutions.push_back(resolution);
}

void Parser::Default(std::string_view key, std::string_view value) {
    const std::optional<DWORD> number = ParseNumber(value);
    if (!FindRecordField(key)) return Problem("the name of a field of the settings record");
    if (!number) return Problem("a number");
    result_.defaults.emplace_back(key, *number);
}

void Parser::PrinterValue(std::string_view key, std::string_view value) {
    if (key.empty()) return Problem("the name of a printer value");
    result_.printerValues.emplace_back(key, value);
}

void Parser::OtherRow(std::string_view key, std::string_view value) {
    result_.otherSections.back().rows.emplace_back(key, value);
}

}  // namespace

Description ParseDescription(std::string_view text, const std::string& path) {
    Parser parser(path);
    for (int number = 1; !text.empty(); ++number) {
        const std::size_t end = std::min(text.find('\n'), text.size());
        parser.Line(text.substr(0, end), number);
        text.remove_prefix(std::min(end + 1, text.size()));
    }
    return std::move(parser).Finish();
}

}  // namespace kvcore
