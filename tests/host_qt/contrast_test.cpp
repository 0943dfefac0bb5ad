// Texts and pictures stand out from their grounds, on light desktops and dark ones. Measured in what
// is drawn, not in the colours that were asked for.
#include "sheet_tour.h"

#include <QAbstractItemView>
#include <QAccessible>
#include <QCheckBox>
#include <QComboBox>
#include <QGroupBox>
#include <QLabel>
#include <QLineEdit>
#include <QListWidget>
#include <QStyle>
#include <QStyleOptionButton>
#include <QStyleOptionComboBox>
#include <QStyleOptionGroupBox>
#include <QTabBar>

#include <cmath>
#include <map>
#include <unordered_map>

namespace journey {
namespace {

// What the guidelines for accessible content ask of texts, and of marks that carry meaning.
constexpr double kForTexts = 4.5;
constexpr double kForMarks = 3.0;

double Luminance(QRgb pixel) {
    const auto linear = [](int part) {
        const double value = part / 255.0;
        return value <= 0.04045 ? value / 12.92 : std::pow((value + 0.055) / 1.055, 2.4);
    };
    return 0.2126 * linear(qRed(pixel)) + 0.7152 * linear(qGreen(pixel)) +
           0.0722 * linear(qBlue(pixel));
}

double Ratio(QRgb first, QRgb second) {
    const double a = Luminance(first);
    const double b = Luminance(second);
    return (std::max(a, b) + 0.05) / (std::min(a, b) + 0.05);
}

QRgb GroundOf(const QImage& image) {
    std::unordered_map<QRgb, int> counts;
    for (int y = 0; y < image.height(); ++y) {
        for (int x = 0; x < image.width(); ++x) ++counts[image.pixel(x, y)];
    }
    return std::max_element(counts.begin(), counts.end(), [](const auto& a, const auto& b) {
               return a.second < b.second;
           })->first;
}

// The strongest contrast that at least `pixels` pixels of a picture have with its ground.
double ContrastIn(const QImage& image, int pixels) {
    if (image.isNull()) return 0;
    const QRgb ground = GroundOf(image);
    std::vector<double> ratios;
    for (int y = 0; y < image.height(); ++y) {
        for (int x = 0; x < image.width(); ++x) ratios.push_back(Ratio(image.pixel(x, y), ground));
    }
    if (static_cast<int>(ratios.size()) <= pixels) return 0;
    std::nth_element(ratios.begin(), ratios.begin() + pixels, ratios.end(), std::greater<>());
    return ratios[static_cast<size_t>(pixels)];
}

// Of the pixels that a mark changed, how much the strongest of `share` differ from what was there
// before: soft edges and shadows are left aside.
double ContrastOfChange(const QImage& before, const QImage& after, int share = 4) {
    std::vector<double> ratios;
    for (int y = 0; y < after.height(); ++y) {
        for (int x = 0; x < after.width(); ++x) {
            if (before.pixel(x, y) == after.pixel(x, y)) continue;
            ratios.push_back(Ratio(before.pixel(x, y), after.pixel(x, y)));
        }
    }
    if (ratios.size() < 10) return 0;
    const auto strong = ratios.begin() + static_cast<std::ptrdiff_t>(ratios.size()) / share;
    std::nth_element(ratios.begin(), strong, ratios.end(), std::greater<>());
    return *strong;
}

enum class Kind { kText, kIndicator, kPicture };

struct Part {
    Kind kind;
    QRect place;
};

// The text and the indicator of a button, its frame left out.
std::vector<Part> PartsOfButton(const QAbstractButton& button) {
    if (!button.isCheckable()) return {{Kind::kText, button.rect().adjusted(6, 4, -6, -4)}};
    const bool check = qobject_cast<const QCheckBox*>(&button) != nullptr;
    QStyleOptionButton option;
    option.initFrom(&button);
    option.text = button.text();
    const auto place = [&](QStyle::SubElement part) {
        return button.style()->subElementRect(part, &option, &button);
    };
    // With enough of what is around it to tell the ground.
    constexpr int kAround = 5;
    return {
        {Kind::kText, place(check ? QStyle::SE_CheckBoxContents : QStyle::SE_RadioButtonContents)},
        {Kind::kIndicator,
         place(check ? QStyle::SE_CheckBoxIndicator : QStyle::SE_RadioButtonIndicator)
             .adjusted(-kAround, -kAround, kAround, kAround)}};
}

// Where a combo box shows its text; the picture of an entry is as wide as it is high.
QRect TextOf(const QComboBox& combo) {
    QStyleOptionComboBox option;
    option.initFrom(&combo);
    const QRect field = combo.style()->subControlRect(QStyle::CC_ComboBox, &option,
                                                      QStyle::SC_ComboBoxEditField, &combo);
    const int picture = field.height() > 30 ? field.height() * 5 / 4 : 0;
    const bool fromRight = combo.layoutDirection() == Qt::RightToLeft;
    return field.adjusted(fromRight ? 2 : picture + 2, 3, fromRight ? -picture - 2 : -2, -3);
}

// What a widget shows, without its frame.
std::vector<Part> PartsOf(QWidget& widget) {
    if (auto* label = qobject_cast<const QLabel*>(&widget)) {
        const auto role = QAccessible::queryAccessibleInterface(&widget)->role();
        const bool view = label->height() > 80;
        if (role == QAccessible::Graphic && !view) return {{Kind::kPicture, label->rect()}};
        if (role != QAccessible::StaticText || label->text().isEmpty()) return {};
        return {{Kind::kText, label->rect()}};
    }
    if (auto* button = qobject_cast<const QAbstractButton*>(&widget)) {
        return button->text().isEmpty() ? std::vector<Part>{} : PartsOfButton(*button);
    }
    if (auto* group = qobject_cast<const QGroupBox*>(&widget)) {
        if (group->title().isEmpty()) return {};
        return {{Kind::kText, QRect(2, 0, group->width() - 4, group->fontMetrics().height())}};
    }
    if (auto* combo = qobject_cast<const QComboBox*>(&widget)) {
        if (combo->currentText().isEmpty()) return {};
        return {{Kind::kText, TextOf(*combo)}};
    }
    if (auto* edit = qobject_cast<const QLineEdit*>(&widget)) {
        if (edit->text().isEmpty() || edit->hasSelectedText()) return {};
        return {{Kind::kText, edit->rect().adjusted(4, 4, -4, -4)}};
    }
    std::vector<Part> parts;
    if (auto* tabs = qobject_cast<const QTabBar*>(&widget)) {
        for (int i = 0; i < tabs->count(); ++i) {
            parts.push_back({Kind::kText, tabs->tabRect(i).adjusted(6, 6, -6, -4)});
        }
    }
    auto* list = qobject_cast<const QListWidget*>(widget.parentWidget());
    for (int i = 0; list && &widget == list->viewport() && i < list->count(); ++i) {
        const QRect entry = list->visualItemRect(list->item(i));
        parts.push_back({Kind::kText, entry.adjusted(2, 1, -2, -1)});
    }
    return parts;
}

QImage Crop(const QImage& image, const QRect& place) {
    const double ratio = image.devicePixelRatio();
    return image.copy(
        QRectF(QPointF(place.topLeft()) * ratio, QSizeF(place.size()) * ratio).toAlignedRect());
}

// On a light desktop and on a dark one.
class Contrast : public SheetTour, public testing::WithParamInterface<bool> {
 protected:
    void SetUp() override {
        if (GetParam()) UseDarkPalette();
        SheetTour::SetUp();
    }
};
INSTANTIATE_TEST_SUITE_P(Grounds, Contrast, testing::Bool(),
                         [](const auto& dark) { return dark.param ? "Dark" : "Light"; });

TEST_P(Contrast, TextsIndicatorsAndPicturesStandOut) {
    std::map<Kind, int> seen;
    Tour([&](QWidget& window, const std::string& name) {
        const QImage image = window.grab().toImage();
        for (QWidget* widget : window.findChildren<QWidget*>()) {
            if (!widget->isVisible()) continue;
            for (const auto& [kind, part] : PartsOf(*widget)) {
                // What cannot be used may be faint.
                if (kind != Kind::kPicture && !widget->isEnabled()) continue;
                const QRect place(widget->mapTo(&window, part.topLeft()), part.size());
                const bool text = kind == Kind::kText;
                const int pixels = text ? 3 : std::min(part.width(), part.height());
                EXPECT_GE(ContrastIn(Crop(image, place), pixels), text ? kForTexts : kForMarks)
                    << name << " " << widget->metaObject()->className() << " "
                    << widget->objectName().toStdString() << " at " << place.x() << ","
                    << place.y();
                ++seen[kind];
            }
        }
    });
    EXPECT_GT(seen[Kind::kText], 200);
    EXPECT_GT(seen[Kind::kIndicator], 30);
    EXPECT_GT(seen[Kind::kPicture], 10);
}

// The lists of pages per sheet and of its order, opened.
TEST_P(Contrast, EntriesOfListsStandOut) {
    OpenSheet();
    for (const int id : {1410, 1510}) {
        const HWND combo = Item(id, kLayout);
        QComboBox* box = qobject_cast<QComboBox*>(WidgetOf(*SheetWidget(), combo));
        ASSERT_NE(box, nullptr);
        kv::input::DropDown(combo, true);
        kv::Settle();
        QAbstractItemView* view = box->view();
        ASSERT_TRUE(view->isVisible());
        const QImage image = view->viewport()->grab().toImage();
        for (int i = 0; i < box->count(); ++i) {
            const QRect place = view->visualRect(box->model()->index(i, 0));
            if (!view->viewport()->rect().contains(place)) continue;
            const QRect icon(place.topLeft() + QPoint(place.height() / 5, 0),
                             QSize(place.height(), place.height()));
            EXPECT_GE(ContrastIn(Crop(image, icon), icon.width()), kForMarks) << id << " " << i;
            QRect text = place;
            text.setLeft(icon.right() + 2);
            EXPECT_GE(ContrastIn(Crop(image, text), 3), kForTexts) << id << " " << i;
        }
        kv::input::DropDown(combo, false);
    }
}

class PreviewContrast : public SheetTour {
 protected:
    // The large view of a page.
    QImage ViewOf(int page) {
        PageWindow(page);
        kv::Settle();
        return WidgetOf(*SheetWidget(), GetDlgItem(Panel(page), IDC_PIC_MAIN_VIEW))
            ->grab()
            .toImage();
    }
};

TEST_F(PreviewContrast, MarksOfThePreviewStandOut) {
    OpenSheet();
    const QImage plain = ViewOf(kLayout);
    // The sheet's edges in a row through its middle, and the names in the band at the top.
    constexpr int kEdge = 3;
    const int middle = plain.height() * 3 / 5;
    double edge = 0;
    for (int x = kEdge; x < plain.width() / 2; ++x) {
        edge = std::max(edge, Ratio(plain.pixel(x - kEdge, middle), plain.pixel(x, middle)));
    }
    EXPECT_GE(edge, kForMarks) << "sheet";
    EXPECT_GE(ContrastIn(plain.copy(2, 2, plain.width() - 4, plain.height() / 5), 10), kForTexts)
        << "names of the sizes";
    const auto change = [&](const char* name, const QImage& before, const QImage& after) {
        EXPECT_GE(ContrastOfChange(before, after), kForMarks) << name;
    };
    ChooseValue(IDC_COMBO_DUPLEX, 2, kLayout);
    change("binding", plain, ViewOf(kLayout));
    ChooseValue(IDC_COMBO_DUPLEX, 1, kLayout);
    ChooseValue(IDC_COMBO_NUP, 4, kLayout);
    const QImage four = ViewOf(kLayout);
    using Record = kvui::PrivateDevmode;
    const struct { const char* name; DWORD Record::*field; DWORD value; } marks[] = {
        {"numbers", &Record::mdmNupStyle, 1},
        {"borders", &Record::mdmNupStyle, 4},
        {"overlay", &Record::mdmOverlay, 1},
    };
    for (const auto& mark : marks) {
        Settings().*mark.field = mark.value;
        PageWindow(kJob);
        change(mark.name, four, ViewOf(kLayout));
        Settings().*mark.field = 0;
    }
    // A watermark has the colour in which it prints, which may be a faint one.
    constexpr DWORD kLetter = 1;
    ChooseValue(IDC_COMBO_NUP, 0, kLayout);
    ChooseValue(IDC_COMBO_PAPER_SIZE, kLetter);
    const QImage letter = ViewOf(kLayout);
    kv::input::Choose(Item(IDC_LIST_WATERMARK, kWatermark), 1);
    // Its small letters are mostly soft edges.
    EXPECT_GE(ContrastOfChange(letter, ViewOf(kLayout), 20), 1.3) << "watermark";
}

}  // namespace
}  // namespace journey
