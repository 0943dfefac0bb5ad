// The steps of the Paper View, from the sheet to the labels.
#include "preview/paper_plan.h"

#include "sheet/private_devmode.h"

namespace kvui {
namespace {

// The labels stand above; sheet and page share what is left.
constexpr int kLabelBand = 27;
// Distance of the binding arrow from the sheet's lower right corner.
constexpr int kArrowDistance = 5;

class Planner {
   public:
    Planner(const PaperSettings& settings, SIZE view, PictureSizes& pictures)
        : settings_(settings),
          view_(view),
          pictures_(pictures),
          layout_(LayoutOf(settings.nup)),
          grid_(GridOf(layout_, settings.document)),
          shape_(SheetShape(layout_.kind, settings.document)) {}

    // Each step answers false when one of its pictures cannot be loaded; then nothing follows.
    LayerList Plan() {
        using Step = bool (Planner::*)();
        constexpr Step kSteps[] = {
            &Planner::AddSheet,   &Planner::AddPage,       &Planner::AddBorders,
            &Planner::AddNumbers, &Planner::AddBindingBar, &Planner::AddOverlay,
            &Planner::AddWatermarks, &Planner::AddBindingArrow, &Planner::AddLabels,
        };
        for (const Step step : kSteps) {
            if (!(this->*step)()) break;
        }
        return layers_;
    }

   private:
    bool AddPicture(PictureId id, int x, int y, SIZE size) {
        layers_.Add({LayerKind::kPicture, id, {x, y, x + size.cx, y + size.cy}});
        return true;
    }
    RECT CentredBox(SIZE size) const {
        const int x = (view_.cx - size.cx) / 2;
        const int y = (view_.cy - size.cy - kLabelBand) / 2 + kLabelBand;
        return {x, y, x + size.cx, y + size.cy};
    }
    bool AddCentred(PictureId id, RECT* box = nullptr) {
        SIZE size{};
        if (!pictures_.SizeOf(id, size)) return false;
        const RECT place = CentredBox(size);
        if (box != nullptr) *box = place;
        return AddPicture(id, place.left, place.top, size);
    }

    bool AddSheet() {
        const SheetRow* sheet = SheetOf(settings_.duplexMode, layout_.kind, settings_.document);
        if (sheet == nullptr) return false;
        const PictureId picture = SheetPicture(*sheet, settings_.nup);
        SIZE size{};
        if (!pictures_.SizeOf(picture, size)) return false;
        const int x = (view_.cx - size.cx + sheet->shiftX) / 2;
        const int y = (view_.cy - size.cy + sheet->shiftY) / 2 + kLabelBand;
        paper_ = {x, y, x + size.cx - sheet->marginX, y + size.cy - sheet->marginY};
        return AddPicture(picture, x, y, size);
    }

    bool AddPage() {
        const int document = settings_.document == Shape::kLandscape ? 1 : 0;
        const int set = settings_.colour ? kColourPages : 0;
        return AddCentred({static_cast<WORD>(layout_.pages[document] + set), 0}, &page_);
    }

    bool AddBorders() {
        if ((settings_.nupStyle & kNupBorder) == 0) return true;
        if (!AddCentred({FramePicture(shape_), 0})) return false;
        const WORD grid = layout_.grids[settings_.document == Shape::kLandscape ? 1 : 0];
        return grid == 0 || AddCentred({grid, 0});
    }

    // Numbers stand at the foot of their cells. The upper rows of some grids end a pixel or two
    // above the cell, where the page pictures leave room for them.
    int NumberLift(int row) const {
        if (row != 0) return 0;
        if (layout_.nup == 9 || layout_.nup == 16) return 1;
        return layout_.nup == 6 && settings_.document == Shape::kLandscape ? 2 : 0;
    }

    bool AddNumber(int column, int row) {
        // Two pages lie side by side or one above the other: there is no other direction.
        const DWORD order =
            layout_.nup == 2 ? settings_.nupStyle & kOrderFromRight : settings_.nupStyle;
        const PictureId id = NumberPicture(PageNumberAt(grid_, order, column, row));
        SIZE size{};
        if (!pictures_.SizeOf(id, size)) return false;
        const RECT cell = CellOf(grid_, page_, column, row);
        return AddPicture(id, cell.left + (cell.right - cell.left - size.cx) / 2,
                          cell.bottom - size.cy - NumberLift(row), size);
    }

    // Only the corners are numbered; in a grid of one column or row two corners are the same cell.
    bool AddNumbers() {
        const int lastColumn = grid_.columns - 1;
        const int lastRow = grid_.rows - 1;
        for (int row = 0; row <= lastRow; row += lastRow > 0 ? lastRow : 1) {
            for (int column = 0; column <= lastColumn; column += lastColumn > 0 ? lastColumn : 1) {
                if (!AddNumber(column, row)) return false;
            }
        }
        return true;
    }

    bool AddBindingBar() {
        const BindingRow* row = BindingOf(settings_.duplexMode, layout_.kind, settings_.document);
        if (row == nullptr) return true;
        SIZE size{};
        if (!pictures_.SizeOf({row->bar, 0}, size)) return false;
        return AddPicture({row->bar, 0}, paper_.left, paper_.top + row->barDown, size);
    }

    bool AddOverlay() {
        return settings_.overlay == 0 || AddCentred({OverlayPicture(shape_), 0});
    }

    bool AddWatermarks() {
        if (settings_.watermark == 0) return true;
        const bool firstOnly = (settings_.watermarkMode & kWatermarkFirstPage) != 0;
        for (int row = 0; row < (firstOnly ? 1 : grid_.rows); ++row) {
            for (int column = 0; column < (firstOnly ? 1 : grid_.columns); ++column) {
                layers_.Add({LayerKind::kWatermark, {}, CellOf(grid_, page_, column, row)});
            }
        }
        return true;
    }

    bool AddBindingArrow() {
        const BindingRow* row = BindingOf(settings_.duplexMode, layout_.kind, settings_.document);
        if (row == nullptr) return true;
        SIZE size{};
        if (!pictures_.SizeOf(row->arrow, size)) return false;
        return AddPicture(row->arrow, paper_.right - size.cx - kArrowDistance,
                          paper_.bottom - size.cy - kArrowDistance, size);
    }

    bool AddLabels() {
        layers_.Add({LayerKind::kLabels, {}, {}});
        return true;
    }

    const PaperSettings& settings_;
    const SIZE view_;
    PictureSizes& pictures_;
    const LayoutRow& layout_;
    const PageGrid grid_;
    const Shape shape_;  // of the sheet and of the page on it
    RECT paper_{};       // the sheet without what lies behind it
    RECT page_{};
    LayerList layers_;
};

}  // namespace

LayerList PlanPaperView(const PaperSettings& settings, SIZE view, PictureSizes& pictures) {
    return Planner(settings, view, pictures).Plan();
}

}  // namespace kvui
