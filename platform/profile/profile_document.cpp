// Parsing a profile file and looking names up in it.
#include <platform/profile/profile_document.h>

#include <bit>
#include <cstring>

#include <platform/shell/paths.h>

namespace kv {

namespace {

constexpr bool IsBlank(char character) {
    return character == ' ' || character == '\t';
}

constexpr std::uint32_t HashName(std::string_view name, std::uint32_t seed) {
    std::uint32_t hash = 2166136261u ^ (seed * 0x9E3779B9u);
    for (const char character : name) {
        hash = (hash ^ static_cast<unsigned char>(FoldCase(character))) * 16777619u;
    }
    return hash ^ (hash >> 15);
}

std::size_t TableSize(std::size_t entries) {
    return std::bit_ceil(entries * 2 + 1);
}

}  // namespace

std::size_t ProfileTextBegin(std::string_view text) {
    return text.substr(0, 3) == "\xEF\xBB\xBF" ? 3 : 0;
}

std::size_t ProfileLineEnd(std::string_view text, std::size_t begin) {
    while (begin < text.size() && text[begin] != '\n' && text[begin] != '\r' && text[begin] != 0) {
        ++begin;
    }
    return begin;
}

std::size_t NextProfileLine(std::string_view text, std::size_t lineEnd) {
    if (lineEnd + 1 < text.size() && text[lineEnd] == '\r' && text[lineEnd + 1] == '\n') {
        return lineEnd + 2;
    }
    return lineEnd < text.size() ? lineEnd + 1 : lineEnd;
}

std::string_view TrimBlanks(std::string_view text) {
    while (!text.empty() && IsBlank(text.front())) text.remove_prefix(1);
    while (!text.empty() && IsBlank(text.back())) text.remove_suffix(1);
    return text;
}

std::optional<std::string_view> ProfileSectionName(std::string_view trimmedLine) {
    if (trimmedLine.empty() || trimmedLine[0] != '[') return std::nullopt;
    const std::size_t close = trimmedLine.find(']');
    const std::size_t end = close == std::string_view::npos ? trimmedLine.size() : close;
    return TrimBlanks(trimmedLine.substr(1, end - 1));
}

std::optional<std::string_view> ProfileKeyName(std::string_view trimmedLine) {
    if (trimmedLine.empty() || trimmedLine[0] == '[' || trimmedLine[0] == ';') return std::nullopt;
    const std::size_t equals = trimmedLine.find('=');
    if (equals == std::string_view::npos) return std::nullopt;
    const std::string_view key = TrimBlanks(trimmedLine.substr(0, equals));
    return key.empty() ? std::nullopt : std::optional(key);
}

ProfileDocument::ProfileDocument(std::string text) : text_(std::move(text)) {
    Parse();
    BuildIndexes();
}

void ProfileDocument::Parse() {
    lines_.reserve(text_.size() / 64);
    std::size_t begin = ProfileTextBegin(text_);
    while (begin < text_.size() && lines_.size() < kMostLines && sections_.size() < kMostLines) {
        const std::size_t end = ProfileLineEnd(text_, begin);
        ParseLine(begin, end);
        begin = NextProfileLine(text_, end);
    }
}

void ProfileDocument::ParseLine(std::size_t begin, std::size_t end) {
    while (begin < end && IsBlank(text_[begin])) ++begin;
    while (end > begin && IsBlank(text_[end - 1])) --end;
    if (begin == end || text_[begin] == ';') return;
    const auto count = static_cast<std::uint32_t>(lines_.size());
    if (text_[begin] == '[') {
        sections_.push_back({*ProfileSectionName(Span(begin, end)), count, count});
        return;
    }
    if (sections_.empty()) return;  // lines before the first section belong to none
    ProfileLine line;
    line.begin = line.keyEnd = static_cast<std::uint32_t>(begin);
    line.end = line.valueBegin = static_cast<std::uint32_t>(end);
    if (const void* found = std::memchr(text_.data() + begin, '=', end - begin)) {
        const auto equals =
            static_cast<std::size_t>(static_cast<const char*>(found) - text_.data());
        std::size_t keyEnd = equals;
        std::size_t valueBegin = equals + 1;
        while (keyEnd > begin && IsBlank(text_[keyEnd - 1])) --keyEnd;
        while (valueBegin < end && IsBlank(text_[valueBegin])) ++valueBegin;
        line.keyEnd = static_cast<std::uint32_t>(keyEnd);
        line.valueBegin = static_cast<std::uint32_t>(valueBegin);
    }
    lines_.push_back(line);
    sections_.back().lastLine = count + 1;
}

// Of equal names only the first enters an index; a repeated section's keys are never found either.
void ProfileDocument::BuildIndexes() {
    sectionIndex_.resize(TableSize(sections_.size()));
    keyIndex_.resize(TableSize(lines_.size()));
    const std::size_t mask = sectionIndex_.size() - 1;
    for (std::uint32_t section = 0; section < sections_.size(); ++section) {
        const std::string_view name = sections_[section].name;
        if (FindSection(name)) continue;
        const std::uint32_t hash = HashName(name, 0);
        std::size_t at = hash & mask;
        while (sectionIndex_[at].target) at = (at + 1) & mask;
        sectionIndex_[at] = {hash, section + 1, section};
        for (std::uint32_t i = sections_[section].firstLine; i < sections_[section].lastLine; ++i) {
            IndexKey(section, i);
        }
    }
}

void ProfileDocument::IndexKey(std::uint32_t section, std::uint32_t line) {
    const std::string_view key = KeyOf(line);
    if (key.empty()) return;
    const std::uint32_t hash = HashName(key, section + 1);
    const std::size_t mask = keyIndex_.size() - 1;
    std::size_t at = hash & mask;
    for (; keyIndex_[at].target; at = (at + 1) & mask) {
        const Slot& slot = keyIndex_[at];
        if (slot.hash == hash && slot.section == section &&
            EqualsIgnoringCase(KeyOf(slot.target - 1), key)) {
            return;
        }
    }
    keyIndex_[at] = {hash, line + 1, section};
}

const ProfileSection* ProfileDocument::FindSection(std::string_view name) const {
    name = TrimBlanks(name);
    const std::uint32_t hash = HashName(name, 0);
    const std::size_t mask = sectionIndex_.size() - 1;
    for (std::size_t at = hash & mask; sectionIndex_[at].target; at = (at + 1) & mask) {
        const ProfileSection& section = sections_[sectionIndex_[at].target - 1];
        if (sectionIndex_[at].hash == hash && EqualsIgnoringCase(section.name, name)) {
            return &section;
        }
    }
    return nullptr;
}

std::optional<std::string_view> ProfileDocument::FindValue(std::string_view section,
                                                           std::string_view key) const {
    const ProfileSection* found = FindSection(section);
    if (!found) return std::nullopt;
    key = TrimBlanks(key);
    const auto index = static_cast<std::uint32_t>(found - sections_.data());
    const std::uint32_t hash = HashName(key, index + 1);
    const std::size_t mask = keyIndex_.size() - 1;
    for (std::size_t at = hash & mask; keyIndex_[at].target; at = (at + 1) & mask) {
        const Slot& slot = keyIndex_[at];
        if (slot.hash == hash && slot.section == index &&
            EqualsIgnoringCase(KeyOf(slot.target - 1), key)) {
            return ValueOf(slot.target - 1);
        }
    }
    return std::nullopt;
}

std::string_view ProfileDocument::KeyOf(std::uint32_t index) const {
    return Span(lines_[index].begin, lines_[index].keyEnd);
}

std::string_view ProfileDocument::ValueOf(std::uint32_t index) const {
    return Span(lines_[index].valueBegin, lines_[index].end);
}

void ProfileDocument::AppendLine(std::uint32_t index, std::string& block) const {
    const ProfileLine& line = lines_[index];
    const bool hasEquals = Span(line.begin, line.end).find('=') != std::string_view::npos;
    if (!hasEquals) {
        block.append(Span(line.begin, line.end));
        return;
    }
    block.append(KeyOf(index)).append(1, '=').append(ValueOf(index));
}

}  // namespace kv
