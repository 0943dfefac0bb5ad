// Text fields of one line and of several.
#include <host/qt/keys.h>
#include <host/qt/mirror.h>
#include <platform/window/input.h>

#include <QLineEdit>
#include <QPlainTextEdit>
#include <QStyle>
#include <QTextCursor>

#include <algorithm>

namespace kvqt {
namespace {

struct Selection {
    int start = 0;
    int end = 0;
    bool operator==(const Selection&) const = default;
};

Selection SelectionOf(HWND edit) {
    DWORD start = 0;
    DWORD end = 0;
    SendMessageA(edit, EM_GETSEL, reinterpret_cast<WPARAM>(&start), reinterpret_cast<LPARAM>(&end));
    return {static_cast<int>(start), static_cast<int>(end)};
}

int LimitOf(HWND edit) {
    return static_cast<int>(SendMessageA(edit, EM_GETLIMITTEXT, 0, 0));
}

// A read-only field without a frame is a text to read on the page, not a field to fill in.
void ShowAsText(QWidget& field, bool asText) {
    if (!asText) return;
    QPalette palette = field.palette();
    palette.setColor(QPalette::Base, Qt::transparent);
    field.setPalette(palette);
}

bool HasFrame(HWND edit) {
    const DWORD extended = static_cast<DWORD>(GetWindowLongA(edit, GWL_EXSTYLE));
    return (StyleOf(edit) & WS_BORDER) != 0 || (extended & WS_EX_CLIENTEDGE) != 0;
}

class LineMirror : public Mirror {
 public:
    LineMirror(QtDisplay& owner, HWND handle, QWidget* parent) : Mirror(owner, handle) {
        line_ = new QLineEdit(parent);
        line_->setFrame(HasFrame(handle));
        if (HasArrows(handle)) line_->setLayoutDirection(Qt::LeftToRight);  // a number
        SetWidget(line_);
        QObject::connect(line_, &QLineEdit::textEdited, Receiver(),
                         [this](const QString& text) { Report(text); });
    }

 protected:
    void SyncState(unsigned changes) override {
        if ((changes & kv::kChangedStyle) != 0) SyncStyle();
        if ((changes & kv::kChangedRange) != 0) {
            const int limit = std::min(LimitOf(window()), kMostCharacters);
            if (line_->maxLength() != limit) line_->setMaxLength(limit);
        }
        bool replaced = false;
        if ((changes & kv::kChangedText) != 0) {
            const QString text = WindowTextOf(window());
            replaced = line_->text() != text;
            if (replaced) line_->setText(text);
        }
        if (replaced || (changes & kState) != kState) {
            if ((changes & (kv::kChangedSelection | kv::kChangedText)) != 0) SyncSelection();
        }
    }

 private:
    static constexpr int kMostCharacters = 32767;

    void Report(const QString& text) {
        const std::string ansi = ToAnsi(text);
        int start = line_->hasSelectedText() ? line_->selectionStart() : line_->cursorPosition();
        int end = line_->hasSelectedText() ? line_->selectionEnd() : start;
        const int length = static_cast<int>(ansi.size());
        start = std::min(start, length);
        end = std::min(end, length);
        display().Act(window(), [window = window(), &ansi, start, end] {
            kv::input::SetEditText(window, ansi, start, end);
        });
    }

    void SyncStyle() {
        const DWORD style = Style();
        const bool readOnly = (style & ES_READONLY) != 0;
        if (line_->isReadOnly() != readOnly) line_->setReadOnly(readOnly);
        ShowAsText(*line_, readOnly && !line_->hasFrame());
        const auto mode = (style & ES_PASSWORD) != 0 ? QLineEdit::Password : QLineEdit::Normal;
        if (line_->echoMode() != mode) line_->setEchoMode(mode);
        Qt::Alignment alignment = Qt::AlignLeft;
        if ((style & ES_CENTER) != 0) alignment = Qt::AlignHCenter;
        if ((style & ES_RIGHT) != 0) alignment = Qt::AlignRight;
        if (line_->alignment() != (alignment | Qt::AlignVCenter)) {
            line_->setAlignment(alignment | Qt::AlignVCenter);
        }
    }

    void SyncSelection() {
        const Selection wanted = SelectionOf(window());
        const Selection shown = line_->hasSelectedText()
                                    ? Selection{line_->selectionStart(), line_->selectionEnd()}
                                    : Selection{line_->cursorPosition(), line_->cursorPosition()};
        if (wanted == shown) return;
        if (wanted.start == wanted.end) {
            line_->setCursorPosition(wanted.start);
            line_->deselect();
        } else {
            line_->setSelection(wanted.start, wanted.end - wanted.start);
        }
    }

    QLineEdit* line_;
};

// The core ends lines with two characters, the widget with one.
std::string WithReturns(const std::string& text) {
    std::string result;
    for (char character : text) {
        if (character == '\n') result += '\r';
        result += character;
    }
    return result;
}

class TextMirror : public Mirror {
 public:
    TextMirror(QtDisplay& owner, HWND handle, QWidget* parent) : Mirror(owner, handle) {
        area_ = new QPlainTextEdit(parent);
        area_->setTabChangesFocus(true);
        area_->document()->setDocumentMargin(2);
        if (!HasFrame(handle)) area_->setFrameShape(QFrame::NoFrame);
        SetWidget(area_);
        QObject::connect(area_, &QPlainTextEdit::textChanged, Receiver(), [this] { Report(); });
    }

 protected:
    void SyncState(unsigned changes) override {
        if ((changes & kv::kChangedStyle) != 0) SyncStyle();
        if ((changes & kv::kChangedText) == 0) return;
        const QString text = WindowTextOf(window());
        if (area_->toPlainText() == text) return;
        area_->setPlainText(text);
        // The core's caret, without the characters that the widget does not have.
        const int caret = SelectionOf(window()).end;
        QTextCursor cursor = area_->textCursor();
        const qsizetype breaks = text.left(caret).count(u'\n');
        cursor.setPosition(
            std::clamp<int>(caret - static_cast<int>(breaks), 0, static_cast<int>(text.size())));
        area_->setTextCursor(cursor);
    }

 private:
    void Report() {
        if (display().syncing()) return;
        const QString text = area_->toPlainText();
        const std::string ansi = WithReturns(ToAnsi(text));
        const int position = area_->textCursor().position();
        const int caret = static_cast<int>(WithReturns(ToAnsi(text.left(position))).size());
        display().Act(window(), [window = window(), &ansi, caret] {
            kv::input::SetEditText(window, ansi, caret, caret);
        });
    }

    void SyncStyle() {
        const DWORD style = Style();
        const bool readOnly = (style & ES_READONLY) != 0;
        if (area_->isReadOnly() != readOnly) area_->setReadOnly(readOnly);
        ShowAsText(*area_, readOnly && area_->frameShape() == QFrame::NoFrame);
        area_->setLineWrapMode((style & ES_AUTOHSCROLL) != 0 ? QPlainTextEdit::NoWrap
                                                             : QPlainTextEdit::WidgetWidth);
        if (readOnly && (style & WS_TABSTOP) == 0) area_->setFocusPolicy(Qt::ClickFocus);
    }

    QPlainTextEdit* area_;
};

}  // namespace

MirrorPointer MakeEditMirror(QtDisplay& display, HWND window, QWidget* parent) {
    if ((StyleOf(window) & ES_MULTILINE) != 0) {
        return std::make_unique<TextMirror>(display, window, parent);
    }
    return std::make_unique<LineMirror>(display, window, parent);
}

}  // namespace kvqt
