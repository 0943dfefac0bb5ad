// Every dialog of the module, how it opens, and the walk over them; see sheet_tour.h.
#include "sheet_tour.h"

#include <QTimer>

namespace journey {
namespace {

enum class Way {
    kClick,     // a button, or a check box that is off
    kChoose,    // an entry of a combo box that conflicts with the one chosen before
    kExport,    // no control opens it: the module's export, on the page's state
    kTemplate,  // behaviour is still to come: the template with its texts
    kMessage,   // a message box
};

struct Row {
    const char* name;
    int page;
    Way way;
    int control;  // that opens it; with kTemplate the title's string
    DWORD value;  // to choose in it
    int controlBefore;
    DWORD valueBefore;
    const char* dialogTemplate;
    const char* procedure;
};

// name, page, way, control, value, control and value before, template, export
// clang-format off
constexpr Row kDialogs[] = {
    {"first-page",        kBasic,     Way::kClick,    1170,  0, 0,    0,  nullptr,               nullptr},
    {"paper-source",      kBasic,     Way::kExport,   0,     0, 0,    0,  "_DLGTAB00",           "DDMTAB00"},
    {"custom-papers",     kBasic,     Way::kClick,    2003,  0, 0,    0,  nullptr,               nullptr},
    {"paper-editor",      kBasic,     Way::kTemplate, 9610,  0, 0,    0,  "_LBPEDITPAPER",       nullptr},
    {"save-settings",     kBasic,     Way::kTemplate, 15017, 0, 0,    0,  "DLGSAVEEASYSET",      nullptr},
    {"edit-settings",     kBasic,     Way::kTemplate, 15016, 0, 0,    0,  "DLGEDITEASYSET",      nullptr},
    {"keep-settings",     kBasic,     Way::kExport,   0,     0, 0,    0,  "_DLGKEEPSETTINGADD",  "DDMKeepSettingAdd"},
    {"saved-data",        kBasic,     Way::kExport,   0,     0, 0,    0,  "_DLGSAVEDATA",        "DDMSaveData"},
    // A transparency cannot come from the first tray.
    {"conflict",          kBasic,     Way::kChoose,   1141,  2, 1111, 1,  nullptr,               nullptr},
    {"pages-per-sheet",   kLayout,    Way::kClick,    1430,  0, 1410, 4,  nullptr,               nullptr},
    {"two-pages",         kLayout,    Way::kClick,    1430,  0, 1410, 2,  nullptr,               nullptr},
    {"booklet",           kLayout,    Way::kClick,    1430,  0, 1410, 20, nullptr,               nullptr},
    {"page-order",        kLayout,    Way::kExport,   0,     0, 0,    0,  "_DLGTAB02",           "DDMTAB02"},
    {"output-details",    kLayout,    Way::kExport,   0,     0, 0,    0,  "_DLGTAB01",           "DDMTAB01"},
    {"image-shift",       kLayout,    Way::kClick,    1912,  0, 1901, 1,  nullptr,               nullptr},
    {"overlay-editor",    kOverlay,   Way::kClick,    1893,  0, 0,    0,  nullptr,               nullptr},
    {"watermark-editor",  kWatermark, Way::kClick,    8006,  0, 0,    0,  nullptr,               nullptr},
    {"record-editor",     kWatermark, Way::kExport,   0,     0, 0,    0,  "_DLGEDIT0",           "DDMEDIT0"},
    {"quality-list",      kQuality,   Way::kExport,   0,     0, 0,    0,  "_DLGTAB20",           "DDMTAB20"},
    {"mailboxes",         kDevice,    Way::kExport,   0,     0, 0,    0,  "_MAILBOXR",           "DDMMailBox"},
    {"option-conflict",   kDevice,    Way::kTemplate, 9450,  0, 0,    0,  "_OPTIONCONFLICT",     nullptr},
    {"advanced-settings", kDevice,    Way::kTemplate, 0,     0, 0,    0,  "_ADVANCEDSETTINGS",   nullptr},
    {"hue-correction",    kDevice,    Way::kTemplate, 0,     0, 0,    0,  "_HUECORRECTION",      nullptr},
    {"printer-about",     kDevice,    Way::kExport,   0,     0, 0,    0,  "_ABOUTKVI",           "DDMPrinterProp"},
    {"about",             kDevice,    Way::kExport,   0,     0, 0,    0,  "_ABOUTKVI",           "DDMAbout"},
    {"message",           kDevice,    Way::kMessage,  0,     0, 0,    0,  nullptr,               nullptr},
};
// clang-format on

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
    for (size_t i = 0; i < std::size(kDialogs); ++i) {
        VisitDialog(i, [&](QWidget& window, const std::string& name) {
            seen.insert(name);
            visit(window, name);
        });
        EXPECT_EQ(seen.count(kDialogs[i].name), 1u) << kDialogs[i].name << " did not open";
    }
}

void SheetTour::Prepare(int page, int id, DWORD value) {
    const HWND control = Item(id, page);
    if (!IsCheckBox(control)) return ChooseValue(id, value, page);
    if (static_cast<DWORD>(SendMessageA(control, BM_GETCHECK, 0, 0)) != value) {
        kv::input::Click(control);
    }
}

void SheetTour::OpenDialog(size_t index) {
    const Row& row = kDialogs[index];
    const HWND page = PageWindow(row.page);
    Texts texts{module_->handle(), static_cast<UINT>(row.control)};
    switch (row.way) {
        case Way::kClick: {
            const HWND opener = FindBelow(page, row.control);
            if (IsCheckBox(opener)) Prepare(row.page, row.control, BST_UNCHECKED);
            kv::input::Click(opener);
            return;
        }
        case Way::kChoose:
            return ChooseValue(row.control, row.value, row.page);
        case Way::kExport:
            module_->RunDialog(page, row.dialogTemplate, row.procedure);
            return;
        case Way::kTemplate:
            DialogBoxParamA(module_->handle(), row.dialogTemplate, page, TextsOnly,
                            reinterpret_cast<LPARAM>(&texts));
            return;
        case Way::kMessage:
            MessageBoxA(page, "Do you want to restore Default setting ?", "Warning",
                        MB_OKCANCEL | MB_ICONEXCLAMATION);
            return;
    }
}

void SheetTour::VisitDialog(const std::string& name, const Visit& visit) {
    for (size_t i = 0; i < std::size(kDialogs); ++i) {
        if (name == kDialogs[i].name) VisitDialog(i, visit);
    }
}

void SheetTour::VisitDialog(size_t index, const Visit& visit) {
    const Row& row = kDialogs[index];
    if (row.controlBefore) Prepare(row.page, row.controlBefore, row.valueBefore);
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
    OpenDialog(index);
}

}  // namespace journey
