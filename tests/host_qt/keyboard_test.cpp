// The real sheet by keyboard alone: where Tab goes on each page, where the letters with Alt lead,
// how pages are turned, and that the focus is always to be seen.
#include "sheet_tour.h"
#include "tests/module/resources/fixed_captions.h"

#include <cctype>
#include <map>

namespace journey {
namespace {

class Keyboard : public SheetTour {
 protected:
    static void Press(Qt::Key key, Qt::KeyboardModifiers modifiers = Qt::NoModifier) {
        QTest::keyClick(QApplication::focusWidget(), key, modifiers);
        kv::Settle();
    }

    // Tab stops in the order in which the templates have them, page by page and panel by panel.
    static std::vector<HWND> StopsOf(HWND window) {
        std::vector<HWND> stops = ControlsOf(window);
        const auto passed = std::remove_if(stops.begin(), stops.end(), [](HWND control) {
            return (StyleOf(control) & (WS_DISABLED | WS_TABSTOP)) != WS_TABSTOP;
        });
        stops.erase(passed, stops.end());
        return stops;
    }
    // Lower case; 0 for a text without a letter to press.
    static char LetterOf(HWND control) {
        const bool text = kv::KindOf(control) == "static" && (StyleOf(control) & SS_NOPREFIX) == 0;
        const std::string caption = text || kv::KindOf(control) == "button" ? Text(control) : "";
        const size_t mark = caption.find('&');
        if (mark == std::string::npos || mark + 1 >= caption.size()) return 0;
        return static_cast<char>(std::tolower(static_cast<unsigned char>(caption[mark + 1])));
    }
    // Enter, Escape and F1 press the buttons that every dialog has.
    static bool NeedsLetter(HWND control, HWND next) {
        if (kv::KindOf(control) == "static") return next && IsField(next);
        if (kv::KindOf(control) != "button") return false;
        const DWORD type = StyleOf(control) & BS_TYPEMASK;
        const std::string text = Text(control);
        return type != BS_GROUPBOX && type != BS_OWNERDRAW && type != BS_DEFPUSHBUTTON &&
               text != "OK" && text != "Cancel" && text != "Help";
    }
    static std::vector<int> IdsOf(const std::vector<HWND>& windows) {
        std::vector<int> ids;
        for (HWND window : windows) ids.push_back(GetDlgCtrlID(window));
        return ids;
    }
    static QImage Around(const QWidget& widget) {
        const QRect place(widget.mapTo(widget.window(), QPoint(-4, -4)),
                          widget.size() + QSize(8, 8));
        return widget.window()->grab(place).toImage();
    }
};

TEST_F(Keyboard, TabFollowsTheTemplates) {
    Tour([](QWidget& window, const std::string& name) {
        std::vector<HWND> wanted = StopsOf(GetActiveWindow());
        ASSERT_GE(wanted.size(), 1u) << name;
        const auto start = std::find(wanted.begin(), wanted.end(), GetFocus());
        ASSERT_NE(start, wanted.end()) << name;
        std::rotate(wanted.begin(), start, wanted.end());
        std::vector<HWND> walked;
        for (size_t i = 0; i < wanted.size(); ++i) {
            walked.push_back(GetFocus());
            EXPECT_EQ(QApplication::focusWidget()->window(), &window);
            Press(Qt::Key_Tab);
        }
        EXPECT_EQ(IdsOf(walked), IdsOf(wanted)) << name;
        EXPECT_EQ(GetFocus(), wanted.front()) << name;
        Press(Qt::Key_Backtab, Qt::ShiftModifier);
        EXPECT_EQ(GetFocus(), wanted.back()) << name;
    });
}

TEST_F(Keyboard, TheFocusIsAlwaysToBeSeen) {
    Tour([](QWidget&, const std::string& name) {
        // Frames show once the keyboard is used.
        Press(Qt::Key_Tab);
        std::set<HWND> seen;
        while (seen.insert(GetFocus()).second) {
            QWidget* focus = QApplication::focusWidget();
            const int id = GetDlgCtrlID(GetFocus());
            const QImage with = Around(*focus);
            focus->clearFocus();
            EXPECT_FALSE(with == Around(*focus)) << name << " " << id;
            focus->setFocus(Qt::TabFocusReason);
            Press(Qt::Key_Tab);
        }
    });
}

TEST_F(Keyboard, EachLabelledControlHasALetterOfItsOwnUnlessItsWordingIsFixed) {
    Tour([](QWidget&, const std::string& name) {
        const std::vector<HWND> controls = ControlsOf(GetActiveWindow());
        std::map<char, std::string> used;
        for (size_t i = 0; i < controls.size(); ++i) {
            const HWND next = i + 1 < controls.size() ? controls[i + 1] : nullptr;
            const std::string text = Text(controls[i]);
            if (const char letter = LetterOf(controls[i])) {
                const auto [first, isNew] = used.emplace(letter, text);
                EXPECT_TRUE(isNew) << name << ": " << first->second << " and " << text;
            } else if (!text.empty() && NeedsLetter(controls[i], next)) {
                EXPECT_EQ(FixedCaptions().count(text), 1u) << name << ": " << text;
            }
        }
    });
}

TEST_F(Keyboard, LettersLeadToTheControlsBehindTheirLabels) {
    int led = 0;
    Tour([&](QWidget&, const std::string& name) {
        for (const auto& [label, field] : LabelsAndFieldsOf(GetActiveWindow())) {
            const char letter = LetterOf(label);
            if (letter == 0 || !IsWindowEnabled(field)) continue;
            Press(static_cast<Qt::Key>(std::toupper(letter)), Qt::AltModifier);
            EXPECT_EQ(GetDlgCtrlID(GetFocus()), GetDlgCtrlID(field)) << name << " " << letter;
            ++led;
        }
    });
    EXPECT_GT(led, 40);
}

TEST_F(Keyboard, PagesAreTurnedFromTheKeyboard) {
    OpenSheet();
    ASSERT_NE(SheetWidget(), nullptr);
    constexpr auto kBack = Qt::ControlModifier | Qt::ShiftModifier;
    const struct {
        Qt::Key key;
        Qt::KeyboardModifiers modifiers;
        int page;
    } rows[] = {
        {Qt::Key_Tab, Qt::ControlModifier, kLayout},
        {Qt::Key_PageDown, Qt::ControlModifier, kOverlay},
        {Qt::Key_PageUp, Qt::ControlModifier, kLayout},
        {Qt::Key_Backtab, kBack, kBasic},
        {Qt::Key_Backtab, kBack, kJob},  // from one end to the other
    };
    for (const auto& row : rows) {
        Press(row.key, row.modifiers);
        EXPECT_EQ(SendMessageA(Tabs(), TCM_GETCURSEL, 0, 0), row.page);
    }
}

}  // namespace
}  // namespace journey

namespace kv {
namespace {

TEST_F(QtDisplayTest, F1AsksTheDialogForHelpOnTheControl) {
    Add("EDIT", WS_TABSTOP, 7, {10, 10, 150, 30});
    Show();
    int asked = 0;
    reaction = [&](UINT message, WPARAM, LPARAM lParam) -> std::optional<INT_PTR> {
        if (message != WM_HELP) return std::nullopt;
        asked = reinterpret_cast<const HELPINFO*>(lParam)->iCtrlId;
        return TRUE;
    };
    QTest::keyClick(QApplication::focusWidget(), Qt::Key_F1);
    EXPECT_EQ(asked, 7);
}

}  // namespace
}  // namespace kv
