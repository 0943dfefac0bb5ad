// Every dialog of the module, how it opens, and the walk over them; see sheet_tour.h.
#include "sheet_tour.h"

#include <host/index/sheet_pages.h>

#include <QPushButton>
#include <QTimer>
#include <vector>

namespace journey {
namespace {

using kvhost::Dialog;
using kvhost::Opening;

// A dialog as it looks after another choice, and the message box.
constexpr char kMessageBox[] = "message";
const Dialog kFurther[] = {
    {"two-pages", kLayout, "", "", 0, Opening::kClick, "", 1430, 0, 1410, 2},
    {"booklet", kLayout, "", "", 0, Opening::kClick, "", 1430, 0, 1410, 20},
    {kMessageBox, kDevice, "", "", 0, Opening::kNone, "", 0, 0, 0, 0},
};

std::vector<Dialog> AllDialogs() {
    std::vector<Dialog> dialogs(kvhost::kDialogs.begin(), kvhost::kDialogs.end());
    dialogs.insert(dialogs.end(), std::begin(kFurther), std::end(kFurther));
    return dialogs;
}

constexpr int kPatience = 20;

HWND FindBelow(HWND window, int id) {
    if (const HWND child = GetDlgItem(window, id)) return child;
    const kv::Window* record = kv::WindowFromHandle(window);
    for (HWND child : record ? record->children : std::vector<HWND>{}) {
        if (const HWND found = FindBelow(child, id)) return found;
    }
    return nullptr;
}

struct Texts {
    HMODULE module;
    UINT title;

