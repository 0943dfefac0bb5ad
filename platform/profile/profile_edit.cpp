// Editing profile text by spans.
#include <platform/profile/profile_edit.h>

#include <platform/profile/profile_document.h>
#include <platform/shell/paths.h>

namespace kv {

namespace {

struct Line {
    std::size_t begin = 0;
    std::size_t end = 0;   // without the line end
    std::size_t next = 0;  // behind it
};

Line LineAt(std::string_view text, std::size_t begin) {
    const std::size_t end = ProfileLineEnd(text, begin);
    return {begin, end, NextProfileLine(text, end)};
}

std::string_view Trimmed(std::string_view text, const Line& line) {
    return TrimBlanks(text.substr(line.begin, line.end - line.begin));
}

struct Section {
    bool found = false;
    Line header;
    std::size_t end = 0;     // begin of the next header, or the end of the text
    std::size_t insert = 0;  // behind the last line that is not blank: where a new key goes
};

Section FindSection(std::string_view text, std::string_view name) {
    Section section;
    for (std::size_t at = ProfileTextBegin(text); at < text.size();) {
        const Line line = LineAt(text, at);
        const std::string_view content = Trimmed(text, line);
        const auto header = ProfileSectionName(content);
        if (header && section.found) {
            section.end = line.begin;
            return section;
        }
        if (header && EqualsIgnoringCase(*header, name)) {
            section.found = true;
            section.header = line;
        }
        if (section.found && !content.empty()) section.insert = line.next;
        at = line.next;
    }
    section.end = text.size();
    return section;
}

// The line end that the file uses; a new file gets the platform's own.
std::string LineEnd(std::string_view text) {
    const std::size_t end = text.find_first_of("\r\n");
    if (end == std::string_view::npos) return "\r\n";
    return std::string(text.substr(end, NextProfileLine(text, end) - end));
}

bool EndsWithLineEnd(std::string_view text) {
    return text.size() <= ProfileTextBegin(text) || text.back() == '\n' || text.back() == '\r' ||
           text.back() == '\0';
}

// Inserts whole lines at a line's begin; the last line of a file may lack its end.
std::string InsertLines(const std::string& text, std::size_t at, const std::string& lines) {
    std::string result = text.substr(0, at);
    if (!EndsWithLineEnd(result)) result += LineEnd(text);
    result += lines;
    return result.append(text, at, std::string::npos);
}

std::string NewSection(const std::string& text, std::string_view section,
                       const std::string& lines) {
    std::string added = "[";
    added.append(section).append("]").append(LineEnd(text)).append(lines);
    return InsertLines(text, text.size(), added);
}

bool FindKey(std::string_view text, const Section& section, std::string_view key, Line& found) {
    for (std::size_t at = section.header.next; at < section.end;) {
        const Line line = LineAt(text, at);
        const auto name = ProfileKeyName(Trimmed(text, line));
        if (name && EqualsIgnoringCase(*name, key)) {
            found = line;
            return true;
        }
        at = line.next;
    }
    return false;
}

// Keeps the key as it is spelled, with the blanks around the equals sign.
std::string ReplaceValue(const std::string& text, const Line& line, std::string_view value) {
    std::size_t begin = text.find('=', line.begin) + 1;
    while (begin < line.end && (text[begin] == ' ' || text[begin] == '\t')) ++begin;
    std::string result = text.substr(0, begin);
    result.append(value);
    return result.append(text, line.end, std::string::npos);
}

}  // namespace

std::string EditProfileKey(const std::string& text, std::string_view sectionName,
                           std::string_view keyName, std::optional<std::string_view> value) {
    const std::string_view name = TrimBlanks(sectionName);
    const std::string_view key = TrimBlanks(keyName);
    const Section section = FindSection(text, name);
    Line line;
    if (section.found && FindKey(text, section, key, line)) {
        if (value) return ReplaceValue(text, line, *value);
        return text.substr(0, line.begin).append(text, line.next, std::string::npos);
    }
    if (!value) return text;
    std::string added(key);
    added.append("=").append(*value).append(LineEnd(text));
    return section.found ? InsertLines(text, section.insert, added) : NewSection(text, name, added);
}

std::string EditProfileSection(const std::string& text, std::string_view sectionName,
                               const char* block) {
    const std::string_view name = TrimBlanks(sectionName);
    const Section section = FindSection(text, name);
    if (!block) {
        if (!section.found) return text;
        return text.substr(0, section.header.begin).append(text, section.end, std::string::npos);
    }
    std::string lines;
    for (const char* line = block; *line; line += std::string_view(line).size() + 1) {
        lines.append(line).append(LineEnd(text));
    }
    if (!section.found) return NewSection(text, name, lines);
    const std::string head = text.substr(0, section.header.next);
    // Blank lines before the next section stay, as its distance.
    return InsertLines(head + text.substr(section.insert), head.size(), lines);
}

}  // namespace kv
