// Shows every page of the real sheet and every dialog that opens from one, for tests that measure
// the whole window.
#pragma once

#include "qt_fixture.h"
#include "tests/journeys/preferences.h"

#include <functional>
#include <set>

namespace journey {

class SheetTour : public Preferences {
 protected:
    using Visit = std::function<void(QWidget& window, const std::string& name)>;

    // Opens the sheet if it is not open, and visits each page and each dialog.
    void Tour(const Visit& visit);
    void TourPages(const Visit& visit);
    QDialog* SheetWidget();
    // Below KV_KEEP_PICTURES, when it is set.
    static void Keep(QWidget& window, const std::string& name);

    // Names of the dialogs that opened so far.
    std::set<std::string> opened;

 private:
    void VisitDialogs(const Visit& visit);
};

}  // namespace journey
