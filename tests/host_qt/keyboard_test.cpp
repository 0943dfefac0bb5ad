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
            const auto style = static_cast<DWORD>(GetWindowLongPtrA(control, GWL_STYLE));
            return (style & WS_DISABLED) != 0 || (style & WS_TABSTOP) == 0;
        });
        stops.erase(passed, stops.end());
        return stops;
    }
    // Lower case; 0 for a text without a letter to press.
    static char LetterOf(HWND control) {
        const auto style = static_cast<DWORD>(GetWindowLongPtrA(control, GWL_STYLE));
        const bool text = kv::KindOf(control) == "static" && (style & SS_NOPREFIX) == 0;
        const std::string caption = text || kv::KindOf(control) == "button" ? Text(control) : "";
        const size_t mark = caption.find('&');
        if (mark == std::string::npos || mark + 1 >= caption.size()) return 0;
        return static_cast<char>(std::tolower(static_cast<unsigned char>(caption[mark + 1])));
    }
    static bool IsField(HWND control) {
        const auto kind = kv::KindOf(control);
        const auto style = static_cast<DWORD>(GetWindowLongPtrA(control, GWL_STYLE));
        if (kind == "edit") return (style & ES_READONLY) == 0;
        if (kind == "list") return (style & LBS_NOSEL) == 0;
        return kind == "combo" || kind == "trackbar";
    }
    // Enter, Escape and F1 press the buttons that every dialog has.
    static bool NeedsLetter(HWND control, HWND next) {
        const auto style = static_cast<DWORD>(GetWindowLongPtrA(control, GWL_STYLE));
        if (kv::KindOf(control) == "static") return next && IsField(next);
        if (kv::KindOf(control) != "button") return false;
        const DWORD type = style & BS_TYPEMASK;
        const std::string text = Text(control);
        return type != BS_GROUPBOX && type != BS_OWNERDRAW && type != BS_DEFPUSHBUTTON &&
               text != "OK" && text != "Cancel" && text != "Help";
    }
    static std::vector<int> IdsOf(const std::vector<HWND>& windows) {
        std::vector<int> ids;
        for (HWND window : windows) ids.push_back(GetDlgCtrlID(window));
        return ids;
    }
    // What the window around the focus shows where the focus is.
    static QImage Surroundings() {
        QWidget* focus = QApplication::focusWidget();
        const QRect place(focus->mapTo(focus->window(), QPoint(-4, -4)),
                          focus->size() + QSize(8, 8));
        return focus->window()->grab(place).toImage();
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
            const QImage with = Surroundings();
            focus->clearFocus();
            const QRect place(focus->mapTo(focus->window(), QPoint(-4, -4)),
                              focus->size() + QSize(8, 8));
            EXPECT_FALSE(with == focus->window()->grab(place).toImage()) << name << " " << id;
            focus->setFocus(Qt::TabFocusReason);
            Press(Qt::Key_Tab);
        }
    });
}

TEST_F(Keyboard, EachLetterStandsForOneControl) {
    Tour([](QWidget&, const std::string& name) {
        std::map<char, std::string> used;
        for (HWND control : ControlsOf(GetActiveWindow())) {
            const char letter = LetterOf(control);
            if (letter == 0) continue;
            const auto [first, isNew] = used.emplace(letter, Text(control));
            EXPECT_TRUE(isNew) << name << ": " << first->second << " and " << Text(control);
        }
    });
}

TEST_F(Keyboard, EveryLabelledControlHasALetterUnlessItsWordingIsFixed) {
    Tour([](QWidget&, const std::string& name) {
        const std::vector<HWND> controls = ControlsOf(GetActiveWindow());
        for (size_t i = 0; i < controls.size(); ++i) {
            const HWND next = i + 1 < controls.size() ? controls[i + 1] : nullptr;
            const std::string text = Text(controls[i]);
            if (text.empty() || !NeedsLetter(controls[i], next)) continue;
            if (FixedCaptions().count(text) != 0) continue;
            EXPECT_NE(LetterOf(controls[i]), 0) << name << ": " << text;
        }
    });
}

TEST_F(Keyboard, LettersLeadToTheControlsBehindTheirLabels) {
    int led = 0;
    Tour([&](QWidget&, const std::string& name) {
        HWND before = nullptr;
        for (HWND control : ControlsOf(GetActiveWindow())) {
            const HWND label = std::exchange(before, control);
            if (!label || kv::KindOf(label) != "static" || !IsField(control)) continue;
            const char letter = LetterOf(label);
            if (letter == 0 || !IsWindowEnabled(control)) continue;
            Press(static_cast<Qt::Key>(std::toupper(letter)), Qt::AltModifier);
            EXPECT_EQ(GetDlgCtrlID(GetFocus()), GetDlgCtrlID(control)) << name << " " << letter;
            ++led;
        }
    });
    EXPECT_GT(led, 40);
}

TEST_F(Keyboard, PagesAreTurnedFromTheKeyboard) {
    OpenSheet();
    ASSERT_NE(SheetWidget(), nullptr);
    const auto page = [this] {
        const auto tab = reinterpret_cast<HWND>(SendMessageA(sheet_, PSM_GETTABCONTROL, 0, 0));
        return static_cast<int>(SendMessageA(tab, TCM_GETCURSEL, 0, 0));
    };
    const int first = page();
    Press(Qt::Key_Tab, Qt::ControlModifier);
    EXPECT_EQ(page(), first + 1);
    Press(Qt::Key_PageDown, Qt::ControlModifier);
    EXPECT_EQ(page(), first + 2);
    Press(Qt::Key_PageUp, Qt::ControlModifier);
    Press(Qt::Key_Backtab, Qt::ControlModifier | Qt::ShiftModifier);
    EXPECT_EQ(page(), first);
    // From one end to the other.
    Press(Qt::Key_Backtab, Qt::ControlModifier | Qt::ShiftModifier);
    EXPECT_EQ(page(), kJob);
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
