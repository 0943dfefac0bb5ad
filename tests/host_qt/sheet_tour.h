// Shows every page of the real sheet and every dialog of the module, for tests that measure the
// whole window.
#pragma once

#include <host/index/sheet_pages.h>

#include "qt_fixture.h"
#include "tests/journeys/preferences.h"

#include <functional>
#include <set>

namespace journey {

inline DWORD StyleOf(HWND control) {
    return static_cast<DWORD>(GetWindowLongA(control, GWL_STYLE));
}

class SheetTour : public Preferences {
 protected:
    void TearDown() override;

    // How the desktop looks, until the test ends. The font grows by the factor.
    static void UseDarkPalette();
    static void UseFont(double factor);
    static void ReadFromRightToLeft() { QApplication::setLayoutDirection(Qt::RightToLeft); }

    using Visit = std::function<void(QWidget& window, const std::string& name)>;

    // Opens the sheet if it is not open, and visits each page and each dialog. A dialog that does
    // not open fails the test.
    void Tour(const Visit& visit);
    void TourPages(const Visit& visit);
    void VisitDialog(const std::string& name, const Visit& visit);
    QDialog* SheetWidget();
    // Below KV_KEEP_PICTURES, when it is set.
    static void Keep(QWidget& window, const std::string& name);
    // Visible controls in the order of the templates, panels on pages included.
    static std::vector<HWND> ControlsOf(HWND window);
    // Fields and their labels, which stand directly before them.
    static std::vector<std::pair<HWND, HWND>> LabelsAndFieldsOf(HWND window);
    // What takes input; a list of which nothing can be chosen and a fixed text do not.
    static bool IsField(HWND control);
    // The widget that stands for a control.
    static QWidget* WidgetOf(QWidget& window, HWND control);

 private:
    void Prepare(int page, int id, DWORD value);
    void OpenDialog(const kvhost::Dialog& row);
    void VisitDialog(const kvhost::Dialog& row, const Visit& visit);

    const QFont font_ = QApplication::font();
    const QPalette palette_ = QApplication::palette();
};

}  // namespace journey
