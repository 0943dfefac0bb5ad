// The window as a screen reader meets it: what every control is called, what belongs to what, and
// what the pictures say.
#include "sheet_tour.h"

#include <platform/display/disabled_reason.h>

#include <QAccessible>
#include <QHelpEvent>
#include <QToolTip>

#include <map>

namespace journey {
namespace {

bool NeedsName(QAccessibleInterface& item) {
    // Containers say nothing by themselves.
    const std::set<QAccessible::Role> nameless = {QAccessible::Client,    QAccessible::Pane,
                                                  QAccessible::Window,    QAccessible::LayeredPane,
                                                  QAccessible::ScrollBar, QAccessible::Splitter};
    return !item.state().invisible && nameless.count(item.role()) == 0;
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

QAccessible::Role RoleOf(std::string_view kind, DWORD buttonType) {
    const std::map<std::string_view, QAccessible::Role> kinds = {
        {"edit", QAccessible::EditableText},
        {"combo", QAccessible::ComboBox},
        {"list", QAccessible::List},
        {"trackbar", QAccessible::Slider},
        {"updown", QAccessible::SpinBox}};
    const std::map<DWORD, QAccessible::Role> buttons = {
        {BS_AUTOCHECKBOX, QAccessible::CheckBox},
        {BS_AUTORADIOBUTTON, QAccessible::RadioButton},
        {BS_GROUPBOX, QAccessible::Grouping}};
    if (const auto found = kinds.find(kind); found != kinds.end()) return found->second;
    const auto found = buttons.find(buttonType);
    return found != buttons.end() ? found->second : QAccessible::PushButton;
}

// What a list offers is read out entry by entry, also where pictures are drawn.
void CompareEntries(HWND control, QAccessibleInterface& list, UINT countMessage, UINT textMessage) {
    const auto count = static_cast<int>(SendMessageA(control, countMessage, 0, 0));
    ASSERT_EQ(list.childCount(), count);
    for (int i = 0; i < count; ++i) {
        char text[256] = "";
        SendMessageA(control, textMessage, static_cast<WPARAM>(i), reinterpret_cast<LPARAM>(text));
        EXPECT_NE(std::string(text), "");
        EXPECT_EQ(Of(*list.child(i), QAccessible::Name), text);
    }
}

void Compare(HWND control, QAccessibleInterface& item) {
    const auto kind = kv::KindOf(control);
    const DWORD style = StyleOf(control);
    const QAccessible::State state = item.state();
    EXPECT_EQ(state.disabled, IsWindowEnabled(control) ? 0u : 1u);
    if (kind == "static") {
        EXPECT_TRUE(item.role() == QAccessible::StaticText || item.role() == QAccessible::Graphic);
        return;
    }
    EXPECT_EQ(item.role(), RoleOf(kind, style & BS_TYPEMASK));
    const std::string text = kvtest::Text(control);
    switch (item.role()) {
        case QAccessible::CheckBox:
        case QAccessible::RadioButton:
            EXPECT_EQ(state.checkable, 1u);
            EXPECT_EQ(state.checked, SendMessageA(control, BM_GETCHECK, 0, 0) ? 1u : 0u);
            return;
        case QAccessible::EditableText:
            EXPECT_EQ(state.readOnly, (style & ES_READONLY) ? 1u : 0u);
            EXPECT_EQ(state.passwordEdit, (style & ES_PASSWORD) ? 1u : 0u);
            EXPECT_EQ(state.multiLine, (style & ES_MULTILINE) ? 1u : 0u);
            EXPECT_EQ(Of(item, QAccessible::Value), state.passwordEdit ? "" : text);
            return;
        case QAccessible::ComboBox:
            EXPECT_EQ(Of(item, QAccessible::Value), text);
            EXPECT_EQ(state.expandable, 1u);
            return CompareEntries(control, *item.child(0), CB_GETCOUNT, CB_GETLBTEXT);
        case QAccessible::List:
            return CompareEntries(control, item, LB_GETCOUNT, LB_GETTEXT);
        case QAccessible::Slider:
            EXPECT_EQ(item.valueInterface()->currentValue().toInt(),
                      SendMessageA(control, TBM_GETPOS, 0, 0));
            EXPECT_EQ(item.valueInterface()->maximumValue().toInt(),
                      SendMessageA(control, TBM_GETRANGEMAX, 0, 0));
            return;
        default:
            return;
    }
}

// The only one with this relation.
QAccessibleInterface* RelatedTo(QAccessibleInterface& item, QAccessible::Relation relation) {
    const auto related = item.relations(relation);
    return related.size() == 1 ? related[0].first : nullptr;
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
        QWidget& window = Open(page);
        QWidget* view = WidgetOf(window, GetDlgItem(Panel(page), IDC_PIC_MAIN_VIEW));
        return Of(*QAccessible::queryAccessibleInterface(view), QAccessible::Name);
    }
};

TEST_F(Accessible, EveryVisibleControlHasAName) {
    Tour([](QWidget& window, const std::string& name) {
        EXPECT_FALSE(window.windowTitle().isEmpty()) << name;
        EXPECT_FALSE(window.windowTitle().startsWith(u'_')) << window.windowTitle().toStdString();
        int seen = 0;
        Walk(window, [&](QAccessibleInterface& item) {
            if (!NeedsName(item)) return;
            ++seen;
            const QRect place = item.rect().translated(-window.pos());
            const std::string text = Of(item, QAccessible::Name);
            EXPECT_NE(text, "") << name << ": " << qAccessibleRoleString(item.role()) << " at "
                                << place.x() << "," << place.y();
            EXPECT_EQ(text.find("IDC_"), std::string::npos) << name << ": " << text;
        });
        EXPECT_GT(seen, 2) << name;
    });
}

TEST_F(Accessible, EveryControlIsWhatItIs) {
    Tour([](QWidget& window, const std::string& name) {
        int seen = 0;
        for (HWND control : ControlsOf(GetActiveWindow())) {
            const int id = GetDlgCtrlID(control);
            QWidget* widget = id > 0 ? WidgetOf(window, control) : nullptr;
            if (!widget || kv::KindOf(control) == "tab") continue;
            SCOPED_TRACE(name + " " + std::to_string(id));
            Compare(control, *QAccessible::queryAccessibleInterface(widget));
            ++seen;
        }
        EXPECT_GE(seen, 2) << name;
    });
}

TEST_F(Accessible, LabelsNameTheirFields) {
    int labels = 0;
    Tour([&](QWidget& window, const std::string& name) {
        for (const auto& [label, control] : LabelsAndFieldsOf(GetActiveWindow())) {
            std::string text = Text(label);
            text.erase(std::remove(text.begin(), text.end(), '&'), text.end());
            // The texts of the service dialogs have no ids of their own.
            if (text.empty() || GetDlgCtrlID(label) <= 0) continue;
            SCOPED_TRACE(name + " " + text);
            if (text.back() == ':') text.pop_back();
            auto* field = QAccessible::queryAccessibleInterface(WidgetOf(window, control));
            ASSERT_NE(field, nullptr);
            EXPECT_EQ(Of(*field, QAccessible::Name), text);
            auto* shown = QAccessible::queryAccessibleInterface(WidgetOf(window, label));
            EXPECT_EQ(RelatedTo(*shown, QAccessible::Labelled), field);
            // Qt's lists tell of no relations.
            if (kv::KindOf(control) == "list") continue;
            EXPECT_EQ(RelatedTo(*field, QAccessible::Label), shown);
            ++labels;
        }
    });
    EXPECT_GT(labels, 40);
}

TEST_F(Accessible, WhatStandsBesideAControlDescribesIt) {
    const struct {
        int page;
        QAccessible::Role role;
        const char *name, *value, *description;
    } rows[] = {
        {kBasic, QAccessible::RadioButton, "Portrait", "", "Orientation"},
        {kBasic, QAccessible::EditableText, "Number", "1", "[1-999]"},
        {kBasic, QAccessible::SpinBox, "Number", "1", ""},
        {kBasic, QAccessible::EditableText, "Zoom", "100", "%"},
        {kBasic, QAccessible::Graphic, "Collate", "", ""},
        {kQuality, QAccessible::Graphic, "Resolution", "", "600 dpi"},
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

TEST_F(Accessible, ArrowsBelongToTheirNumberAndTurnIt) {
    QWidget& window = Open(kBasic);
    QAccessibleInterface* arrows = Find(window, QAccessible::SpinBox, "Number");
    ASSERT_NE(arrows, nullptr);
    EXPECT_EQ(RelatedTo(*arrows, QAccessible::Controlled),
              Find(window, QAccessible::EditableText, "Number"));
    arrows->valueInterface()->setCurrentValue(3);
    EXPECT_EQ(Text(Item(IDC_EDIT_COPIES)), "3");
    EXPECT_EQ(arrows->valueInterface()->maximumValue().toInt(), 999);
}

TEST_F(Accessible, ThePreviewSaysInWordsWhatItShows) {
    EXPECT_EQ(Words(kBasic), "A4, portrait, in color");
    kv::input::Click(Item(IDC_RADIO_LANDSCAPE));
    ChooseValue(IDC_COMBO_NUP, 2, kLayout);
    ChooseValue(IDC_COMBO_DUPLEX, 2, kLayout);
    // The sheet of two landscape pages is turned.
    EXPECT_EQ(Words(kLayout),
              "A4, 2 pages per sheet, landscape, two-sided, bound at the left, in color");
    ChooseValue(IDC_COMBO_NUP, 20, kLayout);
    QAccessibleInterface* duplex = Find(Open(kLayout), QAccessible::ComboBox, "2-Sided Printing");
    ASSERT_NE(duplex, nullptr);
    EXPECT_EQ(Of(*duplex, QAccessible::Value), "On") << "renamed while another list is drawn";
    EXPECT_EQ(Words(kLayout), "A4, booklet, landscape, bound at the top, in color");
    EXPECT_EQ(Words(kQuality), "Sample picture, in color");
}

// What stands under the pointer when it rests on the middle of a widget.
std::string TipOver(QWidget& window, const QWidget& widget) {
    const QPoint place = widget.mapTo(&window, widget.rect().center());
    QWidget* under = window.childAt(place);
    if (!under) under = &window;
    QToolTip::hideText();
    QHelpEvent rest(QEvent::ToolTip, under->mapFrom(&window, place), window.mapToGlobal(place));
    QApplication::sendEvent(under, &rest);
    return QToolTip::isVisible() ? QToolTip::text().toStdString() : "";
}

TEST_F(Accessible, ADisabledControlSaysWhyInsteadOfWhatItIsFor) {
    kv::ExplainDisabled([](HWND) { return std::string("Ask the caretaker"); });
    const auto description = [&] {
        return Of(*Find(Open(kBasic), QAccessible::EditableText, "Number"),
                  QAccessible::Description);
    };
    EXPECT_EQ(description(), "[1-999]");
    EnableWindow(Item(IDC_EDIT_COPIES), FALSE);
    EXPECT_EQ(description(), "Ask the caretaker");
    EXPECT_EQ(TipOver(Open(kBasic), *WidgetOf(Open(kBasic), Item(IDC_EDIT_COPIES))),
              "Ask the caretaker");
    kv::ExplainDisabled(nullptr);
}

TEST_F(Accessible, PicturesTellInATipWhatTheyShow) {
    std::map<std::string, std::string> tips;
    Tour([&](QWidget& window, const std::string& name) {
        // Tips are children of the window for a while themselves.
        std::vector<QWidget*> pictures;
        for (QWidget* widget : window.findChildren<QWidget*>()) {
            const auto* item = QAccessible::queryAccessibleInterface(widget);
            const bool picture = item && item->role() == QAccessible::Graphic;
            if (picture && widget->isVisible()) pictures.push_back(widget);
        }
        for (const QWidget* widget : pictures) {
            const std::string tip = TipOver(window, *widget);
            EXPECT_NE(tip, "") << name << " " << widget->objectName().toStdString();
            tips[name + " " + widget->objectName().toStdString()] = tip;
        }
    });
    const std::map<std::string, std::string> wanted = {
        {"basic 2025", "Orientation: Portrait"},
        {"basic 14002", "A4, portrait, in color"},
        {"quality 3002", "Resolution: 600 dpi"},
        {"pages-per-sheet-style 1465", "Sideways from Left"},
        {"pages-per-sheet-style 1468", "Downward from Right"},
        {"output-details 1302", "Staple: Off"},
        {"output-details 1305", "Punch: Off"},
    };
    for (const auto& [picture, tip] : wanted) EXPECT_EQ(tips[picture], tip) << picture;
}

}  // namespace
}  // namespace journey
