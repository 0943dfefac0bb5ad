// The openers of every dialog and the walk over them, see sheet_tour.h.
#include "sheet_tour.h"

#include <QTimer>

namespace journey {
namespace {

// Dialog, page, control that opens it; a combo box and the entry to choose in it before (0: none).
constexpr struct {
    const char* name;
    int page;
    int opener;
    int combo;
    DWORD value;
} kDialogs[] = {
    {"first-page", kBasic, 1170, 0, 0},          {"custom-papers", kBasic, 2003, 0, 0},
    {"save-settings", kBasic, 15002, 0, 0},      {"edit-settings", kBasic, 15003, 0, 0},
    {"pages-per-sheet", kLayout, 1430, 1410, 4}, {"image-shift", kLayout, 1912, 0, 0},
    {"overlay-editor", kOverlay, 1892, 0, 0},    {"watermark-editor", kWatermark, 8006, 0, 0},
    {"mailboxes", kDevice, 4008, 0, 0},
};

constexpr int kPatience = 50;

HWND FindBelow(HWND window, int id) {
    if (const HWND child = GetDlgItem(window, id)) return child;
    const kv::Window* record = kv::WindowFromHandle(window);
    for (HWND child : record ? record->children : std::vector<HWND>{}) {
        if (const HWND found = FindBelow(child, id)) return found;
    }
    return nullptr;
}

}  // namespace

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
    if (!sheet_) OpenSheet();
    for (int page = kBasic; page <= kJob; ++page) {
        if (!PageWindow(page)) continue;
        QDialog* window = SheetWidget();
        ASSERT_NE(window, nullptr);
        visit(*window, "page-" + std::to_string(page));
    }
}

void SheetTour::Tour(const Visit& visit) {
    TourPages(visit);
    VisitDialogs(visit);
}

void SheetTour::VisitDialogs(const Visit& visit) {
    for (const auto& row : kDialogs) {
        const HWND opener = FindBelow(PageWindow(row.page), row.opener);
        if (!opener) continue;
        if (row.combo) ChooseValue(row.combo, row.value, row.page);
        // A dialog keeps the click from returning; a click that opens none returns first.
        QTimer timer;
        QObject::connect(&timer, &QTimer::timeout, [&] {
            QWidget* dialog = QApplication::activeModalWidget();
            if (!dialog) return;
            timer.stop();
            opened.insert(row.name);
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
        kv::input::Click(opener);
    }
}

}  // namespace journey
