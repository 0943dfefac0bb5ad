// Every dialog of the module, how it opens, and the walk over them; see sheet_tour.h.
#include "sheet_tour.h"

#include <host/index/sheet_pages.h>

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
};

void SetText(HMODULE module, HWND window, UINT id) {
    char text[256] = "";
    if (LoadStringA(module, id, text, sizeof text)) SetWindowTextA(window, text);
}

// As every dialog of the module begins: the title, and texts by the controls' ids.
INT_PTR CALLBACK TextsOnly(HWND dialog, UINT message, WPARAM wParam, LPARAM lParam) {
    if (message == WM_COMMAND && LOWORD(wParam) == IDCANCEL) return EndDialog(dialog, 0);
    if (message != WM_INITDIALOG) return FALSE;
    const auto& texts = *reinterpret_cast<const Texts*>(lParam);
    if (texts.title) SetText(texts.module, dialog, texts.title);
    for (HWND child : kv::WindowFromHandle(dialog)->children) {
        const int id = GetDlgCtrlID(child);
        if (id > 0) SetText(texts.module, child, static_cast<UINT>(id));
    }
    // A note that is never empty.
    if (const HWND note = GetDlgItem(dialog, 15015)) SetText(texts.module, note, 16002);
    return TRUE;
}

bool IsCheckBox(HWND control) {
    const auto type = static_cast<DWORD>(GetWindowLongA(control, GWL_STYLE)) & BS_TYPEMASK;
    return kv::KindOf(control) == "button" && type == BS_AUTOCHECKBOX;
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

QWidget* SheetTour::WidgetOf(QWidget& window, HWND control) {
    // The widgets of pages that are turned away keep their names.
    for (QWidget* widget : window.findChildren<QWidget*>(QString::number(GetDlgCtrlID(control)))) {
        if (widget->isVisible()) return widget;
    }
    return nullptr;
}

QDialog* SheetTour::SheetWidget() {
    char title[256] = "";
    GetWindowTextA(sheet_, title, sizeof title);
    return kv::DialogTitled(QString::fromLatin1(title));
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
    if (!IsCheckBox(control)) return ChooseValue(id, value, page);
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
        case Opening::kClick: {
            const HWND opener = FindBelow(page, control);
            if (IsCheckBox(opener)) Prepare(row.page, control, BST_UNCHECKED);
            kv::input::Click(opener);
            return;
        }
        case Opening::kChoose:
            return ChooseValue(control, row.value, row.page);
        case Opening::kExport:
            module_->RunDialog(page, row.templateName, row.procedure);
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
    timer.start(kPatience);
    OpenDialog(row);
}

}  // namespace journey
