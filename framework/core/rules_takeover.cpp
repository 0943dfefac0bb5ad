// Sections are taken as text, so that comments, order and line ends stay as somebody wrote them.
#include "rules_takeover.h"

#include <platform/profile/profile_document.h>
#include <platform/shell/paths.h>

#include <algorithm>
#include <optional>

namespace kvcore {
namespace {

// All that the vendor writes. Sections of other names are lists that users stored.
constexpr std::string_view kVendorSections[] = {
    "",
    "ConflictConditions",
    "GrayOutConditions",
    "ShowItemAccordingToOption",
    "EditAttribute",
    "AddCondition",
    "OptionDependence",
    "OptionConflict",
    "MoveWithItems",
    "CustomPaper",
    "Watermark",
};
// In this one users' records, and the range of their numbers, lie beside the vendor's values.
constexpr std::string_view kSharedSection = "Watermark";

struct Section {
    std::string name;  // empty for the lines before the first one
    std::string_view text;
};

bool Same(std::string_view left, std::string_view right) {
    return kv::EqualsIgnoringCase(left, right);
}

template <typename Visit>
void ForEachLine(std::string_view text, Visit visit) {
    for (std::size_t begin = 0; begin < text.size();) {
        const std::size_t end = kv::ProfileLineEnd(text, begin);
        const std::size_t next = kv::NextProfileLine(text, end);
        visit(kv::TrimBlanks(text.substr(begin, end - begin)), text.substr(begin, next - begin));
        begin = next;
    }
}

std::vector<Section> SectionsOf(std::string_view text) {
    std::vector<Section> sections = {{"", text.substr(0, 0)}};
    ForEachLine(text, [&](std::string_view line, std::string_view whole) {
        if (const auto name = kv::ProfileSectionName(line)) {
            sections.push_back({std::string(*name), whole.substr(0, 0)});
        }
        std::string_view& grown = sections.back().text;
        grown = {grown.data(), grown.size() + whole.size()};
    });
    return sections;
}

const Section* Find(const std::vector<Section>& sections, std::string_view name) {
    const auto found = std::find_if(sections.begin(), sections.end(),
                                    [&](const Section& one) { return Same(one.name, name); });
    return found == sections.end() ? nullptr : &*found;
}

bool IsVendors(std::string_view section) {
    return std::any_of(std::begin(kVendorSections), std::end(kVendorSections),
                       [&](std::string_view known) { return Same(known, section); });
}

bool IsUsersLine(const Section& section, std::string_view line) {
    const auto key = kv::ProfileKeyName(line);
    if (!key || !Same(section.name, kSharedSection)) return false;
    const bool isNumber = !key->empty() && key->find_first_not_of("0123456789") == key->npos;
    return isNumber || Same(*key, "MinCode") || Same(*key, "MaxCode");
}

std::string UsersLines(const Section& section) {
    std::string lines;
    ForEachLine(section.text, [&](std::string_view line, std::string_view whole) {
        if (IsUsersLine(section, line)) lines += whole;
    });
    return lines;
}

// The lines that count for somebody who compares two versions of a vendor's section.
std::vector<std::string> VendorsLines(const Section* section) {
    std::vector<std::string> lines;
    if (section == nullptr) return lines;
    ForEachLine(section->text, [&](std::string_view line, std::string_view) {
        if (!line.empty() && !IsUsersLine(*section, line)) lines.emplace_back(line);
    });
    return lines;
}

void EndLine(std::string& text) {
    if (!text.empty() && text.back() != '\n' && text.back() != '\r') text += '\n';
}

}  // namespace

TakenRules TakeOverRules(std::string_view installed, std::string_view model) {
    const std::vector<Section> old = SectionsOf(installed);
    const std::vector<Section> fresh = SectionsOf(model);
    TakenRules taken;
    for (const Section& section : fresh) {
        const Section* before = Find(old, section.name);
        EndLine(taken.text);
        taken.text += section.text;
        if (VendorsLines(&section) != VendorsLines(before)) taken.changed.push_back(section.name);
        const std::string users = before != nullptr ? UsersLines(*before) : std::string();
        if (users.empty()) continue;
        EndLine(taken.text);
        taken.text += users;
        taken.kept.push_back(section.name);
    }
    for (const Section& section : old) {
        if (Find(fresh, section.name) != nullptr) continue;
        if (IsVendors(section.name)) {
            taken.changed.push_back(section.name);
            continue;
        }
        EndLine(taken.text);
        taken.text += section.text;
        taken.kept.push_back(section.name);
    }
    if (taken.changed.empty()) taken.text = installed;
    return taken;
}

}  // namespace kvcore
