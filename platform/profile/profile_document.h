// One profile file, parsed once: its lines as spans of the text, with hashed sections and keys.
// profile_cache.cpp keeps the documents that were read, profile_edit.cpp works on the same spans.
//
// Lines end with CR, LF, CR LF or a zero byte. "[name]" begins a section, ";" a comment, the text
// before the first "=" of another line is its key. Blanks around names and values do not count.
// Of two sections, or two keys of a section, of the same name the first is the one.
#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace kv {

struct ProfileLine {
    std::uint32_t begin = 0;       // offset of the first character that is not blank
    std::uint32_t end = 0;         // behind the last such character
    std::uint32_t keyEnd = 0;      // end of the key; equal to `begin` for a line without a key
    std::uint32_t valueBegin = 0;  // equal to `end` for a line without "="
};

struct ProfileSection {
    std::string_view name;
    std::uint32_t firstLine = 0;  // its lines but blank ones and comments
    std::uint32_t lastLine = 0;
};

class ProfileDocument {
 public:
    static constexpr std::size_t kLargestFile = std::size_t{16} << 20;
    static constexpr std::size_t kMostLines = std::size_t{1} << 20;

    // Texts up to kLargestFile; lines beyond kMostLines are not seen.
    explicit ProfileDocument(std::string text);
    ProfileDocument(const ProfileDocument&) = delete;
    ProfileDocument& operator=(const ProfileDocument&) = delete;

    const std::string& Text() const { return text_; }
    const std::vector<ProfileSection>& Sections() const { return sections_; }

    // The first section of this name; null when there is none.
    const ProfileSection* FindSection(std::string_view name) const;
    // The value as it stands in the file, without blanks around it but with its quotes.
    std::optional<std::string_view> FindValue(std::string_view section, std::string_view key) const;

    // Key and value of line `index`; the key is empty when the line has none.
    std::string_view KeyOf(std::uint32_t index) const;
    std::string_view ValueOf(std::uint32_t index) const;
    // The line as a section read answers it: "key=value", or the bare text of a line without "=".
    void AppendLine(std::uint32_t index, std::string& block) const;

 private:
    struct Slot {
        std::uint32_t hash = 0;
        std::uint32_t target = 0;   // line or section, plus 1; 0 for a free slot
        std::uint32_t section = 0;  // of a line
    };

    void Parse();
    void ParseLine(std::size_t begin, std::size_t end);
    void BuildIndexes();
    void IndexKey(std::uint32_t section, std::uint32_t line);
    std::string_view Span(std::size_t begin, std::size_t end) const {
        return std::string_view(text_).substr(begin, end - begin);
    }

    std::string text_;
    std::vector<ProfileLine> lines_;
    std::vector<ProfileSection> sections_;
    std::vector<Slot> sectionIndex_;  // open addressing, power-of-two sizes
    std::vector<Slot> keyIndex_;
};

// Shared with the writer: where a line ends, and what counts as a blank.
std::size_t ProfileLineEnd(std::string_view text, std::size_t begin);
std::size_t NextProfileLine(std::string_view text, std::size_t lineEnd);
std::string_view TrimBlanks(std::string_view text);
std::size_t ProfileTextBegin(std::string_view text);  // behind a byte order mark

// "[ name ] rest" gives "name"; nothing for a line that is no section header. A header without its
// closing bracket runs to the end of the line.
std::optional<std::string_view> ProfileSectionName(std::string_view trimmedLine);
// The key before the first "="; nothing for comments, headers and lines without one.
std::optional<std::string_view> ProfileKeyName(std::string_view trimmedLine);

}  // namespace kv
