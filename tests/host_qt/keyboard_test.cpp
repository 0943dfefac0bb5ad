// The real sheet by keyboard alone: where Tab goes on each page, where the letters with Alt lead,
// how pages are turned, and that the focus is always to be seen.
#include "sheet_tour.h"

namespace journey {
namespace {

class Keyboard : public SheetTour {
 protected:
    static void Press(Qt::Key key, Qt::KeyboardModifiers modifiers = Qt::NoModifier) {
        QTest::keyClick(QApplication::focusWidget(), key, modifiers);
        kv::Settle();
    }

    // Tab stops in the order in which the templates have them, page by page and panel by panel.
    static void AddStops(HWND parent, std::vector<HWND>& stops) {
        for (HWND child : kv::WindowFromHandle(parent)->children) {
            const DWORD style = static_cast<DWORD>(GetWindowLongPtrA(child, GWL_STYLE));
            if ((style & WS_VISIBLE) == 0 || (style & WS_DISABLED) != 0) continue;
            const auto kind = kv::KindOf(child);
            if (kind == "dialog") {
                AddStops(child, stops);
            } else if ((style & WS_TABSTOP) != 0) {
                stops.push_back(child);
            }
        }
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
    TourPages([this](QWidget& window, const std::string& name) {
        std::vector<HWND> wanted;
        AddStops(GetActiveWindow(), wanted);
        ASSERT_GT(wanted.size(), 4u) << name;
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
    TourPages([](QWidget&, const std::string& name) {
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

TEST_F(Keyboard, LettersLeadToTheControlsBehindTheirLabels) {
    const struct {
        int page;
        Qt::Key letter;
        int control;
    } rows[] = {
        {kBasic, Qt::Key_N, 2014},   {kBasic, Qt::Key_Y, 1141},     {kBasic, Qt::Key_Z, 2002},
        {kLayout, Qt::Key_P, 1410},  {kLayout, Qt::Key_S, 1510},    {kQuality, Qt::Key_C, 3008},
    };
    OpenSheet();
    for (const auto& row : rows) {
        PageWindow(row.page);
        ASSERT_NE(SheetWidget(), nullptr);
        Press(row.letter, Qt::AltModifier);
        EXPECT_EQ(GetDlgCtrlID(GetFocus()), row.control) << static_cast<char>(row.letter);
    }
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
