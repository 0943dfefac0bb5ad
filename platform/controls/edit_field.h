// Editing one text with a caret and a selection: the part that edits and the edit field of combo
// boxes have in common. It knows no window; the caller shows what changed and notifies.
#pragma once

#include <platform/controls/control_input.h>

#include <windows.h>

#include <string>

namespace kv {

enum class EditOutcome {
    kNothing,  // not an editing key
    kMoved,    // caret or selection only
    kChanged,  // the text
    kFull,     // refused: over the limit
    kRefused,  // refused: character not allowed, or read-only
};

struct EditField {
    static constexpr int kDefaultLimit = 30000;

    int anchor = 0;  // where the selection began
    int caret = 0;
    int limit = kDefaultLimit;
    bool modified = false;

    int SelectionStart() const { return anchor < caret ? anchor : caret; }
    int SelectionEnd() const { return anchor < caret ? caret : anchor; }
    // Both are brought inside the text; false when nothing moved.
    bool Select(int newAnchor, int newCaret, const std::string& text);
};

// What a key does, besides the text it applies to. `style` holds ES_* bits.
EditOutcome EditCharacter(EditField& field, std::string& text, char character, DWORD style);
EditOutcome EditKey(EditField& field, std::string& text, int virtualKey, DWORD style);
// Puts `insertion` in place of the selection, cut to what the limit allows.
EditOutcome ReplaceSelection(EditField& field, std::string& text, std::string_view insertion);

// A whole new text from the user. `corrected` tells that not all of it was taken.
struct UserEdit {
    EditOutcome outcome = EditOutcome::kNothing;
    bool corrected = false;
    bool full = false;
};
UserEdit TakeUserText(EditField& field, std::string& text, const UserText& user, DWORD style);

}  // namespace kv