    void Set(HWND window, UINT id) const {
        char text[256] = "";
        if (id != 0 && LoadStringA(module, id, text, sizeof text)) SetWindowTextA(window, text);
    }
};

// As every dialog of the module begins: the title, and texts by the controls' ids.
INT_PTR CALLBACK TextsOnly(HWND dialog, UINT message, WPARAM wParam, LPARAM lParam) {
    if (message == WM_COMMAND && LOWORD(wParam) == IDCANCEL) return EndDialog(dialog, 0);
    if (message != WM_INITDIALOG) return FALSE;
    const auto& texts = *reinterpret_cast<const Texts*>(lParam);
    texts.Set(dialog, texts.title);
    for (HWND child : kv::WindowFromHandle(dialog)->children) {
        texts.Set(child, static_cast<UINT>(std::max(0, GetDlgCtrlID(child))));
    }
    // A note that is never empty.
    if (const HWND note = GetDlgItem(dialog, IDC_EDIT_SET_NOTICE)) texts.Set(note, 16002);
    return TRUE;
}

}  // namespace

void SheetTour::TearDown() {
    Preferences::TearDown();
    QApplication::setFont(font_);
    QApplication::setPalette(palette_);
    QApplication::setLayoutDirection(Qt::LeftToRight);
}

void SheetTour::UseFont(double factor) {
    QFont font = QApplication::font();
    font.setPointSizeF(font.pointSizeF() * factor);
    QApplication::setFont(font);
}

void SheetTour::UseDarkPalette() {
    QPalette dark(QColor(45, 45, 48), QColor(45, 45, 48));
    dark.setColor(QPalette::Base, QColor(30, 30, 30));
    QApplication::setPalette(dark);
}

std::vector<HWND> SheetTour::ControlsOf(HWND window) {
    std::vector<HWND> controls;
    for (HWND child : kv::WindowFromHandle(window)->children) {
        if (!IsWindowVisible(child)) continue;
        if (kv::KindOf(child) != "dialog") {
            controls.push_back(child);
            continue;
        }
        const std::vector<HWND> inner = ControlsOf(child);
        controls.insert(controls.end(), inner.begin(), inner.end());
    }
    return controls;
}

bool SheetTour::IsField(HWND control) {
    const auto kind = kv::KindOf(control);
    if (kind == "edit") return (StyleOf(control) & ES_READONLY) == 0;
    if (kind == "list") return (StyleOf(control) & LBS_NOSEL) == 0;
    return kind == "combo" || kind == "trackbar";
}

std::vector<std::pair<HWND, HWND>> SheetTour::LabelsAndFieldsOf(HWND window) {
    std::vector<std::pair<HWND, HWND>> pairs;
    HWND before = nullptr;
    for (HWND control : ControlsOf(window)) {
        const HWND label = std::exchange(before, control);
        if (label && kv::KindOf(label) == "static" && IsField(control)) {
            pairs.emplace_back(label, control);
        }
    }
    return pairs;
}

QWidget* SheetTour::WidgetOf(QWidget& window, HWND control) {
    // The widgets of pages that are turned away keep their names.
    for (QWidget* widget : window.findChildren<QWidget*>(QString::number(GetDlgCtrlID(control)))) {
        if (widget->isVisible()) return widget;
    }
    return nullptr;
}

QDialog* SheetTour::SheetWidget() {
    return kv::DialogTitled(QString::fromLatin1(Text(sheet_)));
}

void SheetTour::Keep(QWidget& window, const std::string& name) {
    if (const char* folder = std::getenv("KV_KEEP_PICTURES")) {
        window.grab().save(QString::fromUtf8(folder) + "/" + QString::fromStdString(name) + ".png");
    }
}

void SheetTour::TourPages(const Visit& visit) {
    constexpr const char* kNames[] = {"basic",   "layout", "overlay",         "watermark",
                                      "quality", "device", "troubleshooting", "job-management"};
    if (!sheet_) OpenSheet();
    for (int page = kBasic; page <= kJob; ++page) {
        ASSERT_NE(PageWindow(page), nullptr) << kNames[page];
        QDialog* window = SheetWidget();
        ASSERT_NE(window, nullptr);
        visit(*window, kNames[page]);
    }
}

void SheetTour::Tour(const Visit& visit) {
    TourPages(visit);
    std::set<std::string> seen;
    for (const Dialog& dialog : AllDialogs()) {
        VisitDialog(dialog, [&](QWidget& window, const std::string& name) {
            seen.insert(name);
            visit(window, name);
        });
        EXPECT_EQ(seen.count(dialog.name), 1u) << dialog.name << " did not open";
    }
}

void SheetTour::Prepare(int page, int id, DWORD value) {
    const HWND control = Item(id, page);
    if (kv::KindOf(control) != "button") return ChooseValue(id, value, page);
    if (static_cast<DWORD>(SendMessageA(control, BM_GETCHECK, 0, 0)) != value) {
        kv::input::Click(control);
    }
}

void SheetTour::OpenDialog(const Dialog& row) {
    const HWND page = PageWindow(row.page);
    const int control = static_cast<int>(row.control);
    if (row.name == std::string(kMessageBox)) {
        MessageBoxA(page, "Do you want to restore Default setting ?", "Warning",
                    MB_OKCANCEL | MB_ICONEXCLAMATION);
        return;
    }
    Texts texts{module_->handle(), row.titleId};
    switch (row.opening) {
        case Opening::kInDialog:
        case Opening::kClick: {
            const HWND opener = FindBelow(page, control);
            if ((StyleOf(opener) & BS_TYPEMASK) == BS_AUTOCHECKBOX) {
                Prepare(row.page, control, BST_UNCHECKED);
            }
            kv::input::Click(opener);
            return;
        }
        case Opening::kChoose:
            return ChooseValue(control, row.value, row.page);
        case Opening::kExport:
            module_->RunDialog(page, row.templateName, row.procedure);
            return;
        case Opening::kRightClick:
            kv::input::RightClickAt(page, kvhost::kBesideControls, kv::input::kShift);
            return;
        case Opening::kNone:
            DialogBoxParamA(module_->handle(), row.templateName, page, TextsOnly,
                            reinterpret_cast<LPARAM>(&texts));
            return;
    }
}

void SheetTour::VisitDialog(const std::string& name, const Visit& visit) {
    for (const Dialog& dialog : AllDialogs()) {
        if (name == dialog.name) VisitDialog(dialog, visit);
    }
}

void SheetTour::VisitDialog(const Dialog& row, const Visit& visit) {
    if (row.controlBefore) {
        Prepare(row.page, static_cast<int>(row.controlBefore), row.valueBefore);
    }
    // A dialog keeps the click from returning; a click that opens none returns first.
    QTimer timer;
    QObject::connect(&timer, &QTimer::timeout, [&] {
        QWidget* dialog = QApplication::activeModalWidget();
        if (!dialog) return;
        timer.stop();
        kv::Settle();
        visit(*dialog, row.name);
        kv::input::Key(VK_ESCAPE);
        // What does not end by Escape ends by its close box.
        while (QApplication::activeModalWidget() == dialog) {
            dialog->close();
            kv::Settle();
        }
    });
    QTimer outer;
    QObject::connect(&outer, &QTimer::timeout, [&] {
        QWidget* dialog = QApplication::activeModalWidget();
        if (!dialog) return;
        outer.stop();
        kv::Settle();
        timer.start(kPatience);
        dialog->findChild<QPushButton*>(QString::number(row.value))->click();
        kv::input::Key(VK_ESCAPE);
    });
    (row.opening == Opening::kInDialog ? outer : timer).start(kPatience);
    OpenDialog(row);
}

}  // namespace journey
