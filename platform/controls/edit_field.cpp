// Implementation of text editing for edits and combo boxes.
#include <platform/controls/control_support.h>
#include <platform/controls/edit_field.h>

#include <algorithm>
#include <iterator>

namespace kv {
namespace {

constexpr char kSelectAll = 0x01;  // Ctrl+A
constexpr char kBackspace = 0x08;
constexpr char kReturn = 0x0D;

int Length(const std::string& text) {
    return static_cast<int>(text.size());
}

bool IsDigit(char character) {
    return character >= '0' && character <= '9';
}

void EraseSelection(EditField& field, std::string& text) {
    const int start = field.SelectionStart();
    text.erase(static_cast<size_t>(start), static_cast<size_t>(field.SelectionEnd() - start));
    field.anchor = field.caret = start;
    field.modified = true;
}

// Deletes the selection, or the character beside the caret when there is none.
EditOutcome Delete(EditField& field, std::string& text, int step) {
    if (field.anchor == field.caret) {
        const int neighbour = field.caret + step;
        if (neighbour < 0 || neighbour > Length(text)) return EditOutcome::kNothing;
        field.anchor = neighbour;
        // A line end is one step for the user.
        const int first = field.SelectionStart();
        if (step < 0 && first > 0 && text[static_cast<size_t>(first)] == '\n' &&
            text[static_cast<size_t>(first) - 1] == '\r') {
            --field.anchor;
        }
        if (step > 0 && text[static_cast<size_t>(first)] == '\r' && neighbour < Length(text) &&
            text[static_cast<size_t>(neighbour)] == '\n') {
            ++field.anchor;
        }
    }
    EraseSelection(field, text);
    return EditOutcome::kChanged;
}

int LineStart(const std::string& text, int at) {
    while (at > 0 && text[static_cast<size_t>(at) - 1] != '\n') --at;
    return at;
}

int LineEnd(const std::string& text, int at) {
    while (at < Length(text) && text[static_cast<size_t>(at)] != '\r' &&
           text[static_cast<size_t>(at)] != '\n') {
        ++at;
    }
    return at;
}

int OtherLine(const std::string& text, int at, int direction) {
    const int start = LineStart(text, at);
    if (direction < 0 ? start == 0 : LineEnd(text, at) == Length(text)) return at;
    int target = start - 1;
    if (direction > 0) {
        target = LineEnd(text, at);
        while (text[static_cast<size_t>(target)] != '\n' && target + 1 < Length(text)) ++target;
        ++target;
    }
    const int targetStart = LineStart(text, target);
    return std::min(targetStart + (at - start), LineEnd(text, targetStart));
}

int Word(const std::string& text, int at, int step) {
    auto blank = [&text](int index) { return text[static_cast<size_t>(index)] == ' '; };
    if (step < 0) {
        while (at > 0 && blank(at - 1)) --at;
        while (at > 0 && !blank(at - 1)) --at;
    } else {
        while (at < Length(text) && !blank(at)) ++at;
        while (at < Length(text) && blank(at)) ++at;
    }
    return at;
}

// Where a movement key takes the caret; -1 for another key.
int Destination(const EditField& field, const std::string& text, int virtualKey, DWORD style) {
    const bool lines = (style & ES_MULTILINE) != 0;
    const bool control = KeyIsDown(VK_CONTROL);
    const int caret = field.caret;
    switch (virtualKey) {
        case VK_LEFT:
            return control ? Word(text, caret, -1) : std::max(caret - 1, 0);
        case VK_RIGHT:
            return control ? Word(text, caret, 1) : std::min(caret + 1, Length(text));
        case VK_UP:
            return lines ? OtherLine(text, caret, -1) : std::max(caret - 1, 0);
        case VK_DOWN:
            return lines ? OtherLine(text, caret, 1) : std::min(caret + 1, Length(text));
        case VK_HOME:
            return lines && !control ? LineStart(text, caret) : 0;
        case VK_END:
            return lines && !control ? LineEnd(text, caret) : Length(text);
        default:
            return -1;
    }
}

EditOutcome InsertOne(EditField& field, std::string& text, std::string_view insertion) {
    const int removed = field.SelectionEnd() - field.SelectionStart();
    if (Length(text) - removed + static_cast<int>(insertion.size()) > field.limit) {
        return EditOutcome::kFull;
    }
    return ReplaceSelection(field, text, insertion);
}

}  // namespace

bool EditField::Select(int newAnchor, int newCaret, const std::string& text) {
    newAnchor = std::clamp(newAnchor, 0, Length(text));
    newCaret = std::clamp(newCaret, 0, Length(text));
    if (newAnchor == anchor && newCaret == caret) return false;
    anchor = newAnchor;
    caret = newCaret;
    return true;
}

EditOutcome ReplaceSelection(EditField& field, std::string& text, std::string_view insertion) {
    const int start = field.SelectionStart();
    const int removed = field.SelectionEnd() - start;
    const int room = std::max(field.limit - (Length(text) - removed), 0);
    const bool cut = static_cast<int>(insertion.size()) > room;
    if (cut) insertion = insertion.substr(0, static_cast<size_t>(room));
    if (cut && insertion.empty() && removed == 0) return EditOutcome::kFull;
    text.replace(static_cast<size_t>(start), static_cast<size_t>(removed), insertion);
    field.anchor = field.caret = start + static_cast<int>(insertion.size());
    field.modified = true;
    return cut ? EditOutcome::kFull : EditOutcome::kChanged;
}

EditOutcome EditCharacter(EditField& field, std::string& text, char character, DWORD style) {
    if (character == kSelectAll) {
        return field.Select(0, Length(text), text) ? EditOutcome::kMoved : EditOutcome::kNothing;
    }
    const bool lineEnd = character == kReturn && (style & ES_MULTILINE) != 0;
    const bool printable = static_cast<unsigned char>(character) >= 0x20 && character != 0x7F;
    if (!printable && !lineEnd && character != kBackspace) return EditOutcome::kNothing;
    if ((style & ES_READONLY) != 0) return EditOutcome::kRefused;
    if (character == kBackspace) return Delete(field, text, -1);
    if ((style & ES_NUMBER) != 0 && !IsDigit(character)) return EditOutcome::kRefused;
    return InsertOne(field, text, lineEnd ? "\r\n" : std::string_view(&character, 1));
}

EditOutcome EditKey(EditField& field, std::string& text, int virtualKey, DWORD style) {
    if (virtualKey == VK_DELETE) {
        if ((style & ES_READONLY) != 0) return EditOutcome::kRefused;
        return Delete(field, text, 1);
    }
    if (virtualKey == 'A' && KeyIsDown(VK_CONTROL)) {
        return EditCharacter(field, text, kSelectAll, style);
    }
    const int destination = Destination(field, text, virtualKey, style);
    if (destination < 0) return EditOutcome::kNothing;
    const int anchor = KeyIsDown(VK_SHIFT) ? field.anchor : destination;
    return field.Select(anchor, destination, text) ? EditOutcome::kMoved : EditOutcome::kNothing;
}

UserEdit TakeUserText(EditField& field, std::string& text, const UserText& user, DWORD style) {
    UserEdit edit;
    std::string_view wanted = user.text ? user.text : "";
    std::string digits;
    if ((style & ES_NUMBER) != 0 && !std::all_of(wanted.begin(), wanted.end(), IsDigit)) {
        std::copy_if(wanted.begin(), wanted.end(), std::back_inserter(digits), IsDigit);
        wanted = digits;
        edit.corrected = true;
    }
    // A text that the program made too long may stay so, it may only not grow.
    const size_t most = static_cast<size_t>(std::max(field.limit, Length(text)));
    if (wanted.size() > most) {
        wanted = wanted.substr(0, most);
        edit.corrected = edit.full = true;
    }
    if (text != wanted) {
        text.assign(wanted);
        field.modified = true;
        edit.outcome = EditOutcome::kChanged;
    }
    const bool moved = field.Select(user.selectionStart, user.selectionEnd, text);
    if (moved && edit.outcome == EditOutcome::kNothing) edit.outcome = EditOutcome::kMoved;
    return edit;
}

}  // namespace kv
