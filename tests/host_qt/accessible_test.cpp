// The window as a screen reader meets it: what every control is called, what belongs to what, and
// what the pictures say.
#include "sheet_tour.h"

#include <QAccessible>

namespace journey {
namespace {

// Containers say nothing by themselves.
bool NeedsName(QAccessibleInterface& item) {
    if (item.state().invisible) return false;
    switch (item.role()) {
        case QAccessible::Client:
        case QAccessible::Pane:
        case QAccessible::Window:
        case QAccessible::LayeredPane:
        case QAccessible::ScrollBar:
        case QAccessible::Splitter:
            return false;
        default:
            return true;
    }
}

std::string Of(QAccessibleInterface& item, QAccessible::Text kind) {
    return item.text(kind).toStdString();
}

using See = std::function<void(QAccessibleInterface&)>;

void Walk(QAccessibleInterface* item, const See& see) {
    if (!item || !item->isValid()) return;
    see(*item);
    for (int i = 0; i < item->childCount(); ++i) Walk(item->child(i), see);
}

void Walk(QWidget& window, const See& see) {
    Walk(QAccessible::queryAccessibleInterface(&window), see);
}

QAccessibleInterface* Find(QWidget& window, QAccessible::Role role, const std::string& name) {
    QAccessibleInterface* found = nullptr;
    Walk(window, [&](QAccessibleInterface& item) {
        if (item.state().invisible || item.role() != role) return;
        if (Of(item, QAccessible::Name) == name) found = &item;
    });
    return found;
}

class Accessible : public SheetTour {
 protected:
    QWidget& Open(int page) {
        if (!sheet_) OpenSheet();
        PageWindow(page);
        return *SheetWidget();
    }
    // What the large view says of itself.
    std::string Words(int page) {
        std::string words;
        Walk(Open(page), [&](QAccessibleInterface& item) {
            const auto* widget = qobject_cast<QWidget*>(item.object());
            const bool view = widget && item.role() == QAccessible::Graphic &&
                              widget->isVisible() && widget->height() > 180;
            if (view) words = Of(item, QAccessible::Name);
        });
        return words;
    }
};

TEST_F(Accessible, EveryVisibleControlHasAName) {
    Tour([](QWidget& window, const std::string& name) {
        Keep(window, name);
        int seen = 0;
        Walk(window, [&](QAccessibleInterface& item) {
            if (!NeedsName(item)) return;
            ++seen;
            const QRect place = item.rect().translated(-window.pos());
            EXPECT_FALSE(item.text(QAccessible::Name).isEmpty())
                << name << ": " << qAccessibleRoleString(item.role()) << " at " << place.x() << ","
                << place.y();
        });
        EXPECT_GT(seen, 5) << name;
    });
    EXPECT_GE(opened.size(), 5u);
}

TEST_F(Accessible, ControlsSayWhatTheyAre) {
    // Page, role, name; value and description.
    const struct {
        int page;
        QAccessible::Role role;
        const char* name;
        const char* value;
        const char* description;
    } rows[] = {
        {kBasic, QAccessible::RadioButton, "Portrait", "", "Orientation"},
        {kBasic, QAccessible::ComboBox, "Paper Source", "Automatically Select", ""},
        {kBasic, QAccessible::EditableText, "Number", "1", "[1-999]"},
        {kBasic, QAccessible::SpinBox, "Number", "1", ""},
        {kBasic, QAccessible::EditableText, "Zoom", "100", "%"},
        {kBasic, QAccessible::CheckBox, "Collate", "", ""},
        {kBasic, QAccessible::Graphic, "Orientation", "", ""},
        {kBasic, QAccessible::Graphic, "Collate", "", ""},
        {kLayout, QAccessible::ComboBox, "Pages/Sheet", "1", ""},
        {kQuality, QAccessible::ComboBox, "Resolution", "600 dpi", ""},
        {kQuality, QAccessible::Slider, "Contrast", "50", ""},
        {kQuality, QAccessible::EditableText, "Contrast", "50", ""},
    };
    for (const auto& row : rows) {
        QAccessibleInterface* item = Find(Open(row.page), row.role, row.name);
        ASSERT_NE(item, nullptr) << row.name;
        EXPECT_EQ(Of(*item, QAccessible::Value), row.value) << row.name;
        EXPECT_EQ(Of(*item, QAccessible::Description), row.description) << row.name;
    }
}

TEST_F(Accessible, LabelsAndArrowsBelongToTheirControls) {
    QWidget& window = Open(kBasic);
    const struct {
        QAccessible::Role from;
        const char* fromName;
        QAccessible::Relation relation;
        QAccessible::Role to;
        const char* toName;
    } rows[] = {
        {QAccessible::ComboBox, "Media Type", QAccessible::Label, QAccessible::StaticText,
         "Media Type:"},
        {QAccessible::StaticText, "Number:", QAccessible::Labelled, QAccessible::EditableText,
         "Number"},
        {QAccessible::SpinBox, "Number", QAccessible::Controlled, QAccessible::EditableText,
         "Number"},
    };
    for (const auto& row : rows) {
        QAccessibleInterface* from = Find(window, row.from, row.fromName);
        ASSERT_NE(from, nullptr) << row.fromName;
        const auto related = from->relations(row.relation);
        ASSERT_EQ(related.size(), 1) << row.fromName;
        EXPECT_EQ(related[0].first, Find(window, row.to, row.toName)) << row.fromName;
    }
}

TEST_F(Accessible, ArrowsTurnTheirNumberFromAScreenReader) {
    QAccessibleInterface* arrows = Find(Open(kBasic), QAccessible::SpinBox, "Number");
    ASSERT_NE(arrows, nullptr);
    arrows->valueInterface()->setCurrentValue(3);
    EXPECT_EQ(Text(Item(2014)), "3");
    EXPECT_EQ(arrows->valueInterface()->maximumValue().toInt(), 999);
}

TEST_F(Accessible, ThePreviewSaysInWordsWhatItShows) {
    EXPECT_EQ(Words(kBasic), "A4, portrait, in color");
    kv::input::Click(Item(2027));
    ChooseValue(1410, 2, kLayout);
    ChooseValue(1510, 2, kLayout);
    // The sheet of two landscape pages is turned.
    EXPECT_EQ(Words(kLayout),
              "A4, 2 pages per sheet, landscape, two-sided, bound at the left, in color");
    ChooseValue(1410, 20, kLayout);
    EXPECT_EQ(Words(kLayout), "A4, booklet, landscape, bound at the left, in color");
    EXPECT_EQ(Words(kQuality), "Sample picture, in color");
}

}  // namespace
}  // namespace journey
