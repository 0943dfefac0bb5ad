// One check a section, found by the section's name; sections of other names belong to users' lists.
#include <host/index/control_index.h>
#include <host/record/rules_faults.h>

#include <platform/profile/profile_document.h>

#include <algorithm>
#include <fstream>
#include <iterator>
#include <map>
#include <set>

namespace kvhost {
namespace {

constexpr size_t kMostFaults = 100;
constexpr const char* kDigits = "0123456789";
// Names beside those of the catalogue: lists whose entries trigger rules, and their buttons.
constexpr std::string_view kListNames[] = {
    "CustomPaperList", "CustomPaperNew", "CustomPaperEdit", "CustomPaperDelete",
    "WatermarkList",   "WatermarkNew",   "WatermarkEdit",   "WatermarkDelete",
};

bool IsName(std::string_view name) {
    const auto* end = kControls + kControlCount;
    return std::any_of(kControls, end, [&](const Control& row) { return name == row.name; }) ||
           std::find(std::begin(kListNames), std::end(kListNames), name) != std::end(kListNames);
}

// Files may hold anything; a terminal must not get it.
std::string Quoted(std::string_view name) {
    constexpr size_t kLongest = 64;
    std::string text(name.substr(0, kLongest));
    for (char& c : text) {
        if (static_cast<unsigned char>(c) < ' ' || c == '\x7F') c = '?';
    }
    return "\"" + text + (name.size() > kLongest ? "...\"" : "\"");
}

// Walks a value from left to right; each step answers whether it found what it looks for.
class Scanner {
 public:
    explicit Scanner(std::string_view text) : rest_(text) {}

    bool Take(char wanted) {
        SkipBlanks();
        if (rest_.empty() || rest_.front() != wanted) return false;
        rest_.remove_prefix(1);
        return true;
    }
    bool Number() {
        SkipBlanks();
        const size_t sign =
            !rest_.empty() && (rest_.front() == '-' || rest_.front() == '+') ? 1 : 0;
        const size_t end = std::min(rest_.find_first_not_of(kDigits, sign), rest_.size());
        rest_.remove_prefix(end);
        return end > sign;
    }
    // Single values and ranges up to the closing parenthesis, which is taken too.
    bool Items() {
        const size_t end = rest_.find_first_not_of("0123456789-, \t");
        rest_.remove_prefix(std::min(end, rest_.size()));
        return Take(')');
    }
    std::string_view Word() {
        SkipBlanks();
        const std::string_view word = rest_.substr(0, rest_.find_first_of(",()"));
        rest_.remove_prefix(word.size());
        return kv::TrimBlanks(word);
    }
    bool AtEnd() {
        SkipBlanks();
        return rest_.empty();
    }

 private:
    void SkipBlanks() {
        rest_.remove_prefix(std::min(rest_.find_first_not_of(" \t"), rest_.size()));
    }
    std::string_view rest_;
};

// Behind the opening parenthesis of a target.
std::string FaultOfTarget(Scanner& scan) {
    const std::string name(scan.Word());
    if (!IsName(name)) return "the name of a control as a target, not " + Quoted(name);
    const bool head = scan.Take(',') && scan.Number() && scan.Take(',') && scan.Number() &&
                      scan.Take(',') && scan.Take('(') && scan.Items() && scan.Take(',');
    const bool forced = head && (scan.Take('H') || scan.Number());
    const bool condition = forced && (!scan.Take(',') || scan.Number());
    return condition && scan.Take(')')
               ? std::string()
               : "a target (" + name + ",NEGATE,ALL,(VALUES),FORCED[,CONDITION])";
}

std::string FaultOfRule(std::string_view value) {
    Scanner scan(value);
    const bool trigger = scan.Take('(') ? scan.Items() : scan.Number();
    if (!trigger || !scan.Take(',') || !scan.Number() || !scan.Take(',') || !scan.Number()) {
        return "(VALUES),NEGATE,KIND and targets";
    }
    bool any = false;
    while (!scan.AtEnd()) {
        if (!scan.Take(',') || !scan.Take('(')) return "\",(\" before the next target";
        if (const std::string fault = FaultOfTarget(scan); !fault.empty()) return fault;
        any = true;
    }
    return any ? std::string() : "at least one target behind (VALUES),NEGATE,KIND";
}

// How many numbers a value has, separated by any of these characters; 0 when it has something else.
size_t CountNumbers(std::string_view value, std::string_view separators) {
    size_t count = 0;
    for (Scanner scan(value); scan.Number();) {
        ++count;
        if (scan.AtEnd()) return count;
        if (std::none_of(separators.begin(), separators.end(),
                         [&](char c) { return scan.Take(c); })) {
            return 0;
        }
    }
    return 0;
}

class Checker {
 public:
    explicit Checker(const std::string& path) : path_(path) {}
    void Line(std::string_view line);
    std::vector<std::string> Finish() &&;

 private:
    using Check = void (Checker::*)(std::string_view key, std::string_view value);
    struct Row {
        std::string_view section;
        Check check;
    };
    static const Row kSections[];

    void Conflict(std::string_view key, std::string_view value);
    void Shown(std::string_view key, std::string_view value);
    void Edit(std::string_view key, std::string_view value);
    void Condition(std::string_view key, std::string_view value);
    void Options(std::string_view key, std::string_view value);
    void OpenSection(std::string_view line);
    void Fault(const std::string& expected, int line = 0);

    std::string path_;
    std::vector<std::pair<int, std::string>> faults_;
    int line_ = 0;
    bool inSection_ = false;
    Check check_ = nullptr;
    std::set<std::string> sections_;
    std::set<std::string> keys_;                                 // of the section
    std::map<std::string, std::map<unsigned long, int>> rules_;  // control, number, line
};

// section, check of its lines
const Checker::Row Checker::kSections[] = {
    {"conflictconditions", &Checker::Conflict}, {"showitemaccordingtooption", &Checker::Shown},
    {"editattribute", &Checker::Edit},          {"addcondition", &Checker::Condition},
    {"optiondependence", &Checker::Options},    {"optionconflict", &Checker::Options},
};

std::string Lower(std::string_view text) {
    std::string lower(text);
    for (char& c : lower) {
        if (c >= 'A' && c <= 'Z') c = static_cast<char>(c - 'A' + 'a');
    }
    return lower;
}

void Checker::Fault(const std::string& expected, int line) {
    if (faults_.size() < kMostFaults) faults_.push_back({line != 0 ? line : line_, expected});
}

void Checker::OpenSection(std::string_view line) {
    if (line.find(']') == line.npos) Fault("\"]\" behind the section's name");
    const std::string name = Lower(*kv::ProfileSectionName(line));
    if (!sections_.insert(name).second) Fault("each section once; this one is not read");
    inSection_ = true;
    keys_.clear();
    check_ = nullptr;
    for (const Row& row : kSections) {
        if (name == row.section) check_ = row.check;
    }
}

void Checker::Line(std::string_view line) {
    ++line_;
    line = kv::TrimBlanks(line);
    if (line.empty() || line.front() == ';') return;
    if (line.front() == '[') return OpenSection(line);
    if (!inSection_) return Fault("a section's name in brackets before the first line");
    const size_t equals = line.find('=');
    if (check_ == nullptr) return;
    if (equals == line.npos || equals == 0) return Fault("a line of the form \"key=value\"");
    const std::string_view key = kv::TrimBlanks(line.substr(0, equals));
    if (!keys_.insert(Lower(key)).second) return Fault("each key once; this one is not read");
    (this->*check_)(key, kv::TrimBlanks(line.substr(equals + 1)));
}

void Checker::Conflict(std::string_view key, std::string_view value) {
    // Names may end with digits themselves, so the longest one that fits is meant.
    size_t digits = key.find_last_not_of(kDigits) + 1;
    while (digits < key.size() && !IsName(key.substr(0, digits))) ++digits;
    const std::string name(key.substr(0, digits));
    const std::string number(key.substr(digits));
    if (number.empty() || number.size() > 4) {
        return Fault("the name of a control and a rule's number, not " + Quoted(key));
    }
    rules_[name].emplace(std::stoul(number), line_);
    if (const std::string fault = FaultOfRule(value); !fault.empty()) Fault(fault);
}

void Checker::Shown(std::string_view, std::string_view value) {
    const auto commas = std::count(value.begin(), value.end(), ',');
    if (CountNumbers(value, ",/") == 0 || commas > 3) {
        Fault("up to four lists of option numbers, separated by commas: 2/3,0,0,4");
    }
}

void Checker::Edit(std::string_view key, std::string_view value) {
    if (!IsName(key)) return Fault("the name of a control, not " + Quoted(key));
    const size_t last = value.find_last_of(',');
    const bool isVoid = last != value.npos && value.find_first_of("123456789", last) == value.npos;
    if (CountNumbers(value, ",") != 3 || isVoid) {
        Fault("three numbers: most characters, minimum, maximum (not 0)");
    }
}

void Checker::Condition(std::string_view key, std::string_view value) {
    if (key.find_first_not_of(kDigits) != key.npos || key.size() > 9) {
        return Fault("a condition's number, not " + Quoted(key));
    }
    constexpr unsigned long kFirstOfPapers = 1000;
    if (std::stoul(std::string(key)) >= kFirstOfPapers) {
        const size_t count = CountNumbers(value, ",");
        if (count < 4 || count > 6) {
            Fault("four to six numbers: least and most width, least and most length, option, key");
        }
        return;
    }
    Scanner scan(value);
    const std::string name(scan.Word());
    const bool known = name == "AND" || IsName(name);
    if (!known || !scan.Take(',') || !scan.Take('(') || !scan.Items() || !scan.AtEnd()) {
        Fault("the name of a control, or AND, and (VALUES)");
    }
}

void Checker::Options(std::string_view key, std::string_view value) {
    constexpr unsigned long kLastOption = 24;
    const bool isNumber = key.find_first_not_of(kDigits) == key.npos && key.size() <= 2;
    if (!isNumber || std::stoul(std::string(key)) > kLastOption) {
        return Fault("an option's number from 0 to 24, not " + Quoted(key));
    }
    if (CountNumbers(value, ",") == 0) Fault("option numbers separated by commas");
}

std::vector<std::string> Checker::Finish() && {
    for (const auto& [name, numbers] : rules_) {
        unsigned long next = 0;
        for (const auto& [number, line] : numbers) {
            if (number != next++) {
                Fault(
                    name + std::to_string(next - 1) + " before it: rules behind a gap are not read",
                    line);
                break;
            }
        }
    }
    std::stable_sort(faults_.begin(), faults_.end(),
                     [](const auto& left, const auto& right) { return left.first < right.first; });
    std::vector<std::string> lines;
    for (const auto& [line, expected] : faults_) {
        lines.push_back(path_ + ":" + std::to_string(line) + ": expected " + expected);
    }
    return lines;
}

}  // namespace

std::vector<std::string> FaultsInRules(std::string_view text, const std::string& path) {
    Checker checker(path);
    for (size_t begin = kv::ProfileTextBegin(text); begin < text.size();) {
        const size_t end = kv::ProfileLineEnd(text, begin);
        checker.Line(text.substr(begin, end - begin));
        begin = kv::NextProfileLine(text, end);
    }
    return std::move(checker).Finish();
}

std::vector<std::string> FaultsOfRules(const std::string& path) {
    std::ifstream file(path, std::ios::binary);
    return FaultsInRules(std::string(std::istreambuf_iterator<char>(file), {}), path);
}

}  // namespace kvhost
